// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/KeyFields.h"

#include <MorrantUI/controls/values/NumericField.h>

#include <QFormLayout>
#include <QPointer>

#include <cmath>
#include <utility>

namespace {

constexpr int kMargin = 4;

} // namespace

KeyFields::KeyFields(QWidget* parent)
    : Widget(parent)
    , m_frame(new NumericField)
    , m_value(new NumericField)
{
    auto* const layout = new QFormLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addRow(tr("Frame"), m_frame);
    layout->addRow(tr("Value"), m_value);
    m_frame->setAccessibleName(tr("Frame of the key"));
    m_value->setAccessibleName(tr("Value of the key"));
    watch(*m_frame);
    watch(*m_value);
    setKey(std::nullopt, std::nullopt);
}

KeyFields::~KeyFields()
{
    m_frame->disconnect(this); // which may commit as they die
    m_value->disconnect(this);
}

void KeyFields::watch(NumericField& field)
{
    field.setFieldType(NumericField::FloatingPoint);
    field.setValue(0);
    connect(&field, &NumericField::dragStateChanged, this, [this, &field](bool dragging) {
        m_dragged = dragging ? &field : nullptr;
        dragging ? begin(field) : end();
    });
    connect(&field, &NumericField::edited, this, [this, &field](double number, bool committed) {
        take(field, number, committed);
    });
}

// From the host

void KeyFields::setKey(std::optional<double> frame, std::optional<double> value)
{
    const QPointer<KeyFields> alive(this);
    showIn(*m_frame, m_shownFrame, frame);
    if (alive) {
        showIn(*m_value, m_shownValue, value);
    }
}

void KeyFields::showIn(NumericField& field, double& shown, std::optional<double> number)
{
    const bool isNumber = number && std::isfinite(*number);
    const QPointer<KeyFields> alive(this);
    field.setEnabled(isNumber); // which may end a step
    if (!alive) {
        return;
    }
    const bool isStepped = m_edited == &field && m_dragged != &field; // by key, and to be committed
    if (isNumber && !isStepped && (field.isReadOnly() || !field.isModified())) {
        field.setValue(*number);
        shown = field.value();
    } else if (!isNumber && m_edited != &field) {
        field.clear();
    }
}

void KeyFields::finishEditing()
{
    const QPointer<KeyFields> alive(this);
    for (NumericField* field : {m_frame, m_value}) {
        if (alive) {
            commit(*field);
        }
    }
    if (alive) {
        end();
    }
}

/// This object may be deleted by it.
void KeyFields::commit(NumericField& field)
{
    const QPointer<KeyFields> alive(this);
    field.finishDrag();
    if (alive && field.hasFocus()) {
        field.clearFocus();
    }
}

void KeyFields::leaveKey()
{
    if (m_edited) {
        finishEditing();
        return;
    }
    for (const auto& [field, shown] :
         {std::pair(m_frame, m_shownFrame), std::pair(m_value, m_shownValue)})
    {
        if (field->isModified()) {
            field->setValue(shown);
            field->setModified(false);
        }
    }
}

// From the user

/// Steps by key go on until they are committed, or taken back.
void KeyFields::take(NumericField& field, double number, bool committed)
{
    const QPointer<KeyFields> alive(this);
    begin(field);
    if (alive && m_edited == &field) {
        (&field == m_frame ? m_shownFrame : m_shownValue) = number;
        &field == m_frame ? Q_EMIT frameEdited(number) : Q_EMIT valueEdited(number);
    }
    const bool isOpen = alive && m_edited == &field && m_dragged != &field;
    if (isOpen && (committed || number == m_before)) {
        end();
    }
}

void KeyFields::begin(NumericField& field)
{
    if (m_edited == &field) {
        return;
    }
    const bool isDrag = m_dragged == &field;
    const QPointer<KeyFields> alive(this);
    if (m_edited) {
        commit(*m_edited);
    }
    if (alive) {
        end();
    }
    if (alive && isDrag == (m_dragged == &field)) { // else a slot has ended it
        m_edited = &field;
        m_before = &field == m_frame ? m_shownFrame : m_shownValue;
        Q_EMIT editStarted();
    }
}

void KeyFields::end()
{
    if (const NumericField* field = std::exchange(m_edited, nullptr)) {
        Q_EMIT editEnded(field->value() != m_before);
    }
}

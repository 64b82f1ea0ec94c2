// SPDX-License-Identifier: Apache-2.0
#include "graph/KeyFields.h"

#include <MorrantUI/controls/values/NumericField.h>

#include <QFormLayout>

namespace studio {

namespace {

constexpr int kMargin = 4;

void showNumber(NumericField& field, std::optional<double> number)
{
    field.setEnabled(number.has_value());
    if (number && field.isReadOnly()) { // else it is being typed in
        field.setValue(*number);
    }
}

} // namespace

KeyFields::KeyFields(QWidget* parent)
    : Widget(parent)
    , m_frame(new NumericField)
    , m_value(new NumericField)
{
    auto* layout = new QFormLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addRow(tr("Frame"), m_frame);
    layout->addRow(tr("Value"), m_value);
    m_frame->setAccessibleName(tr("Frame of the key"));
    m_value->setAccessibleName(tr("Value of the key"));
    for (NumericField* field : {m_frame, m_value}) {
        field->setFieldType(NumericField::FloatingPoint);
        field->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
        field->setValue(0);
        connect(field, &NumericField::dragStateChanged, this, [this](bool dragging) {
            dragging ? Q_EMIT editingStarted() : Q_EMIT dragEnded();
        });
    }
    connect(m_frame, &NumericField::edited, this, &KeyFields::frameEdited);
    connect(m_value, &NumericField::edited, this, &KeyFields::valueEdited);
    setKey(std::nullopt, std::nullopt);
}

void KeyFields::setKey(std::optional<double> frame, std::optional<double> value)
{
    showNumber(*m_frame, frame);
    showNumber(*m_value, value);
}

void KeyFields::finishEditing()
{
    for (NumericField* field : {m_frame, m_value}) {
        if (field->hasFocus()) {
            field->clearFocus();
        }
    }
}

} // namespace studio

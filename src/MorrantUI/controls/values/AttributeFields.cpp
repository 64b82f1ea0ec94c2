// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/AttributeFields.h"

#include "MorrantUI/controls/values/PendingValue.h"
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/valueformat.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool shows(const NumericField& field, double value)
{
    const QString text =
        ui::formatValue(value, {field.getMin(), field.getMax(), field.isInteger()});
    return field.value() == text.toDouble();
}

bool isBeingEdited(const NumericField& field)
{
    return field.hasFocus() && !field.isReadOnly();
}

} // namespace

AttributeFields::AttributeFields(QObject* parent)
    : QObject(parent)
{}

AttributeFields::~AttributeFields() = default;

NumericField* AttributeFields::add(double value, QWidget* parent)
{
    const int index = count();
    auto* editor = new NumericField(0.0, parent);
    editor->setFieldType(NumericField::FloatingPoint);
    editor->setValue(value);
    connect(editor, &NumericField::valueChanged, this, [this, index](bool committed) {
        fieldChanged(index, committed);
    });
    connect(editor, &NumericField::dragStateChanged, this, [this, index](bool dragging) {
        fieldDragged(index, dragging);
    });
    Field& added = m_fields.emplace_back();
    added.editor = editor;
    added.shown = new PendingValue(editor);
    connect(added.shown, &PendingValue::settled, this, [this] {
        rememberValues();
        Q_EMIT caughtUp();
    });
    added.defaultValue = std::isfinite(value) ? value : 0.0;
    rememberValues();
    return editor;
}

const AttributeFields::Field* AttributeFields::find(int index) const
{
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const Field& field = m_fields[static_cast<std::size_t>(index)];
    return field.editor ? &field : nullptr;
}

AttributeFields::Field* AttributeFields::find(int index)
{
    return const_cast<Field*>(std::as_const(*this).find(index));
}

NumericField* AttributeFields::at(int index) const
{
    const Field* const field = find(index);
    return field ? field->editor.data() : nullptr;
}

void AttributeFields::setValue(int index, double value)
{
    Field* const field = find(index);
    const bool isDue = std::find(m_due.begin(), m_due.end(), index) != m_due.end();
    if (field && !isDue && !std::isnan(value) && field->shown->show(value)) {
        rememberValues();
    }
}

void AttributeFields::setDefaultValue(int index, double value)
{
    Field* const field = find(index);
    if (field && std::isfinite(value)) {
        field->defaultValue = value;
    }
}

bool AttributeFields::areAtDefault() const
{
    return std::all_of(m_fields.begin(), m_fields.end(), [](const Field& field) {
        return !field.editor || shows(*field.editor, field.defaultValue);
    });
}

std::vector<int> AttributeFields::showDefaults()
{
    std::vector<int> reset;
    for (int i = 0; i < count(); ++i) {
        Field* const field = find(i);
        if (!field) {
            continue;
        }
        field->shown->forget(); // and what is being typed gives way, too
        if (!shows(*field->editor, field->defaultValue)) {
            field->editor->setValue(field->defaultValue);
            reset.push_back(i);
        }
    }
    rememberValues();
    return reset;
}

void AttributeFields::commitTyping()
{
    const QPointer<AttributeFields> self(this);
    for (int i = 0; self && i < count(); ++i) {
        NumericField* const editor = at(i);
        if (editor && isBeingEdited(*editor)) {
            editor->enterText(editor->text());
        }
    }
}

void AttributeFields::report(int index, bool committed)
{
    if (Field* const field = find(index)) {
        field->uncommitted = !committed;
        Q_EMIT changed(index, committed);
    }
}

void AttributeFields::reportAll(std::vector<int> indices, bool committed)
{
    const QPointer<AttributeFields> self(this);
    std::vector<int> outer = std::exchange(m_due, std::move(indices)); // of which this is a slot
    while (self && !m_due.empty()) {
        const int index = m_due.front();
        m_due.erase(m_due.begin());
        report(index, committed);
    }
    if (self) {
        m_due = std::move(outer);
    }
}

void AttributeFields::fieldChanged(int index, bool committed)
{
    Field* const field = find(index);
    if (!field) {
        return;
    }
    if (committed) {
        field->shown->forget();
    }
    std::vector<int> moved{index};
    if (m_locked) {
        const std::vector<int> others = scaleOthers(index);
        moved.insert(moved.end(), others.begin(), others.end());
    }
    const QPointer<AttributeFields> self(this);
    reportAll(std::move(moved), committed);
    if (self && committed) {
        commitSteps();
    }
    if (self) {
        rememberValues();
        Q_EMIT edited(committed);
    }
}

void AttributeFields::fieldDragged(int index, bool dragging)
{
    if (!find(index) || find(index)->dragging == dragging) {
        return; // a context menu ends drags that were none
    }
    if (dragging) {
        rememberValues(); // before it counts as a drag
        find(index)->dragging = true;
    } else {
        const QPointer<AttributeFields> self(this);
        if (commitSteps() && self) {
            Q_EMIT edited(true);
        }
        if (!self || !find(index)) {
            return;
        }
        find(index)->dragging = false;
        rememberValues();
    }
    Q_EMIT dragged(index, dragging);
}

/// Scales the other fields by the factor of the one that has changed.
/// @return which of them have changed
std::vector<int> AttributeFields::scaleOthers(int index)
{
    const Field& leader = *find(index);
    const double factor = leader.editor->value() / leader.before;
    std::vector<int> moved;
    for (int i = 0; std::isfinite(factor) && i < count(); ++i) {
        const Field* const follower = find(i);
        if (i != index && follower) {
            const double target = follower->before * factor;
            if (!shows(*follower->editor, target)) {
                follower->editor->setValue(target);
                moved.push_back(i);
            }
        }
    }
    return moved;
}

/// Completes the change of every field that has taken steps and come to another value.
/// @return whether there was one
bool AttributeFields::commitSteps()
{
    const QPointer<AttributeFields> self(this);
    bool any = false;
    for (int i = 0; self && i < count(); ++i) {
        Field* const field = find(i);
        if (!field || !field->uncommitted) {
            continue;
        }
        field->uncommitted = false;
        if (field->editor->value() != field->committed) {
            any = true;
            report(i, true);
        }
    }
    return any;
}

/// Takes what is shown for the start of the next change; nothing changes it within a drag.
void AttributeFields::rememberValues()
{
    const bool isDragging = std::any_of(
        m_fields.begin(), m_fields.end(), [](const Field& field) { return field.dragging; });
    for (Field& field : m_fields) {
        if (!isDragging && field.editor) {
            field.before = field.editor->value();
            field.committed = field.uncommitted ? field.committed : field.before;
        }
    }
}

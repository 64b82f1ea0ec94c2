// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/AccessibleNumericField.h"

#include <MorrantUI/controls/values/NumericField.h>

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr int kAllDigits = 17; ///< enough to write any double exactly

/// Nobody edits it: the value's event says it all.
void enter(NumericField& field, const QString& text)
{
    const QuietReaders quiet(&field, kTextChanges);
    field.enterText(text);
}

AccessibleNumber numberOf(NumericField* field)
{
    return {
        .value = [field] { return field->value(); },
        .setValue =
            [field](double value) { enter(*field, QString::number(value, 'g', kAllDigits)); },
        .minimum = [field] { return field->getMin(); },
        .maximum = [field] { return field->getMax(); },
        .step = [field] { return std::abs(field->dragMultiplier()); }};
}

} // namespace

AccessibleNumericField::AccessibleNumericField(NumericField* field)
    : AccessibleNumberControl(field, QAccessible::SpinBox, numberOf(field))
{}

NumericField& AccessibleNumericField::field() const
{
    return *static_cast<NumericField*>(widget());
}

void* AccessibleNumericField::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface) {
        return static_cast<QAccessibleTextInterface*>(this);
    }
    if (type == QAccessible::EditableTextInterface) {
        return static_cast<QAccessibleEditableTextInterface*>(this);
    }
    return AccessibleNumberControl::interface_cast(type);
}

QString AccessibleNumericField::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value) {
        return field().text() + field().suffix();
    }
    return AccessibleNumberControl::text(kind);
}

QAccessible::State AccessibleNumericField::state() const
{
    QAccessible::State state = AccessibleNumberControl::state();
    state.editable = true; // at rest too, where it takes a click or Tab
    state.selectableText = true;
    return state;
}

void AccessibleNumericField::selection(int selectionIndex, int* startOffset, int* endOffset) const
{
    const bool exists = selectionIndex == 0 && field().hasSelectedText();
    *startOffset = exists ? field().selectionStart() : 0;
    *endOffset = exists ? field().selectionEnd() : 0;
}

int AccessibleNumericField::selectionCount() const
{
    return field().hasSelectedText() ? 1 : 0;
}

void AccessibleNumericField::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void AccessibleNumericField::removeSelection(int selectionIndex)
{
    if (selectionIndex == 0) {
        field().deselect();
    }
}

void AccessibleNumericField::setSelection(int selectionIndex, int startOffset, int endOffset)
{
    if (selectionIndex == 0) {
        field().setSelection(startOffset, endOffset - startOffset);
    }
}

int AccessibleNumericField::cursorPosition() const
{
    return field().cursorPosition();
}

void AccessibleNumericField::setCursorPosition(int position)
{
    field().setCursorPosition(position);
}

QString AccessibleNumericField::text(int startOffset, int endOffset) const
{
    return field().text().mid(startOffset, endOffset - startOffset);
}

int AccessibleNumericField::characterCount() const
{
    return static_cast<int>(field().text().size());
}

QRect AccessibleNumericField::characterRect(int offset) const
{
    QStyleOptionFrame option;
    option.initFrom(&field());
    const QRect contents =
        field().style()->subElementRect(QStyle::SE_LineEditContents, &option, &field());
    const QFontMetrics metrics = field().fontMetrics();
    const QString text = field().text();
    const int left = contents.left() + metrics.horizontalAdvance(text.left(offset));
    const QSize size(metrics.horizontalAdvance(text.mid(offset, 1)), contents.height());
    return {field().mapToGlobal(QPoint(left, contents.top())), size};
}

int AccessibleNumericField::offsetAtPoint(const QPoint& point) const
{
    const QPoint inside = field().mapFromGlobal(point);
    return field().rect().contains(inside) ? field().cursorPositionAt(inside) : -1;
}

void AccessibleNumericField::scrollToSubstring(int startIndex, int endIndex)
{
    setCursorPosition(endIndex);
    setCursorPosition(startIndex);
}

QString AccessibleNumericField::attributes(int, int* startOffset, int* endOffset) const
{
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void AccessibleNumericField::deleteText(int startOffset, int endOffset)
{
    replaceText(startOffset, endOffset, {});
}

void AccessibleNumericField::insertText(int offset, const QString& text)
{
    replaceText(offset, offset, text);
}

void AccessibleNumericField::replaceText(int startOffset, int endOffset, const QString& text)
{
    if (!field().isEnabled()) {
        return;
    }
    const int start = std::clamp(startOffset, 0, characterCount());
    const int end =
        endOffset < 0 ? characterCount() : std::clamp(endOffset, start, characterCount());
    if (field().isReadOnly()) {
        enter(field(), field().text().replace(start, end - start, text));
    } else {
        field().setSelection(start, end - start);
        field().insert(text);
    }
}

} // namespace ui

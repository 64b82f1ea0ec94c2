// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class NumericField;

namespace ui {

/// A number field as a spin box, whose text can be read and changed as it is typed. At rest, what
/// changes the text enters it.
class AccessibleNumericField : public AccessibleNumberControl,
                               public QAccessibleTextInterface,
                               public QAccessibleEditableTextInterface
{
public:
    explicit AccessibleNumericField(NumericField* field);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    int characterCount() const override;
    /// On the screen; as far as the text is not scrolled.
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    NumericField& field() const;
};

} // namespace ui

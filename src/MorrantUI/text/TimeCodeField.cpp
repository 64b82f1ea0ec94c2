// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/text/TimeCodeField.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/historykeys.h"
#include <MorrantUI/text/timecode.h>

#include <QKeyEvent>
#include <QPointer>

#include <optional>

namespace {

bool endsEdit(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Escape;
}

} // namespace

TimeCodeField::TimeCodeField(QWidget* parent)
    : TimeCodeEdit(parent)
{
    setUndoRedoEnabled(false);
}

TimeCodeField::~TimeCodeField() = default;

void TimeCodeField::setFrame(int frame)
{
    const bool wasEdited = isEdited();
    const bool changes = frame != m_frame;
    m_frame = frame;
    if (!wasEdited) {
        showText(code());
    }
    if (changes) {
        Q_EMIT frameChanged(frame);
    }
}

void TimeCodeField::setRate(double rate)
{
    const bool wasEdited = isEdited();
    m_rate = rate;
    if (!wasEdited) {
        showText(code());
    }
}

bool TimeCodeField::isEdited() const
{
    return toPlainText() != m_shown;
}

QString TimeCodeField::code() const
{
    return ui::timeCode(m_frame, m_rate);
}

void TimeCodeField::cancel()
{
    showText(code());
}

bool TimeCodeField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (endsEdit(key)) {
            event->accept();
            return true;
        }
        if (ui::isHistoryKey(key)) {
            event->ignore();
            return false;
        }
    }
    return TimeCodeEdit::event(event);
}

void TimeCodeField::keyPressEvent(QKeyEvent* event)
{
    if (!endsEdit(*event)) {
        TimeCodeEdit::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        cancel();
    }
    clearFocus(); // which enters it
}

void TimeCodeField::focusInEvent(QFocusEvent* event)
{
    TimeCodeEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason) {
        selectAll();
    }
}

void TimeCodeField::focusOutEvent(QFocusEvent* event)
{
    TimeCodeEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason) {
        return;
    }
    const QPointer<TimeCodeField> self(this);
    QTextCursor cursor = textCursor();
    cursor.clearSelection(); // as in a field of one line
    setTextCursor(cursor);
    if (self) {
        enter();
    }
}

/// This object may be deleted by it.
void TimeCodeField::enter()
{
    const auto frame =
        isEdited() ? ui::framesFromTimeCode(toPlainText(), m_rate) : std::optional<int>();
    cancel();
    if (!frame) {
        return;
    }
    const QPointer<TimeCodeField> self(this);
    setFrame(*frame);
    if (self) {
        Q_EMIT frameEntered(*frame);
    }
}

void TimeCodeField::showText(const QString& text)
{
    m_shown = text;
    if (toPlainText() == text) {
        return;
    }
    const bool wasSelected = textCursor().hasSelection();
    const QPointer<TimeCodeField> self(this);
    setTextTellingOnce(text);
    if (self && wasSelected && hasFocus()) {
        selectAll(); // what is typed next still replaces it
    }
}

/// A code that nobody edits changes with every frame: assistive tools need no more than one event.
void TimeCodeField::setTextTellingOnce(const QString& text)
{
    const bool tellsOnce = !hasFocus() && QAccessible::isActive();
    const QString before = toPlainText();
    const QPointer<TimeCodeField> self(this);
    {
        const ui::QuietReaders quiet(tellsOnce ? this : nullptr, ui::kTextChanges);
        setPlainText(text);
    }
    if (self && tellsOnce) {
        QAccessibleTextUpdateEvent event(this, 0, before, text);
        QAccessible::updateAccessibility(&event);
    }
}

#include "FrameField.h"

#include <MorrantUI/text/timecode.h>

#include <QKeyEvent>

#include <optional>

namespace studio {

namespace {

bool isEnd(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

} // namespace

FrameField::FrameField(QWidget* parent)
    : TimeCodeEdit(parent)
{
    setUndoRedoEnabled(false); // a text so short is typed anew
    setContextMenuPolicy(Qt::NoContextMenu);
}

void FrameField::setFrame(int frame, double rate)
{
    const bool wasEdited = isEdited();
    m_frame = frame;
    m_rate = rate;
    if (!wasEdited) {
        showText(code());
    }
}

QString FrameField::code() const
{
    return ui::timeCode(m_frame, m_rate);
}

void FrameField::cancel()
{
    showText(code());
}

bool FrameField::event(QEvent* event)
{
    // The keys that end an edit come before shortcuts of the window.
    if (event->type() == QEvent::ShortcutOverride && isEnd(static_cast<QKeyEvent*>(event)->key())) {
        event->accept();
        return true;
    }
    return TimeCodeEdit::event(event);
}

void FrameField::keyPressEvent(QKeyEvent* event)
{
    if (!isEnd(event->key())) {
        TimeCodeEdit::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        cancel();
    }
    clearFocus(); // which enters it
}

void FrameField::focusInEvent(QFocusEvent* event)
{
    TimeCodeEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason) {
        selectAll();
    }
}

void FrameField::focusOutEvent(QFocusEvent* event)
{
    TimeCodeEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) {
        enter();
    }
}

void FrameField::enter()
{
    const auto frame =
        isEdited() ? ui::framesFromTimeCode(toPlainText(), m_rate) : std::optional<int>();
    showText(code());
    if (frame) {
        Q_EMIT entered(*frame);
    }
}

void FrameField::showText(const QString& text)
{
    m_shown = text;
    if (toPlainText() == text) {
        return;
    }
    const bool wasSelected = textCursor().hasSelection();
    setPlainText(text);
    if (wasSelected && hasFocus()) {
        selectAll(); // what is typed next still replaces it
    }
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/text/PlainTextEdit.h"

#include "MorrantUI/controls/historykeys.h"
#include "MorrantUI/text/fieldlook.h"
#include "MorrantUI/theme/style/shades.h"
#include <MorrantUI/theme/colors.h>

#include <QKeyEvent>
#include <QPalette>
#include <QPointer>
#include <QTextBlock>

#include <algorithm>
#include <span>
#include <utility>

namespace {

constexpr QKeySequence::StandardKey kTextlessKeys[] = {
    QKeySequence::MoveToNextChar,
    QKeySequence::MoveToPreviousChar,
    QKeySequence::MoveToNextWord,
    QKeySequence::MoveToPreviousWord,
    QKeySequence::MoveToNextLine,
    QKeySequence::MoveToPreviousLine,
    QKeySequence::MoveToNextPage,
    QKeySequence::MoveToPreviousPage,
    QKeySequence::MoveToStartOfLine,
    QKeySequence::MoveToEndOfLine,
    QKeySequence::MoveToStartOfBlock,
    QKeySequence::MoveToEndOfBlock,
    QKeySequence::MoveToStartOfDocument,
    QKeySequence::MoveToEndOfDocument,
    QKeySequence::SelectNextChar,
    QKeySequence::SelectPreviousChar,
    QKeySequence::SelectNextWord,
    QKeySequence::SelectPreviousWord,
    QKeySequence::SelectNextLine,
    QKeySequence::SelectPreviousLine,
    QKeySequence::SelectNextPage,
    QKeySequence::SelectPreviousPage,
    QKeySequence::SelectStartOfLine,
    QKeySequence::SelectEndOfLine,
    QKeySequence::SelectStartOfBlock,
    QKeySequence::SelectEndOfBlock,
    QKeySequence::SelectStartOfDocument,
    QKeySequence::SelectEndOfDocument,
    QKeySequence::SelectAll,
    QKeySequence::Deselect,
    QKeySequence::Copy,
};

constexpr QKeySequence::StandardKey kEditingKeys[] = {
    QKeySequence::Copy,
    QKeySequence::Cut,
    QKeySequence::Paste,
    QKeySequence::Backspace,
    QKeySequence::Delete,
};

bool matchesAny(const QKeyEvent& key, std::span<const QKeySequence::StandardKey> standardKeys)
{
    return std::any_of(standardKeys.begin(), standardKeys.end(), [&key](auto standardKey) {
        return key.matches(standardKey);
    });
}

bool isReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Platforms give Ctrl+S a control character for a text, and some Ctrl+Alt+S too; what is held down
/// says that it is a command. Control and Alt together may be AltGr, which writes, but no control
/// characters. Of these only the Tab key's is text.
bool producesText(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers held = key.modifiers();
    const bool isCommand = held.testFlag(Qt::MetaModifier)
                           || held.testFlag(Qt::ControlModifier) != held.testFlag(Qt::AltModifier);
    const QString text = key.text();
    const bool isTab = text == u'\t' && !held.testFlag(Qt::ControlModifier);
    const bool isControl = std::any_of(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
    return !text.isEmpty() && !isCommand && (isTab || !isControl);
}

bool belongsToText(const QKeyEvent& key)
{
    if (ui::isHistoryKey(key)) {
        return false;
    }
    switch (key.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter: return true;
    default:
        return producesText(key) || matchesAny(key, kEditingKeys) || matchesAny(key, kTextlessKeys);
    }
}

/// Characters. Qt looks for the end of a word in each line that it fills: the square of the time.
constexpr int kLongestWord = 10'000;

bool hasTooLongWord(const QString& text)
{
    if (text.size() <= kLongestWord) {
        return false;
    }
    int inWord = 0;
    return std::any_of(text.begin(), text.end(), [&inWord](QChar c) {
        inWord = c.isSpace() && c != QChar(QChar::Nbsp) ? 0 : inWord + 1;
        return inWord > kLongestWord;
    });
}

} // namespace

PlainTextEdit::PlainTextEdit(QWidget* parent)
    : QPlainTextEdit(parent)
{
    connect(this, &QPlainTextEdit::textChanged, this, [this] { m_modified = !m_isReporting; });
    connect( // which comes before the text is laid out
        document(),
        &QTextDocument::contentsChange,
        this,
        [this](int position, int, int added) { adaptWrapping(position, added); });
    viewport()->setAutoFillBackground(false); // the ground has round corners
    setAttribute(Qt::WA_Hover);
    setGround(ui::colorQt(QStringLiteral("Window")));
}

PlainTextEdit::~PlainTextEdit() = default;

void PlainTextEdit::setUndoLeftToHost(bool left)
{
    m_undoLeftToHost = left;
    setUndoRedoEnabled(!left);
}

void PlainTextEdit::setGround(const QColor& color)
{
    QPalette changed = palette();
    changed.setColor(QPalette::Base, color);
    const QColor text = changed.color(QPalette::Active, QPalette::Text);
    changed.setColor(QPalette::Disabled, QPalette::Text, ui::style::faded(text));
    setPalette(changed);
    m_ground = color;
    m_fadedFrom = text;
}

/// Lines are broken anywhere while a word is too long to look for its end.
void PlainTextEdit::adaptWrapping(int position, int added)
{
    if (m_keepsWrapping) {
        return;
    }
    QTextBlock line = m_wrapBefore ? document()->begin() : document()->findBlock(position);
    const int end = m_wrapBefore ? document()->characterCount() : position + added;
    while (line.isValid() && line.position() <= end && !hasTooLongWord(line.text())) {
        line = line.next();
    }
    wrapAnywhere(line.isValid() && line.position() <= end);
}

void PlainTextEdit::wrapAnywhere(bool isTooLong)
{
    const QTextOption::WrapMode mode = wordWrapMode();
    const bool atWords =
        mode == QTextOption::WordWrap || mode == QTextOption::WrapAtWordBoundaryOrAnywhere;
    if (isTooLong && atWords) {
        m_wrapBefore = mode;
        setWordWrapMode(QTextOption::WrapAnywhere);
    } else if (!isTooLong && m_wrapBefore) {
        const auto before = *std::exchange(m_wrapBefore, std::nullopt);
        setWordWrapMode(
            mode == QTextOption::WrapAnywhere ? before : mode); // the host's, if changed
    }
}

void PlainTextEdit::setPlainText(const QString& text)
{
    m_keepsWrapping = hasTooLongWord(text);
    if (m_keepsWrapping) {
        wrapAnywhere(true); // the base lays the text out before the document tells of it
    }
    QPlainTextEdit::setPlainText(text);
    m_keepsWrapping = false;
}

/// This object may be deleted by it.
void PlainTextEdit::report()
{
    m_modified = false; // before the signal, whose slots may move the focus
    const QPointer<PlainTextEdit> self(this);
    m_isReporting = true;
    Q_EMIT valueChanged();
    if (self) {
        m_isReporting = false;
    }
}

bool PlainTextEdit::event(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        ui::paintField(*this);
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (belongsToText(key)) {
            event->accept();
            return true;
        }
        if (ui::isHistoryKey(key)) {
            event->setAccepted(!m_undoLeftToHost && !isReadOnly());
            return event->isAccepted();
        }
    }
    return QPlainTextEdit::event(event);
}

void PlainTextEdit::focusInEvent(QFocusEvent* event)
{
    m_modified = false;
    QPlainTextEdit::focusInEvent(event);
}

void PlainTextEdit::focusOutEvent(QFocusEvent* event)
{
    const QPointer<PlainTextEdit> self(this);
    if (m_modified) {
        report();
    }
    if (self) {
        QPlainTextEdit::focusOutEvent(event);
    }
}

void PlainTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (ui::isRedoKey(*event) && !isReadOnly() && !m_undoLeftToHost) {
        redo();
        return;
    }
    if (!m_modified || !isReturn(*event) || event->modifiers().testFlag(Qt::ShiftModifier)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    const QPointer<PlainTextEdit> self(this);
    report();
    if (self) {
        clearFocus();
    }
}

void PlainTextEdit::insertFromMimeData(const QMimeData* source)
{
    QPlainTextEdit::insertFromMimeData(source);
    Q_EMIT textPasted();
}

void PlainTextEdit::paintEvent(QPaintEvent* event)
{
    const QColor wanted = ui::colorQt(QStringLiteral("Window"));
    const bool isOther =
        wanted != m_ground || palette().color(QPalette::Active, QPalette::Text) != m_fadedFrom;
    if (isOther && palette().color(QPalette::Base) == m_ground) {
        setGround(wanted); // the theme has changed; a host's own colour stays
    }
    QPlainTextEdit::paintEvent(event);
}

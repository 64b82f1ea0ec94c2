#include "NotesPanel.h"

#include "editing/DocumentEditor.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/text/PlainTextEdit.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QKeyEvent>

namespace studio {

namespace {

/// Undo and redo are the document's.
bool leavesKey(QEvent& event)
{
    if (event.type() != QEvent::ShortcutOverride) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    const bool leaves = key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
    if (leaves) {
        event.ignore();
    }
    return leaves;
}

} // namespace

NotesPanel::NotesPanel(QWidget* parent)
    : Panel(tr("Notes"), parent)
    , m_text(new PlainTextEdit)
{
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setPlaceholderText(tr("Notes about this document"));
    m_text->setAccessibleName(tr("Notes"));
    m_text->setEnabled(false); // until there is a document
    m_text->setUndoRedoEnabled(false);
    m_text->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    m_text->setTabChangesFocus(true);
    setContent(m_text);
    connect(m_text, &PlainTextEdit::valueChanged, this, &NotesPanel::finishEditing);
    ui::installEventFilter(
        m_text, [](QObject*, QEvent* event) { return leavesKey(*event); }, m_text);
}

NotesPanel::~NotesPanel()
{
    m_text->disconnect(this); // it outlives what is a panel of this object
}

void NotesPanel::setEditor(DocumentEditor& editor)
{
    if (m_editor) {
        finishEditing();
        m_editor->disconnect(this);
    }
    m_editor = &editor;
    connect(&editor, &DocumentEditor::notesChanged, this, &NotesPanel::showNotes);
    showNotes();
}

void NotesPanel::finishEditing()
{
    if (m_editor && m_editor->document()) {
        m_editor->setNotes(m_text->toPlainText());
    }
}

void NotesPanel::fillMenu(ContextMenu& menu)
{
    const auto add = [this, &menu](const QString& icon, const QString& text, auto run, bool can) {
        QAction* action = menu.addAction(text, m_text, run);
        action->setIcon(icon.isEmpty() ? QIcon() : ui::getCachedIcon(icon));
        action->setEnabled(can);
        return action;
    };
    const bool hasSelection = m_text->textCursor().hasSelection();
    add(u"icons:cut.png"_qs, tr("Cu&t"), &QPlainTextEdit::cut, hasSelection)
        ->setShortcut(QKeySequence::Cut);
    add(u"icons:copy.png"_qs, tr("&Copy"), &QPlainTextEdit::copy, hasSelection)
        ->setShortcut(QKeySequence::Copy);
    add(u"icons:paste.png"_qs, tr("&Paste"), &QPlainTextEdit::paste, m_text->canPaste())
        ->setShortcut(QKeySequence::Paste);
    add({}, tr("Select &All"), &QPlainTextEdit::selectAll, !m_text->toPlainText().isEmpty())
        ->setShortcut(QKeySequence::SelectAll);
}

void NotesPanel::showNotes()
{
    const auto document = m_editor->document();
    const QString notes = document ? document->notes : QString();
    m_text->setEnabled(document != nullptr);
    if (m_text->toPlainText() != notes) {
        m_text->setPlainText(notes);
    }
}

} // namespace studio

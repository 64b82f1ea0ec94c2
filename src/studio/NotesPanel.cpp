// SPDX-License-Identifier: Apache-2.0
#include "NotesPanel.h"

#include "editing/DocumentEditor.h"
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/text/PlainTextEdit.h>

namespace studio {

NotesPanel::NotesPanel(QWidget* parent)
    : Panel(tr("Notes"), parent)
    , m_text(new PlainTextEdit)
{
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setPlaceholderText(tr("Notes about this document\nShift+Return begins a new line"));
    m_text->setAccessibleName(tr("Notes"));
    m_text->setEnabled(false); // until there is a document
    m_text->setUndoLeftToHost(true);
    m_text->setContextMenuPolicy(Qt::NoContextMenu); // the panel's is the one to open
    m_text->setTabChangesFocus(true);
    setContent(m_text);
    connect(m_text, &PlainTextEdit::valueChanged, this, &NotesPanel::finishEditing);
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
    ui::addEditRows(menu, *m_text);
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

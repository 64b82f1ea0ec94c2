// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Panel.h"

#include <QPointer>

class ContextMenu;
class PlainTextEdit;

namespace studio {

class DocumentEditor;

/// The user's notes about a document. What is typed until the field is left is one undo step, and
/// undo takes it back as a whole.
class NotesPanel : public Panel
{
    Q_OBJECT

public:
    explicit NotesPanel(QWidget* parent = nullptr);
    ~NotesPanel() override;

    /// Shows the notes of another document, which may be null.
    void setEditor(DocumentEditor& editor);
    /// Takes over what is being typed.
    void finishEditing();
    /// Adds the rows of its context menu.
    void fillMenu(ContextMenu& menu);

private:
    void showNotes();

    QPointer<DocumentEditor> m_editor;
    PlainTextEdit* m_text;
};

} // namespace studio

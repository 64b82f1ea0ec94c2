// SPDX-License-Identifier: Apache-2.0
#include "Document.h"

#include <utility>

class Document::Step : public QUndoCommand
{
public:
    Step(Document* document, const QString& text)
        : QUndoCommand(text)
        , m_document(document)
        , m_before(document->m_kept)
        , m_after(document->m_shown)
    {}
    void undo() override { show(m_before); }
    void redo() override { show(m_after); }

private:
    void show(const Rosette& rosette)
    {
        m_document->m_kept = rosette;
        m_document->preview(rosette);
    }

    Document* m_document;
    Rosette m_before;
    Rosette m_after;
};

Document::Document(Rosette start)
    : m_kept(start)
    , m_shown(std::move(start))
{}

Document::~Document() = default;

void Document::preview(const Rosette& rosette)
{
    m_shown = rosette;
    Q_EMIT changed();
}

void Document::finishStep(const QString& text)
{
    if (m_shown != m_kept) {
        m_history.push(new Step(this, text));
    }
}

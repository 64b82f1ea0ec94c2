// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"

#include "Viewport.h"
#include "editing/DocumentEditor.h"
#include "lottie/reader.h"
#include "saving/documentwriter.h"
#include <MorrantUI/documents/savedfiles.h>
#include <MorrantUI/timeline/playback.h>

#include <QHash>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace studio {

DocumentPage::DocumentPage(QWidget* parent)
    : FilePage(parent)
    , m_editor(new DocumentEditor(this))
    , m_viewport(new Viewport)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_viewport);
    setFocusProxy(m_viewport);
    connect(m_editor, &DocumentEditor::edited, m_viewport, qOverload<>(&QWidget::update));
    connect(m_editor, &DocumentEditor::clipChanged, m_viewport, qOverload<>(&QWidget::update));
    connect(m_editor, &DocumentEditor::historyChanged, this, &FilePage::changed);
    connect(m_editor, &DocumentEditor::layersChanged, this, &DocumentPage::followLayers);
    connect(
        m_viewport,
        &Viewport::leftUnfinished,
        this,
        &DocumentPage::listUnfinished,
        Qt::QueuedConnection);
}

DocumentPage::~DocumentPage()
{
    m_editor->disconnect(); // its end clears the history, which concerns nobody any more
}

void DocumentPage::setDocument(
    std::shared_ptr<Document> document, const QString& title, const QString& path)
{
    const QByteArray fingerprint = ui::fingerprintOf(QByteArray::fromStdString(document->bytes));
    m_notDrawn = document->missing;
    layer = -1;
    dopeSheet = {};
    m_viewport->setFrame(ui::wholeFrames(document->inPoint, document->outPoint).first);
    m_editor->setDocument(std::move(document));
    m_viewport->setDocument(m_editor->document());
    setFile(title, path, fingerprint);
}

bool DocumentPage::isModified() const
{
    return m_editor->isModified();
}

std::optional<QByteArray> DocumentPage::contents()
{
    const auto bytes = write(*document());
    return bytes ? std::optional(QByteArray::fromStdString(*bytes)) : std::nullopt;
}

bool DocumentPage::canBeRead(const QByteArray& contents) const
{
    return bool(read(contents.toStdString()));
}

void DocumentPage::finishEditing()
{
    m_editor->commit();
}

void DocumentPage::setModified(bool modified)
{
    modified ? m_editor->setUnsaved() : m_editor->setSaved();
}

const Document* DocumentPage::document() const
{
    return m_editor->document().get();
}

/// What is listed by layer goes by the names that layers have now.
void DocumentPage::followLayers()
{
    m_viewport->update();
    if (m_notDrawn.empty()) {
        return;
    }
    QHash<quint32, QString> names;
    for (const Layer& shown : document()->main.layers) {
        names.insert(shown.span.begin, shown.name);
    }
    for (MissingFeature& missing : m_notDrawn) {
        missing.layer = names.value(missing.layerByte, missing.layer);
    }
    Q_EMIT notDrawnChanged();
}

void DocumentPage::listUnfinished(const MissingFeature& found)
{
    if (std::find(m_notDrawn.begin(), m_notDrawn.end(), found) == m_notDrawn.end()) {
        m_notDrawn.push_back(found);
        Q_EMIT notDrawnChanged();
    }
}

} // namespace studio

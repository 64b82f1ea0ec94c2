// SPDX-License-Identifier: Apache-2.0
#include "DocumentPage.h"

#include "Viewport.h"
#include "editing/DocumentEditor.h"
#include "saving/documentfile.h"
#include <MorrantUI/timeline/playback.h>

#include <QFileInfo>
#include <QHash>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace studio {

DocumentPage::DocumentPage(QWidget* parent)
    : QWidget(parent)
    , m_editor(new DocumentEditor(this))
    , m_viewport(new Viewport)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_viewport);
    setFocusProxy(m_viewport);
    connect(m_editor, &DocumentEditor::edited, m_viewport, qOverload<>(&QWidget::update));
    connect(m_editor, &DocumentEditor::clipChanged, m_viewport, qOverload<>(&QWidget::update));
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
    m_title = title;
    m_path = path;
    m_fingerprint = studio::fingerprint(document->bytes);
    m_notDrawn = document->missing;
    layer = -1;
    dopeSheet = {};
    m_viewport->setFrame(ui::wholeFrames(document->inPoint, document->outPoint).first);
    m_editor->setDocument(std::move(document));
    m_viewport->setDocument(m_editor->document());
}

void DocumentPage::setSaved(const QString& path, const QByteArray& fingerprint)
{
    if (m_path != path) {
        m_path = path;
        m_title = QFileInfo(path).completeBaseName();
    }
    m_fingerprint = fingerprint;
    m_editor->setSaved();
    Q_EMIT saved();
}

void DocumentPage::setUnsaved(const QByteArray& fingerprint)
{
    m_fingerprint = fingerprint;
    m_editor->setUnsaved();
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

// SPDX-License-Identifier: Apache-2.0
#include "DocumentTabs.h"

#include "DocumentPage.h"
#include "Viewport.h"
#include "editing/DocumentEditor.h"
#include <MorrantUI/documents/FileSaver.h>

#include <utility>

namespace studio {

DocumentTabs::DocumentTabs(QWidget* parent)
    : FileTabs(parent)
{
    setWindowTitle(tr("Viewport"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHorizontalStretch(1); // the other panels keep their sizes
    policy.setVerticalStretch(1);
    setSizePolicy(policy);
    saver().setFileType(tr("Lottie animations (*.json);;All files (*)"), QStringLiteral("json"));
    add(makePage());
}

DocumentPage& DocumentTabs::current()
{
    return static_cast<DocumentPage&>(*FileTabs::current());
}

void DocumentTabs::open(
    std::shared_ptr<Document> document, const QString& title, const QString& path)
{
    const bool isFirst = !current().document();
    DocumentPage* const page = isFirst ? &current() : makePage();
    page->setDocument(std::move(document), title, path);
    add(page);
}

void DocumentTabs::setBackdrop(CanvasBackdrop backdrop)
{
    m_backdrop = backdrop;
    for (FilePage* page : pages()) {
        static_cast<DocumentPage*>(page)->viewport().setBackdrop(backdrop);
    }
}

/// Passes on what happens on the page while it is in front.
DocumentPage* DocumentTabs::makePage()
{
    auto* page = new DocumentPage;
    page->viewport().setBackdrop(m_backdrop);
    const auto isCurrent = [this, page] { return currentPage() == page; };
    connect(&page->editor(), &DocumentEditor::restored, this, [this](const PropertyAddress& at) {
        Q_EMIT restored(at.layer);
    });
    connect(page, &DocumentPage::notDrawnChanged, this, [this, isCurrent] {
        if (isCurrent()) {
            Q_EMIT notDrawnChanged();
        }
    });
    connect(&page->viewport(), &Viewport::scaleChanged, this, [this, isCurrent](double scale) {
        if (isCurrent()) {
            Q_EMIT scaleChanged(scale);
        }
    });
    connect(&page->viewport(), &Viewport::layerClicked, this, &DocumentTabs::layerClicked);
    return page;
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "DocumentTabs.h"

#include "DocumentPage.h"
#include "DocumentSaver.h"
#include "Viewport.h"
#include "discarding.h"
#include "editing/DocumentEditor.h"
#include "saving/Recovery.h"
#include "saving/documentwriter.h"
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QFileInfo>
#include <QPointer>

#include <utility>

namespace studio {

DocumentTabs::DocumentTabs(QWidget* parent)
    : TabBar(tr("Documents"), true, parent)
    , m_saver(new DocumentSaver(*this))
{
    setWindowTitle(tr("Viewport"));
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHorizontalStretch(1); // the other panels keep their sizes
    policy.setVerticalStretch(1);
    setSizePolicy(policy);
    addButton()->setToolTip(tr("Open another document"));

    auto* page = new DocumentPage;
    watch(*page);
    addTab(*page);
    setTabsShown(false);
    m_shown = page;
    connect(this, &TabBar::tabChanged, this, [this] {
        if (std::exchange(m_shown, currentPage()) != currentPage()) { // and not just its index
            Q_EMIT currentChanged();
        }
    });
    connect(getHeader(), &TabBarHeader::tabRemoved, this, &DocumentTabs::showCloseButtons);
    connect(getHeader(), &TabBarHeader::tabRemoved, this, &DocumentTabs::unsavedChanged);
    connect(addButton(), &GroupButton::clicked, this, &DocumentTabs::wanted);
}

DocumentTabs::~DocumentTabs()
{
    disconnect(); // nobody wants to know which page remains
}

DocumentPage& DocumentTabs::current()
{
    return *page(activeTab());
}

void DocumentTabs::open(
    std::shared_ptr<Document> document, const QString& title, const QString& path)
{
    if (!current().document()) {
        current().setDocument(std::move(document), title, path);
        setTabsShown(true);
        Q_EMIT currentChanged();
        return;
    }
    auto* page = new DocumentPage;
    watch(*page);
    page->viewport().setBackdrop(m_backdrop);
    page->setDocument(std::move(document), title, path);
    addTab(*page);
    setTab(count() - 1);
}

DocumentPage* DocumentTabs::pageOf(const QString& path)
{
    const QFileInfo file(path);
    for (int i = 0; file.exists() && i < count(); ++i) { // all that do not exist count as equal
        if (!page(i)->path().isEmpty() && QFileInfo(page(i)->path()) == file) {
            return page(i);
        }
    }
    return nullptr;
}

bool DocumentTabs::showFile(const QString& path)
{
    DocumentPage* shown = pageOf(path);
    for (int i = 0; shown && i < count(); ++i) {
        if (page(i) == shown) {
            setTab(i);
        }
    }
    return shown != nullptr;
}

bool DocumentTabs::saveAll()
{
    for (int i = 0; i < count(); ++i) {
        if (page(i)->editor().isModified() && !m_saver->save(*page(i))) {
            return false;
        }
    }
    return true;
}

void DocumentTabs::closeCurrent()
{
    if (count() > 1) {
        askToClose(*getTab(activeTab()));
    }
}

void DocumentTabs::setBackdrop(CanvasBackdrop backdrop)
{
    m_backdrop = backdrop;
    for (int i = 0; i < count(); ++i) {
        page(i)->viewport().setBackdrop(backdrop);
    }
}

QStringList DocumentTabs::changedTitles()
{
    QStringList titles;
    for (int i = 0; i < count(); ++i) {
        if (page(i)->editor().isModified()) {
            titles.append(page(i)->title());
        }
    }
    return titles;
}

std::optional<std::vector<UnsavedDocument>> DocumentTabs::unsaved()
{
    std::vector<UnsavedDocument> documents;
    for (int i = 0; i < count(); ++i) {
        DocumentPage& shown = *page(i);
        if (!shown.editor().isModified()) {
            continue;
        }
        auto bytes = write(*shown.document());
        if (!bytes) {
            return std::nullopt;
        }
        documents.push_back({shown.title(), shown.path(), shown.fingerprint(), *std::move(bytes)});
    }
    return documents;
}

DocumentPage* DocumentTabs::page(int index)
{
    return static_cast<DocumentPage*>(getPage(index));
}

/// Passes on what happens on the page in front, and whether any page has changes.
void DocumentTabs::watch(DocumentPage& page)
{
    const auto isCurrent = [this, &page] { return currentPage() == &page; };
    const auto showHistory = [this, isCurrent, &page] {
        showTitle(page);
        if (isCurrent()) {
            Q_EMIT historyChanged();
        }
        Q_EMIT unsavedChanged();
    };
    connect(&page.editor(), &DocumentEditor::historyChanged, this, showHistory);
    connect(&page, &DocumentPage::saved, this, showHistory);
    connect(&page.editor(), &DocumentEditor::restored, this, [this](const PropertyAddress& at) {
        Q_EMIT restored(at.layer);
    });
    connect(&page, &DocumentPage::notDrawnChanged, this, [this, isCurrent] {
        if (isCurrent()) {
            Q_EMIT notDrawnChanged();
        }
    });
    connect(&page.viewport(), &Viewport::scaleChanged, this, [this, isCurrent](double scale) {
        if (isCurrent()) {
            Q_EMIT scaleChanged(scale);
        }
    });
    connect(&page.viewport(), &Viewport::layerClicked, this, &DocumentTabs::layerClicked);
}

void DocumentTabs::addTab(DocumentPage& page)
{
    auto* tab = new TabItem(QString(), getHeader());
    tab->setMenuKind(TabItem::ContextMenu);
    tab->setMenuType(TabItem::Closable);
    tab->addCloseButton();
    connect(tab, &TabItem::closed, this, [this, tab] { askToClose(*tab); });
    addPage(tab, &page);
    showTitle(page);
    showCloseButtons();
}

void DocumentTabs::setTabsShown(bool shown)
{
    getHeader()->setVisible(shown);
    addButton()->setVisible(shown);
}

void DocumentTabs::showTitle(DocumentPage& page)
{
    for (int i = 0; i < count(); ++i) {
        if (getPage(i) == &page) {
            const bool isModified = page.editor().isModified();
            renameTab(i, isModified ? tr("%1*").arg(page.title()) : page.title());
        }
    }
}

void DocumentTabs::showCloseButtons()
{
    for (int i = 0; i < count(); ++i) {
        getTab(i)->setCloseButtonVisibility(count() > 1);
    }
}

/// Whether a document is done with: unchanged, saved or discarded.
bool DocumentTabs::mayClose(DocumentPage& page)
{
    if (!page.editor().isModified()) {
        return true;
    }
    const QPointer<DocumentPage> asked(&page);
    switch (askToLeave(
        tr("Close “%1”?").arg(page.title()),
        tr("Changes that are not saved will be lost."),
        window()))
    {
    case Leaving::Save: return asked && m_saver->save(page);
    case Leaving::Discard: return true;
    case Leaving::Stay: break;
    }
    return false;
}

void DocumentTabs::askToClose(TabItem& asked)
{
    const QPointer<TabItem> tab(&asked);
    const QPointer<DocumentPage> page(static_cast<DocumentPage*>(asked.page()));
    Q_EMIT closing();
    if (mayClose(*page)) {
        if (tab) {
            removeTab(tab->index());
        }
        return;
    }
    // When several tabs are closed, the header takes this one out too once it has asked us.
    const auto comeBack = [this, tab, page] {
        if (page && (!tab || tab->index() < 0)) {
            page->setParent(nullptr); // no longer the tab's to delete
            addTab(*page);
            setTab(count() - 1);
        }
    };
    QMetaObject::invokeMethod(this, comeBack, Qt::QueuedConnection);
}

} // namespace studio

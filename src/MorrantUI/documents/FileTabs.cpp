// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/FileTabs.h"

#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/documents/FilePage.h>
#include <MorrantUI/documents/FileSaver.h>
#include <MorrantUI/documents/questions.h>

#include <QAction>
#include <QFileInfo>
#include <QKeySequence>

#include <utility>

FileTabs::FileTabs(QWidget* parent)
    : TabBar(tr("Documents"), true, parent)
    , m_saver(new FileSaver(this))
{
    addButton()->setToolTip(tr("Open another document"));
    showTabs();
    m_saver->setIsTaken([this](const FilePage& page, const QString& path) {
        const FilePage* const other = pageOf(path);
        return other && other != &page;
    });
    addTurn(tr("&Next Document"), 1, {Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown});
    addTurn(
        tr("Pre&vious Document"),
        -1,
        {Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageUp});
    connect(this, &TabBar::tabChanged, this, [this] {
        if (std::exchange(m_shown, currentPage()) != currentPage()) { // and not just its index
            Q_EMIT currentChanged();
        }
    });
    connect(getHeader(), &TabBarHeader::tabRemoved, this, &FileTabs::showTabs);
    connect(getHeader(), &TabBarHeader::tabRemoved, this, &FileTabs::unsavedChanged);
    connect(addButton(), &GroupButton::clicked, this, &FileTabs::wanted);
}

FileTabs::~FileTabs()
{
    disconnect(); // nobody wants to know which page remains
    getHeader()->disconnect(this);
    for (FilePage* page : pages()) {
        page->disconnect(this);
    }
}

void FileTabs::addTurn(const QString& text, int step, const QList<QKeySequence>& keys)
{
    auto* action = new QAction(text, this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, [this, step] { getHeader()->selectInTurn(step); });
    m_turnActions.append(action);
}

void FileTabs::add(FilePage* page)
{
    if (page && !pages().contains(page)) {
        follow(*page);
        addTab(*page);
        setTab(count() - 1);
    }
}

QList<FilePage*> FileTabs::pages()
{
    QList<FilePage*> pages;
    for (int i = 0; i < count(); ++i) {
        if (auto* page = qobject_cast<FilePage*>(getPage(i))) {
            pages.append(page);
        }
    }
    return pages;
}

FilePage* FileTabs::current()
{
    return qobject_cast<FilePage*>(currentPage());
}

FilePage* FileTabs::pageOf(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists()) { // all that do not exist count as equal
        for (FilePage* page : pages()) {
            if (!page->path().isEmpty() && QFileInfo(page->path()) == file) {
                return page;
            }
        }
    }
    return nullptr;
}

bool FileTabs::showFile(const QString& path)
{
    FilePage* const shown = pageOf(path);
    for (int i = 0; shown && i < count(); ++i) {
        if (getPage(i) == shown) {
            setTab(i);
        }
    }
    return shown != nullptr;
}

void FileTabs::closeCurrent()
{
    if (count() > 1) {
        askToClose(*getTab(activeTab()));
    }
}

bool FileTabs::mayLeave(const QString& question)
{
    QStringList changed;
    for (const FilePage* page : pages()) {
        if (page->isModified()) {
            changed.append(page->title());
        }
    }
    if (changed.isEmpty()) {
        return true;
    }
    const QPointer<FileTabs> alive(this);
    switch (ui::askToLeave(question, ui::unsavedText(changed), window())) {
    case ui::Leaving::Save: return alive && saveAll();
    case ui::Leaving::Discard: return true;
    case ui::Leaving::Stay: break;
    }
    return false;
}

bool FileTabs::saveAll()
{
    const QPointer<FileTabs> alive(this);
    for (const QPointer<FilePage> page : pages()) {
        if (page && page->isModified() && (!m_saver->save(*page) || !alive)) {
            return false;
        }
    }
    return true;
}

std::optional<std::vector<UnsavedDocument>> FileTabs::unsaved()
{
    std::vector<UnsavedDocument> documents;
    for (FilePage* page : pages()) {
        if (!page->isModified()) {
            continue;
        }
        auto contents = page->contents();
        if (!contents) {
            return std::nullopt;
        }
        documents.push_back(
            {page->title(), page->path(), page->fingerprint(), *std::move(contents)});
    }
    return documents;
}

/// Passes on what happens on a page, if it is in front, and whether any page has changes.
void FileTabs::follow(FilePage& page)
{
    connect(&page, &FilePage::documentSet, this, &FileTabs::showDocument, Qt::UniqueConnection);
    connect(&page, &FilePage::changed, this, &FileTabs::showChange, Qt::UniqueConnection);
}

void FileTabs::showDocument()
{
    showTabs();
    if (sender() == currentPage()) {
        Q_EMIT currentChanged();
    }
}

void FileTabs::showChange()
{
    if (auto* page = qobject_cast<FilePage*>(sender())) {
        showTitle(*page);
    }
    if (sender() == currentPage()) {
        Q_EMIT currentEdited();
    }
    Q_EMIT unsavedChanged();
}

void FileTabs::addTab(FilePage& page)
{
    auto* tab = new TabItem(QString(), getHeader());
    tab->setMenuKind(TabItem::ContextMenu);
    tab->setMenuType(TabItem::Closable);
    tab->addCloseButton();
    connect(tab, &TabItem::closed, this, [this, tab] { askToClose(*tab); });
    addPage(tab, &page);
    showTitle(page);
    showTabs();
}

/// Not above a single page without a document; the last one cannot be closed.
void FileTabs::showTabs()
{
    const QList<FilePage*> pages = this->pages();
    const bool isShown = count() > 1 || (!pages.isEmpty() && !pages.first()->title().isEmpty());
    getHeader()->setVisible(isShown);
    addButton()->setVisible(isShown);
    for (int i = 0; i < count(); ++i) {
        getTab(i)->setCloseButtonVisibility(count() > 1);
    }
}

void FileTabs::showTitle(FilePage& page)
{
    for (int i = 0; i < count(); ++i) {
        if (getPage(i) == &page) {
            renameTab(i, page.isModified() ? tr("%1*").arg(page.title()) : page.title());
        }
    }
}

/// Whether a document is done with: unchanged, saved or discarded.
bool FileTabs::mayClose(FilePage& page)
{
    if (!page.isModified()) {
        return true;
    }
    const QPointer<FileTabs> alive(this);
    const QPointer<FilePage> asked(&page);
    switch (ui::askToLeave(
        tr("Close “%1”?").arg(page.title()),
        tr("Changes that are not saved will be lost."),
        window()))
    {
    case ui::Leaving::Save: return alive && asked && m_saver->save(page);
    case ui::Leaving::Discard: return true;
    case ui::Leaving::Stay: break;
    }
    return false;
}

void FileTabs::askToClose(TabItem& asked)
{
    const QPointer<FileTabs> alive(this);
    const QPointer<TabItem> tab(&asked);
    const QPointer<FilePage> page = qobject_cast<FilePage*>(asked.page());
    Q_EMIT closing();
    const bool isDone = !page || mayClose(*page);
    if (!alive) {
        return;
    }
    if (isDone) {
        if (tab && count() > 1) {
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

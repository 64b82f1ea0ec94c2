// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/documents/FileTabs.h"

#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>
#include <MorrantUI/documents/FilePage.h>
#include <MorrantUI/documents/FileSaver.h>
#include <MorrantUI/documents/questions.h>
#include <MorrantUI/documents/savedfiles.h>

#include <QAction>
#include <QDir>
#include <QKeySequence>

#include <algorithm>
#include <utility>

namespace {

/// Of pages that may die before it is their turn.
QList<QPointer<FilePage>> guarded(const QList<FilePage*>& pages)
{
    return {pages.begin(), pages.end()};
}

/// As mark-up, if that is what it would be taken for.
QString toolTipFor(const QString& path)
{
    const QString shown = QDir::toNativeSeparators(path);
    return Qt::mightBeRichText(shown) ? u"<span>%1</span>"_qs.arg(shown.toHtmlEscaped()) : shown;
}

} // namespace

FileTabs::FileTabs(QWidget* parent)
    : TabBar(tr("Documents"), true, parent)
    , m_saver(new FileSaver(this, [this](const FilePage& page, const QString& path) {
        const QList<FilePage*> all = pages();
        return std::any_of(all.begin(), all.end(), [&](const FilePage* other) {
            return other != &page && ui::isSameFile(other->path(), path);
        });
    }))
{
    addButton()->setToolTip(tr("Open another document"));
    showTabs();
    connect(m_saver, &FileSaver::asking, this, &FileTabs::showPage);
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
        m_written.remove(page); // one of this address may have been here
        follow(*page);
        const QPointer<FileTabs> alive(this); // whoever hears of a page may do anything
        const QPointer<FilePage> added(page);
        addTab(*page);
        if (alive && added) {
            showPage(page);
        }
    }
}

QList<FilePage*> FileTabs::pages() const
{
    QList<FilePage*> pages;
    for (int i = 0; i < count(); ++i) {
        if (auto* page = qobject_cast<FilePage*>(getPage(i))) {
            pages.append(page);
        }
    }
    return pages;
}

FilePage* FileTabs::current() const
{
    return qobject_cast<FilePage*>(currentPage());
}

FilePage* FileTabs::pageOf(const QString& path) const
{
    for (FilePage* page : pages()) {
        if (ui::isSameFile(page->path(), path)) {
            return page;
        }
    }
    return nullptr;
}

bool FileTabs::showFile(const QString& path)
{
    const FilePage* const shown = pageOf(path);
    showPage(shown);
    return shown != nullptr;
}

void FileTabs::showPage(const FilePage* page)
{
    for (int i = 0; page && i < count(); ++i) {
        if (getPage(i) == page) {
            setTab(i);
            return;
        }
    }
}

void FileTabs::closeCurrent()
{
    if (count() > 1) {
        askToClose(*getTab(activeTab()));
    }
}

void FileTabs::finishEditing()
{
    for (const QPointer<FilePage>& page : guarded(pages())) { // who may take others along
        if (page) {
            page->finishEditing();
        }
    }
}

bool FileTabs::mayLeave(const QString& question)
{
    const QPointer<FileTabs> alive(this);
    finishEditing();
    if (!alive) {
        return true;
    }
    QStringList changed;
    for (const FilePage* page : pages()) {
        if (page->isModified()) {
            changed.append(page->title());
        }
    }
    if (changed.isEmpty()) {
        return true;
    }
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
    finishEditing();
    for (const QPointer<FilePage>& page : guarded(alive ? pages() : QList<FilePage*>())) {
        if (page && page->isModified() && (!m_saver->save(*page) || !alive)) {
            return false;
        }
    }
    return true;
}

std::vector<UnsavedDocument> FileTabs::unsaved(QStringList* unwritable, bool* isWhole)
{
    const auto before = std::exchange(m_written, {});
    std::vector<UnsavedDocument> documents;
    bool areAll = true;
    QStringList failed;
    for (FilePage* page : pages()) {
        if (!page->isModified()) {
            continue;
        }
        if (auto contents = page->contents()) {
            m_written[page] = {
                page->title(), page->path(), page->fingerprint(), *std::move(contents)};
        } else {
            failed.append(page->title());
            if (!before.contains(page)) {
                areAll = false;
                continue;
            }
            m_written[page] = before[page];
        }
        documents.push_back(m_written[page]);
    }
    if (unwritable) {
        *unwritable = failed;
    }
    if (isWhole) {
        *isWhole = areAll;
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
    m_written.remove(qobject_cast<FilePage*>(sender()));
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
    const QPointer<FileTabs> alive(this);
    const QPointer<FilePage> added(&page);
    addPage(tab, &page);
    if (alive && added) {
        showTitle(page);
    }
    if (alive) {
        showTabs();
    }
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
            const bool isModified = page.isModified();
            renameTab(i, isModified ? tr("%1*").arg(page.title()) : page.title());
            getTab(i)->setToolTip(toolTipFor(page.path()));
            getTab(i)->setAccessibleDescription(isModified ? tr("Has unsaved changes") : QString());
        }
    }
}

/// Whether a document is done with: unchanged, saved or discarded.
bool FileTabs::mayClose(FilePage& page)
{
    const QPointer<FileTabs> alive(this);
    const QPointer<FilePage> asked(&page);
    page.finishEditing();
    if (!alive || !asked || !page.isModified()) {
        return true;
    }
    showPage(&page);
    if (!alive || !asked) {
        return true;
    }
    switch (ui::askToLeave(
        tr("Close “%1”?").arg(ui::shortTitle(page.title())),
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
    const bool isDone = alive && count() > 1 && (!page || mayClose(*page));
    if (!alive) {
        return;
    }
    if (isDone && count() > 1) { // still
        removeTab(tab ? tab->index() : -1);
    } else {
        getHeader()->refuseClosing();
    }
}

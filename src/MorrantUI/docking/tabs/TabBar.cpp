// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabBar.h"

#include "MorrantUI/docking/tabs/tablook.h"
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/docking/tabs/TabItem.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize kAddButtonSize(20, 20); ///< logical pixels
constexpr QSize kAddIconSize(18, 18);
constexpr int kAddButtonGap = 4; ///< from the last tab, and from the edge

} // namespace

/// The parts of a tab bar; all are its children.
class TabBar::Impl
{
public:
    Impl(TabBar* bar, bool withAddButton)
        : header(new TabBarHeader(bar))
        , pages(new QStackedWidget(bar))
        , blank(new QWidget)
    {
        pages->addWidget(blank);
        auto* const column = new QVBoxLayout(bar);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        auto* const row = new QHBoxLayout;
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(kAddButtonGap);
        row->addWidget(header);
        if (withAddButton) {
            addButton = new GroupButton(QStringLiteral("icons:addIcon.png"), bar);
            addButton->setToolTip(TabBar::tr("Add Tab"));
            addButton->setFixedSize(kAddButtonSize);
            addButton->setIconSize(kAddIconSize);
            row->addWidget(addButton);
            row->addSpacing(kAddButtonGap);
        }
        row->addStretch(1);
        column->addLayout(row);
        column->addWidget(pages, 1);
    }

    /// Brings the current tab's page to the front.
    void showCurrentPage()
    {
        shown = header->currentTab();
        QWidget* const page = shown != nullptr ? shown->page() : nullptr;
        pages->setCurrentWidget(page != nullptr ? page : blank);
    }

    /// Where another page stands at the current index without that being another index.
    bool showsAnotherTab() const { return shown != header->currentTab(); }

    TabBarHeader* header;
    QStackedWidget* pages; ///< in no particular order: each tab knows its own
    QWidget* blank;        ///< in front while there is no page
    GroupButton* addButton = nullptr;
    QPointer<TabItem> shown;
};

TabBar::TabBar(const QString& name, bool withAddButton, QWidget* parent)
    : Widget(parent)
    , m_impl(std::make_unique<Impl>(this, withAddButton))
{
    // The pages lie on the palette's own colours, not on the transparent ones of a plain Widget.
    setPalette(QPalette());
    setObjectName(name);
    m_impl->header->setAccessibleName(name);
    // First of all that listen, so that their slots find the right page.
    connect(m_impl->header, &TabBarHeader::indexChanged, this, [this](int index) {
        m_impl->showCurrentPage();
        Q_EMIT tabChanged(index);
    });
    connect(m_impl->header, &TabBarHeader::tabMoved, this, [this] {
        if (m_impl->showsAnotherTab()) {
            m_impl->showCurrentPage();
            Q_EMIT tabChanged(activeTab());
        }
    });
    connect(m_impl->header, &TabBarHeader::tabRemoved, this, [this] { m_impl->showCurrentPage(); });
    connect(m_impl->pages, &QStackedWidget::widgetRemoved, this, &TabBar::dropTabWithoutPage);
}

TabBar::TabBar(QWidget* parent)
    : TabBar(QString(), false, parent)
{}

TabBar::~TabBar()
{
    m_impl->header->disconnect(this);
    m_impl->pages->disconnect(this);
}

void TabBar::addPage(const QString& text, QWidget* page)
{
    if (!page || m_impl->pages->indexOf(page) < 0) {
        addPage(new TabItem(text, m_impl->header), page);
    }
}

void TabBar::addPage(TabItem* tab, QWidget* page)
{
    const bool known = page != nullptr && m_impl->pages->indexOf(page) >= 0;
    const bool encloses = page != nullptr && page->isAncestorOf(this);
    if (!tab || tab->index() >= 0 || known || encloses || page == this) {
        return;
    }
    QWidget* const own = page != nullptr ? page : new QWidget;
    m_impl->pages->addWidget(own);
    tab->setPage(own);
    m_impl->header->insertTab(count(), tab);
}

/// A page has left the stack: deleted, or taken away by another parent. Its tab follows, and does
/// not delete what is another's by now.
void TabBar::dropTabWithoutPage()
{
    const auto tabs = m_impl->header->findChildren<TabItem*>();
    for (TabItem* const tab : tabs) {
        if (tab->m_hasPage && m_impl->pages->indexOf(tab->page()) < 0) {
            tab->setPage(nullptr);
            m_impl->header->removeTab(tab->index());
            return; // pages leave one at a time, and a slot may have deleted anything
        }
    }
}

QWidget* TabBar::getPage(int index) const
{
    const TabItem* const tab = m_impl->header->tab(index);
    return tab != nullptr ? tab->page() : nullptr;
}

QWidget* TabBar::currentPage() const
{
    return getPage(activeTab());
}

TabItem* TabBar::getTab(int index)
{
    return m_impl->header->tab(index);
}

void TabBar::setTab(int index)
{
    m_impl->header->setCurrentIndex(index);
}

void TabBar::renameTab(int index, const QString& text)
{
    if (TabItem* const tab = getTab(index)) {
        tab->setText(text);
    }
}

void TabBar::removeTab(int index)
{
    m_impl->header->removeTab(index);
}

void TabBar::clear()
{
    m_impl->header->clear();
}

int TabBar::count() const
{
    return m_impl->header->count();
}

int TabBar::activeTab() const
{
    return m_impl->header->currentIndex();
}

TabBarHeader* TabBar::getHeader()
{
    return m_impl->header;
}

GroupButton* TabBar::addButton()
{
    return m_impl->addButton;
}

void TabBar::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);
    QPainter painter(this);
    painter.fillRect(QRect(0, 0, width(), m_impl->pages->y()), ui::tabs::rowGround());
}

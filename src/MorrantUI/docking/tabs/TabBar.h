// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QString>

#include <memory>

class GroupButton;
class TabBarHeader;
class TabItem;

/// A header of tabs above a stack of pages, the current tab's page in front, and on request a
/// button "Add Tab" behind the last tab.
///
/// Every page belongs to its tab: it moves, and goes, with it. A page that is deleted or given
/// another parent takes its tab along. The ground of the pages is the palette's Window colour.
/// Indexes that are out of range are ignored.
class MORRANT_UI_EXPORT TabBar : public Widget
{
    Q_OBJECT

public:
    /// @param name the object name, and what assistive tools call the header
    TabBar(const QString& name, bool withAddButton, QWidget* parent = nullptr);
    /// Without a name and a button, as forms make it.
    explicit TabBar(QWidget* parent = nullptr);
    ~TabBar() override;

    /// Adds a tab with its page at the end; the first one becomes current. The bar owns the page; a
    /// null one stands for an empty page. A page that the bar has already is ignored.
    void addPage(const QString& text, QWidget* page);
    /// The same with a tab of the caller's own class, made for this bar's header, which owns it.
    /// Null is ignored, as is a tab that is in a header already.
    void addPage(TabItem* tab, QWidget* page);

    /// Null for an index out of range.
    QWidget* getPage(int index) const;
    /// Null without tabs.
    QWidget* currentPage() const;
    /// Null for an index out of range.
    TabItem* getTab(int index);

    /// Selects a tab, unless it is disabled.
    void setTab(int index);
    void renameTab(int index, const QString& text); ///< by the program: nothing is emitted
    /// Takes a tab and its page out at once and deletes both later, so that their own slots may ask
    /// for it. If the tab was current, its neighbour takes its place.
    void removeTab(int index);
    void clear(); ///< removeTab() for each

    int count() const;
    /// -1 without tabs.
    int activeTab() const;

    TabBarHeader* getHeader(); ///< owned by the bar
    /// Null without one.
    GroupButton* addButton();

Q_SIGNALS:
    /// Another tab is current, or the current one has another index; -1 for none. The tab's page is
    /// in front by now.
    void tabChanged(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Impl;

    void dropTabWithoutPage();

    std::unique_ptr<Impl> m_impl;
};

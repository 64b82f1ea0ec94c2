// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QPointer>
#include <QString>

class QHBoxLayout;
class QMenu;
class QTimer;
class TabBar;
class TabBarHeader;
class TabCloseButton;
class TabLabel;

/// One tab of a TabBarHeader: a decorator, the text and a close button, in reading order.
///
/// A text that does not fit ends in an ellipsis and is shown whole in a tool tip, unless the tab
/// has a tool tip of its own. A disabled tab cannot be selected. Colours come from the theme by
/// name at paint time.
class MORRANT_UI_EXPORT TabItem : public Widget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool active READ isActive)

public:
    enum MenuKind
    {
        NoMenu = 0,
        ContextMenu = 1,
    };
    Q_ENUM(MenuKind)
    enum MenuType
    {
        Closable = 1,  ///< close this tab, the others, those to one side
        Renamable = 2, ///< rename and delete; a double click and F2 rename too
    };
    Q_ENUM(MenuType)

    /// Becomes a child of the header, but not one of its tabs yet: see TabBarHeader::insertTab().
    TabItem(const QString& text, TabBarHeader* header);
    /// The page that was added with the tab goes too, later, unless it has moved elsewhere.
    ~TabItem() override;

    QString text() const;
    /// Any text; an ampersand is shown as it is. Emits nothing.
    void setText(const QString& text);

    /// The look of the current tab. The header sets it: to select a tab, see
    /// TabBarHeader::setCurrentIndex().
    void setActive(bool active);
    bool isActive() const { return m_active; }

    /// The tab's position in its header; -1 while it is not one of the header's tabs.
    int index() const { return m_index; }
    /// Null after the header has been deleted.
    TabBarHeader* header() const;
    /// The page that was added with the tab; null if there is none.
    QWidget* page() const { return m_page; }

    /// Shows a widget before the text and owns it; the one before is deleted. Null leaves none.
    void setDecorator(QWidget* decorator);
    QWidget* decorator() const { return m_decorator; }

    /// Adds a button that emits closed(); a middle click on the tab does the same while the button
    /// is there. Further calls do nothing.
    void addCloseButton();
    /// Shows or hides the button, which gives its space back. Without one nothing happens.
    void setCloseButtonVisibility(bool visible);

    /// Whether the tab has a context menu: 1 for one, any other value (as at first) for none.
    int menuKind() const { return m_menuKind; }
    void setMenuKind(int kind) { m_menuKind = kind; }

    /// The menu's entries: one of MenuType, Closable at first. Any other value gives a menu without
    /// entries of its own; see menuAboutToShow().
    int menuType() const { return m_menuType; }
    void setMenuType(int type) { m_menuType = type; }

    /// Asks the user for another text, in a modal dialog. On confirmation the tab shows it and
    /// emits renamed(). The tab may be deleted meanwhile.
    void askForName();
    /// Asks the user whether to delete the tab and emits deleted() on Yes; the tab stays.
    void askToDelete();

Q_SIGNALS:
    /// A left click, also by an assistive tool. The header selects the tab.
    void clicked();
    /// The user has confirmed that the tab be deleted; the owner of the tab bar removes it.
    void deleted();
    /// The user has given the tab another text, which it shows by now.
    void renamed();
    /// The user wants the tab closed. The owner of the tab bar removes it, except when several are
    /// closed at once: these the header removes afterwards, if they are still there and nobody has
    /// refused, see TabBarHeader::refuseClosing().
    void closed();
    /// The context menu has its entries and is about to be shown; slots may add theirs. A menu that
    /// is still empty afterwards is not shown.
    void menuAboutToShow(QMenu* menu);

protected:
    /// Lets the tab ask for a name once the click in progress is over, as a double click on a
    /// renamable tab does. A press, hiding and stopTimer() take that back.
    void startTimer();
    void stopTimer(); ///< no name is asked for

    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    friend class TabBar;       // sets the page
    friend class TabBarHeader; // sets the index, hands keys on

    void setPage(QWidget* page);
    bool isRenamable() const;
    void closeByMiddleClick();

    QPointer<TabBarHeader> m_header;
    QPointer<QWidget> m_page;
    QHBoxLayout* m_row;
    TabLabel* m_label;
    QPointer<QWidget> m_decorator;
    TabCloseButton* m_closeButton = nullptr; ///< a child, once there is one
    QTimer* m_renameTimer = nullptr;         ///< a child, made when it is first started
    int m_index = -1;
    int m_menuKind = NoMenu;
    int m_menuType = Closable;
    bool m_active = false;
    bool m_hasPage = false;             ///< one was given, which may have died since
    bool m_renamesAfterRelease = false; ///< between a double click's second press and release
};

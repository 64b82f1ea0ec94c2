// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QMenu>
#include <QPointer>

class ContextMenuItemWidget;
class QTimer;
class WidgetMenuAction;

/// A pop-up menu that is driven from the keyboard: what is typed finds the row whose text begins
/// with it.
///
/// Typing within a second of the key before goes on with the search, a later key starts a new one;
/// the search starts at the row behind the active one and empty whenever the menu opens. Up and
/// Down go round, make a row with a submenu active without opening it, and pass over separators and
/// rows that are disabled or invisible. Return triggers an enabled row, as a click does: exec()
/// returns the action, and the menu is closed by the time its slots run. Escape, Left, Right, Tab
/// and keys with Meta or with one of Control and Alt are those of QMenu, except that Tab and Right
/// lead into the buttons of a ContextMenuItemWidget first, Tab also through a WidgetMenuAction.
///
/// Rows are actions of any kind; a ContextMenuItemWidget is a rich one. A menu that is longer than
/// the screen scrolls. Actions, owner and menu may be deleted while it is open; it closes when the
/// owner's window is hidden.
class MORRANT_UI_EXPORT ContextMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ContextMenu(QWidget* parent = nullptr);
    ~ContextMenu() override;

    /// Public for rows that draw themselves; the columns are those of the whole menu.
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void actionEvent(QActionEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void highlightNext(int start);
    void highlightPrevious(int start);
    void highlightBySubstring(const QString& text, int start);

    void aboutToOpen();
    void extendSearch(const QString& text);
    void step(int start, int by);
    void makeActive(QAction* row);
    void followHighlight();
    void enterStrip();

    void triggerActive(QKeyEvent* event);
    bool stepSubAction(const QKeyEvent& event);
    bool answerMnemonic(const QKeyEvent& event);
    void activate(QAction& row);

    void measureMarks() const;
    void arrangeRows();

    int m_currentIndex = -1; ///< of the active row when the last key arrived
    QTimer* m_searchTimer = nullptr;
    QString m_searchText;

    QPointer<WidgetMenuAction> m_highlighted;
    mutable int m_pictureColumn = -1; ///< -1: to be measured, with the next
    mutable bool m_hasTicks = false;  ///< a rich row that can be checked
    bool m_leavesChanges = false;     ///< while a row lends out its submenu
    bool m_pressed = false;           ///< the mouse, inside this menu
    bool m_ledByKeys = false;         ///< the highlight, rather than by the mouse
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/WidgetMenuAction.h>
#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QList>
#include <QPixmap>

class ContextMenu;
class ContextMenuRow;
class QLabel;
class RolloverButton;

/// A rich row of a ContextMenu: label, picture, small buttons at its end and a child menu.
///
/// It is an action, so that a host uses triggered(), setShortcut(), setEnabled(), setVisible() and
/// setCheckable() of it as of any other. Its text is the label, by which typing finds it: plain,
/// with mnemonics, and with a shortcut behind a tab if it has none of its own. It takes the
/// highlight from pointer and keys like a plain row, lies on the same columns and is triggered by
/// a click and by Return, with the menu closed by then; one with a child menu opens that by Right
/// or under the pointer.
/// The row is its widget: setWidget() is ignored.
class MORRANT_UI_EXPORT ContextMenuItemWidget : public WidgetMenuAction
{
    Q_OBJECT

public:
    /// Adds the row to the end of a menu, which owns it; without a menu it belongs to its maker.
    ContextMenuItemWidget(const QString& text, ContextMenu* menu);
    ~ContextMenuItemWidget() override;

    /// The action's text.
    void setLabelText(const QString& text);
    /// Of the text at rest; an invalid one leaves it to the theme.
    void setLabelColor(QColor color);
    /// Sets the text off from those of other rows, by weight and the theme's accent.
    void setAccentedLabel(bool accented);

    /// By the name of an icon such as "icons:eye.png"; an empty name and a file that does not exist
    /// (a line at debug level) show none.
    void setPixmap(QString iconName);
    /// Before the label, where a plain row has its icon; the action's icon, too. One of more than
    /// 48 logical pixels is made smaller. The menu's column is as wide as its widest picture.
    /// setIcon() shows an icon there, in the size of a plain row's.
    void setPixmap(const QPixmap& pixmap);
    /// What shows the picture; owned by the row. A picture that is set on it counts like any other.
    QLabel* getRowImageLabel() const;

    /// Adds a small button at the row's end, owned by the row; give it a tool tip, which names it
    /// to assistive tools. It may be checkable, disabled, hidden or deleted at any time. Tab and
    /// Shift+Tab reach it from the active row, and so do Right and Left, and Return presses it.
    /// toggled() of a checkable one comes while the menu is still open, clicked() afterwards.
    /// @param iconName such as "icons:eye.png"
    /// @return null where the row's widget has been deleted, as getRowImageLabel() does then
    RolloverButton* addSubAction(QString iconName);

    /// Whether the menu stays open when a button of the row is pressed. By default it is closed,
    /// all of it, before clicked() goes out to the host.
    void setStaysOpen(bool stays) { m_staysOpen = stays; }
    bool staysOpen() const { return m_staysOpen; }

    /// Adds a row to the end of the row's child menu, which is made for the first one and belongs
    /// to this row. A menu that the host has set is no longer the row's then.
    ContextMenuItemWidget* addToChildMenu(QString text);
    void addSeparatorToChildMenu(); ///< at its end
    /// How many rows the child menu has, separators left out.
    int childCount() const;

    /// Moves the row, with its child menu, to the end of another menu, which owns it from then on;
    /// null takes it out and leaves it to the caller. A menu below this row is ignored.
    /// insertAction() of the menu moves a row to another place in it.
    void setContextMenu(ContextMenu* menu);
    /// The one that shows the row, by whatever way it came there.
    ContextMenu* contextMenu() const;

    /// @param trigger the row no longer triggers: click and Return only open its child menu, if it
    ///     has one, and leave the menu open; its buttons work on
    /// @param highlight the row, as far as it does not trigger, no longer lights up either, and
    ///     keys go right to its first button: a strip of icons
    void disableMainTrigger(bool trigger, bool highlight);
    bool hasMainTrigger() const { return !m_triggerDisabled; }

protected:
    void highlightChanged(bool highlighted) override;

private:
    friend class ContextMenu;

    ContextMenu* makeChildMenu();
    void followIcon();
    bool isStrip() const { return m_triggerDisabled && m_highlightDisabled; }

    QPointer<ContextMenuRow> m_row;
    QPointer<ContextMenu> m_childMenu;
    qint64 m_iconKey = 0; ///< of the icon that the row shows
    bool m_staysOpen = false;
    bool m_triggerDisabled = false;
    bool m_highlightDisabled = false;
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QWidgetAction>

class Widget;

/// A menu's row that is a widget of the host: a field, a slider, a strip of icons.
///
/// WidgetMenu and ContextMenu tell it when it becomes their active row and when it no longer is. It
/// belongs to its parent, as every action does, and the widget belongs to it.
class MORRANT_UI_EXPORT WidgetMenuAction : public QWidgetAction
{
    Q_OBJECT

public:
    explicit WidgetMenuAction(QObject* parent = nullptr);
    ~WidgetMenuAction() override;

    /// Shows a widget in the row and owns it, also in a menu that is open. The one before is hidden
    /// at once and deleted when control returns to the event loop, so that it may itself be what
    /// asks for another. Null leaves the row empty. Keys that make the row active give the focus
    /// to the first in the widget that Tab would, and Tab leads on to the others; it goes back to
    /// the menu with the highlight.
    void setWidget(Widget* widget);
    /// Null when there is none, or when it was deleted.
    Widget* getWidget() const;

    /// Lets the menu hear of the pointer's moves over the widget and all its children, so that the
    /// highlight follows. Done by setWidget() and whenever the menu opens; for children that come
    /// later. Finds out anew, too, which of them gets the focus.
    void updateMouseTracking();

    /// By the menu: the row becomes, or no longer is, the active one. Twice the same is once.
    void highlightEnter();
    void highlightLeave(); ///< the same
    bool isHighlighted() const { return m_highlighted; }

protected:
    /// @param row the widget of the row, which setWidget() then leaves alone; owned from now on
    WidgetMenuAction(QObject* parent, Widget* row);

    /// The highlight has come or gone. The menu draws its ground; a ContextMenuButton that is the
    /// widget, and those right inside it, are told by this class.
    virtual void highlightChanged(bool highlighted);

private:
    void followFocusPolicies();

    QPointer<Widget> m_holder; ///< null when the row is its own widget
    QPointer<Widget> m_widget;
    bool m_highlighted = false;
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QMenu>
#include <QPointer>

class QHoverEvent;
class WidgetMenuAction;

/// A menu with widgets as rows: fields, sliders, strips of icons.
///
/// The row below the pointer is the active one, also where its widget deals with the mouse itself.
/// Below the widget of an active WidgetMenuAction the menu draws the ground of a chosen row. Keys
/// are those of QMenu; what has the focus in a widget gets them first.
class MORRANT_UI_EXPORT WidgetMenu : public QMenu
{
    Q_OBJECT

public:
    explicit WidgetMenu(QWidget* parent = nullptr);
    ~WidgetMenu() override;

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setHighlightedAction(QAction* action);
    void updateHighlightedAction(bool shown);
    void hearUnheardMove(const QHoverEvent& hover);

    QPointer<WidgetMenuAction> m_highlighted;
    bool m_heardMove = false; ///< the mouse event of the next hover event
};

#include "MorrantUI/menus/WidgetMenu.h"

#include "MorrantUI/menus/menurows.h"
#include <MorrantUI/menus/WidgetMenuAction.h>

#include <QCursor>
#include <QEvent>
#include <QPainter>
#include <QStyleOptionMenuItem>

WidgetMenu::WidgetMenu(QWidget* parent)
    : QMenu(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover); // tells of moves that a widget keeps to itself
    connect(this, &QMenu::aboutToShow, this, [this] {
        ui::menus::limitToScreens(*this);
        for (QAction* const action : actions()) {
            if (auto* const row = qobject_cast<WidgetMenuAction*>(action)) {
                row->updateMouseTracking();
            }
        }
    });
}

WidgetMenu::~WidgetMenu() = default;

void WidgetMenu::setHighlightedAction(QAction* action)
{
    if (ui::menus::moveHighlight(m_highlighted, action)) {
        update();
    }
}

void WidgetMenu::updateHighlightedAction(bool underPointer)
{
    if (underPointer) {
        auto* const row = qobject_cast<WidgetMenuAction*>(actionAt(mapFromGlobal(QCursor::pos())));
        if (row != nullptr && row != activeAction() && row->isEnabled()) {
            setActiveAction(row);
        }
    }
    setHighlightedAction(activeAction());
}

bool WidgetMenu::event(QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::LayoutRequest) {
        ui::menus::layOutAgain(*this);
    } else if (type == QEvent::UpdateRequest) {
        ui::menus::clipWidgetRows(*this);
    }
    const QPointer<WidgetMenu> alive(this);
    const bool handled = QMenu::event(event);
    if (alive) {
        updateHighlightedAction(type == QEvent::HoverMove);
    }
    return handled;
}

void WidgetMenu::paintEvent(QPaintEvent* event)
{
    QMenu::paintEvent(event);
    if (!m_highlighted) {
        return;
    }
    QStyleOptionMenuItem option;
    initStyleOption(&option, m_highlighted);
    option.rect = actionGeometry(m_highlighted);
    option.text.clear();
    QPainter painter(this);
    style()->drawControl(QStyle::CE_MenuItem, &option, &painter, this);
}

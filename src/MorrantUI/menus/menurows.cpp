// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/menurows.h"

#include <MorrantUI/menus/WidgetMenuAction.h>
#include <MorrantUI/menus/keyboardnavigation.h>
#include <MorrantUI/theme/events.h>

#include <QActionEvent>
#include <QApplication>
#include <QCoreApplication>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QWidgetAction>

#include <algorithm>

namespace ui::menus {

namespace {

bool hasPlace(const QAction* action)
{
    return action->isVisible();
}

/// What QMenu lays over the arrows is a child, too, and none of these.
QList<QWidget*> widgetsOf(const QMenu& menu, const QList<QAction*>& rows)
{
    QList<QWidget*> widgets;
    for (const QAction* const row : rows) {
        const auto* const action = qobject_cast<const QWidgetAction*>(row);
        QWidget* const widget = action ? action->defaultWidget() : nullptr;
        if (widget && widget->parentWidget() == &menu) {
            widgets << widget;
        }
    }
    return widgets;
}

} // namespace

QRect freeOfArrows(const QMenu& menu)
{
    const QList<QAction*> rows = menu.actions();
    const auto first = std::find_if(rows.begin(), rows.end(), hasPlace);
    const auto last = std::find_if(rows.rbegin(), rows.rend(), hasPlace);
    QRect free = menu.rect();
    if (first == rows.end()) {
        return free;
    }
    const QMargins contents = menu.contentsMargins();
    const int frame = menu.style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, &menu);
    const int margin = menu.style()->pixelMetric(QStyle::PM_MenuVMargin, nullptr, &menu);
    const int arrow = menu.style()->pixelMetric(QStyle::PM_MenuScrollerHeight, nullptr, &menu);
    const int top = contents.top() + frame + margin;
    if (menu.actionGeometry(*first).top() < top) {
        free.setTop(top + arrow);
    }
    const int bottom = free.bottom() - contents.bottom() - frame;
    if (menu.actionGeometry(*last).bottom() > bottom) { // QMenu scrolls into this margin
        free.setBottom(bottom - margin - arrow);
    }
    return free;
}

bool isOnSeparator(const QMenu& menu, QPoint position)
{
    const QAction* const row = menu.actionAt(position);
    return row && row->isSeparator() && freeOfArrows(menu).contains(position);
}

void focusRow(const QAction& row)
{
    const auto* const action = qobject_cast<const QWidgetAction*>(&row);
    QWidget* const widget = action ? action->defaultWidget() : nullptr;
    if (widget && widget->focusPolicy() != Qt::NoFocus) {
        // Not as by Tab: a field of the window behind would take that as the end of its edit.
        widget->setFocus(Qt::PopupFocusReason);
    }
}

void claimFocus(QMenu& menu)
{
    const QWidget* const focused = QApplication::focusWidget();
    if (focused != &menu && !menu.isAncestorOf(focused)) {
        menu.setFocus(Qt::PopupFocusReason);
    }
}

bool stepInRow(const QAction* row, bool next)
{
    const auto* const action = qobject_cast<const WidgetMenuAction*>(row);
    const QList<QWidget*> stops =
        action ? ui::tabStops(action->defaultWidget()) : QList<QWidget*>();
    const qsizetype current = stops.indexOf(QApplication::focusWidget());
    const qsizetype wanted = current + (next ? 1 : -1);
    if (current < 0 || wanted < 0 || wanted >= stops.size()) {
        return false;
    }
    stops[wanted]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void takeFocusFrom(QWidget& widget)
{
    QWidget* const window = widget.window();
    const QWidget* const focused = window->focusWidget();
    if (window != &widget && (focused == &widget || widget.isAncestorOf(focused))) {
        window->setFocus(Qt::PopupFocusReason);
    }
}

bool moveHighlight(QPointer<WidgetMenuAction>& highlighted, QAction* active)
{
    auto* const row = qobject_cast<WidgetMenuAction*>(active);
    if (row == highlighted) {
        return false;
    }
    const QPointer<WidgetMenuAction> left = highlighted;
    highlighted = row;
    const QPointer<WidgetMenuAction> entered = highlighted; // a host's override may change it
    if (left && left->defaultWidget()) {
        takeFocusFrom(*left->defaultWidget());
    }
    if (left) {
        left->highlightLeave();
    }
    if (entered) {
        entered->highlightEnter();
    }
    return true;
}

void layOutAgain(QMenu& menu)
{
    const QList<QAction*> rows = menu.actions();
    if (!rows.isEmpty()) {
        QActionEvent changed(QEvent::ActionChanged, rows.constFirst());
        QCoreApplication::sendEvent(&menu, &changed);
        keepOnScreen(menu);
    }
}

void keepOnScreen(QMenu& menu)
{
    const QRect screen = menu.screen()->availableGeometry();
    QRect place = menu.geometry();
    if (!menu.isVisible() || (place.top() >= screen.top() && place.bottom() <= screen.bottom())) {
        return;
    }
    place.setSize(place.size().boundedTo(screen.size()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    menu.setGeometry(place);
}

void bringOntoScreen(QMenu& menu)
{
    const QRect place = menu.geometry(); // on Windows it has no size at all there
    if (place.isEmpty() || !QGuiApplication::screenAt(place.center())) {
        layOutAgain(menu);
    }
}

void clipWidgetRows(QMenu& menu)
{
    const QList<QAction*> rows = menu.actions();
    const QList<QWidget*> widgets = widgetsOf(menu, rows);
    if (widgets.isEmpty()) {
        return;
    }
    const QRect free = freeOfArrows(menu);
    for (QWidget* const widget : widgets) {
        const QRect place = widget->geometry();
        if (!free.contains(place)) {
            const QRect shown = (place & free).translated(-place.topLeft());
            // An empty mask would be none.
            widget->setMask(shown.isEmpty() ? QRegion(-1, -1, 1, 1) : QRegion(shown));
        } else if (!widget->mask().isEmpty()) {
            widget->clearMask();
        }
    }
}

QMenu* openerOf(const QMenu& menu)
{
    const QList<QObject*> holders = menu.menuAction()->associatedObjects();
    for (QObject* const holder : holders) {
        auto* const above = qobject_cast<QMenu*>(holder);
        if (above && above->isVisible()) {
            return above;
        }
    }
    return nullptr;
}

void closeAll(QMenu* menu)
{
    for (QPointer<QMenu> open = menu; open;) {
        const QPointer<QMenu> above = openerOf(*open);
        open->close();
        open = above;
    }
}

void closeWith(QMenu& menu, QWidget* window)
{
    if (!window || window->windowType() == Qt::Popup || menu.isVisible()) {
        return; // menus close their submenus themselves; one that moves is watched already
    }
    const auto close = [&menu](QObject* /*watched*/, QEvent* event) {
        if (event->type() == QEvent::Hide) {
            menu.close();
        }
        return false;
    };
    QObject* const watch = ui::installEventFilter(window, close, &menu);
    QObject::connect(&menu, &QMenu::aboutToHide, watch, &QObject::deleteLater);
}

void updateRows(const QMenu& menu)
{
    const QList<QAction*> rows = menu.actions();
    for (QAction* const action : rows) {
        if (auto* const row = qobject_cast<WidgetMenuAction*>(action)) {
            row->updateMouseTracking();
        }
    }
}

void limitToScreens(QMenu& menu)
{
    int narrowest = menu.maximumWidth();
    for (const QScreen* const screen : QGuiApplication::screens()) {
        narrowest = std::min(narrowest, screen->availableGeometry().width());
    }
    menu.setMaximumWidth(narrowest);
}

} // namespace ui::menus

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/keyboardnavigation.h"

#include "MorrantUI/menus/FocusWalkFilter.h"
#include <MorrantUI/controls/gestures/GestureDoors.h>

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace ui {

namespace {

/// How much farther a thing counts for each pixel that it lies beside the row or column.
constexpr std::int64_t kAside = 4;
/// More than any distance on screens: what is not in the row or column comes last.
constexpr std::int64_t kElsewhere = std::int64_t(1) << 40;

/// The rectangle as it would lie if the direction were to the right.
QRect turned(const QRect& rect, Qt::ArrowType direction)
{
    const QRect across(rect.top(), rect.left(), rect.height(), rect.width());
    switch (direction) {
    case Qt::LeftArrow: return {-rect.right(), rect.top(), rect.width(), rect.height()};
    case Qt::UpArrow: return {-across.right(), across.top(), across.width(), across.height()};
    case Qt::DownArrow: return across;
    default: return rect;
    }
}

/// @param first, last of one, @param otherFirst, otherLast of the other stretch
std::int64_t gapBetween(
    std::int64_t first, std::int64_t last, std::int64_t otherFirst, std::int64_t otherLast)
{
    return std::max<std::int64_t>({0, otherFirst - last, first - otherLast});
}

/// The stop that has the focus, or in which it is; -1 if there is none.
qsizetype focusedIn(const QList<QWidget*>& stops)
{
    const QWidget* const focus = QApplication::focusWidget();
    const auto has = [focus](const QWidget* stop) {
        return stop == focus || (focus && stop->isAncestorOf(focus));
    };
    const auto found = std::find_if(stops.rbegin(), stops.rend(), has); // the innermost
    return stops.rend() - found - 1;
}

bool giveFocus(QWidget* widget, Qt::FocusReason reason)
{
    if (widget->hasFocus()) {
        return false;
    }
    widget->window()->setAttribute(Qt::WA_KeyboardFocusChange); // for the focus ring, as Tab does
    widget->setFocus(reason);
    return true;
}

FocusWalkFilter* install(QWidget* container, FocusWalk walk)
{
    return container ? new FocusWalkFilter(container, std::move(walk)) : nullptr;
}

bool goToEnd(QWidget* container, int key)
{
    const QList<QWidget*> stops = tabStops(container);
    if (stops.isEmpty()) {
        return false;
    }
    giveFocus(key == Qt::Key_Home ? stops.first() : stops.last(), Qt::OtherFocusReason);
    return true;
}

/// NoArrow for other keys.
Qt::ArrowType arrowOf(int key)
{
    switch (key) {
    case Qt::Key_Left: return Qt::LeftArrow;
    case Qt::Key_Right: return Qt::RightArrow;
    case Qt::Key_Up: return Qt::UpArrow;
    case Qt::Key_Down: return Qt::DownArrow;
    default: return Qt::NoArrow;
    }
}

/// 0 for keys that are not of the orientation.
int stepOf(int key, Qt::Orientation orientation, Qt::LayoutDirection direction)
{
    if (orientation == Qt::Vertical) {
        return key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    }
    const int right = direction == Qt::RightToLeft ? -1 : 1;
    return key == Qt::Key_Right ? right : key == Qt::Key_Left ? -right : 0;
}

} // namespace

QList<QWidget*> tabStops(const QWidget* container)
{
    QList<QWidget*> stops;
    if (!container || GestureDoors::isBlockedByDialog(*container)) {
        return stops;
    }
    for (QWidget* widget = container->nextInFocusChain(); widget != container;
         widget = widget->nextInFocusChain())
    {
        const bool isStop = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus
                            && !widget->focusProxy() && widget->isEnabled();
        if (isStop && container->isAncestorOf(widget) && widget->isVisibleTo(container)) {
            stops.append(widget);
        }
    }
    return stops;
}

int neighbourInDirection(
    std::span<const QRect> rectangles, const QRect& from, Qt::ArrowType direction)
{
    const QRect start = turned(from, direction);
    int nearest = -1;
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < rectangles.size(); ++i) {
        const QRect there = turned(rectangles[i], direction);
        if (there.center().x() <= start.center().x()) {
            continue;
        }
        const std::int64_t ahead =
            gapBetween(start.left(), start.right(), there.left(), there.right());
        const std::int64_t aside =
            gapBetween(start.top(), start.bottom(), there.top(), there.bottom());
        const std::int64_t distance = ahead + kAside * aside + (aside > 0 ? kElsewhere : 0);
        if (distance < least) {
            least = distance;
            nearest = static_cast<int>(i);
        }
    }
    return nearest;
}

bool moveFocusInDirection(QWidget* container, Qt::ArrowType direction)
{
    const QList<QWidget*> stops = tabStops(container);
    const qsizetype focused = focusedIn(stops);
    if (focused < 0) {
        return moveFocusBy(container, 1);
    }
    QList<QRect> rectangles;
    for (const QWidget* stop : stops) {
        rectangles.append({stop->mapTo(container, QPoint()), stop->size()});
    }
    const int next = neighbourInDirection(
        {rectangles.constData(), static_cast<std::size_t>(rectangles.size())},
        rectangles[focused],
        direction);
    return next >= 0 && giveFocus(stops[next], Qt::OtherFocusReason);
}

bool moveFocusBy(QWidget* container, int steps)
{
    const QList<QWidget*> stops = tabStops(container);
    if (stops.isEmpty() || steps == 0) {
        return false;
    }
    qsizetype from = focusedIn(stops);
    if (from < 0) {
        from = steps > 0 ? -1 : 0;
    }
    const qsizetype next = (from + steps % stops.size() + stops.size()) % stops.size();
    return giveFocus(stops[next], steps > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

QObject* installListNavigation(QWidget* container, Qt::Orientation orientation)
{
    return install(container, [orientation](QWidget* list, int key) {
        if (key == Qt::Key_Home || key == Qt::Key_End) {
            return goToEnd(list, key);
        }
        const int step = stepOf(key, orientation, list->layoutDirection());
        return step != 0 && moveFocusBy(list, step);
    });
}

QObject* installArrowNavigation(QWidget* container)
{
    return install(container, [](QWidget* area, int key) {
        const Qt::ArrowType arrow = arrowOf(key);
        if (arrow != Qt::NoArrow) {
            moveFocusInDirection(area, arrow);
        }
        return arrow != Qt::NoArrow; // at the edge too, where a button would go on by its own rule
    });
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/screens.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace ui {

namespace {

/// In floating point, since coordinates may lie anywhere in the range of int.
double squaredDistance(const QRect& rect, QPoint point)
{
    const auto outside = [](double value, double first, double last) {
        return std::max({first - value, 0.0, value - last});
    };
    const double dx = outside(point.x(), rect.left(), rect.right());
    const double dy = outside(point.y(), rect.top(), rect.bottom());
    return dx * dx + dy * dy;
}

} // namespace

int closestRectangle(std::span<const QRect> rectangles, QPoint point)
{
    int closest = -1;
    double closestDistance = 0.0;
    for (std::size_t i = 0; i < rectangles.size(); ++i) {
        if (rectangles[i].isEmpty()) {
            continue;
        }
        const double distance = squaredDistance(rectangles[i], point);
        if (closest < 0 || distance < closestDistance) {
            closest = static_cast<int>(i);
            closestDistance = distance;
        }
    }
    return closest;
}

double getMonitorDPI(QWidget* widget)
{
    if (!widget) {
        return 1.0;
    }
    const QScreen* screen = getClosestScreenAt(widget->mapToGlobal(QPoint(0, 0)));
    return screen ? screen->devicePixelRatio() : widget->devicePixelRatio();
}

} // namespace ui

QScreen* getClosestScreenAt(const QPoint& globalPoint)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    std::vector<QRect> geometries;
    geometries.reserve(static_cast<std::size_t>(screens.size()));
    for (const QScreen* screen : screens) {
        geometries.push_back(screen->geometry());
    }
    return screens.value(ui::closestRectangle(geometries, globalPoint), nullptr);
}

namespace qtutils {

QWidget* findWidgetAt(const QPoint& globalPoint)
{
    return QApplication::widgetAt(globalPoint);
}

} // namespace qtutils

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/windowowners.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace ui {

namespace {

constexpr int kMostSteps = 1000; ///< more than any interface is deep

QWidget* widgetOf(const QWindow* window)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found =
        std::find_if(windows.begin(), windows.end(), [window](const QWidget* widget) {
            return widget->windowHandle() == window;
        });
    return found == windows.end() ? nullptr : *found;
}

} // namespace

const QWidget* ownerOf(const QWidget& widget)
{
    if (widget.isWindow() && widget.windowHandle()) {
        if (const QWindow* above = widget.windowHandle()->transientParent()) {
            if (const QWidget* owner = widgetOf(above)) {
                const QWidget* parent = widget.parentWidget();
                return parent && parent->window() == owner ? parent : owner;
            }
        }
    }
    return widget.parentWidget();
}

bool isOwnedBy(const QWidget* widget, const QWidget* owner)
{
    int steps = 0;
    while (widget && widget != owner) {
        widget = ++steps < kMostSteps ? ownerOf(*widget) : nullptr;
    }
    return widget != nullptr;
}

} // namespace ui

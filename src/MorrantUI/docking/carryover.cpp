// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/carryover.h"

#include <QWidget>

#include <algorithm>

namespace ui::docking {

void carryOver(QWidget& widget, QWidget& parent)
{
    const bool stays = widget.isVisible() && parent.isVisible()
                       && widget.window() == parent.window() && !widget.internalWinId();
    if (!stays || widget.parentWidget() == &parent) {
        return;
    }
    const QWidget* window = widget.window();
    const QPoint place = parent.mapFrom(window, widget.mapTo(window, QPoint()));
    // What is hidden Qt moves without a word to what is in it.
    widget.setAttribute(Qt::WA_WState_Hidden, true);
    widget.setAttribute(Qt::WA_WState_ExplicitShowHide, true);
    widget.setParent(&parent);
    widget.move(place); // or what lies where it seems to be would be painted with it
    widget.setAttribute(Qt::WA_WState_Created, true);
    widget.setAttribute(Qt::WA_WState_Visible, true);
    widget.setAttribute(Qt::WA_WState_Hidden, false);
    widget.update();
}

bool holdsWindow(const QWidget& widget)
{
    const auto inside = widget.findChildren<QWidget*>();
    return std::any_of(inside.begin(), inside.end(), [](const QWidget* one) {
        return one->inherits("QWindowContainer");
    });
}

} // namespace ui::docking

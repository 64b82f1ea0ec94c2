// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/afloat.h"

#include "MorrantUI/docking/placing.h"
#include <MorrantUI/theme/screens.h>

#include <QScreen>
#include <QWidget>

namespace ui::docking {

namespace {

constexpr Qt::WindowStates kFillingScreen = Qt::WindowMaximized | Qt::WindowFullScreen;

} // namespace

void makeUsualSize(QWidget& window)
{
    if (window.isWindow() && window.windowState() != Qt::WindowNoState) {
        const QSize usual = window.normalGeometry().size();
        window.overrideWindowState(Qt::WindowNoState);
        window.resize(usual.isEmpty() ? window.size() : usual);
    }
}

bool shrinkToUsualSize(QWidget& window)
{
    if (!window.windowState().testAnyFlags(kFillingScreen)) {
        return false;
    }
    const QSize usual = window.normalGeometry().size();
    window.setWindowState(window.windowState() & ~kFillingScreen);
    window.resize(usual.isEmpty() ? window.size() : usual);
    return true;
}

QMargins frameOf(const QWidget& window)
{
    const auto around = [](const QWidget& one) {
        const QRect inner = one.geometry();
        const QRect outer = one.frameGeometry();
        const QPoint first = inner.topLeft() - outer.topLeft();
        const QPoint last = outer.bottomRight() - inner.bottomRight();
        return QMargins(first.x(), first.y(), last.x(), last.y());
    };
    const QMargins own = around(window);
    const QWidget* owner = window.parentWidget();
    return own.isNull() && owner ? around(*owner->window()) : own;
}

void placeOnScreen(QWidget& window, const QRect& place)
{
    const QScreen* screen = getClosestScreenAt(place.center());
    const QRect room = screen ? screen->availableGeometry() : QRect();
    if (place.isValid() && room.contains(place.center())) {
        const QMargins frame = frameOf(window);
        window.resize(place.size().boundedTo(room.size().shrunkBy(frame)));
        window.move(placeWithin({place.topLeft(), window.size().grownBy(frame)}, room));
    }
}

void keepOnScreen(QWidget& window, const QPoint& point)
{
    const QScreen* screen = getClosestScreenAt(point);
    if (!screen || !window.isWindow() || window.windowState().testAnyFlags(kFillingScreen)) {
        return;
    }
    const QRect frame(window.pos(), window.size().grownBy(frameOf(window)));
    const QPoint place = placeWithin(frame, screen->availableGeometry());
    if (place != window.pos()) {
        window.move(place);
    }
}

void bringToFront(QWidget& window)
{
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace ui::docking

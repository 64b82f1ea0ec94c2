// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/afloat.h"

#include "MorrantUI/docking/placing.h"
#include <MorrantUI/theme/screens.h>

#include <QScreen>
#include <QWidget>

namespace ui::docking {

static constexpr Qt::WindowStates kFillingScreen = Qt::WindowMaximized | Qt::WindowFullScreen;

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

/// With the frame; before the window manager has given it one, with one like its owner's.
static QSize sizeWithFrame(const QWidget& window)
{
    const QSize framed = window.frameGeometry().size();
    const QWidget* owner = window.parentWidget();
    if (framed != window.size() || !owner) {
        return framed;
    }
    return framed + owner->window()->frameGeometry().size() - owner->window()->size();
}

void placeOnScreen(QWidget& window, const QRect& place)
{
    const QScreen* screen = getClosestScreenAt(place.center());
    const QRect room = screen ? screen->availableGeometry() : QRect();
    if (place.isValid() && room.contains(place.center())) {
        const QSize frame = sizeWithFrame(window) - window.size();
        window.resize(place.size().boundedTo(room.size() - frame));
        window.move(placeWithin({place.topLeft(), window.size() + frame}, room));
    }
}

void keepOnScreen(QWidget& window, const QPoint& point)
{
    const QScreen* screen = getClosestScreenAt(point);
    if (!screen || !window.isWindow() || window.windowState().testAnyFlags(kFillingScreen)) {
        return;
    }
    const QPoint place =
        placeWithin({window.pos(), sizeWithFrame(window)}, screen->availableGeometry());
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

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/contextmenus.h"

#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QPointer>

#include <memory>

namespace ui {

void swallowContextMenu()
{
    auto filter = std::make_shared<QPointer<QObject>>();
    *filter = installEventFilter(
        qApp,
        [filter](QObject* watched, QEvent* event) {
            const bool isMenu =
                event->type() == QEvent::ContextMenu
                && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Mouse;
            const bool isNextGesture =
                watched->isWidgetType()
                && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress);
            if ((isMenu || isNextGesture) && *filter) {
                (*filter)->deleteLater();
                filter->clear();
                return isMenu;
            }
            return false;
        },
        qApp);
}

} // namespace ui

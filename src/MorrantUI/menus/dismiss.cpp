// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/dismiss.h"

#include "MorrantUI/controls/gestures/windowowners.h"
#include "MorrantUI/menus/DeactivationWatch.h"
#include "MorrantUI/menus/OutsidePressFilter.h"
#include <MorrantUI/theme/events.h>

#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace ui {

namespace {

bool isPlainEscape(const QEvent& event)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && !(key.modifiers() & ~Qt::KeypadModifier);
}

} // namespace

bool belongsTo(const QWidget* widget, const QWidget* owner)
{
    return isOwnedBy(widget, owner);
}

QObject* dismissOnOutsidePress(QWidget* widget, OutsidePress dismiss)
{
    return widget && dismiss ? new OutsidePressFilter(widget, std::move(dismiss)) : nullptr;
}

QObject* dismissOnEscape(QWidget* widget, std::function<void()> dismiss)
{
    if (!dismiss) {
        return nullptr;
    }
    const auto filter = [dismiss = std::move(dismiss)](QObject* /*watched*/, QEvent* event) {
        const bool announced = event->type() == QEvent::ShortcutOverride;
        if ((!announced && event->type() != QEvent::KeyPress) || !isPlainEscape(*event)) {
            return false;
        }
        event->accept(); // announced, the key comes back as a press instead of a shortcut
        // Held down, the key is meant for the first thing that it closes.
        if (!announced && !static_cast<const QKeyEvent*>(event)->isAutoRepeat()) {
            const auto call = dismiss; // which may end this filter
            call();
        }
        return true;
    };
    return installEventFilter(widget, filter, widget);
}

QObject* dismissOnDeactivation(QWidget* widget, std::function<void()> dismiss)
{
    return widget && dismiss ? new DeactivationWatch(widget, std::move(dismiss)) : nullptr;
}

} // namespace ui

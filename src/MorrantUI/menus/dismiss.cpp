#include "MorrantUI/menus/dismiss.h"

#include "MorrantUI/menus/OutsidePressFilter.h"
#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <utility>

namespace ui {

namespace {

QWidget* widgetOf(const QWindow* window)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found =
        std::find_if(windows.begin(), windows.end(), [window](const QWidget* widget) {
            return widget->windowHandle() == window;
        });
    return found == windows.end() ? nullptr : *found;
}

/// What a widget lies in or was opened from. A window may have been opened elsewhere than its
/// parent says, and then tells so by what it is transient for.
const QWidget* ownerOf(const QWidget& widget)
{
    if (widget.isWindow() && widget.windowHandle() != nullptr) {
        if (const QWindow* above = widget.windowHandle()->transientParent()) {
            if (const QWidget* owner = widgetOf(above)) {
                const QWidget* parent = widget.parentWidget();
                return parent != nullptr && parent->window() == owner ? parent : owner;
            }
        }
    }
    return widget.parentWidget();
}

bool isPlainEscape(const QEvent& event)
{
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Escape && !(key.modifiers() & ~Qt::KeypadModifier);
}

bool isLeft(const QWidget& widget)
{
    if (!widget.isVisible() || GestureDoors::isBlockedByDialog(widget)) {
        return false;
    }
    const QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? !belongsTo(active, &widget)
                             : QGuiApplication::applicationState() != Qt::ApplicationActive;
}

} // namespace

bool belongsTo(const QWidget* widget, const QWidget* owner)
{
    while (widget != nullptr && widget != owner) {
        widget = ownerOf(*widget);
    }
    return widget != nullptr;
}

QObject* dismissOnOutsidePress(QWidget* widget, OutsidePress dismiss)
{
    return widget != nullptr && dismiss ? new OutsidePressFilter(widget, std::move(dismiss))
                                        : nullptr;
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
        if (!announced) {
            const auto call = dismiss; // which may end this filter
            call();
        }
        return true;
    };
    return installEventFilter(widget, filter, widget);
}

QObject* dismissOnDeactivation(QWidget* widget, std::function<void()> dismiss)
{
    if (!dismiss) {
        return nullptr;
    }
    const QPointer<QWidget> shown(widget);
    // Since it was last shown.
    const auto wasActive = std::make_shared<bool>(widget != nullptr && widget->isActiveWindow());
    const auto filter = [shown, wasActive, dismiss = std::move(dismiss)](QObject*, QEvent* event) {
        if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) {
            *wasActive = event->type() == QEvent::WindowActivate;
        } else if (event->type() == QEvent::WindowDeactivate && std::exchange(*wasActive, false)) {
            // The next window is active only after this.
            QTimer::singleShot(0, shown, [shown, dismiss] {
                if (isLeft(*shown)) {
                    dismiss();
                }
            });
        }
        return false;
    };
    return installEventFilter(widget, filter, widget);
}

} // namespace ui

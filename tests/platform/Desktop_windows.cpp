#include "Desktop.h"

#include <QGuiApplication>

#include <windows.h>

namespace ui::test {

class Desktop::Connection
{};

static HWND handleOf(const QWidget& window)
{
    return reinterpret_cast<HWND>(window.internalWinId());
}

Desktop::Desktop() = default;
Desktop::~Desktop() = default;

bool Desktop::isReal() const
{
    return QGuiApplication::platformName() == u"windows";
}

bool Desktop::showsTitleBars() const
{
    return false; // the attribute can be set but not read everywhere
}

bool Desktop::hasDarkTitleBar(const QWidget& /*window*/) const
{
    return false;
}

void Desktop::makeTitleBarLight(const QWidget& /*window*/)
{}

bool Desktop::isAlwaysOnTop(const QWidget& window)
{
    return isReal() && (GetWindowLongPtrW(handleOf(window), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

bool Desktop::isOwnedBy(const QWidget& window, const QWidget& owner) const
{
    return isReal() && GetWindow(handleOf(window), GW_OWNER) == handleOf(owner);
}

QList<const QWidget*> Desktop::stacked(const QList<const QWidget*>& windows) const
{
    QList<const QWidget*> found;
    if (!isReal()) {
        return found;
    }
    for (HWND next = GetTopWindow(nullptr); next; next = GetWindow(next, GW_HWNDNEXT)) {
        for (const QWidget* window : windows) {
            if (handleOf(*window) == next) {
                found.append(window);
            }
        }
    }
    return found;
}

} // namespace ui::test

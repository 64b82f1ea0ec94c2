// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/windowsystem.h"

#include "MorrantUI/platform/windows/systemlibrary.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <vector>

namespace morrant::native::system {

namespace {

/// Null, which every call below refuses, when Qt draws somewhere else: off screen a window's number
/// is no handle.
HWND handleOf(const QWindow& window)
{
    const bool onDesktop = QGuiApplication::platformName() == u"windows";
    return onDesktop ? reinterpret_cast<HWND>(window.winId()) : nullptr;
}

bool isAlwaysOnTop(HWND handle)
{
    return (GetWindowLongPtrW(handle, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

/// The ordinary window just above a window's owner; null when there is none.
HWND neighbourAboveOwner(HWND handle)
{
    const HWND owner = GetWindow(handle, GW_OWNER);
    const HWND neighbour = owner ? GetWindow(owner, GW_HWNDPREV) : nullptr;
    return neighbour && !isAlwaysOnTop(neighbour) ? neighbour : nullptr;
}

void moveBehind(HWND handle, HWND other)
{
    SetWindowPos(
        handle, other, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

BOOL CALLBACK addHandle(HWND handle, LPARAM handles)
{
    reinterpret_cast<std::vector<HWND>*>(handles)->push_back(handle);
    return TRUE;
}

} // namespace

void setDarkTitleBar(QWindow& window)
{
    using SetWindowAttribute = HRESULT WINAPI(HWND, DWORD, const void*, DWORD);
    static auto* const setWindowAttribute =
        systemFunction<SetWindowAttribute>(L"dwmapi.dll", "DwmSetWindowAttribute");
    if (!setWindowAttribute) {
        return;
    }
    constexpr DWORD kUseDarkTitleBar = 20;
    constexpr DWORD kUseDarkTitleBarBefore20H1 = 19; // Windows 10 up to build 18985
    const BOOL dark = TRUE;
    if (FAILED(setWindowAttribute(handleOf(window), kUseDarkTitleBar, &dark, sizeof(dark)))) {
        setWindowAttribute(handleOf(window), kUseDarkTitleBarBefore20H1, &dark, sizeof(dark));
    }
}

void setOwner(QWindow& window, QWindow& owner)
{
    const HWND handle = handleOf(window);
    if (GetWindow(handle, GW_OWNER) != handleOf(owner)) {
        SetWindowLongPtrW(handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(handleOf(owner)));
    }
}

void setAlwaysOnTop(QWindow& window, bool on)
{
    const HWND handle = handleOf(window);
    if (isAlwaysOnTop(handle) == on) {
        return;
    }
    if (on) {
        moveBehind(handle, HWND_TOPMOST);
        return;
    }
    // Coming down leaves a window above all ordinary ones, that of the program included which the
    // user has just gone to.
    const HWND neighbour = neighbourAboveOwner(handle);
    moveBehind(handle, HWND_NOTOPMOST);
    if (neighbour) {
        moveBehind(handle, neighbour);
    }
}

QWindowList windowsFromTop()
{
    QWindowList windows = QGuiApplication::topLevelWindows();
    std::reverse(windows.begin(), windows.end());
    std::vector<HWND> handles; // of all programs, the topmost first
    EnumWindows(addHandle, reinterpret_cast<LPARAM>(&handles));
    const auto depth = [&handles](const QWindow* window) {
        const HWND handle = window->handle() ? handleOf(*window) : nullptr;
        return std::find(handles.begin(), handles.end(), handle) - handles.begin();
    };
    std::stable_sort(windows.begin(), windows.end(), [&](const QWindow* a, const QWindow* b) {
        return depth(a) < depth(b);
    });
    return windows;
}

} // namespace morrant::native::system

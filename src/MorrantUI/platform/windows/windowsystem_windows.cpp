#include <MorrantUI/platform/windows/systemlibrary.h>
#include <MorrantUI/platform/windowsystem.h>

#include <QGuiApplication>
#include <QWindow>

namespace morrant::native::system {

/// Null, which every call below refuses, when Qt draws somewhere else: off screen a window's number
/// is no handle.
static HWND handleOf(const QWindow& window)
{
    const bool onDesktop = QGuiApplication::platformName() == u"windows";
    return onDesktop ? reinterpret_cast<HWND>(window.winId()) : nullptr;
}

static bool isAlwaysOnTop(HWND handle)
{
    return (GetWindowLongPtrW(handle, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

/// The window that the user works in, when it is an ordinary one of another program; else null.
static HWND foreignForeground()
{
    const HWND foreground = GetForegroundWindow();
    DWORD process = 0;
    if (!foreground || isAlwaysOnTop(foreground)
        || GetWindowThreadProcessId(foreground, &process) == 0 || process == GetCurrentProcessId())
    {
        return nullptr;
    }
    return foreground;
}

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
    // HWND_NOTOPMOST alone would leave the window above the one that another program has just
    // brought up.
    HWND after = on ? HWND_TOPMOST : HWND_NOTOPMOST;
    if (HWND foreign = on ? nullptr : foreignForeground()) {
        after = foreign;
    }
    SetWindowPos(
        handle, after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

} // namespace morrant::native::system

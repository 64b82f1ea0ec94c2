// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/PointerSystem.h"

#include "MorrantUI/log.h"

#include <QGuiApplication>

#include <windows.h>

#include <algorithm>
#include <vector>

namespace morrant::native {

namespace {

constexpr USHORT kGenericDesktopPage = 1;
constexpr USHORT kMouseUsage = 2;

QPoint pointOf(const POINT& point)
{
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

RAWINPUTDEVICE deviceOf(DWORD flags, HWND window)
{
    return {kGenericDesktopPage, kMouseUsage, flags, window};
}

bool registerDevice(const RAWINPUTDEVICE& device)
{
    return RegisterRawInputDevices(&device, 1, sizeof(device)) != FALSE;
}

/// The record behind a message, in words so that it is aligned; empty when it cannot be read.
std::vector<quint64> readRecord(HRAWINPUT handle)
{
    UINT size = 0;
    if (GetRawInputData(handle, RID_INPUT, nullptr, &size, sizeof(RAWINPUTHEADER)) != 0) {
        return {};
    }
    // Records of other devices are shorter than the structure for all of them.
    const std::size_t bytes = std::max<std::size_t>(size, sizeof(RAWINPUT));
    std::vector<quint64> words((bytes + sizeof(quint64) - 1) / sizeof(quint64));
    if (GetRawInputData(handle, RID_INPUT, words.data(), &size, sizeof(RAWINPUTHEADER)) != size) {
        return {};
    }
    return words;
}

ui::RawMouseRecord mouseRecordOf(const RAWINPUT& raw)
{
    ui::RawMouseRecord record;
    record.isMouse = raw.header.dwType == RIM_TYPEMOUSE;
    if (record.isMouse) {
        const RAWMOUSE& mouse = raw.data.mouse;
        record.flags = mouse.usFlags;
        record.buttonFlags = mouse.usButtonFlags;
        record.x = static_cast<std::int32_t>(mouse.lLastX);
        record.y = static_cast<std::int32_t>(mouse.lLastY);
    }
    return record;
}

class WindowsPointer final : public PointerSystem
{
public:
    Drive drive() const override { return Drive::RawInput; }

    bool isRemote() const override { return GetSystemMetrics(SM_REMOTESESSION) != 0; }

    std::optional<QPoint> position() const override
    {
        POINT point{};
        if (!succeeds(GetCursorPos(&point) != FALSE)) {
            return {};
        }
        return pointOf(point);
    }

    bool setPosition(QPoint position) override
    {
        return succeeds(SetCursorPos(position.x(), position.y()) != FALSE);
    }

    quint32 lastError() const override { return m_lastError; }

    std::optional<QRect> windowFrame(const QWidget& widget) const override
    {
        RECT frame{};
        // Asked for like this, a child does not become a native window.
        const auto window = reinterpret_cast<HWND>(widget.window()->internalWinId());
        if (!window || !logFailure(succeeds(GetWindowRect(window, &frame) != FALSE))) {
            return {};
        }
        const QPoint topLeft = pointOf({frame.left, frame.top});
        const QPoint size = pointOf({frame.right, frame.bottom}) - topLeft;
        return QRect(topLeft, QSize(size.x(), size.y()));
    }

    bool confine(const QRect& rect) override
    {
        const RECT clip{rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1};
        return succeeds(ClipCursor(&clip) != FALSE);
    }

    bool endConfinement() override { return succeeds(ClipCursor(nullptr) != FALSE); }

    void hide() override { ShowCursor(FALSE); }
    void show() override { ShowCursor(TRUE); }

    std::optional<RawRegistration> rawInput() const override
    {
        UINT count = 0;
        GetRegisteredRawInputDevices(nullptr, &count, sizeof(RAWINPUTDEVICE)); // fails, and counts
        if (count == 0) {
            return {};
        }
        std::vector<RAWINPUTDEVICE> devices(count);
        count = GetRegisteredRawInputDevices(devices.data(), &count, sizeof(RAWINPUTDEVICE));
        if (!logFailure(succeeds(count != UINT(-1)))) {
            return {};
        }
        const auto found = std::find_if(devices.begin(), devices.end(), [](const auto& device) {
            return device.usUsagePage == kGenericDesktopPage && device.usUsage == kMouseUsage;
        });
        if (found == devices.end()) {
            return {};
        }
        return RawRegistration{found->dwFlags, reinterpret_cast<WId>(found->hwndTarget)};
    }

    bool registerRawInput(const RawRegistration& registration) override
    {
        return registerDevice(
            deviceOf(registration.flags, reinterpret_cast<HWND>(registration.window)));
    }

    void unregisterRawInput() override
    {
        if (!registerDevice(deviceOf(RIDEV_REMOVE, nullptr))) { // with a window it is refused
            ui::log::debug("RegisterRawInputDevices() failed");
        }
    }

    void readRawInput(
        const QByteArray& type,
        void* message,
        const std::function<void(const ui::RawMouseRecord&)>& sink) override
    {
        const auto* input = static_cast<const MSG*>(message);
        if (type != "windows_generic_MSG" || input->message != WM_INPUT) {
            return;
        }
        auto words = readRecord(reinterpret_cast<HRAWINPUT>(input->lParam));
        if (words.empty()) {
            ui::log::debug("GetRawInputData() failed");
            return;
        }
        auto* raw = reinterpret_cast<RAWINPUT*>(words.data());
        sink(mouseRecordOf(*raw));
        DefRawInputProc(&raw, 1, sizeof(RAWINPUTHEADER));
    }

    QSize primaryScreenSize() const override
    {
        return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    }

    QSize virtualDesktopSize() const override
    {
        return {GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN)};
    }

private:
    /// Remembers why a call has failed, before another one forgets it.
    bool succeeds(bool success) const
    {
        if (!success) {
            m_lastError = GetLastError();
        }
        return success;
    }

    mutable DWORD m_lastError = 0;
};

} // namespace

std::unique_ptr<PointerSystem> makePointerSystem()
{
    if (QGuiApplication::platformName() != u"windows") {
        return nullptr; // off screen a window's number is no handle
    }
    return std::make_unique<WindowsPointer>();
}

} // namespace morrant::native

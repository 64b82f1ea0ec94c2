// SPDX-License-Identifier: Apache-2.0
#include "support/RealPointer.h"

#include <QGuiApplication>
#include <QtTest>

#include <windows.h>

#include <array>
#include <utility>

namespace ui::test {

struct RealPointer::System
{
    std::array<int, 3> acceleration{}; ///< two thresholds and a speed, as found
    Qt::MouseButton pressed = Qt::NoButton;
};

static void send(DWORD flags, QPoint delta = {})
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = delta.x();
    input.mi.dy = delta.y();
    input.mi.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

/// Until the application has seen what was sent, however busy the machine is.
static void waitUntilSeen()
{
    const auto isThrough = [] { return HIWORD(GetQueueStatus(QS_INPUT)) == 0; };
    if (!QTest::qWaitFor(isThrough, 20000)) {
        QTest::qFail("the application takes no input", __FILE__, __LINE__);
    }
    QTest::qWait(30);
}

static void setAcceleration(std::array<int, 3>& values)
{
    SystemParametersInfoW(SPI_SETMOUSE, 0, values.data(), 0);
}

bool RealPointer::available()
{
    return QGuiApplication::platformName() == u"windows";
}

RealPointer::RealPointer()
    : m_system(std::make_unique<System>())
{
    SystemParametersInfoW(SPI_GETMOUSE, 0, m_system->acceleration.data(), 0);
    std::array<int, 3> none{};
    setAcceleration(none);
}

RealPointer::~RealPointer()
{
    release();
    setAcceleration(m_system->acceleration);
}

QPoint RealPointer::position() const
{
    POINT point{};
    GetCursorPos(&point);
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

void RealPointer::moveTo(QPoint position)
{
    SetCursorPos(position.x(), position.y());
    waitUntilSeen();
}

void RealPointer::moveBy(QPoint step, int times)
{
    for (int i = 0; i < times; ++i) {
        send(MOUSEEVENTF_MOVE, step);
        if (i % 5 == 0) {
            QTest::qWait(1);
        }
    }
    waitUntilSeen();
}

void RealPointer::press(Qt::MouseButton button)
{
    m_system->pressed = button;
    send(button == Qt::RightButton ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    waitUntilSeen();
}

void RealPointer::release()
{
    if (const auto button = std::exchange(m_system->pressed, Qt::NoButton)) {
        send(button == Qt::RightButton ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
        waitUntilSeen();
    }
}

void RealPointer::pressEscape()
{
    for (const DWORD flags : {DWORD(0), DWORD(KEYEVENTF_KEYUP)}) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = VK_ESCAPE;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof(input));
    }
    waitUntilSeen();
}

std::optional<bool> RealPointer::isFree() const
{
    CURSORINFO info{};
    info.cbSize = sizeof(info);
    GetCursorInfo(&info);
    RECT clip{};
    GetClipCursor(&clip);
    return (info.flags & CURSOR_SHOWING) != 0
           && clip.right - clip.left == GetSystemMetrics(SM_CXVIRTUALSCREEN);
}

} // namespace ui::test

// SPDX-License-Identifier: Apache-2.0
#include "support/RealPointer.h"

#include <QGuiApplication>
#include <QtTest>

#include <windows.h>

namespace ui::test {

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

void RealPointer::setAccelerated(bool accelerated)
{
    std::array<int, 3> none{};
    if (!accelerated) {
        SystemParametersInfoW(SPI_GETMOUSE, 0, m_acceleration.data(), 0);
    }
    SystemParametersInfoW(SPI_SETMOUSE, 0, (accelerated ? m_acceleration : none).data(), 0);
}

bool RealPointer::available()
{
    return QGuiApplication::platformName() == u"windows";
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

void RealPointer::turn(Qt::MouseButton button, bool down)
{
    const DWORD left = down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    const DWORD right = down ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_RIGHTUP;
    send(button == Qt::RightButton ? right : left);
    waitUntilSeen();
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

#include "support/RealPointer.h"

#include <QGuiApplication>
#include <QtTest>

#include <windows.h>

#include <array>

namespace ui::test {

struct RealPointer::System
{
    std::array<int, 3> acceleration{}; ///< two thresholds and a speed, as found
    bool pressed = false;
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
    if (m_system->pressed) {
        release();
    }
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
    QTest::qWait(30);
}

void RealPointer::moveBy(QPoint step, int times)
{
    for (int i = 0; i < times; ++i) {
        send(MOUSEEVENTF_MOVE, step);
        if (i % 5 == 0) {
            QTest::qWait(1);
        }
    }
    QTest::qWait(30);
}

void RealPointer::press()
{
    m_system->pressed = true;
    send(MOUSEEVENTF_LEFTDOWN);
    QTest::qWait(30);
}

void RealPointer::release()
{
    m_system->pressed = false;
    send(MOUSEEVENTF_LEFTUP);
    QTest::qWait(30);
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

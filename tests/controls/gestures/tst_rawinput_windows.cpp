#include "support/RealPointer.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/MouseWrapDragFilter.h>
#include <MorrantUI/controls/gestures/NativeMouseTracker.h>

#include <QAbstractEventDispatcher>

#include <windows.h>

#include <algorithm>
#include <optional>
#include <vector>

using ui::test::RealPointer;

namespace {

std::optional<RAWINPUTDEVICE> registeredMouse()
{
    UINT count = 8;
    std::vector<RAWINPUTDEVICE> devices(count);
    count = GetRegisteredRawInputDevices(devices.data(), &count, sizeof(RAWINPUTDEVICE));
    devices.resize(count == UINT(-1) ? 0 : count);
    const auto mouse = std::find_if(devices.begin(), devices.end(), [](const auto& device) {
        return device.usUsagePage == 1 && device.usUsage == 2;
    });
    return mouse == devices.end() ? std::nullopt : std::optional(*mouse);
}

void sendInputs(std::vector<INPUT>& inputs)
{
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

INPUT mouseInput(DWORD flags, QPoint delta = {}, DWORD data = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = delta.x();
    input.mi.dy = delta.y();
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    return input;
}

/// A tracked window and the motions that were reported for it.
struct Tracked
{
    Tracked()
        : tracker(&window)
    {
        window.setGeometry(300, 200, 300, 200);
        window.show();
        QObject::connect(
            &tracker, &NativeMouseTracker::mouseMoved, &window, [this](QPointF delta, bool) {
                ++motions;
                sum += delta;
            });
        isTracking = tracker.startTracking();
    }

    /// From elsewhere the pointer would be pulled into the window, which is a motion, too.
    void enter(RealPointer& pointer) const
    {
        pointer.moveTo(window.geometry().center() * window.devicePixelRatio());
        QTest::qWait(50);
    }

    QWidget window;
    NativeMouseTracker tracker;
    bool isTracking = false;
    int motions = 0;
    QPointF sum;
};

} // namespace

/// What Windows itself does with raw mouse input. Off screen there are no native windows, and all
/// that can be seen is that nothing is registered for one.
class RawInputTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aStreamOfMotionsIsExactAndLeavesTheQueueEmpty()
    {
        Tracked tracked;
        MouseWrapDragFilter* drag = MouseWrapDragFilter::Make(&tracked.window);
        QPointF current;
        connect(drag, &MouseWrapDragFilter::dragged, this, [&](const QPointF& a) { current = a; });
        QCOMPARE(tracked.isTracking, RealPointer::available());
        QCOMPARE(registeredMouse().has_value(), RealPointer::available());
        if (!tracked.isTracking) {
            QCOMPARE(takeLog(), QStringList(u"debug: RegisterRawInputDevices() failed"_qs));
            return;
        }
        RealPointer pointer;
        tracked.enter(pointer);
        pointer.press(); // really, or the first move would tell that it is up
        QTRY_VERIFY(drag->isDragging());
        const int motionsBefore = tracked.motions;
        const QPointF sumBefore = tracked.sum;

        constexpr int kMotions = 2000;
        constexpr int kAtOnce = 100;
        for (int sent = 0; sent < kMotions; sent += kAtOnce) {
            std::vector<INPUT> inputs(
                kAtOnce, mouseInput(MOUSEEVENTF_MOVE, {sent % 200 == 0 ? 3 : -3, 1}));
            sendInputs(inputs);
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(tracked.motions - motionsBefore, kMotions);
        QCOMPARE(tracked.sum - sumBefore, QPointF(0, kMotions));
        QCOMPARE(current, QPointF(0, kMotions));
        MSG message{};
        QVERIFY(!PeekMessageW(&message, nullptr, WM_INPUT, WM_INPUT, PM_NOREMOVE));

        pointer.release();
    }

    void onlyReadableMouseMotionsAreReported()
    {
        Tracked tracked;
        takeLog();
        if (tracked.isTracking) {
            RealPointer pointer;
            tracked.enter(pointer);
            const int before = tracked.motions;
            std::vector<INPUT> inputs = {
                mouseInput(MOUSEEVENTF_WHEEL, {}, WHEEL_DELTA),
                mouseInput(MOUSEEVENTF_RIGHTDOWN),
                mouseInput(MOUSEEVENTF_RIGHTUP),
                mouseInput(MOUSEEVENTF_MOVE, {4, -3})};
            sendInputs(inputs);
            QTRY_COMPARE(tracked.motions, before + 1);
            SetCursorPos(5, 5); // its echo moves nothing
            QTest::qWait(50);
            QCOMPARE(tracked.motions, before + 1);
        }
        MSG message{};
        message.message = WM_INPUT;
        message.lParam = 0x7654321; // no record of ours
        const auto filter = [&message](const char* type) {
            return QAbstractEventDispatcher::instance()->filterNativeEvent(type, &message, nullptr);
        };
        QVERIFY(!filter("windows_generic_MSG"));
        const QStringList failure(u"debug: GetRawInputData() failed"_qs);
        QCOMPARE(takeLog(), tracked.isTracking ? failure : QStringList());
        QVERIFY(!filter("windows_dispatcher_MSG"));
        message.message = WM_INPUT + 1;
        QVERIFY(!filter("windows_generic_MSG"));
    }

    void aWindowThatGoesLeavesNoRegistration()
    {
        {
            Tracked tracked;
            takeLog();
            tracked.window.close();
            tracked.window.setParent(nullptr, Qt::Tool); // another native window
        }
        QVERIFY(!registeredMouse());
        POINT before{};
        GetCursorPos(&before);
        for (const bool deletesWindow : {true, false}) {
            auto window = std::make_unique<QWidget>();
            auto* field = new QWidget(window.get());
            window->setGeometry(200, 200, 300, 200);
            window->show();
            MouseWrapDragFilter::Make(field);
            QTest::mousePress(field, Qt::LeftButton);
            QCOMPARE(registeredMouse().has_value(), RealPointer::available());
            if (deletesWindow) {
                window.reset();
            } else {
                delete field;
            }
            QVERIFY(!registeredMouse());
            QCOMPARE(takeLog(), QStringList());
        }
        POINT after{};
        GetCursorPos(&after);
        QVERIFY(before.x == after.x && before.y == after.y);
    }
};

const ui::test::Registration<RawInputTest> kRegistration;

#include "tst_rawinput_windows.moc"

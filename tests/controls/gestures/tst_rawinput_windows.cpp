// SPDX-License-Identifier: Apache-2.0
#include "DragStage.h"
#include "support/RealPointer.h"
#include <MorrantUI/controls/gestures/NativeMouseTracker.h>

#include <windows.h>

using namespace ui::test;

namespace {

bool isMouseRegistered()
{
    RAWINPUTDEVICE devices[8];
    UINT count = 8;
    count = GetRegisteredRawInputDevices(devices, &count, sizeof(RAWINPUTDEVICE));
    return count != UINT(-1) && std::any_of(devices, devices + count, [](const auto& device) {
               return device.usUsagePage == 1 && device.usUsage == 2;
           });
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

void sendInputs(std::vector<INPUT> inputs)
{
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

} // namespace

/// What Windows itself does with raw mouse input. Off screen there are no native windows, and all
/// that can be seen is that nothing is registered for one.
class RawInputTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void motionsAreExactAndNothingElseIsReported()
    {
        DragStage stage;
        NativeMouseTracker tracker(&stage.window);
        int motions = 0;
        connect(&tracker, &NativeMouseTracker::mouseMoved, this, [&] { ++motions; });
        const bool isReal = RealPointer::available();
        QCOMPARE(tracker.startTracking(), isReal);
        QCOMPARE(isMouseRegistered(), isReal);
        MSG message{};
        if (isReal) {
            RealPointer pointer;
            pointer.moveTo(
                stage.target->mapToGlobal(QPoint(50, 50)) * stage.window.devicePixelRatio());
            pointer.press(); // really, or the first move would tell that it is up
            QTRY_VERIFY(stage.filter->isDragging());
            QTest::qWait(50);
            motions = 0;
            for (int sent = 0; sent < 2000; sent += 100) {
                sendInputs({100, mouseInput(MOUSEEVENTF_MOVE, {sent % 200 == 0 ? 3 : -3, 1})});
                QCoreApplication::processEvents();
            }
            QTRY_COMPARE(motions, 2000);
            QCOMPARE(stage.current, QPointF(0, 2000));
            QVERIFY(!PeekMessageW(&message, nullptr, WM_INPUT, WM_INPUT, PM_NOREMOVE));
            pointer.release();
            QTRY_VERIFY(!stage.filter->isDragging());
            QTest::qWait(50);
            motions = 0;
            sendInputs(
                {mouseInput(MOUSEEVENTF_WHEEL, {}, WHEEL_DELTA),
                 mouseInput(MOUSEEVENTF_RIGHTDOWN),
                 mouseInput(MOUSEEVENTF_RIGHTUP),
                 mouseInput(MOUSEEVENTF_MOVE, {4, -3})});
            QTRY_COMPARE(motions, 1);
            SetCursorPos(5, 5); // its echo moves nothing
            QTest::qWait(50);
            QCOMPARE(motions, 1);
        }
        takeLog();
        message.message = WM_INPUT;
        message.lParam = 0x7654321; // no record of ours
        const auto filter = [&message](const char* type) {
            return QAbstractEventDispatcher::instance()->filterNativeEvent(type, &message, nullptr);
        };
        QVERIFY(!filter("windows_generic_MSG"));
        const QStringList failure(u"debug: GetRawInputData() failed"_qs);
        QCOMPARE(takeLog(), isReal ? failure : QStringList());
        QVERIFY(!filter("windows_dispatcher_MSG"));
    }

    void aWindowThatGoesLeavesNoRegistration()
    {
        for (const bool deletesWindow : {true, false}) {
            auto window = std::make_unique<QWidget>();
            auto* field = new QWidget(window.get());
            window->show();
            NativeMouseTracker tracker(window.get());
            tracker.startTracking();
            takeLog();
            window->close();
            window->setParent(nullptr, Qt::Tool); // another native window
            tracker.stopTracking();
            QVERIFY(!isMouseRegistered());
            window->show();
            MouseWrapDragFilter::Make(field);
            QTest::mousePress(field, Qt::LeftButton);
            QCOMPARE(isMouseRegistered(), RealPointer::available());
            deletesWindow ? window.reset() : delete field;
            QVERIFY(!isMouseRegistered());
        }
    }
};

const Registration<RawInputTest> kRegistration;

#include "tst_rawinput_windows.moc"

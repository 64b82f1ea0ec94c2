#include "DragStage.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/NativeMouseTracker.h>

using ui::RawMouseRecord;
using ui::test::DragStage;
using ui::test::FakePointerSystem;
using Drive = morrant::native::PointerSystem::Drive;

/// Drags that raw mouse input drives.
class RawDragTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theMouseGoesRoundInTheWindowAndEndsWhereItBegan()
    {
        FakePointerSystem system(Drive::RawInput);
        system.frame = {100, 50, 300, 200};
        system.pointer = {250, 150};
        DragStage stage;
        const double ratio = stage.window.devicePixelRatio();
        const int margin = int(15 * ratio);
        const QRect rect = system.frame.adjusted(margin, margin, -margin, -margin);
        stage.press();
        QCOMPARE(system.clip, std::optional(rect));
        QVERIFY(system.registration->window == stage.window.internalWinId());
        QVERIFY(system.takeRequests().endsWith(u"; register; hide"_qs));

        constexpr int kSteps = 700;
        QPoint moved;
        for (int i = 0; i < kSteps; ++i) {
            const QPoint step(40 + i % 7, i % 3 == 0 ? -30 : 7);
            system.moveRaw(step);
            moved += step;
            DragStage::sendRaw({}); // the echo of a warp
            QVERIFY(rect.contains(system.pointer));
        }
        QCOMPARE(stage.current, QPointF(moved));
        QCOMPARE(stage.total, QPointF(moved - QPoint(40, -30)) / ratio);
        QVERIFY(system.takeRequests().count(u';') > kSteps * 40 / rect.width()); // it came round

        stage.mouse.release();
        QCOMPARE(system.takeRequests(), u"end confinement; unregister; move to 250,150; show"_qs);
    }

    void absolutePositionsAreScaledInTheTotalOnly()
    {
        FakePointerSystem system(Drive::RawInput);
        system.pointer = {150, 100};
        DragStage stage;
        const double ratio = stage.window.devicePixelRatio();
        stage.press();
        system.moveRaw({20, 0});
        system.takeRequests();
        const auto sendAbsolute = [](int x, int y, int flags = 0) {
            const auto all = static_cast<std::uint16_t>(RawMouseRecord::kAbsolute | flags);
            FakePointerSystem::sendRaw({true, all, 0, x, y});
        };
        sendAbsolute(10000, 30000);
        QCOMPARE(stage.reports, 1);
        constexpr int kFifth = 65535 / 5; // of a screen's 1600 by 1000 pixels
        sendAbsolute(10000 + kFifth, 30000 - kFifth);
        QCOMPARE(stage.total, QPointF(320, -200) / ratio);
        QCOMPARE(stage.current, QPointF(20 + kFifth, -kFifth));
        sendAbsolute(10000, 30000 - kFifth, RawMouseRecord::kVirtualDesktop);
        QCOMPARE(stage.total, QPointF(-320, -200) / ratio);
        QCOMPARE(system.takeRequests(), QString()); // absolute devices are not wrapped

        stage.mouse.release();
        stage.press();
        sendAbsolute(60000, 60000); // what was before is nothing to this drag
        QCOMPARE(stage.reports, 3);
    }

    void aDragGoesOnAsFarAsItCan()
    {
        FakePointerSystem system(Drive::RawInput);
        system.pointer = {150, 100};
        DragStage stage;
        const auto totalOf = [&](QPoint way) { // after what passes the drag distance
            system.takeRequests();
            stage.press();
            stage.move({30, 0});
            stage.move(way);
            stage.mouse.release();
            return stage.total;
        };
        system.knowsPosition = false;
        QCOMPARE(totalOf({30, 0}), QPointF(30, 0));
        QCOMPARE(takeLog(), QStringList(u"error: Error: 5"_qs));
        QVERIFY(!system.takeRequests().contains(u"move"_qs));

        system.knowsPosition = true;
        system.succeeds = false; // in confining, in the first wrap, in letting go and in going back
        for (int i = 0; i < 2; ++i) {
            totalOf({3000, 0});
            QCOMPARE(takeLog(), QStringList(4, u"error: Error: 5"_qs));
        }
        system.succeeds = true;
        system.allowsRawInput = false;
        QCOMPARE(totalOf({0, 5}), QPointF(0, 5)); // counted by moves
        QCOMPARE(takeLog(), QStringList(u"debug: RegisterRawInputDevices() failed"_qs));
        QVERIFY(system.takeRequests().contains(u"hide"_qs) && system.isFree());

        system.remote = true;
        QCOMPARE(totalOf({0, 7}), QPointF(0, 7));
        QCOMPARE(system.takeRequests(), QString());

        system.remote = false;
        system.allowsRawInput = true;
        system.frame = {100, 100, 20, 20}; // nothing is left between its margins
        QCOMPARE(totalOf({3000, 0}), QPointF(3000, 0));
        const QString requests = u"register; hide; unregister; move to 150,100; show"_qs;
        QCOMPARE(system.takeRequests(), requests);
    }

    void theHostsRegistrationComesBack()
    {
        FakePointerSystem system(Drive::RawInput);
        const std::optional hosts = FakePointerSystem::Registration{0x30, 4711};
        system.registration = hosts;
        DragStage stage;
        QWidget other;
        other.show();
        NativeMouseTracker tracker(&other);
        QPointF sum;
        connect(
            &tracker, &NativeMouseTracker::mouseMoved, this, [&](QPointF delta) { sum += delta; });
        QVERIFY(tracker.startTracking());

        // The tracker goes on through one drag and stops in the middle of another.
        const auto trackers = system.registration;
        stage.press();
        const auto drags = system.registration;
        QVERIFY(trackers != hosts && drags != trackers);
        system.moveRaw({20, 1});
        stage.mouse.release();
        QCOMPARE(system.registration, trackers);
        stage.press();
        tracker.stopTracking();
        QCOMPARE(system.registration, drags);
        system.moveRaw({20, 1});
        QCOMPARE(sum, QPointF(20, 1));
        stage.mouse.release();
        QCOMPARE(system.registration, hosts);
    }

    void aTrackerNeedsANativeWindow()
    {
        FakePointerSystem system(Drive::RawInput);
        const QStringList failure(u"debug: RegisterRawInputDevices() failed"_qs);
        QWidget window;
        auto* child = new QWidget(&window);
        NativeMouseTracker tracker(child);
        QVERIFY(!tracker.startTracking());
        QCOMPARE(takeLog(), failure);
        QVERIFY(!window.internalWinId());
        window.show();
        QVERIFY(tracker.startTracking() && tracker.isTracking());
        system.pointer = {12, 34};
        QCOMPARE(NativeMouseTracker::currentPosition(), QPointF(12, 34));

        delete child;
        tracker.stopTracking();
        QVERIFY(system.isFree());
        QVERIFY(!tracker.startTracking() && !tracker.isTracking());
        QCOMPARE(takeLog(), failure);
    }
};

const ui::test::Registration<RawDragTest> kRegistration;

#include "tst_rawdrag.moc"

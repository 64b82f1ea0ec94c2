// SPDX-License-Identifier: Apache-2.0
#include "DragStage.h"
#include "support/RealPointer.h"
#include <MorrantUI/controls/gestures/NativeMouseTracker.h>
#include <MorrantUI/controls/gestures/PointerLock.h>
#include <MorrantUI/controls/gestures/nativemouse.h>

using namespace ui::test;
using ui::RawMouseRecord;

/// Drags that raw mouse input drives, and the lock that holds the pointer in a window as they do.
class RawDragTest : public TestCase
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
        stage.press();
        QVERIFY(system.clip && system.registration->window == stage.window.internalWinId());
        QVERIFY(system.takeRequests().endsWith(u"; register; hide"_qs));
        for (int i = 0; i < 70; ++i) {
            system.moveRaw({40, -7});
            DragStage::sendRaw({}); // the echo of a warp
            QVERIFY(system.clip->contains(system.pointer));
        }
        QCOMPARE(stage.current, QPointF(70 * 40, -70 * 7));
        QCOMPARE(stage.total, QPointF(69 * 40, -69 * 7) / ratio);
        QVERIFY(
            system.takeRequests().count(u';') > 70 * 40 / system.clip->width()); // it came round

        const auto sendAbsolute = [](int x, int y, int flags = RawMouseRecord::kAbsolute) {
            FakePointerSystem::sendRaw({true, static_cast<std::uint16_t>(flags), 0, x, y});
        };
        constexpr int kFifth = 65535 / 5; // of a screen's 1600 by 1000 pixels
        sendAbsolute(10000, 30000);
        const QPointF before = stage.total;
        sendAbsolute(10000 + kFifth, 30000 - kFifth);
        QCOMPARE(stage.total - before, QPointF(320, -200) / ratio);
        QCOMPARE(system.takeRequests(), QString()); // absolute devices are not wrapped
        stage.mouse.release();
        QCOMPARE(system.takeRequests(), u"end confinement; unregister; move to 250,150; show"_qs);
        const int reports = stage.reports;
        stage.press();
        sendAbsolute(60000, 60000); // what was before is nothing to this drag
        QCOMPARE(stage.reports, reports);
    }

    void aDragGoesOnAsFarAsItCan()
    {
        FakePointerSystem system(Drive::RawInput);
        system.pointer = {150, 100};
        DragStage stage;
        const auto totalOf = [&](QPoint way) { // after what passes the drag distance
            system.takeRequests();
            stage.drag({{30, 0}, way});
            return stage.total;
        };
        const QString error = u"error: Error: 5"_qs;
        system.knowsPosition = false;
        QCOMPARE(totalOf({30, 0}), QPointF(30, 0));
        QCOMPARE(takeLog(), QStringList(error));
        QVERIFY(!system.takeRequests().contains(u"move"_qs));
        system.knowsPosition = true;
        system.succeeds = false; // in confining, in the first wrap, in letting go and in going back
        for (int i = 0; i < 2; ++i) {
            totalOf({3000, 0});
            QCOMPARE(takeLog(), QStringList(4, error));
        }
        system.succeeds = true;
        system.allowsRawInput = false;
        QCOMPARE(totalOf({0, 5}), QPointF(0, 5)); // counted by moves
        QCOMPARE(takeLog(), QStringList(u"debug: RegisterRawInputDevices() failed"_qs));
        QVERIFY(!system.takeRequests().contains(u"hide"_qs) && system.isFree());
        system.remote = true;
        QCOMPARE(totalOf({0, 7}), QPointF(0, 7));
        QCOMPARE(system.takeRequests(), QString());
        system.remote = false;
        system.allowsRawInput = true;
        system.frame = {100, 100, 20, 20}; // nothing is left between its margins
        QCOMPARE(totalOf({3000, 0}), QPointF(3000, 0));
        QVERIFY(!system.takeRequests().contains(u"confine"_qs));
    }

    void theHostsRegistrationComesBack()
    {
        FakePointerSystem system(Drive::RawInput);
        const std::optional hosts = FakePointerSystem::Registration{0x30, 4711};
        system.registration = hosts;
        DragStage stage;
        QWidget other;
        NativeMouseTracker tracker(&other);
        QVERIFY(!tracker.startTracking()); // it needs a native window
        QCOMPARE(takeLog(), QStringList(u"debug: RegisterRawInputDevices() failed"_qs));
        other.show();
        QVERIFY(tracker.startTracking());
        QPointF sum;
        connect(
            &tracker, &NativeMouseTracker::mouseMoved, this, [&](QPointF delta) { sum += delta; });

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

    void aLockHoldsUntilADoorOpens()
    {
        FakePointerSystem system(Drive::RawInput);
        const std::function<void(QWidget*, PointerLock*)> doors[] = {
            [](QWidget*, PointerLock* lock) { delete lock; },
            [](QWidget* widget, PointerLock*) { delete widget; },
            [](QWidget* widget, PointerLock*) { widget->setEnabled(false); },
            [](QWidget*, PointerLock*) { resetNativeMouseState(); },
            [&](QWidget*, PointerLock* lock) { // there is no room any more
                system.frame = {0, 0, 10, 10};
                lock->lock();
            }};
        for (const auto& leave : doors) {
            system.frame = {100, 100, 400, 300};
            QWidget window;
            const QPointer<QWidget> widget = new QWidget(&window);
            const QPointer<PointerLock> lock = new PointerLock(widget, &window);
            lock->lock();
            QVERIFY(!lock->locked() && lock->confiningRect().isEmpty()); // never shown
            showActive(window);
            lock->lock();
            const QRect rect = lock->confiningRect();
            const int margin = int(15 * window.devicePixelRatio());
            QCOMPARE(rect, system.frame.adjusted(margin, margin, -margin, -margin));
            QVERIFY(lock->locked() && system.clip == rect);
            system.frame.translate(50, 0);
            lock->lock();
            QCOMPARE(system.clip, std::optional(rect.translated(50, 0)));
            leave(widget, lock);
            QVERIFY(!system.clip && (!lock || !lock->locked()));
            // A lock that has lost its hold takes none from another.
            system.frame = {100, 100, 400, 300};
            QWidget otherWindow;
            showActive(otherWindow);
            PointerLock other(&otherWindow);
            other.lock();
            delete lock;
            QVERIFY(other.locked() && system.clip);
        }
        PointerLock(nullptr).lock();
        QVERIFY(!system.clip);
    }

    void aDragGivesThePointerBackToTheLock()
    {
        FakePointerSystem system(Drive::RawInput);
        DragStage stage;
        showActive(stage.window);
        PointerLock lock(&stage.window);
        lock.lock();
        const auto locked = system.clip;
        system.frame = {0, 0, 400, 400};
        stage.press();
        QVERIFY(system.clip && system.clip != locked);
        stage.mouse.release();
        QCOMPARE(system.clip, locked);
        stage.press();
        lock.unlock();
        QVERIFY(system.clip && system.clip != locked);
        stage.mouse.release();
        QVERIFY(!system.clip);
    }

    void aRealPointerCannotLeave()
    {
        QWidget window;
        window.setGeometry(100, 100, 300, 200);
        showActive(window);
        PointerLock lock(&window);
        lock.lock();
        QCOMPARE(lock.locked(), RealPointer::available());
        if (!RealPointer::available()) {
            return; // off screen nothing holds a pointer
        }
        RealPointer pointer;
        const QRect rect = lock.confiningRect();
        for (const QPoint step : {QPoint(30, 1), QPoint(-30, 20), QPoint(3, -30)}) {
            pointer.moveTo(rect.center());
            pointer.moveBy(step, 30);
            QVERIFY(rect.contains(pointer.position()));
        }
        lock.unlock();
        pointer.moveBy({30, 0}, 15);
        QVERIFY(!rect.contains(pointer.position()));
    }
};

const Registration<RawDragTest> kRegistration;

#include "tst_rawdrag.moc"

// SPDX-License-Identifier: Apache-2.0
#include "DragStage.h"
#include "support/RealPointer.h"
#include <MorrantUI/controls/gestures/PointerLock.h>
#include <MorrantUI/controls/gestures/nativemouse.h>

using namespace ui::test;

class PointerLockTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
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

const Registration<PointerLockTest> kRegistration;

#include "tst_pointerlock.moc"

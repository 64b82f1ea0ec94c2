#include "DragStage.h"
#include "support/RealPointer.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/PointerLock.h>
#include <MorrantUI/controls/nativemouse.h>

using ui::test::DragStage;
using ui::test::FakePointerSystem;
using ui::test::RealPointer;
using Drive = morrant::native::PointerSystem::Drive;

class PointerLockTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aLockedPointerStaysInsideTheWindow();
    void everyDoorUnlocks();
    void aDragGivesThePointerBackToTheLock();
    void aRealPointerCannotLeave();
};

void PointerLockTest::aLockedPointerStaysInsideTheWindow()
{
    FakePointerSystem system(Drive::RawInput);
    system.frame = {100, 100, 400, 300};
    QWidget window;
    window.show();
    PointerLock lock(&window);
    lock.unlock();
    QVERIFY(!lock.locked() && lock.confiningRect().isEmpty());
    QCOMPARE(system.takeRequests(), QString());

    lock.lock();
    const int margin = int(15 * window.devicePixelRatio());
    const QRect rect = system.frame.adjusted(margin, margin, -margin, -margin);
    QVERIFY(lock.locked());
    QCOMPARE(lock.confiningRect(), rect);
    QCOMPARE(system.clip, std::optional(rect));
    system.frame.translate(50, 0);
    lock.lock();
    QCOMPARE(system.clip, std::optional(rect.translated(50, 0)));

    system.frame = {0, 0, 10, 10};
    lock.lock();
    PointerLock lockToNothing(nullptr);
    lockToNothing.lock();
    QVERIFY(!lock.locked() && !lockToNothing.locked() && !system.clip);
}

void PointerLockTest::everyDoorUnlocks()
{
    FakePointerSystem system(Drive::RawInput);
    const std::vector<std::function<void(QWidget*, PointerLock*)>> doors = {
        [](QWidget*, PointerLock* lock) { delete lock; },
        [](QWidget* widget, PointerLock*) { delete widget; },
        [](QWidget* widget, PointerLock*) { widget->window()->close(); },
        [](QWidget*, PointerLock*) { resetNativeMouseState(); },
    };
    for (const auto& leave : doors) {
        QWidget window;
        const QPointer<QWidget> widget = new QWidget(&window);
        const QPointer<PointerLock> lock = new PointerLock(widget, &window);
        window.show();
        lock->lock();
        leave(widget, lock);
        QVERIFY(!system.clip);
        QVERIFY(!lock || !lock->locked());
        // A lock that has lost its hold takes none from another.
        PointerLock other(&window);
        other.lock();
        delete lock;
        QVERIFY(other.locked() && system.clip);
    }
}

void PointerLockTest::aDragGivesThePointerBackToTheLock()
{
    FakePointerSystem system(Drive::RawInput);
    DragStage stage;
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

void PointerLockTest::aRealPointerCannotLeave()
{
    QWidget window;
    window.setGeometry(100, 100, 300, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
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
    pointer.moveTo(rect.center());
    pointer.moveBy({30, 0}, 15);
    QVERIFY(!rect.contains(pointer.position()));
}

const ui::test::Registration<PointerLockTest> kRegistration;

#include "tst_pointerlock.moc"

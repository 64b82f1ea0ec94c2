#include "DragStage.h"
#include "support/RealPointer.h"
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/PointerLock.h>
#include <MorrantUI/controls/gestures/nativemouse.h>

using ui::test::DragStage;
using ui::test::FakePointerSystem;
using ui::test::RealPointer;
using Drive = morrant::native::PointerSystem::Drive;

namespace {

/// Also where no window manager makes what is shown active.
bool showActive(QWidget& window)
{
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) {
        return false;
    }
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace

class PointerLockTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aLockedPointerStaysInsideTheWindow()
    {
        FakePointerSystem system(Drive::RawInput);
        system.frame = {100, 100, 400, 300};
        QWidget window;
        QVERIFY(showActive(window));
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

    void everyDoorUnlocks()
    {
        FakePointerSystem system(Drive::RawInput);
        const std::function<void(QWidget*, PointerLock*)> doors[] = {
            [](QWidget*, PointerLock* lock) { delete lock; },
            [](QWidget* widget, PointerLock*) { delete widget; },
            [](QWidget* widget, PointerLock*) { widget->setEnabled(false); },
            [](QWidget*, PointerLock*) { resetNativeMouseState(); }};
        for (const auto& leave : doors) {
            QWidget window;
            const QPointer<QWidget> widget = new QWidget(&window);
            const QPointer<PointerLock> lock = new PointerLock(widget, &window);
            lock->lock();
            QVERIFY(!lock->locked()); // never shown
            QVERIFY(showActive(window));
            lock->lock();
            QVERIFY(lock->locked());
            leave(widget, lock);
            QVERIFY(!system.clip && (!lock || !lock->locked()));
            // A lock that has lost its hold takes none from another.
            QWidget otherWindow;
            QVERIFY(showActive(otherWindow));
            PointerLock other(&otherWindow);
            other.lock();
            delete lock;
            QVERIFY(other.locked() && system.clip);
        }
    }

    void anInactiveApplicationLocksNothing()
    {
        FakePointerSystem system(Drive::RawInput);
        QWidget window;
        QVERIFY(showActive(window));
        QWidget toolTip(nullptr, Qt::ToolTip); // is shown without becoming the active window
        toolTip.show();
        PointerLock lock(&toolTip);
        lock.lock();
        QVERIFY(lock.locked());
        window.hide();
        if (QGuiApplication::platformName() == u"xcb") { // off screen an application stays active
            QTRY_COMPARE(QGuiApplication::applicationState(), Qt::ApplicationInactive);
        }
        lock.lock();
        QCOMPARE(lock.locked(), QGuiApplication::applicationState() == Qt::ApplicationActive);
    }

    void aDragGivesThePointerBackToTheLock()
    {
        FakePointerSystem system(Drive::RawInput);
        DragStage stage;
        QVERIFY(showActive(stage.window));
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
        QVERIFY(showActive(window));
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
};

const ui::test::Registration<PointerLockTest> kRegistration;

#include "tst_pointerlock.moc"

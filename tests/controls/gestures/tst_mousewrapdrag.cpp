// SPDX-License-Identifier: Apache-2.0
#include "DragStage.h"
#include "support/RealPointer.h"
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/theme/OverrideCursor.h>

using namespace ui::test;
using Act = std::function<void(DragStage&)>;

namespace {

/// As the system tells of a move when a release has got lost.
void moveWithoutButton(DragStage& stage)
{
    const QPointF at(30, 30);
    QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QSpontaneKeyEvent::setSpontaneous(&move);
    qApp->notify(stage.target, &move);
}

} // namespace

/// Drags of every kind: what they report, and that the pointer is given back whatever happens.
class MouseWrapDragTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void onlyALeftPressOnWhatIsEnabledStartsADrag()
    {
        FakePointerSystem system(Drive::RawInput);
        DragStage stage;
        stage.mouse.press(Qt::RightButton);
        stage.mouse.release(Qt::RightButton);
        stage.filter->setEnabled(false);
        stage.pressAtOnce({});
        stage.filter->setEnabled(true);
        stage.target->setEnabled(false);
        stage.pressAtOnce({});
        QVERIFY(stage.story.isEmpty() && system.takeRequests().isEmpty());
        stage.target->setEnabled(true);
        stage.press();
        stage.filter->setEnabled(false); // says only that no other drag begins
        QVERIFY(stage.filter->isDragging());
        stage.mouse.release();
        QCOMPARE(stage.story, u"se"_qs);
        QVERIFY(!stage.target->internalWinId());
        QVERIFY(!MouseWrapDragFilter::Make(nullptr) && !MouseWrapDragFilter::MakeDummy(nullptr));
    }

    void movesOfTheSystemLeaveAReplayedPressAlone()
    {
        DragStage stage(true);
        stage.pressAtOnce({50, 50});
        moveWithoutButton(stage);
        QCOMPARE(stage.story, u"s"_qs);
    }

    /// The doors are GestureDoorsTest's; these are the filter's own ends, and one door.
    void everyEndGivesThePointerBack()
    {
        const std::pair<Act, QString> ends[] = {
            {[](DragStage& s) { s.mouse.release(Qt::RightButton); }, u"se"_qs}, // of any button
            {moveWithoutButton, u"se"_qs},
            {[](DragStage& s) { s.window.hide(); }, u"se"_qs},
            {[](DragStage& s) { delete s.filter; }, u"se"_qs},
            {[](DragStage& s) { delete s.target; }, u"s"_qs}, // there is nobody to tell
            {[](DragStage& s) {
                 s.filter->setParent(nullptr);
                 delete s.target;
                 delete s.filter;
             },
             u"s"_qs}};
        const ui::OverrideCursor hosts(Qt::WaitCursor);
        for (const auto& [end, story] : ends) {
            for (const Drive drive : {Drive::Moves, Drive::Warps, Drive::RawInput}) {
                FakePointerSystem system(drive);
                system.pointer = {123, 45};
                DragStage stage;
                stage.press();
                stage.move({30, 0});
                QCOMPARE(system.hides, drive == Drive::Moves ? 0 : 1);
                QCOMPARE(system.clip && system.registration, drive == Drive::RawInput);
                system.moveRaw({77, 5});
                const QPoint pressed = stage.target->mapToGlobal(QPoint(50, 50));
                const int reports = stage.reports;
                end(stage);
                DragStage::sendRaw({40, 0});
                QVERIFY(stage.story == story && stage.reports == reports && system.isFree());
                if (drive != Drive::Moves) {
                    QCOMPARE(system.pointer, drive == Drive::Warps ? pressed : QPoint(123, 45));
                }
                QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
            }
        }
    }

    void anythingMayDieInAnySignal()
    {
        const Act ends[] = {
            [](DragStage& s) { s.filter->forceEndDrag(); },
            [](DragStage& s) { delete s.filter; },
            [](DragStage& s) { delete s.target; }};
        for (const Drive drive : {Drive::Moves, Drive::Warps, Drive::RawInput}) {
            FakePointerSystem system(drive);
            for (const Act& end : ends) {
                for (const int k : {0, 1, 3}) { // started, dragged twice, ended
                    DragStage stage;
                    stage.onSignal = {k, [&] { end(stage); }};
                    stage.drag({{30, 0}, {30, 0}});
                    QCOMPARE(stage.reports, std::min(k, 2));
                    QVERIFY(stage.onSignal.isDone() && system.isFree());
                }
            }
        }
    }

    void aSecondDragEndsTheFirstWhichMayPutItOff()
    {
        using Reaction = std::function<void(DragStage&, DragStage&)>;
        const std::pair<Reaction, QString> reactions[] = {
            {[](auto&, auto&) {}, u"ses"_qs},
            {[](auto& second, auto&) { delete second.filter; }, u"se"_qs},
            {[](auto& second, auto&) { delete second.target; }, u"se"_qs},
            {[](auto& second, auto&) { second.filter->setEnabled(false); }, u"se"_qs},
            {[](auto& second, auto&) { second.target->setEnabled(false); }, u"se"_qs},
            {[](auto&, auto& third) {
                 third.pressAtOnce({50, 50});
             },
             u"ses"_qs}}; // has precedence
        for (const Drive drive : {Drive::Warps, Drive::RawInput}) {
            for (const auto& [react, story] : reactions) {
                for (const bool sameFilter : {false, true}) { // whose release got lost
                    FakePointerSystem system(drive);
                    DragStage first;
                    DragStage other;
                    DragStage third;
                    DragStage& second = sameFilter ? first : other;
                    first.onSignal = {1, [&, act = react] { act(second, third); }};
                    first.press();
                    system.pointer = {210, 95};
                    second.pressAtOnce({120, 30});
                    QCOMPARE(system.pointer, QPoint(210, 95)); // where the user means it to be
                    QCOMPARE(first.story + other.story + third.story, story);
                    QCOMPARE(system.hides, int(story.size()) - 2);
                    QCOMPARE(bool(system.clip), system.hides == 1 && drive == Drive::RawInput);
                    delete first.filter;
                    delete other.filter;
                    delete third.filter;
                    QVERIFY(system.isFree());
                }
            }
        }
    }

    void aPenLeavesThePointerAlone()
    {
        using Device = QInputDevice::DeviceType;
        const std::tuple<Drive, Device, Qt::MouseEventSource> pens[] = {
            {Drive::Warps, Device::Stylus, Qt::MouseEventNotSynthesized},
            {Drive::RawInput, Device::TouchScreen, Qt::MouseEventNotSynthesized},
            {Drive::RawInput, Device::Mouse, Qt::MouseEventSynthesizedBySystem},
            {Drive::Warps, Device::Mouse, Qt::MouseEventSynthesizedByQt}};
        for (const auto& [drive, type, source] : pens) {
            using enum QPointingDevice::PointerType;
            const QPointingDevice device(u"pen"_qs, 1, type, Pen, {}, 1, 1);
            FakePointerSystem system(drive);
            DragStage stage;
            stage.send(QEvent::MouseButtonPress, {100, 100}, &device, source);
            stage.send(QEvent::MouseMove, {120, 100}, &device, source);
            stage.send(QEvent::MouseMove, {1e6, 100}, &device, source);
            DragStage::sendRaw({500, 0});
            QCOMPARE(stage.total, QPointF(1e6 - 120, 0));
            QCOMPARE(system.takeRequests(), QString());
        }
    }

    /// That the way is exact whatever arrives is PointerMathTest's.
    void aWarpKeepsThePointerOnTheScreen()
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        const QPoint press(screen.left() + 3, screen.center().y());
        FakePointerSystem system(Drive::Warps);
        system.pointer = press;
        DragStage stage;
        stage.send(QEvent::MouseButtonPress, press);
        stage.send(QEvent::MouseMove, press + QPoint(1, 1));
        QCOMPARE(system.pointer, press); // might still become a click
        for (int i = 0; i < screen.width(); ++i) {
            system.moveMouse({7, -2});
            for (const QPoint position : system.takePositions()) {
                stage.send(QEvent::MouseMove, position);
            }
            QVERIFY(screen.contains(system.pointer));
        }
        QCOMPARE(stage.current, QPointF(press + QPoint(7, -2) * screen.width()));
        stage.send(QEvent::MouseButtonRelease, system.pointer);
        QCOMPARE(system.pointer, press);
        hideNativeMouse();
        hideNativeMouse(); // is not counted
        showNativeMouse();
        showNativeMouse();
        QVERIFY(system.takeRequests().endsWith(u"; show; hide; show"_qs));
    }

    void theDragDistanceIsNoPartOfTheMovement()
    {
        DragStage stage(true);
        stage.press();
        stage.move({3, 2});
        stage.filter->commitDrag({}, {qQNaN(), 50});
        QCOMPARE(stage.reports, 0);
        stage.move({4, 1}); // ten pixels in all
        QCOMPARE(stage.total, QPointF(0, 0));
        stage.move({20, -5});
        QCOMPARE(stage.total, QPointF(20, -5));
        QCOMPARE(stage.current, QPointF(stage.target->mapToGlobal(QPoint(77, 48))));
        stage.mouse.release();
        stage.press();
        stage.move({3, 2}); // begins anew
        QCOMPARE(stage.reports, 2);
    }

    void aRealPointerDragsTenScreensFarAndComesBack()
    {
        DragStage stage;
        const QScreen* screen = stage.window.screen();
        stage.window.move(screen->geometry().center());
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        const double ratio = screen->devicePixelRatio();
        const QPoint press = stage.target->mapToGlobal(QPoint(50, 50)) * ratio;
        for (const QPoint step : {QPoint(40, 4), QPoint(-40, -4)}) {
            if (!RealPointer::available()) { // off screen a drag goes by mouse moves
                stage.drag({step, step});
                QCOMPARE(stage.total, QPointF(step));
                continue;
            }
            RealPointer pointer;
            const bool isRaw = pointer.isFree().has_value();
            pointer.moveTo(press);
            pointer.press();
            QTRY_VERIFY(stage.filter->isDragging());
            QVERIFY(!pointer.isFree().value_or(false));
            const int steps = int(10 * screen->geometry().width() * ratio) / 40 + 7;
            pointer.moveBy(step, steps);
            const QPointF moved = step * steps;
            QTRY_COMPARE(stage.current, isRaw ? moved : (press + moved) / ratio);
            pointer.release();
            QTRY_COMPARE(pointer.position(), press);
            QVERIFY(!stage.filter->isDragging() && pointer.isFree().value_or(true));
            if (isRaw) {
                continue; // is not told of positions that are set
            }
            pointer.press();
            QTRY_VERIFY(stage.filter->isDragging());
            QPoint place = press;
            for (int i = 0; i < 15; ++i) { // as of a remote desktop, into the wrapped margin
                pointer.moveTo(place += step);
                QTRY_COMPARE(stage.current, QPointF(place) / ratio);
            }
            pointer.release();
        }
    }
};

const Registration<MouseWrapDragTest> kRegistration;

#include "tst_mousewrapdrag.moc"

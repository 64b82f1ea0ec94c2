#include "DragStage.h"
#include "support/RealPointer.h"
#include <MorrantUI/controls/gestures/nativemouse.h>
#include <MorrantUI/theme/OverrideCursor.h>

#include <QApplication>
#include <QScreen>

using namespace ui::test;
using Act = std::function<void(DragStage&)>;

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
        stage.press();
        stage.mouse.release();
        stage.filter->setEnabled(true);
        stage.target->setEnabled(false);
        stage.pressAtOnce({});
        stage.filter->forceEndDrag();
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

    void theDragDistanceIsNoPartOfTheMovement()
    {
        DragStage stage(true);
        const QPointF none(-99, -99);
        const std::pair<QPointF, QPointF> reports[] = {
            {{6, 3}, none},
            {{qQNaN(), 50}, none},
            {{0, qInf()}, none},
            {{6, 4}, {0, 0}},
            {{26, -6}, {20, -10}},
            {{0, 0}, {-6, -4}}}; // back inside the distance
        for (const auto& [movement, total] : reports) {
            stage.total = none;
            stage.filter->commitDrag({3, 4}, movement);
            QCOMPARE(stage.total, total);
        }
        QCOMPARE(stage.current, QPointF(3, 4));
    }

    void everyKindOfDragTellsTheSameStory()
    {
        const std::pair<Drive, bool> kinds[] = {
            {Drive::Warps, false},
            {Drive::RawInput, false},
            {Drive::Moves, false},
            {Drive::Warps, true}};
        for (const auto& [drive, isDummy] : kinds) {
            FakePointerSystem system(drive);
            system.pointer = {150, 100};
            DragStage stage(isDummy);
            for (const QPoint press : {QPoint(50, 50), QPoint(70, 30)}) {
                stage.press(press);
                stage.move({3, 2});
                QCOMPARE(stage.reports, 0);
                stage.move({9, 1});
                for (int i = 0; i < 20; ++i) {
                    QCOMPARE(stage.total, QPointF(i, -i));
                    stage.move({1, -1});
                }
                const QPointF moved(32, -17);
                const QPointF unended = stage.target->mapToGlobal(press) + moved;
                const bool isRaw = drive == Drive::RawInput;
                QCOMPARE(stage.current, isRaw ? moved * stage.window.devicePixelRatio() : unended);
                stage.mouse.release();
                stage.move({50, 50});
                QCOMPARE(std::exchange(stage.reports, 0), 21);
                QCOMPARE(std::exchange(stage.story, {}), u"se"_qs);
            }
            QCOMPARE(system.takeRequests().isEmpty(), isDummy || drive == Drive::Moves);
        }
    }

    /// The doors are GestureDoorsTest's; these are the filter's own ends, and one door.
    void everyEndGivesThePointerBack()
    {
        const std::pair<Act, QString> ends[] = {
            {[](DragStage& s) { s.mouse.release(Qt::RightButton); }, u"se"_qs}, // of any button
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
                    stage.press();
                    stage.move({30, 0});
                    stage.move({30, 0});
                    QCOMPARE(stage.reports, std::min(k, 2));
                    stage.mouse.release();
                    QVERIFY(stage.onSignal.isDone() && system.isFree());
                }
            }
        }
    }

    void anEndMayPutOffTheDragThatCausedIt()
    {
        FakePointerSystem system(Drive::Warps);
        DragStage third;
        const std::pair<Act, QString> obstacles[] = {
            {[](DragStage& second) { delete second.filter; }, u"se"_qs},
            {[](DragStage& second) { delete second.target; }, u"se"_qs},
            {[](DragStage& second) { second.filter->setEnabled(false); }, u"se"_qs},
            {[](DragStage& second) { second.target->setEnabled(false); }, u"se"_qs},
            {[&](DragStage&) {
                 third.pressAtOnce({50, 50});
             },
             u"ses"_qs}}; // has precedence
        for (const auto& [putOff, story] : obstacles) {
            for (const bool sameFilter : {false, true}) {
                DragStage first;
                DragStage other;
                DragStage& second = sameFilter ? first : other;
                first.onSignal = {1, [&, act = putOff] { act(second); }};
                first.press();
                second.pressAtOnce({70, 60});
                QCOMPARE(first.story + other.story + third.story, story);
                third.filter->forceEndDrag();
                third.story.clear();
                QVERIFY(system.isFree());
            }
        }
    }

    void aSecondDragEndsTheFirstAndLeavesThePointerThere()
    {
        for (const Drive drive : {Drive::Warps, Drive::RawInput}) {
            for (const bool sameFilter : {true, false}) { // whose release got lost
                FakePointerSystem system(drive);
                DragStage first;
                DragStage other;
                DragStage& second = sameFilter ? first : other;
                first.press();
                const QPoint there(210, 95);
                system.pointer = there;
                second.pressAtOnce({120, 30});
                QCOMPARE(system.pointer, there);
                QCOMPARE(first.story + other.story, u"ses"_qs);
                QCOMPARE(system.hides, 1);
                QCOMPARE(system.clip && system.registration, drive == Drive::RawInput);
                system.pointer += QPoint(9, 9);
                second.filter->forceEndDrag();
                const QPoint pressed = second.target->mapToGlobal(QPoint(120, 30));
                QCOMPARE(system.pointer, drive == Drive::Warps ? pressed : there);
                QVERIFY(system.isFree());
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
    void aWarpedDragStaysOnTheScreenUnlessTheServerForbidsWarps()
    {
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        const QPoint press(screen.left() + 3, screen.center().y());
        for (const bool allowsWarps : {true, false}) {
            FakePointerSystem system(Drive::Warps);
            system.allowsWarps = allowsWarps;
            system.pointer = press;
            DragStage stage;
            stage.send(QEvent::MouseButtonPress, press);
            stage.send(QEvent::MouseMove, press + QPoint(1, 1));
            QCOMPARE(system.pointer, press); // might still become a click
            std::mt19937 random(3);
            for (int i = 0; i < screen.width(); ++i) {
                system.moveMouse({7, -2});
                for (const QPoint position : system.takePositions(random)) {
                    stage.send(QEvent::MouseMove, position);
                }
                QVERIFY(!allowsWarps || screen.contains(system.pointer));
            }
            QCOMPARE(stage.current, QPointF(press + QPoint(7, -2) * screen.width()));
            stage.send(QEvent::MouseButtonRelease, system.pointer);
            QCOMPARE(system.pointer, press);
        }
    }

    void hidingIsNotCounted()
    {
        FakePointerSystem system(Drive::Warps);
        void (*const show)() = showNativeMouse;
        void (*const hide)() = hideNativeMouse;
        void (*const reset)() = resetNativeMouseState;
        for (const auto act : {show, hide, hide, show, show, hide, reset, reset}) {
            act();
        }
        const QString heard = u"hide; show; hide; end confinement; show; end confinement"_qs;
        QCOMPARE(system.takeRequests(), heard);
    }

    void aRealPointerDragsTenScreensFarAndComesBack()
    {
        DragStage stage;
        if (!RealPointer::available()) { // off screen a drag goes by mouse moves
            stage.press();
            stage.move({30, 0});
            stage.move({30, 0});
            QCOMPARE(stage.total, QPointF(30, 0));
            return;
        }
        const QScreen* screen = stage.window.screen();
        stage.window.move(screen->geometry().center());
        QVERIFY(QTest::qWaitForWindowExposed(&stage.window));
        const double ratio = screen->devicePixelRatio();
        const QPoint press = stage.target->mapToGlobal(QPoint(50, 50)) * ratio;
        RealPointer pointer;
        const bool isRaw = pointer.isFree().has_value();
        for (const QPoint step : {QPoint(40, 4), QPoint(-40, -4)}) {
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
        }
    }
};

const Registration<MouseWrapDragTest> kRegistration;

#include "tst_mousewrapdrag.moc"

// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;
using Dial = Bench<AnglePad>;
using Joystick = Bench<JoystickPad>;
using Pair = num2<double>;

namespace {

const QSize kSize(100, 100); ///< so that the middle is at 50, 50

QPoint onDial(double degrees)
{
    const double radians = qDegreesToRadians(degrees);
    return QPointF(50 + std::sin(radians) * 40, 50 - std::cos(radians) * 40).toPoint();
}

void turn(Dial& bench, double from, double to)
{
    for (double at = from; std::abs(at - to) > 0.5; at += to > from ? 5.0 : -5.0) {
        bench.pointer.moveTo(onDial(at));
    }
    bench.pointer.moveTo(onDial(to));
}

} // namespace

class PadsTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragEndsOnce()
    {
        for (const bool hides : {false, true}) {
            Joystick bench(kSize);
            bench.play("@50,50 >70,40 out");      // which only a drag by keys would notice
            bench.pointer.press(Qt::RightButton); // wedges nothing
            bench.pointer.release(Qt::RightButton);
            QVERIFY(bench.control->isDragging());
            hides ? bench.control->hide() : bench.pointer.release();
            const Pair reached = bench.control->value();
            QVERIFY(reached.x > 0.3 && reached.y > 0.1);
            bench.control->endDrag();
            bench.play(">20,20 up");
            QVERIFY(!bench.control->isDragging() && bench.control->value() == reached);
            QCOMPARE(bench.said(), QByteArray("(sC)"));
        }
    }

    void whatChangesNothingInTheEndIsNotCommitted()
    {
        Dial bench(kSize);
        bench.control->setValue(42.37);
        bench.press(onDial(200));
        QTest::keyClick(bench.control, Qt::Key_Shift); // snaps nothing that has not been turned
        bench.follow({{"up Escape", "", "42.37"}});    // nothing to cancel
        bench.control->setValue(42.0);
        for (const bool escapes : {true, false}) {
            bench.press(onDial(90));
            turn(bench, 90, 180);
            bench.follow({{"Up", "(s", "132"}}); // the pointer has the value
            bench.follow({{escapes ? "Escape" : "", escapes ? "s)" : ""}}); // the rest is dead
            turn(bench, 180, 90);
            bench.follow({{"up", escapes ? "" : "s)", "42"}});
        }
    }

    void theDialTurnsAsFarAsThePointerOrSnapsOrTurnsFinely()
    {
        Dial bench(kSize);
        AnglePad& pad = *bench.control;
        pad.setValue(100.0);
        bench.press(onDial(270));
        QCOMPARE(pad.value(), 100.0); // wherever the press is
        turn(bench, 270, 270 + 2 * 360 + 90);
        QVERIFY(isNear(pad.value(), 910.0, 0.2));
        turn(bench, 270 + 2 * 360 + 90, 270 - 360);
        QVERIFY(isNear(pad.value(), -260.0, 0.2));
        QCOMPARE(ui::nearestMultiple(pad.value(), 0.1), pad.value());
        bench.play("up");
        pad.setRange(-45, 45);
        QCOMPARE(pad.value(), -45.0);
        bench.press(onDial(0));
        turn(bench, 0, 200);
        QCOMPARE(pad.value(), 45.0);
        turn(bench, 200, 80); // what went beyond the limit comes back first
        QVERIFY(isNear(pad.value(), 35.0, 1.5));
        bench.after("up");
        bench.follow({{"double", "C", "0"}});

        pad.setRange(-360, 360);
        pad.setValue(10.0);
        bench.press(onDial(90));
        bench.play("[Shift]");
        turn(bench, 90, 130); // 10 and 40 snap to 45
        QCOMPARE(pad.value(), 45.0);
        QTest::keyRelease(&pad, Qt::Key_Shift); // without a movement
        const double before = pad.value();
        QVERIFY(isNear(before, 50.0, 1.5) && before != 45.0);
        bench.play("[Ctrl]");
        turn(bench, 130, 220); // a tenth of what follows, not of what was
        QVERIFY(isNear(pad.value(), before + 9.0, 0.5));
        bench.play("up");
    }

    void keysStepAndTheWheelDoesNot()
    {
        Dial dial(kSize);
        dial.control->setDefaultValue(90.0);
        dial.follow( // each is complete, and not a drag
            {{"Up", "C", "1"},
             {"Shift+Right", "C", "16"},
             {"PgUp", "C", "106"},
             {"Ctrl+Left", "C", "105.9"},
             {"Down", "C", "104.9"},
             {"PgDown", "C", "14.9"},
             {"Home", "C", "0"},
             {"Backspace", "C", "90"},
             {"Backspace Alt+Up", "", "90"}});
        QVERIFY(!turnWheel(*dial.control, {50, 50}, {0, 120}));
        dial.follow({{"", "", "90"}});

        Joystick joystick(kSize);
        joystick.control->setYDownwards(true);
        joystick.control->setRange({0, 0}, {10, 100});
        joystick.control->setStep(1);
        joystick.control->setValue({5, 50});
        joystick.follow(
            {{"Shift+Down", "C", "5;60"}, // down is more here
             {"Left", "C", "4;60"},
             {"PgUp", "C", "4;100"},
             {"Home", "C", "0;100"},
             {"End", "C", "10;100"},
             {"PgDown", "C", "10;0"},
             {"Backspace", "C", "0;0"}});
    }

    void thePadFollowsThePointerAndKeepsToOneAxis()
    {
        Joystick bench(kSize);
        JoystickPad& pad = *bench.control;
        pad.setRange({0, 0}, {10, 100});
        pad.setValue({5, 50});
        bench.follow(
            {{"@47,53", "", "5;50"}, // off the middle of the handle, which does not jump
             {">147,-100", "(s", "10;100"},
             {">47,53", "s", "5;50"},
             {"[Ctrl] >77,53", "s"}});
        const double x = 5.0 + 11 * (pad.value().x - 5.0);
        const QByteArray fine = QByteArray::number(x, 'g', kDigits) + ";50";
        bench.follow({{"[] >107,53 up", "sC)", fine.constData()}});
        pad.setYDownwards(true);
        bench.follow({{"@50,97 up", "(sC)", "5;100"}}); // beside the handle, which comes

        pad.setYDownwards(false);
        pad.setRange({-1, -1}, {1, 1});
        pad.setValue({0.1, 0.7 / 3.0});
        bench.play("@53,43 [Shift] >73,53");
        QVERIFY(pad.value().x > 0.5);
        QVERIFY(pad.value().y == 0.7 / 3.0); // to the last bit
        bench.play(">63,73");
        QVERIFY(pad.value().x == 0.1); // the other axis is the longer one now
        QVERIFY(pad.value().y < -0.3);
        QTest::keyRelease(&pad, Qt::Key_Shift); // free again, without a movement
        QVERIFY(pad.value().x > 0.2);
        bench.play("up");
    }

    void theHandleSpringsBackFromPointerAndKeys()
    {
        Joystick bench(kSize);
        JoystickPad& pad = *bench.control;
        pad.setSpringBack(true);
        bench.play("@50,50 >80,50");
        const QImage out = renderWidget(pad);
        bench.follow({{"up", "(s)", "0;0"}});     // at once
        FakeClock(&pad).advanceAnimations(10000); // and the picture in its own time
        const QImage home = renderWidget(pad);
        QVERIFY(home != out);

        pad.setValue({0.5, 0.5}); // by the program, from where the return is a change
        bench.follow({{"@70,30 up", "(sC)", "0;0"}});
        QVERIFY(renderWidget(pad) != home); // on its way
        pad.hide();
        QVERIFY(!pad.findChild<QVariantAnimation*>()->state());
        pad.show();
        for (const bool loses : {false, true}) {
            pad.setFocus();
            QTest::keyPress(&pad, Qt::Key_Right, Qt::ShiftModifier);
            QTest::keyPress(&pad, Qt::Key_Right, Qt::ShiftModifier);
            bench.follow({{"", "(s", "0.2;0"}, {"Up", "s", "0.2;0.01"}}); // tapped meanwhile
            QVERIFY(pad.isDragging());
            loses ? bench.play("out") : QTest::keyRelease(&pad, Qt::Key_Right);
            bench.follow({{"", "s)", "0;0"}});
        }
    }

    void badValuesAreIgnored()
    {
        Dial dial(kSize);
        dial.control->setValue(12.0);
        dial.control->setValue(kNaN);
        dial.follow({{"", "", "12"}});
        dial.control->setRange(10, -10);
        dial.control->setRange(kNaN, 5);
        dial.control->setDefaultValue(kNaN);
        dial.control->setValue(kInfinity);
        QCOMPARE(dial.control->value(), ui::kDialLimit);
        QCOMPARE(dial.control->defaultValue(), 0.0);

        Joystick joystick(kSize);
        JoystickPad& pad = *joystick.control;
        pad.setRange({0, 0}, {0, 1});
        pad.setRange({0, 0}, {1, kInfinity});
        pad.setValue({kInfinity, -kInfinity});
        pad.setValue({0, kNaN});
        QVERIFY(pad.value() == Pair(1, -1));
        pad.setStep(-1);
        pad.setStep(kNaN);
        QCOMPARE(pad.step(), 0.01);
        pad.setDefaultValue({5, 0});
        QVERIFY(pad.defaultValue() == Pair(1, 0));
        for (const QSize size : {QSize(1, 1), QSize(1, 50), QSize(5, 5)}) { // room for nothing
            dial.control->resize(size);
            pad.resize(size);
            joystick.play("@0,0 >30,30 up");
            QVERIFY(std::abs(pad.value().x) <= 1.0 && std::abs(pad.value().y) <= 1.0);
            renderWidget(*dial.control);
            renderWidget(pad);
        }
    }

    void keysBeatShortcutsOnlyWhereTheyMeanSomething()
    {
        Dial bench(kSize);
        const auto beats = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
            QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
            event.ignore();
            QCoreApplication::sendEvent(bench.control, &event);
            return event.isAccepted();
        };
        QVERIFY(beats(Qt::Key_Up) && beats(Qt::Key_Right, Qt::ControlModifier));
        QVERIFY(beats(Qt::Key_Backspace) && !beats(Qt::Key_Left, Qt::AltModifier));
        QVERIFY(!beats(Qt::Key_Delete) && !beats(Qt::Key_Space) && !beats(Qt::Key_Escape));
        bench.pointer.press();
        QVERIFY(beats(Qt::Key_Escape)); // only in a drag
        bench.play("up");
    }
};

const Registration<PadsTest> kRegistration;

#include "tst_pads.moc"

#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/values/AnglePad.h>
#include <MorrantUI/controls/values/JoystickPad.h>

#include <QtWidgets>

#include <cmath>
#include <functional>
#include <limits>

using ui::test::renderWidget;
using Pair = num2<double>;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A pad in an active window, 100 pixels square so that its middle is at 50, with a second control.
template <typename Pad>
struct Panel
{
    Panel()
    {
        pad->setGeometry(10, 10, 100, 100);
        other->setGeometry(120, 10, 50, 24);
        window.resize(200, 120);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    void press(QPoint position)
    {
        pointer.moveTo(position);
        pointer.press();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(pad.data(), key, modifiers);
    }

    QWidget window;
    QPointer<Pad> pad = new Pad(&window);
    QLineEdit* other = new QLineEdit(&window);
    ui::test::SignalRecord record{pad.data()};
    ui::test::FakePointer pointer{pad};
};

QPoint onDial(double degrees, double radius = 40.0)
{
    const double radians = qDegreesToRadians(degrees);
    return QPointF(50 + std::sin(radians) * radius, 50 - std::cos(radians) * radius).toPoint();
}

void turn(ui::test::FakePointer& pointer, double from, double to)
{
    for (double at = from; std::abs(at - to) > 0.5; at += to > from ? 5.0 : -5.0) {
        pointer.moveTo(onDial(at));
    }
    pointer.moveTo(onDial(to));
}

bool isNear(double value, double expected, double tolerance = 1e-9)
{
    return std::abs(value - expected) < tolerance;
}

} // namespace

class PadsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragEndsOnce();
    void whatChangesNothingInTheEndIsNotCommitted();
    void aSlotMayDeleteOrDisableTheControl();
    void theDialTurnsAsFarAsThePointerOrSnapsOrTurnsFinely();
    void theDialHasKeysAndNoWheel();
    void thePadFollowsThePointer();
    void thePadKeepsToOneAxis();
    void theHandleSpringsBackFromPointerAndKeys();
    void badValuesAreIgnored();
    void keysBeatShortcutsOnlyWhereTheyMeanSomething();
    void theLookFollowsValueAndState();
    void assistiveToolsReadAndSetTheNumbers();
};

void PadsTest::aDragEndsOnce()
{
    using Joystick = Panel<JoystickPad>;
    const std::function<void(Joystick&)> doors[] = {
        [](Joystick& panel) { panel.pointer.release(); },
        [](Joystick& panel) { panel.pad->hide(); },
        [](Joystick& panel) { panel.pad->endDrag(); },
        [](Joystick& panel) { // a dialog
            QEvent blocked(QEvent::WindowBlocked);
            QCoreApplication::sendEvent(panel.window.windowHandle(), &blocked);
        },
        [](Joystick& panel) { // the button came up elsewhere
            ui::test::FakePointer(panel.pad).moveTo({60, 60});
        }};
    for (const auto& leave : doors) {
        Joystick panel;
        panel.press({50, 50});
        panel.pointer.dragTo({70, 40});
        QVERIFY(panel.pad->isDragging());
        panel.pointer.press(Qt::RightButton); // wedges nothing
        panel.pointer.release(Qt::RightButton);
        leave(panel);
        QVERIFY(!panel.pad->isDragging());
        const Pair reached = panel.pad->value();
        QVERIFY(reached.x > 0.3 && reached.y > 0.1);
        panel.pad->endDrag();
        panel.pointer.moveTo({20, 20});
        panel.pointer.release();
        QVERIFY(panel.pad->value() == reached);
        QCOMPARE(panel.record.take(), QByteArray("(sC)"));
    }
    Joystick panel;
    panel.press({50, 50});
    panel.pointer.dragTo({70, 40});
    delete panel.pad; // reports nothing more
    panel.pointer.release();
    QCOMPARE(panel.record.take(), QByteArray("(s"));
}

void PadsTest::whatChangesNothingInTheEndIsNotCommitted()
{
    Panel<AnglePad> panel;
    panel.pad->setValue(42.37);
    panel.press(onDial(200));
    panel.key(Qt::Key_Shift); // snaps nothing that has not been turned
    panel.pointer.release();
    panel.key(Qt::Key_Escape); // nothing to cancel
    QCOMPARE(panel.pad->value(), 42.37);
    QCOMPARE(panel.record.take(), QByteArray());

    panel.pad->setValue(42.0);
    for (const bool escapes : {true, false}) {
        panel.press(onDial(90));
        turn(panel.pointer, 90, 180);
        panel.key(Qt::Key_Up); // the pointer has the value
        QCOMPARE(panel.pad->value(), 132.0);
        if (escapes) {
            panel.key(Qt::Key_Escape); // the rest of the gesture is dead
        }
        turn(panel.pointer, 180, 90);
        panel.pointer.release();
        QCOMPARE(panel.pad->value(), 42.0);
        QCOMPARE(panel.record.take(), QByteArray("(s)"));
    }
}

void PadsTest::aSlotMayDeleteOrDisableTheControl()
{
    for (const QByteArray when : {"start", "step", "commit", "end"}) {
        for (const bool deletes : {true, false}) {
            Panel<JoystickPad> panel;
            const auto act = [&](const char* moment) {
                if (when == moment && panel.pad) {
                    deletes ? delete panel.pad : panel.pad->setEnabled(false);
                }
            };
            connect(panel.pad, &ValueControl::dragStateChanged, panel.other, [&](bool on) {
                act(on ? "start" : "end");
            });
            connect(panel.pad, &ValueControl::valueChanged, panel.other, [&](bool done) {
                act(done ? "commit" : "step");
            });
            panel.press({50, 50});
            panel.pointer.dragTo({80, 80});
            panel.pointer.release();
            QCOMPARE(panel.pad.isNull(), deletes);
            const QByteArray record = panel.record.take();
            QCOMPARE(record.count('('), 1);
            QVERIFY(deletes || record.count(')') == 1);
        }
    }
}

void PadsTest::theDialTurnsAsFarAsThePointerOrSnapsOrTurnsFinely()
{
    Panel<AnglePad> panel;
    AnglePad& pad = *panel.pad;
    pad.setValue(100.0);
    panel.press(onDial(270));
    QCOMPARE(pad.value(), 100.0); // wherever the press is
    turn(panel.pointer, 270, 270 + 2 * 360 + 90);
    QVERIFY(isNear(pad.value(), 910.0, 0.2));
    turn(panel.pointer, 270 + 2 * 360 + 90, 270 - 360);
    QVERIFY(isNear(pad.value(), -260.0, 0.2));
    panel.pointer.release();
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));

    pad.setRange(-45, 45);
    QCOMPARE(pad.value(), -45.0);
    panel.press(onDial(0));
    turn(panel.pointer, 0, 200);
    QCOMPARE(pad.value(), 45.0);
    turn(panel.pointer, 200, 80); // what went beyond the limit comes back first
    QVERIFY(isNear(pad.value(), 35.0, 1.5));
    panel.pointer.release();
    panel.record.take();
    QTest::mouseDClick(panel.pad, Qt::LeftButton, {}, {50, 50});
    QCOMPARE(pad.value(), 0.0);
    QCOMPARE(panel.record.take(), QByteArray("C"));

    pad.setRange(-360, 360);
    pad.setValue(10.0);
    panel.press(onDial(90));
    panel.pointer.setModifiers(Qt::ShiftModifier);
    turn(panel.pointer, 90, 130); // 10 and 40 snap to 45
    QCOMPARE(pad.value(), 45.0);
    QTest::keyRelease(panel.pad, Qt::Key_Shift); // without a movement
    QVERIFY(isNear(pad.value(), 50.0, 1.5) && pad.value() != 45.0);
    const double before = pad.value();
    panel.pointer.setModifiers(Qt::ControlModifier);
    turn(panel.pointer, 130, 220); // a tenth of what follows, not of what was
    QVERIFY(isNear(pad.value(), before + 9.0, 0.5));
    panel.pointer.release();
}

void PadsTest::theDialHasKeysAndNoWheel()
{
    Panel<AnglePad> panel;
    panel.pad->setFocus();
    panel.pad->setDefaultValue(90.0);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, double> steps[] = {
        {Qt::Key_Up, Qt::NoModifier, 1.0},
        {Qt::Key_Right, Qt::ShiftModifier, 16.0},
        {Qt::Key_PageUp, Qt::NoModifier, 106.0},
        {Qt::Key_Left, Qt::ControlModifier, 105.9},
        {Qt::Key_Down, Qt::NoModifier, 104.9},
        {Qt::Key_PageDown, Qt::NoModifier, 14.9},
        {Qt::Key_Home, Qt::NoModifier, 0.0},
        {Qt::Key_Backspace, Qt::NoModifier, 90.0}};
    for (const auto& [key, modifiers, expected] : steps) {
        panel.key(key, modifiers);
        QVERIFY(isNear(panel.pad->value(), expected));
        QCOMPARE(panel.record.take(), QByteArray("C")); // complete, and not a drag
    }
    panel.key(Qt::Key_Backspace);
    panel.key(Qt::Key_Up, Qt::AltModifier);
    const QPointF at(50, 50);
    const QPointF global = panel.pad->mapToGlobal(at);
    QWheelEvent wheel(at, global, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(panel.pad, &wheel);
    QVERIFY(!wheel.isAccepted());
    QCOMPARE(panel.record.take(), QByteArray());
}

void PadsTest::thePadFollowsThePointer()
{
    Panel<JoystickPad> panel;
    JoystickPad& pad = *panel.pad;
    pad.setRange({0, 0}, {10, 100});
    pad.setValue({5, 50});
    panel.press({47, 53}); // off the middle of the handle, which does not jump
    QVERIFY(pad.value() == Pair(5, 50));
    panel.pointer.dragTo({147, -100});
    QVERIFY(pad.value() == Pair(10, 100));
    panel.pointer.dragTo({47, 53});
    QVERIFY(isNear(pad.value().x, 5) && isNear(pad.value().y, 50));
    panel.pointer.setModifiers(Qt::ControlModifier);
    panel.pointer.dragTo({77, 53});
    const double fine = pad.value().x - 5.0;
    panel.pointer.setModifiers({});
    panel.pointer.dragTo({107, 53});
    QVERIFY(isNear((pad.value().x - 5.0) / fine, 11.0, 1e-6));
    panel.pointer.release();

    pad.setYDownwards(true);
    panel.press({50, 95}); // beside the handle, which comes
    panel.pointer.release();
    QVERIFY(pad.value().y == 100.0);
    QCOMPARE(panel.record.take(), QByteArray("(sC)(sC)"));

    pad.setFocus();
    pad.setValue({5, 50});
    pad.setStep(1);
    panel.key(Qt::Key_Down, Qt::ShiftModifier); // down is more now
    QVERIFY(pad.value() == Pair(5, 60));
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_PageUp}) {
        panel.key(key);
    }
    QVERIFY(pad.value() == Pair(4, 100));
    panel.key(Qt::Key_Home);
    QVERIFY(pad.value() == Pair(0, 100));
    QCOMPARE(panel.record.take(), QByteArray("CCCC"));
}

void PadsTest::thePadKeepsToOneAxis()
{
    Panel<JoystickPad> panel;
    panel.pad->setValue({0.1, 0.2});
    panel.press({53, 43});
    panel.pointer.setModifiers(Qt::ShiftModifier);
    panel.pointer.dragTo({73, 53});
    QVERIFY(panel.pad->value().x > 0.5);
    QCOMPARE(panel.pad->value().y, 0.2); // to the last bit
    panel.pointer.dragTo({63, 73});
    QCOMPARE(panel.pad->value().x, 0.1); // the other axis is the longer one now
    QVERIFY(panel.pad->value().y < -0.3);
    QTest::keyRelease(panel.pad, Qt::Key_Shift); // free again, without a movement
    QVERIFY(panel.pad->value().x > 0.2);
    panel.pointer.release();
}

void PadsTest::theHandleSpringsBackFromPointerAndKeys()
{
    Panel<JoystickPad> panel;
    panel.pad->setSpringBack(true);
    panel.press({50, 50});
    panel.pointer.dragTo({80, 50});
    const QImage out = renderWidget(*panel.pad);
    panel.pointer.release();
    QVERIFY(panel.pad->value() == Pair()); // at once
    QCOMPARE(panel.record.take(), QByteArray("(s)"));
    ui::test::FakeClock(panel.pad).advanceAnimations(10000); // and the picture in its own time
    const QImage home = renderWidget(*panel.pad);
    QVERIFY(home != out);

    panel.pad->setValue({0.5, 0.5}); // by the program, from where the return is a change
    panel.press({70, 30});
    panel.pointer.release();
    QVERIFY(panel.pad->value() == Pair());
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));
    QVERIFY(renderWidget(*panel.pad) != home); // on its way
    panel.pad->hide();
    QVERIFY(!panel.pad->findChild<QVariantAnimation*>()->state());

    panel.pad->show();
    for (const bool loses : {false, true}) {
        panel.pad->setFocus();
        QTest::keyPress(panel.pad, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyPress(panel.pad, Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(isNear(panel.pad->value().x, 0.2));
        panel.key(Qt::Key_Up); // tapped while the other is held
        QVERIFY(panel.pad->isDragging());
        QVERIFY(panel.pad->value() == Pair(0.2, 0.01));
        if (loses) {
            panel.other->setFocus();
        } else {
            QTest::keyRelease(panel.pad, Qt::Key_Right);
        }
        QVERIFY(panel.pad->value() == Pair());
        QCOMPARE(panel.record.take(), QByteArray("(s)"));
    }
}

void PadsTest::badValuesAreIgnored()
{
    AnglePad dial;
    dial.setValue(12.0);
    dial.setValue(kNaN);
    QCOMPARE(dial.value(), 12.0);
    dial.setRange(10, -10);
    dial.setRange(kNaN, 5);
    dial.setDefaultValue(kNaN);
    dial.setValue(kInfinity);
    QVERIFY(dial.value() == ui::kDialLimit && dial.defaultValue() == 0.0);

    JoystickPad pad;
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

    for (const QSize size : {QSize(1, 1), QSize(1, 50), QSize(5, 5)}) { // no room for anything
        Panel<JoystickPad> panel;
        panel.pad->resize(size);
        panel.press({0, 0});
        panel.pointer.moveTo({30, 30});
        panel.pointer.release();
        QVERIFY(std::abs(panel.pad->value().x) <= 1.0 && std::abs(panel.pad->value().y) <= 1.0);
        dial.resize(size);
        renderWidget(dial);
        renderWidget(*panel.pad);
    }
}

void PadsTest::keysBeatShortcutsOnlyWhereTheyMeanSomething()
{
    Panel<AnglePad> panel;
    const auto beats = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        event.ignore();
        QCoreApplication::sendEvent(panel.pad, &event);
        return event.isAccepted();
    };
    QVERIFY(beats(Qt::Key_Up) && beats(Qt::Key_Right, Qt::ControlModifier));
    QVERIFY(beats(Qt::Key_Backspace) && !beats(Qt::Key_Left, Qt::AltModifier));
    QVERIFY(!beats(Qt::Key_Delete) && !beats(Qt::Key_Space) && !beats(Qt::Key_Escape));
    panel.pointer.press();
    QVERIFY(beats(Qt::Key_Escape)); // only in a drag
    panel.pointer.release();
}

void PadsTest::theLookFollowsValueAndState()
{
    Panel<AnglePad> dial;
    Panel<JoystickPad> joystick;
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const auto pictures = [&] {
            return std::pair(renderWidget(*dial.pad, ratio), renderWidget(*joystick.pad, ratio));
        };
        const auto rest = pictures();
        const auto differs = [&] {
            const auto now = pictures();
            return now.first != rest.first && now.second != rest.second;
        };
        dial.pad->setValue(360.0); // the needle is where it was
        joystick.pad->setValue({0.5, 0.5});
        QVERIFY(differs());
        dial.pad->setValue(0.0);
        joystick.pad->setValue({});
        QVERIFY(pictures() == rest);
        for (const bool enabled : {false, true}) {
            dial.window.setEnabled(enabled);
            joystick.window.setEnabled(enabled);
            QCOMPARE(differs(), !enabled);
        }
    }
    Panel<AnglePad> panel;
    const QImage rest = renderWidget(*panel.pad);
    panel.pad->setFocus(Qt::MouseFocusReason);
    QCOMPARE(renderWidget(*panel.pad), rest); // only the keyboard's focus is ringed
    panel.other->setFocus();
    QTest::keyClick(panel.other, Qt::Key_Tab);
    QVERIFY(panel.pad->hasFocus());
    QVERIFY(renderWidget(*panel.pad) != rest);
}

void PadsTest::assistiveToolsReadAndSetTheNumbers()
{
    Panel<AnglePad> dial;
    dial.pad->setToolTip(u"Rotation"_qs);
    dial.pad->setValue(-390.0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(dial.pad);
    QCOMPARE(accessible->role(), QAccessible::Dial);
    QCOMPARE(accessible->text(QAccessible::Name), u"Rotation"_qs);
    QCOMPARE(accessible->text(QAccessible::Value), u"-1× -30°"_qs);
    accessible->valueInterface()->setCurrentValue(45.0);
    QCOMPARE(dial.pad->value(), 45.0);
    QCOMPARE(dial.record.take(), QByteArray("C"));

    Panel<JoystickPad> joystick;
    QAccessibleInterface* pair = QAccessible::queryAccessibleInterface(joystick.pad);
    QCOMPARE(pair->childCount(), 2);
    QVERIFY(pair->indexOfChild(pair->child(1)) == 1 && !pair->child(2));
    QAccessibleValueInterface* vertical = pair->child(1)->valueInterface();
    QCOMPARE(vertical->minimumValue().toDouble(), -1.0);
    vertical->setCurrentValue(0.25);
    vertical->setCurrentValue(u"high"_qs);
    vertical->setCurrentValue(kNaN);
    QVERIFY(joystick.pad->value() == Pair(0.0, 0.25));
    QCOMPARE(joystick.record.take(), QByteArray("C"));
    joystick.pad->setEnabled(false);
    vertical->setCurrentValue(0.5);
    QCOMPARE(vertical->currentValue().toDouble(), 0.25);
}

const ui::test::Registration<PadsTest> kRegistration;

#include "tst_pads.moc"

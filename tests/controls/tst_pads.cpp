#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/AnglePad.h>
#include <MorrantUI/controls/JoystickPad.h>
#include <MorrantUI/theme/eventfilters.h>

#include <QtWidgets>

#include <cmath>
#include <functional>
#include <limits>

using ui::test::FakeClock;
using ui::test::FakePointer;
using ui::test::SignalRecord;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A pad in a shown window, 100 pixels square so that its middle is at 50, with a second control.
template <typename Pad>
struct Panel
{
    Panel()
    {
        pad = new Pad(&window);
        pad->setGeometry(10, 10, 100, 100);
        other = new QLineEdit(&window);
        other->setGeometry(120, 10, 50, 24);
        record = std::make_unique<SignalRecord>(pad.data());
        window.resize(200, 120);
        window.show();
        window.activateWindow();
        exposed = QTest::qWaitForWindowActive(&window);
    }

    QWidget window;
    QPointer<Pad> pad;
    QLineEdit* other;
    std::unique_ptr<SignalRecord> record;
    bool exposed = false;
};

QPoint onDial(double degrees, double radius = 40.0)
{
    const double radians = qDegreesToRadians(degrees);
    return QPointF(50 + std::sin(radians) * radius, 50 - std::cos(radians) * radius).toPoint();
}

void turn(FakePointer& pointer, double from, double to)
{
    for (double at = from; std::abs(at - to) > 0.5; at += to > from ? 5.0 : -5.0) {
        pointer.moveTo(onDial(at));
    }
    pointer.moveTo(onDial(to));
}

} // namespace

class PadsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyDoorEndsADragOnce();
    void escapeBringsBackTheValueBefore();
    void aPressThatChangesNothingIsNotReported();
    void aSlotMayDeleteOrDisableTheControl();
    void theDialTurnsAsFarAsThePointer();
    void theDialSnapsAndTurnsFinely();
    void theDialHasKeysAndNoWheel();
    void thePadFollowsThePointer();
    void thePadKeepsToOneAxis();
    void theHandleSpringsBack();
    void aHeldKeySpringsBackToo();
    void badValuesAreIgnored();
    void keysBeatShortcutsOnlyWhereTheyMeanSomething();
    void theLookFollowsValueAndState();
    void nothingIsPaintedAtRest();
    void assistiveToolsReadAndSetTheNumbers();

private:
    ui::test::StyledApplication m_application;
};

void PadsTest::everyDoorEndsADragOnce()
{
    using Door = std::function<void(Panel<JoystickPad>&, FakePointer&)>;
    const QList<QPair<const char*, Door>> doors{
        {"release", [](auto&, FakePointer& pointer) { pointer.release(); }},
        {"hide", [](auto& panel, auto&) { panel.pad->hide(); }},
        {"window hidden", [](auto& panel, auto&) { panel.window.hide(); }},
        {"disable", [](auto& panel, auto&) { panel.window.setEnabled(false); }},
        {"other parent", [](auto& panel, auto&) { panel.pad->setParent(nullptr); }},
        {"deactivation",
         [](auto& panel, auto&) {
             QEvent deactivate(QEvent::WindowDeactivate);
             QCoreApplication::sendEvent(&panel.window, &deactivate);
         }},
        {"dialog",
         [](auto& panel, auto&) {
             QEvent blocked(QEvent::WindowBlocked);
             QCoreApplication::sendEvent(panel.window.windowHandle(), &blocked);
         }},
        {"the button came up elsewhere",
         [](auto& panel, auto&) {
             const QPointF at(60, 60);
             QMouseEvent move(
                 QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
             QCoreApplication::sendEvent(panel.pad, &move);
         }},
        {"program", [](auto& panel, auto&) { panel.pad->endDrag(); }},
    };
    for (const auto& [name, leave] : doors) {
        Panel<JoystickPad> panel;
        FakePointer pointer(panel.pad);
        pointer.moveTo({50, 50});
        pointer.press();
        pointer.dragTo({70, 40});
        QVERIFY2(panel.pad->isDragging(), name);
        pointer.press(Qt::RightButton); // wedges nothing
        pointer.release(Qt::RightButton);
        leave(panel, pointer);
        QVERIFY2(!panel.pad->isDragging(), name);
        const num2<double> reached = panel.pad->value();
        QVERIFY2(reached.x > 0.3 && reached.y > 0.1, name);
        panel.pad->endDrag();
        pointer.moveTo({20, 20});
        pointer.release();
        QVERIFY2(panel.pad->value() == reached, name);
        QCOMPARE(panel.record->take(), QByteArray("(sC)"));
        delete panel.pad;
    }
    Panel<JoystickPad> panel;
    FakePointer pointer(panel.pad);
    pointer.moveTo({50, 50});
    pointer.press();
    pointer.dragTo({70, 40});
    delete panel.pad; // reports nothing more
    pointer.release();
    QCOMPARE(panel.record->take(), QByteArray("(s"));
}

void PadsTest::escapeBringsBackTheValueBefore()
{
    Panel<AnglePad> panel;
    panel.pad->setValue(42.0);
    QTest::keyClick(panel.pad, Qt::Key_Escape); // nothing to cancel
    FakePointer pointer(panel.pad);
    pointer.moveTo(onDial(90));
    pointer.press();
    turn(pointer, 90, 180);
    QTest::keyClick(panel.pad, Qt::Key_Up); // the pointer has the value
    QCOMPARE(panel.pad->value(), 132.0);
    QTest::keyClick(panel.pad, Qt::Key_Escape);
    QCOMPARE(panel.pad->value(), 42.0);
    turn(pointer, 180, 90); // the rest of the gesture is dead
    pointer.release();
    QCOMPARE(panel.pad->value(), 42.0);
    QCOMPARE(panel.record->take(), QByteArray("(s)"));

    pointer.moveTo(onDial(90));
    pointer.press();
    turn(pointer, 90, 180);
    turn(pointer, 180, 90); // back by hand
    pointer.release();
    QCOMPARE(panel.record->take(), QByteArray("(s)"));
}

void PadsTest::aPressThatChangesNothingIsNotReported()
{
    Panel<AnglePad> dial;
    dial.pad->setValue(33.37);
    FakePointer pointer(dial.pad);
    pointer.moveTo(onDial(200));
    pointer.press();
    QTest::keyPress(dial.pad, Qt::Key_Shift); // snaps nothing that has not been turned
    QTest::keyRelease(dial.pad, Qt::Key_Shift);
    pointer.release();
    QCOMPARE(dial.pad->value(), 33.37);
    QCOMPARE(dial.record->take(), QByteArray());

    Panel<JoystickPad> joystick;
    joystick.pad->setValue({0.1, 0.2});
    FakePointer second(joystick.pad);
    second.moveTo({53, 46}); // on the handle
    second.press();
    second.release();
    second.press(Qt::RightButton);
    second.release(Qt::RightButton);
    QVERIFY(joystick.pad->value() == num2<double>(0.1, 0.2));
    QCOMPARE(joystick.record->take(), QByteArray());
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
            QObject::connect(panel.pad, &ValueControl::dragStateChanged, panel.other, [&](bool on) {
                act(on ? "start" : "end");
            });
            QObject::connect(panel.pad, &ValueControl::valueChanged, panel.other, [&](bool done) {
                act(done ? "commit" : "step");
            });
            FakePointer pointer(panel.pad);
            pointer.moveTo({50, 50});
            pointer.press();
            pointer.dragTo({80, 80});
            pointer.release();
            QCOMPARE(panel.pad.isNull(), deletes);
            const QByteArray record = panel.record->take();
            QCOMPARE(record.count('('), 1);
            QVERIFY(deletes || record.count(')') == 1);
        }
    }
}

void PadsTest::theDialTurnsAsFarAsThePointer()
{
    Panel<AnglePad> panel;
    panel.pad->setValue(100.0);
    FakePointer pointer(panel.pad);
    pointer.moveTo(onDial(270));
    pointer.press();
    QCOMPARE(panel.pad->value(), 100.0); // wherever the press is
    turn(pointer, 270, 270 + 2 * 360 + 90);
    QVERIFY(std::abs(panel.pad->value() - 910.0) < 0.2);
    turn(pointer, 270 + 2 * 360 + 90, 270 - 360);
    QVERIFY(std::abs(panel.pad->value() - -260.0) < 0.2);
    pointer.release();
    QCOMPARE(panel.record->take(), QByteArray("(sC)"));

    panel.pad->setRange(-45, 45);
    QCOMPARE(panel.pad->value(), -45.0);
    pointer.moveTo(onDial(0));
    pointer.press();
    turn(pointer, 0, 200);
    QCOMPARE(panel.pad->value(), 45.0);
    turn(pointer, 200, 80); // what went beyond the limit comes back first
    QVERIFY(std::abs(panel.pad->value() - 35.0) < 1.5);
    pointer.release();

    panel.record->take();
    QTest::mouseDClick(panel.pad, Qt::LeftButton, {}, {50, 50});
    QCOMPARE(panel.pad->value(), 0.0);
    QCOMPARE(panel.record->take(), QByteArray("C"));
}

void PadsTest::theDialSnapsAndTurnsFinely()
{
    Panel<AnglePad> panel;
    panel.pad->setValue(10.0);
    FakePointer pointer(panel.pad);
    pointer.moveTo(onDial(90));
    pointer.press();
    pointer.setModifiers(Qt::ShiftModifier);
    turn(pointer, 90, 125); // 10 and 35 are 45
    QCOMPARE(panel.pad->value(), 45.0);
    turn(pointer, 125, 130);
    QCOMPARE(panel.pad->value(), 45.0);
    QTest::keyRelease(panel.pad, Qt::Key_Shift); // without a movement
    QVERIFY(std::abs(panel.pad->value() - 50.0) < 1.5 && panel.pad->value() != 45.0);
    const double before = panel.pad->value();
    pointer.setModifiers(Qt::ControlModifier);
    turn(pointer, 130, 220); // a tenth of what follows, not of what was
    QVERIFY(std::abs(panel.pad->value() - (before + 9.0)) < 0.5);
    pointer.release();
}

void PadsTest::theDialHasKeysAndNoWheel()
{
    Panel<AnglePad> panel;
    panel.pad->setFocus();
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, double>> steps{
        {Qt::Key_Up, Qt::NoModifier, 1.0},
        {Qt::Key_Right, Qt::ShiftModifier, 16.0},
        {Qt::Key_PageUp, Qt::NoModifier, 106.0},
        {Qt::Key_Left, Qt::ControlModifier, 105.9},
        {Qt::Key_Down, Qt::NoModifier, 104.9},
        {Qt::Key_PageDown, Qt::NoModifier, 14.9},
        {Qt::Key_Home, Qt::NoModifier, 0.0},
        {Qt::Key_Up, Qt::ShiftModifier, 15.0},
        {Qt::Key_Backspace, Qt::NoModifier, 90.0},
    };
    panel.pad->setDefaultValue(90.0);
    for (const auto& [key, modifiers, expected] : steps) {
        QTest::keyClick(panel.pad, key, modifiers);
        QVERIFY(std::abs(panel.pad->value() - expected) < 1e-9);
        QCOMPARE(panel.record->take(), QByteArray("C")); // complete, and not a drag
    }
    QTest::keyClick(panel.pad, Qt::Key_Backspace);
    QTest::keyClick(panel.pad, Qt::Key_Up, Qt::AltModifier);
    QWheelEvent wheel(
        {50, 50},
        panel.pad->mapToGlobal(QPointF(50, 50)),
        {},
        {0, 120},
        {},
        {},
        Qt::NoScrollPhase,
        false);
    QCoreApplication::sendEvent(panel.pad, &wheel);
    QVERIFY(!wheel.isAccepted());
    QCOMPARE(panel.record->take(), QByteArray());
}

void PadsTest::thePadFollowsThePointer()
{
    Panel<JoystickPad> panel;
    panel.pad->setRange({0, 0}, {10, 100});
    panel.pad->setValue({5, 50});
    FakePointer pointer(panel.pad);
    pointer.moveTo({47, 53}); // off the middle of the handle, which does not jump
    pointer.press();
    QVERIFY(panel.pad->value() == num2<double>(5, 50));
    pointer.dragTo({147, -100});
    QVERIFY(panel.pad->value() == num2<double>(10, 100));
    pointer.dragTo({47, 53});
    QVERIFY(
        std::abs(panel.pad->value().x - 5) < 1e-9 && std::abs(panel.pad->value().y - 50) < 1e-9);
    pointer.setModifiers(Qt::ControlModifier);
    pointer.dragTo({77, 53});
    const double fine = panel.pad->value().x - 5.0;
    pointer.setModifiers({});
    pointer.dragTo({107, 53});
    QVERIFY(std::abs((panel.pad->value().x - 5.0) / fine - 11.0) < 1e-6);
    pointer.release();

    panel.pad->setYDownwards(true);
    pointer.moveTo({50, 95}); // beside the handle, which comes
    pointer.press();
    pointer.release();
    QVERIFY(panel.pad->value().y == 100.0);
    QCOMPARE(panel.record->take(), QByteArray("(sC)(sC)"));

    panel.pad->setFocus();
    panel.pad->setValue({5, 50});
    panel.pad->setStep(1);
    QTest::keyClick(panel.pad, Qt::Key_Down, Qt::ShiftModifier); // down is more now
    QVERIFY(panel.pad->value() == num2<double>(5, 60));
    QTest::keyClick(panel.pad, Qt::Key_Left);
    QTest::keyClick(panel.pad, Qt::Key_PageUp);
    QVERIFY(panel.pad->value() == num2<double>(4, 100));
    QTest::keyClick(panel.pad, Qt::Key_Home);
    QVERIFY(panel.pad->value() == num2<double>(0, 100));
    QCOMPARE(panel.record->take(), QByteArray("CCCC"));
}

void PadsTest::thePadKeepsToOneAxis()
{
    Panel<JoystickPad> panel;
    panel.pad->setValue({0.1, 0.2});
    FakePointer pointer(panel.pad);
    pointer.moveTo({53, 43});
    pointer.press();
    pointer.setModifiers(Qt::ShiftModifier);
    pointer.dragTo({73, 53});
    QVERIFY(panel.pad->value().x > 0.5);
    QCOMPARE(panel.pad->value().y, 0.2); // to the last bit
    pointer.dragTo({63, 73});
    QCOMPARE(panel.pad->value().x, 0.1); // the other axis is the longer one now
    QVERIFY(panel.pad->value().y < -0.3);
    QTest::keyRelease(panel.pad, Qt::Key_Shift); // free again, without a movement
    QVERIFY(panel.pad->value().x > 0.2);
    pointer.release();
}

void PadsTest::theHandleSpringsBack()
{
    Panel<JoystickPad> panel;
    panel.pad->setSpringBack(true);
    FakePointer pointer(panel.pad);
    pointer.moveTo({50, 50});
    pointer.press();
    pointer.dragTo({80, 50});
    const QImage out = ui::test::renderWidget(*panel.pad);
    pointer.release();
    QVERIFY(panel.pad->value() == num2<double>()); // at once
    QCOMPARE(panel.record->take(), QByteArray("(s)"));
    FakeClock clock(panel.pad);
    clock.advanceAnimations(10000); // and the picture in its own time
    const QImage home = ui::test::renderWidget(*panel.pad);
    QVERIFY(home != out);

    panel.pad->setValue({0.5, 0.5}); // by the program, from where the return is a change
    pointer.moveTo({70, 30});
    pointer.press();
    pointer.release();
    QVERIFY(panel.pad->value() == num2<double>());
    QCOMPARE(panel.record->take(), QByteArray("(sC)"));
    QVERIFY(ui::test::renderWidget(*panel.pad) != home); // on its way
    panel.pad->hide();
    QVERIFY(!panel.pad->findChild<QVariantAnimation*>()->state());
}

void PadsTest::aHeldKeySpringsBackToo()
{
    for (const bool loses : {false, true}) {
        Panel<JoystickPad> panel;
        panel.pad->setSpringBack(true);
        panel.pad->setFocus();
        QTest::keyPress(panel.pad, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyPress(panel.pad, Qt::Key_Right, Qt::ShiftModifier);
        QVERIFY(std::abs(panel.pad->value().x - 0.2) < 1e-9);
        QVERIFY(panel.pad->isDragging());
        QTest::keyClick(panel.pad, Qt::Key_Up); // tapped while the other is held
        QVERIFY(panel.pad->isDragging());
        QVERIFY(panel.pad->value() == num2<double>(0.2, 0.01));
        loses ? panel.other->setFocus()
              : static_cast<void>(QTest::keyRelease(panel.pad, Qt::Key_Right));
        QVERIFY(panel.pad->value() == num2<double>());
        QCOMPARE(panel.record->take(), QByteArray("(s)"));
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
    QCOMPARE(dial.maximum(), ui::kDialLimit);
    dial.setValue(kInfinity);
    QCOMPARE(dial.value(), ui::kDialLimit);
    dial.setDefaultValue(kNaN);
    QCOMPARE(dial.defaultValue(), 0.0);

    JoystickPad pad;
    pad.setRange({0, 0}, {0, 1});
    pad.setRange({0, 0}, {1, kInfinity});
    pad.setValue({kInfinity, -kInfinity});
    QVERIFY(pad.value() == num2<double>(1, -1));
    pad.setValue({0, kNaN});
    QVERIFY(pad.value() == num2<double>(1, -1));
    pad.setStep(-1);
    pad.setStep(kNaN);
    QCOMPARE(pad.step(), 0.01);
    pad.setDefaultValue({5, 0});
    QVERIFY(pad.defaultValue() == num2<double>(1, 0));

    for (const QSize size : {QSize(1, 1), QSize(1, 50), QSize(5, 5)}) { // no room for anything
        Panel<JoystickPad> panel;
        panel.pad->resize(size);
        FakePointer pointer(panel.pad);
        pointer.press();
        pointer.moveTo({30, 30});
        pointer.release();
        QVERIFY(std::abs(panel.pad->value().x) <= 1.0 && std::abs(panel.pad->value().y) <= 1.0);
        dial.resize(size);
        ui::test::renderWidget(dial);
        ui::test::renderWidget(*panel.pad);
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
    QVERIFY(beats(Qt::Key_Backspace));
    QVERIFY(!beats(Qt::Key_Left, Qt::AltModifier));
    QVERIFY(!beats(Qt::Key_Delete) && !beats(Qt::Key_Space) && !beats(Qt::Key_Escape));
    FakePointer pointer(panel.pad);
    pointer.press();
    QVERIFY(beats(Qt::Key_Escape)); // only in a drag
    pointer.release();
}

void PadsTest::theLookFollowsValueAndState()
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        Panel<AnglePad> dial;
        Panel<JoystickPad> joystick;
        const auto pictures = [&] {
            return qMakePair(
                ui::test::renderWidget(*dial.pad, ratio),
                ui::test::renderWidget(*joystick.pad, ratio));
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
        for (QWidget* pad : {static_cast<QWidget*>(dial.pad), static_cast<QWidget*>(joystick.pad)})
        {
            pad->setEnabled(false);
        }
        QVERIFY(differs());
    }
    Panel<AnglePad> panel;
    const QImage rest = ui::test::renderWidget(*panel.pad);
    panel.pad->setFocus(Qt::MouseFocusReason);
    QCOMPARE(ui::test::renderWidget(*panel.pad), rest); // only the keyboard's focus is ringed
    panel.other->setFocus();
    QTest::keyClick(panel.other, Qt::Key_Tab);
    QVERIFY(panel.pad->hasFocus());
    QVERIFY(ui::test::renderWidget(*panel.pad) != rest);
}

void PadsTest::nothingIsPaintedAtRest()
{
    int paints = 0;
    Panel<JoystickPad> panel;
    ui::installEventFilter(
        panel.pad,
        [&](QObject*, QEvent* event) {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        },
        nullptr);
    const auto paintsOf = [&](const std::function<void()>& act) {
        QTest::qWait(20);
        paints = 0;
        act();
        QTest::qWait(20);
        return paints;
    };
    QCOMPARE(paintsOf([&] { panel.pad->setValue(panel.pad->value()); }), 0);
    QCOMPARE(paintsOf([&] { panel.pad->setValue({0.3, 0.3}); }), 1);
    const auto hover = [&](QEvent::Type type) {
        QHoverEvent event(type, {9, 9}, {9, 9}, {8, 8});
        QCoreApplication::sendEvent(panel.pad, &event);
    };
    QCOMPARE(paintsOf([&] { hover(QEvent::HoverEnter); }), 1);
    QCOMPARE(paintsOf([&] { hover(QEvent::HoverMove); }), 0);
    QCOMPARE(paintsOf([&] { hover(QEvent::HoverLeave); }), 1);
}

void PadsTest::assistiveToolsReadAndSetTheNumbers()
{
    Panel<AnglePad> dial;
    dial.pad->setToolTip(QStringLiteral("Rotation"));
    dial.pad->setValue(-390.0);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(dial.pad);
    QCOMPARE(accessible->role(), QAccessible::Dial);
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Rotation"));
    QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("-1× -30°"));
    accessible->valueInterface()->setCurrentValue(45.0);
    QCOMPARE(dial.pad->value(), 45.0);
    QCOMPARE(dial.record->take(), QByteArray("C"));

    Panel<JoystickPad> joystick;
    QAccessibleInterface* pair = QAccessible::queryAccessibleInterface(joystick.pad);
    QCOMPARE(pair->childCount(), 2);
    QCOMPARE(pair->indexOfChild(pair->child(1)), 1);
    QCOMPARE(pair->child(2), nullptr);
    QAccessibleValueInterface* vertical = pair->child(1)->valueInterface();
    QCOMPARE(vertical->minimumValue().toDouble(), -1.0);
    vertical->setCurrentValue(0.25);
    vertical->setCurrentValue(QStringLiteral("high"));
    vertical->setCurrentValue(kNaN);
    QVERIFY(joystick.pad->value() == num2<double>(0.0, 0.25));
    QCOMPARE(joystick.record->take(), QByteArray("C"));
    joystick.pad->setEnabled(false);
    vertical->setCurrentValue(0.5);
    QCOMPARE(vertical->currentValue().toDouble(), 0.25);
}

const ui::test::Registration<PadsTest> kRegistration;

#include "tst_pads.moc"

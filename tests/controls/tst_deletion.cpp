// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

#include <type_traits>

using namespace ui::test;
using Run = std::function<void()>;

namespace {

void prepare(QWidget&)
{}

void prepare(NumericField& field)
{
    field.setFieldType(NumericField::FloatingPoint);
    field.setUsePointerLock(false);
}

void prepare(SliderField& slider)
{
    slider.setRange(0, 100);
    slider.setStep(1);
    prepare(*slider.field());
}

void prepare(AttributeRow& row)
{
    for (const double value : {10.0, 20.0}) {
        prepare(*row.addField(value));
        row.setDefaultValue(row.fieldCount() - 1, 5);
    }
    row.addSwatch(Qt::red);
    row.setColor(Qt::blue);
    row.setLinkable(true);
    row.setLinked(true);
}

void prepare(SegmentedButton& group)
{
    group.addSegment(u"A"_qs);
    group.addSegment(u"B"_qs);
}

/// Lets a user do something with a slot that deletes the control, or disables it, at the first of
/// its signals, at the second and so on until it sends no more.
template <typename Control, typename Act, typename... Args>
Run dies(int least, Act act, const Args&... args)
{
    return [=] {
        for (const bool deletes : {true, false}) {
            bool hasCome = true;
            for (int k = 1; hasCome; ++k) {
                Bench<Control> bench({300, 60}, args...);
                prepare(*bench.control);
                QCoreApplication::processEvents(); // for what it has got to be shown
                hasCome = false;
                bench.record.onSignal = [&] {
                    if (bench.record.signalsSent == k) {
                        hasCome = true;
                        deletes ? delete bench.control.data() : bench.control->setEnabled(false);
                    }
                };
                if constexpr (std::is_invocable_v<Act, Bench<Control>&>) {
                    act(bench);
                } else {
                    bench.play(act);
                }
                QVERIFY(hasCome || k > least);
                QCOMPARE(bench.control.isNull(), hasCome && deletes);
                const QByteArray said = bench.said();
                QVERIFY2(deletes || said.count('(') == said.count(')'), said.constData());
            }
        }
    };
}

template <bool kAccepts>
void chooseIn(Bench<ColorSwatch>& bench)
{
    bench.control->click();
    bench.control->dialog()->setCurrentColor(Qt::yellow);
    if (QDialog* const dialog = bench.control ? bench.control->dialog() : nullptr) {
        kAccepts ? dialog->accept() : dialog->reject();
    }
}

void pasteIn(Bench<ColorSwatch>& bench)
{
    QApplication::clipboard()->setText(u"#123456"_qs);
    bench.play("in Ctrl+V");
}

void springBackIn(Bench<JoystickPad>& bench)
{
    bench.control->setSpringBack(true);
    bench.play("@170,30 >150,20 up in Right");
}

void stepAndScrub(Bench<NumericField>& bench)
{
    bench.control->setFocus(Qt::OtherFocusReason);
    bench.play("Up @10,10 >50,10 up");
}

} // namespace

/// A control deleted, or disabled, by a slot of any of its signals, whatever the user does.
class DeletionTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aControlMayDieInAnyOfItsSignals()
    {
        const char* const drag = "@170,30 >150,15 up";
        const char* const dragInField = "#0 @10,10 >40,10 up";
        const char* const press = "in Space Return @12,30 up";
        const QString size = u"Size"_qs;
        const QString icon = u"icons:eye.png"_qs;
        const std::pair<const char*, Run> rows[] = {
            {"line edit", dies<LineEdit>(2, "in =new Return =newer out")},
            {"line edit, by mouse", dies<LineEdit>(1, "click =new Return")},
            {"name", dies<RenamableLabel>(2, "F2 =new Return F2 =newer out", size)},
            {"number", dies<NumericField>(5, "in Up Return Up Escape =7 out", 5.0)},
            {"number, dragged after a step", dies<NumericField>(6, stepAndScrub, 5.0)},
            {"slider, keys", dies<SliderField>(2, "in Up Backspace")},
            {"slider, dragged", dies<SliderField>(4, drag)},
            {"slider, typed", dies<SliderField>(3, "#0 in Up Return =7 out")},
            {"slider, dragged in its field", dies<SliderField>(4, dragInField)},
            {"dial, keys", dies<AnglePad>(2, "Up Backspace")},
            {"dial, dragged", dies<AnglePad>(4, drag)},
            {"joystick, dragged", dies<JoystickPad>(4, drag)},
            {"joystick, springing back", dies<JoystickPad>(8, springBackIn)},
            {"swatch, chosen", dies<ColorSwatch>(2, chooseIn<true>)},
            {"swatch, not chosen", dies<ColorSwatch>(2, chooseIn<false>)},
            {"swatch, pasted", dies<ColorSwatch>(1, pasteIn)},
            {"row, reset", dies<AttributeRow>(4, "!reset", size)},
            {"row, typed and keyed", dies<AttributeRow>(3, "#0 in =33 !keyframe", size)},
            {"row, stepped", dies<AttributeRow>(4, "#0 in Up out", size)},
            {"row, dragged", dies<AttributeRow>(6, "#1 @10,10 >40,10 up", size)},
            {"row, unlinked", dies<AttributeRow>(1, "!lock", size)},
            {"segments", dies<SegmentedButton>(2, "#0 in Right Right")},
            {"push button", dies<PushButton>(3, press, size)},
            {"icon button", dies<IconButton>(3, press, icon)},
            {"tool button", dies<ToolButton>(3, press, icon, size)},
            {"group button", dies<GroupButton>(3, press, icon)},
            {"rollover button", dies<RolloverButton>(3, press, icon)},
            {"link", dies<RolloverLabel>(3, press, size)},
            {"check box", dies<CheckBox>(3, press, size)},
            {"switch", dies<ToggleSwitch>(3, press, size)}};
        for (const auto& [name, run] : rows) {
            run();
            QVERIFY2(!QTest::currentTestFailed(), name);
        }
    }

    void aFieldMayDieOfAnothersCommitWhenItIsPressed()
    {
        for (const bool inEditMode : {false, true}) {
            Bench<NumericField> bench({100, 24}, 5.0);
            bench.control->setReadOnly(!inEditMode);
            LineEdit source(bench.window.get());
            source.setGeometry(130, 10, 60, 24);
            source.show();
            source.setFocus();
            QTest::keyClicks(&source, u"x"_qs);
            connect(&source, &LineEdit::valueChanged, this, [&] { delete bench.control.data(); });
            bench.play("@5,10 up");
            QVERIFY(!bench.control);
        }
    }

    void aDragOfADeletedControlIsToldNothingMore()
    {
        Bench<JoystickPad> bench({100, 100});
        bench.play("@50,50 >70,40");
        delete bench.control.data();
        bench.pointer.release();
        QCOMPARE(bench.said(), QByteArray("(s"));
    }
};

const Registration<DeletionTest> kRegistration;

#include "tst_deletion.moc"

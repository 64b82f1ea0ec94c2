// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

namespace {

/// What is typed into, where "5.0" stands.
template <typename Text>
QWidget* entryOf(Text& control)
{
    control.setText(u"5.0"_qs);
    return &control;
}

QWidget* entryOf(NumericField& field)
{
    field.setFieldType(NumericField::FloatingPoint);
    field.setUsePointerLock(false);
    field.setMax(100);
    field.setValue(5);
    return &field;
}

QWidget* entryOf(SliderField& slider)
{
    slider.setRange(0, 100);
    slider.setStep(1);
    slider.setDecimals(1);
    slider.setValue(5);
    slider.field()->setUsePointerLock(false);
    return slider.field();
}

QWidget* entryOf(AttributeRow& row)
{
    QWidget* const field = entryOf(*row.addField(5));
    QCoreApplication::processEvents(); // shown with the next layout
    return field;
}

template <typename Control, typename... Args>
void play(const Step& wanted, void (*setUp)(Bench<Control>&), const Args&... args)
{
    Bench<Control> bench({300, 24}, args...);
    bench.setEntry(entryOf(*bench.control));
    setUp(bench);
    QString told = shownBy(*bench.entry);
    bench.record.onSignal = [&, answer = bench.record.onSignal] {
        answer ? answer() : void();
        told = shownBy(*bench.entry);
    };
    bench.play(wanted.script);
    const QByteArray script = wanted.script;
    if (script.endsWith("Return") || script.endsWith("Escape")) {
        QCOMPARE(bench.entry->hasFocus(), !script.startsWith("click"));
    }
    QCoreApplication::processEvents();
    QVERIFY2(shownBy(*bench.entry) == QLatin1String(wanted.shown), wanted.script);
    const QByteArray said = bench.said().replace('0', ""); // the index of the row's only field
    QVERIFY2(said == wanted.said, (script + ": " + said).constData());
    QCOMPARE(told, QLatin1String(wanted.shown)); // at last
}

template <typename Control, typename... Args>
void playAlone(const Step& wanted, const Args&... args)
{
    play<Control>(
        wanted, [](Bench<Control>&) {}, args...);
}

/// For a host that hands back what it is told, which disturbs nothing, as well.
template <typename Control, typename... Args>
void playWithHosts(const Step& wanted, const Args&... args)
{
    playAlone<Control>(wanted, args...);
    const auto echo = [](Bench<Control>& bench) {
        bench.record.onSignal = [&control = *bench.control] {
            if constexpr (requires { control.setValue(control.value()); }) {
                control.setValue(control.value());
            } else {
                control.setValue(0, control.value(0));
            }
        };
    };
    play<Control>(wanted, echo, args...);
}

} // namespace

/// When an edit is finished, and what that says, for everything that is typed into.
class CommitTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aChangeIsCommittedOnceAndEscapeTakesItBack()
    {
        const Step cases[] = {
            {"in =7.0 Return", "C", "7.0"},
            {"in =7.0 Return Return", "C", "7.0"},
            {"in =7.0 Enter out in out", "C", "7.0"},
            {"in =7.0 out", "C", "7.0"},
            {"in =7.0 Tab", "C", "7.0"},
            {"in =7.0 Return in =5.0 out", "CC", "5.0"},
            {"in =7.0 =5.0 out", "", "5.0"},
            {"in Return out", "", "5.0"},
            {"in =7.0 Escape", "", "5.0"},
            {"in =7.0 Escape Escape out", "", "5.0"}};
        for (const Step& wanted : cases) {
            playAlone<LineEdit>(wanted);
            playWithHosts<NumericField>(wanted, 0.0);
            playWithHosts<SliderField>(wanted);
            playWithHosts<AttributeRow>(wanted, u"Size"_qs);
            const QByteArray opening = QByteArray(wanted.script).replace("in ", "in F2 ");
            if (!opening.contains("Return Return")) { // which opens it again
                playAlone<RenamableLabel>({opening, wanted.said, wanted.shown});
            }
        }
    }

    void stepsAndExpressionsOfNumbersAreEdits()
    {
        const Step cases[] = {
            {"in Up out", "sC", "6.0"},
            {"in Up Shift+Up Ctrl+Down Return", "sC", "15.9"},
            {"in Up Ctrl+Shift+Down out in out", "sC", "5.9"},
            {"in Up Down out", "s", "5.0"},
            {"in Up Escape Return out", "s", "5.0"},
            {"in Up =7.0 Escape", "s", "5.0"},
            {"in Up =7.0 out", "sC", "7.0"},
            {"in Up =5.0 Return", "s", "5.0"},
            {"in Up =5.0 Escape", "s", "5.0"},
            {"in Up =4+1 out", "s", "5.0"},
            {"in =99.5 Return Up Up out", "CsC", "100.0"},
            {"in =200 Return", "C", "100.0"},
            {"in =-1,5*2+4 out", "C", "1.0"},
            {"in =4+1 out", "", "5.0"},
            {"in = Del Return out", "", "5.0"},
            {"in = Del Escape", "", "5.0"},
            {"click =7.0 Return", "C", "7.0"},
            {"click =7.0 Escape", "", "5.0"},
            {"click Escape", "", "5.0"},
            {"=7.0 Return out", "", "5.0"}, // at rest it is not typed into
            {"@20,10 >60,10 ^Escape up", "(s)", "5.0"}};
        for (const Step& wanted : cases) {
            playWithHosts<NumericField>(wanted, 0.0);
            playWithHosts<SliderField>(wanted);
            playWithHosts<AttributeRow>(wanted, u"Size"_qs);
        }
        playAlone<NumericField>({"Up in out", "s", "6.0"}, 0.0); // no end of an edit will follow
        const auto readOnly = [](Bench<LineEdit>& bench) { bench.control->setReadOnly(true); };
        play<LineEdit>({"in =7.0 Up Return out", "", "5.0"}, readOnly);
    }

    void anUndoAfterACommitIsAnEdit()
    {
        const auto commits = [](auto& bench) {
            bench.setEntry(entryOf(*bench.control));
            bench.play("in =7.0 Return Ctrl+Z");
            QVERIFY(shownBy(*bench.entry) != u"7.0"_qs);
            bench.play("out");
            QCOMPARE(bench.said().replace('0', ""), QByteArray("CC"));
        };
        Bench<LineEdit> line({120, 24});
        commits(line);
        Bench<NumericField> number({120, 24}, 0.0);
        commits(number);
        number.play("in =8.0 Return Ctrl+Z Ctrl+Y");
        QCOMPARE(number.control->text(), u"8.0"_qs);
        line.play("in =two Return"); // which takes as many steps as the first edit did
        QCOMPARE(line.said(), QByteArray("C"));
    }

    void whatTheHostSetsWaitsForWhatIsTyped()
    {
        const Step cases[] = {// while "40+5" stands there and the host sets 70
                              {"+0 Return", "C", "90.0"},
                              {"out", "C", "45.0"}, // the user was last
                              {"Escape", "", "70.0"},
                              {"= Del out", "", "70.0"}};
        const auto check = [](const Step& wanted, auto& bench, const auto& set) {
            bench.setEntry(entryOf(*bench.control));
            bench.play("in =40+5");
            set(*bench.control);
            QCOMPARE(shownBy(*bench.entry), u"40+5"_qs);
            bench.play(wanted.script);
            QTRY_COMPARE(shownBy(*bench.entry), QLatin1String(wanted.shown));
            QCOMPARE(bench.said().replace('0', ""), QByteArray(wanted.said));
        };
        for (const Step& wanted : cases) {
            Bench<SliderField> slider({300, 24});
            check(wanted, slider, [](SliderField& field) {
                field.setDecimals(1); // other set-ups keep the text as well
                field.setSoftRange(10, 90);
                field.setValue(70);
            });
            QCOMPARE(slider.control->value(), QByteArray(wanted.shown).toDouble());
            Bench<AttributeRow> row({300, 24}, u"Size"_qs);
            check(wanted, row, [](AttributeRow& one) { one.setValue(0, 70); });
        }
    }

    void formsMaySetPropertiesInTheirOrder()
    {
        const auto check = [](const QObject& control, QObject&& twin) {
            const QMetaObject& type = *control.metaObject();
            for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
                const QMetaProperty property = type.property(i);
                QVERIFY(property.write(&twin, property.read(&control)));
            }
            QCOMPARE(twin.property("value"), control.property("value"));
            QCOMPARE(twin.property("point"), control.property("point"));
        };
        NumericField number;
        number.setFieldType(NumericField::FloatingPoint);
        number.setValue(1.5);
        check(number, NumericField());
        SliderField slider;
        slider.setRange(0.0, 100.0);
        slider.setValue(50.0);
        check(slider, SliderField());
        JoystickPad pad;
        pad.setRange({0.0, 0.0}, {9.0, 9.0});
        pad.setPoint({4.0, 5.0});
        check(pad, JoystickPad());
    }

    void everyValueIsAPropertyThatTells()
    {
        const std::tuple<QWidget*, const char*, QVariant> values[] = {
            {new NumericField, "value", 7.0},
            {new SliderField, "value", 0.5},
            {new AnglePad, "value", 90.0},
            {new JoystickPad, "point", QPointF(0.5, -0.25)},
            {new ColorSwatch, "value", QColor(Qt::red)},
            {new RenamableLabel, "text", u"name"_qs},
            {new ToggleSwitch, "checked", true},
            {new CheckBox, "checkState", QVariant::fromValue(Qt::PartiallyChecked)},
            {new KeyframeButton, "state", QVariant::fromValue(KeyframeButton::State::Animated)}};
        for (const auto& [control, name, value] : values) {
            const std::unique_ptr<QWidget> owner(control);
            const QMetaObject& type = *control->metaObject();
            QSignalSpy told(control, type.property(type.indexOfProperty(name)).notifySignal());
            QVERIFY2(control->setProperty(name, value) && control->setProperty(name, value), name);
            QVERIFY(control->property(name) == value && told.size() == 1);
        }
        for (const bool deletes : {false, true}) { // the first of all signals may be the last
            Bench<AnglePad> dial({100, 100});
            QSignalSpy edited(dial.control, &AnglePad::edited);
            connect(dial.control, &AnglePad::changed, this, [&dial, deletes] {
                deletes ? delete dial.control.data() : void();
            });
            dial.play("Up");
            QCOMPARE(edited.value(0), deletes ? QVariantList() : QVariantList({1.0, true}));
        }
    }
};

const Registration<CommitTest> kRegistration;

#include "tst_commits.moc"

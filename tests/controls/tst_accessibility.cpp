// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include "support/ReaderEvents.h"

using namespace ui::test;
using Action = QAccessibleActionInterface;

/// What assistive tools see of each control, and do to it.
class AccessibilityTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasARoleANameAndItsActions()
    {
        QWidget window;
        auto* const opener = new ToolButton(&window);
        opener->setMenu(new QMenu(opener));
        auto* const checkable = new IconButton(&window);
        checkable->setCheckable(true);
        auto* const slider = new SliderField(&window);
        auto* const segments = new SegmentedButton(&window);
        segments->addSegment(u"A"_qs);
        segments->addSegment(u"B"_qs);
        const std::tuple<QWidget*, QAccessible::Role, QStringList> rows[] = {
            {new PushButton(&window), QAccessible::Button, {Action::pressAction()}},
            {checkable, QAccessible::Button, {Action::toggleAction()}},
            {opener, QAccessible::ButtonMenu, {Action::pressAction(), Action::showMenuAction()}},
            {new GroupButton(&window), QAccessible::Button, {Action::pressAction()}},
            {new RolloverButton(&window), QAccessible::Button, {Action::pressAction()}},
            {new RolloverLabel(&window), QAccessible::Link, {Action::pressAction()}},
            {new CheckBox(&window), QAccessible::CheckBox, {Action::toggleAction()}},
            {new ToggleSwitch(&window), QAccessible::CheckBox, {Action::toggleAction()}},
            {new ColorSwatch(&window), QAccessible::ColorChooser, {Action::pressAction()}},
            {new NumericField(0, &window), QAccessible::SpinBox, {}},
            {slider, QAccessible::Grouping, {}},
            {slider->findChild<ValueControl*>(), QAccessible::Slider, {}},
            {new AnglePad(&window), QAccessible::Dial, {}},
            {new JoystickPad(&window), QAccessible::Grouping, {}},
            {segments, QAccessible::Grouping, {}}};
        for (const auto& [control, role, actions] : rows) {
            QCOMPARE(accessible(control).role(), role);
            control->setToolTip(u"<b>Fill</b>"_qs);
            QCOMPARE(nameOf(control), u"Fill"_qs);
            control->setToolTip(QString());
            control->setAccessibleName(u"Ground"_qs);
            QCOMPARE(nameOf(control), u"Ground"_qs);
            for (const bool enabled : {true, false}) {
                control->setEnabled(enabled);
                for (const QString& action : actions) {
                    const auto* const offered = accessible(control).actionInterface();
                    QCOMPARE(offered->actionNames().contains(action), enabled);
                }
            }
            control->setEnabled(true);
        }
        QVERIFY(accessible(opener).state().hasPopup && !accessible(checkable).state().hasPopup);
        QCOMPARE(nameOf(slider->field()), u"Ground"_qs); // as the whole is called
        slider->field()->setToolTip(u"<i>Percent</i>"_qs);
        QCOMPARE(nameOf(slider->field()), u"Percent"_qs);
        QAccessibleInterface* const second = accessible(segments).child(1);
        QCOMPARE(second->text(QAccessible::Name), u"B"_qs);
        QCOMPARE(second->role(), QAccessible::RadioButton);
        second->actionInterface()->doAction(Action::toggleAction());
        QCOMPARE(segments->currentIndex(), -1); // through the queue: a slot may open a dialog
        QTRY_COMPARE(segments->currentIndex(), 1);
        segments->setExclusive(false);
        QCOMPARE(second->role(), QAccessible::CheckBox);
        AttributeRow row(u"Size"_qs);
        QCOMPARE(accessible(&row).role(), QAccessible::Grouping);
        QCOMPARE(nameOf(&row), u"Size"_qs);
    }

    void valuesAreReadAndSetAsTheUserWould()
    {
        auto* const number = new NumericField(5);
        number->setFieldType(NumericField::FloatingPoint);
        number->setMax(100);
        number->setValue(5);
        auto* const dial = new AnglePad;
        dial->setValue(-390);
        auto* const slider = new SliderField;
        slider->setRange(0, 100);
        slider->setDecimals(0);
        const QString green = u"green: 0, 255, 0, 50 % opaque"_qs;
        // What is set one after the other, and the texts before and after each.
        const std::tuple<QWidget*, QVariantList, QString> rows[] = {
            {number, {-1.25e-1, 1e20, kNaN}, u"5.0|-0.125|100.0|100.0"_qs},
            {dial, {45.0, u"high"_qs}, u"-1× -30°|45°|45°"_qs},
            {slider, {33.4, 1e9}, u"0|33|100"_qs},
            {new ColorSwatch(Qt::red),
             {u"#00ff0080"_qs, 12},
             u"red: 255, 0, 0|"_qs + green + u'|' + green}};
        for (const auto& [control, sets, expected] : rows) {
            const std::unique_ptr<QWidget> owner(control);
            QWidget* const part = control->focusProxy() ? control->focusProxy() : control;
            QSignalSpy told(control, SIGNAL(valueChanged(bool)));
            const auto text = [part] {
                const QString seen = accessible(part).text(QAccessible::Value);
                return seen.isEmpty() ? accessible(part).valueInterface()->currentValue().toString()
                                      : seen;
            };
            QStringList texts = expected.split(u'|');
            QCOMPARE(text(), texts.takeFirst());
            int changes = 0;
            for (const QVariant& value : sets) {
                const QString before = text();
                accessible(part).valueInterface()->setCurrentValue(value);
                QCOMPARE(text(), texts.takeFirst());
                changes += text() != before ? 1 : 0;
                QCOMPARE(told, QList<QVariantList>(changes, {true}));
            }
            control->setEnabled(false);
            const QString before = text();
            for (const QVariant& value : {QVariant(7), QVariant(u"#123456"_qs)}) {
                accessible(part).valueInterface()->setCurrentValue(value);
            }
            QCOMPARE(text(), before);
        }
    }

    void aNumberTellsItsLimitsAndItsText()
    {
        Bench<NumericField> bench({100, 24}, 5.0);
        bench.control->setMin(-10);
        bench.control->setDragMultiplier(-0.5);
        QAccessibleInterface& spinBox = accessible(bench.control);
        const QAccessibleValueInterface& number = *spinBox.valueInterface();
        const QVariantList numbers{
            number.minimumValue(), number.maximumValue(), number.minimumStepSize()};
        QCOMPARE(numbers, (QVariantList{-10.0, 2147483647.0, 0.5}));
        bench.control->setValue(1234);
        QAccessibleTextInterface& text = *spinBox.textInterface();
        text.setSelection(0, 1, 3);
        QCOMPARE(bench.control->selectedText(), text.text(1, 3));
        QCOMPARE(text.offsetAtPoint(text.characterRect(0).center() - QPoint(1, 0)), 0);
    }

    void eachNewValueOfANumberIsToldOnceWhereverItComesFrom()
    {
        Bench<NumericField> bench({100, 24}, 5.0);
        auto* const text = accessible(bench.control).editableTextInterface();
        ReaderEvents events;
        const std::pair<std::function<void()>, int> rows[] = {
            {[&] { bench.control->setValue(7); }, 1},
            {[&] { bench.control->setValue(7); }, 0},
            {[&] { text->replaceText(0, 1, u"4*3"_qs); }, 1}, // entered, as nobody edits it
            {[&] { text->insertText(2, u"0"_qs); }, 1},
            {[&] {
                 bench.play("@20,10 ~35,10"); // becomes a drag
                 events.take();
                 bench.play("~60,10");
             },
             1},
            {[&] { bench.play("~60,10 up"); }, 0},
            {[&] { bench.play("in Up Up"); }, 2},
            {[&] { bench.play("=1+2"); }, 1}, // 1; what follows is no number yet
            {[&] { bench.play("Return"); }, 1},
            {[&] { bench.play("Ctrl+Z"); }, 1},
            {[&] { text->deleteText(0, -1); }, 0},
            {[&] { bench.play("8 Escape"); }, 2}}; // 8, and 3 again
        for (const auto& [change, told] : rows) {
            const bool isAtRest = bench.control->isReadOnly();
            change();
            const auto types = events.takeOf(bench.control);
            QCOMPARE(types.count(QAccessible::ValueChanged), events.heard(told));
            const bool wasEdited = !isAtRest || !bench.control->isReadOnly();
            QVERIFY(wasEdited || types.size() == events.heard(told)); // and of its text nothing
        }
        bench.control->hide();
        bench.control->setValue(99);
        QVERIFY(!events.takeOf(bench.control).contains(QAccessible::ValueChanged));
        bench.control->setEnabled(false);
        text->insertText(0, u"1"_qs);
        QCOMPARE(bench.control->value(), 99.0);
    }

    void aKeyframeButtonIsACheckBoxThatTheHostSets()
    {
        Bench<KeyframeButton> bench({24, 24});
        const QAccessibleInterface& seen = accessible(bench.control);
        QCOMPARE(seen.role(), QAccessible::CheckBox);
        using State = KeyframeButton::State;
        ReaderEvents events;
        for (const auto& [state, on, mixed] :
             {std::tuple(State::KeyAtFrame, true, false),
              {State::Animated, false, true},
              {State::None, false, false}})
        {
            bench.control->setState(state);
            bench.control->setState(state);
            QVERIFY(seen.state().checked == on && seen.state().checkStateMixed == mixed);
            QCOMPARE(
                events.takeOf(bench.control).count(QAccessible::StateChanged), events.heard(1));
        }
    }

    void coloursAreToldInWords()
    {
        const QString colors = u"#000000 black|#141210 black|#808080 grey|#f0f0f4 white"
                               "|#ff8000 orange|#000080 dark blue|#ffc0cb light red"
                               "|#708090 greyish blue|#ff00fe magenta"_qs;
        for (const QString& color : colors.split(u'|')) {
            const QString told = ui::colorWords(QColor(color.section(u' ', 0, 0)));
            QCOMPARE(told.section(u':', 0, 0), color.section(u' ', 1));
        }
        QCOMPARE(ui::colorWords(QColor()), QString());
        ColorSwatch swatch(QColor(1, 2, 3));
        swatch.setToolTip(u"<b>Fill</b>"_qs);
        QCOMPARE(accessible(&swatch).text(QAccessible::Description), u"black: 1, 2, 3"_qs);
    }

    void aPadIsAGroupOfTwoSliders()
    {
        Bench<JoystickPad> bench({100, 100});
        QAccessibleInterface& pad = accessible(bench.control);
        QCOMPARE(pad.childCount(), 2);
        QVERIFY(pad.indexOfChild(pad.child(1)) == 1 && !pad.child(2));
        QAccessibleValueInterface* const vertical = pad.child(1)->valueInterface();
        QCOMPARE(vertical->minimumValue().toDouble(), -1.0);
        for (const QVariant& value : {QVariant(0.25), QVariant(u"high"_qs), QVariant(kNaN)}) {
            vertical->setCurrentValue(value);
        }
        QVERIFY(bench.control->value() == num2<double>(0.0, 0.25));
        QCOMPARE(bench.said(), QByteArray("C"));
        bench.control->setEnabled(false);
        vertical->setCurrentValue(0.5);
        QCOMPARE(vertical->currentValue().toDouble(), 0.25);
    }

    void aNameIsReadAndRenamed()
    {
        Bench<RenamableLabel> bench({120, 24}, u"Title"_qs);
        QAccessibleInterface& seen = accessible(bench.control);
        QCOMPARE(seen.text(QAccessible::Name), u"Title"_qs);
        bench.control->setAccessibleName(u"Layer name"_qs);
        QCOMPARE(seen.text(QAccessible::Name), u"Layer name"_qs);
        QCOMPARE(seen.text(QAccessible::Value), u"Title"_qs);
        QVERIFY(seen.state().editable && seen.state().focusable);
        seen.setText(QAccessible::Value, u"Caption"_qs);
        QCOMPARE(bench.said(), QByteArray("C"));
        seen.actionInterface()->doAction(Action::pressAction());
        QVERIFY(bench.control->isEditing());
    }

    void aButtonIsNamedByItsTextThenItsLabelThenItsToolTip()
    {
        QGroupBox box(u"Layer"_qs);
        QFormLayout form(&box);
        for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
                 new IconButton(&box),
                 new ToggleSwitch(&box),
                 new CheckBox(&box),
                 new ColorSwatch(&box),
                 new PushButton(&box)})
        {
            form.addRow(u"&Loop"_qs, button);
            button->setToolTip(u"Plays it again and again"_qs);
            QCOMPARE(nameOf(button), u"Loop"_qs);
            button->setText(u"Save && E&xit"_qs);
            QCOMPARE(nameOf(button), u"Save & Exit"_qs);
        }
        IconButton alone(&box); // the box's title would tell less than the tool tip
        QCOMPARE(nameOf(&alone), u"Layer"_qs);
        alone.setToolTip(u"Visible"_qs);
        QCOMPARE(nameOf(&alone), u"Visible"_qs);
    }

    void aMixedCheckBoxIsNeitherOnNorOff()
    {
        CheckBox box;
        box.setMixed();
        QVERIFY(accessible(&box).state().checkStateMixed && !accessible(&box).state().checked);
        accessible(&box).actionInterface()->doAction(Action::toggleAction());
        QTRY_VERIFY(!accessible(&box).state().checkStateMixed && accessible(&box).state().checked);
    }
};

const Registration<AccessibilityTest> kRegistration;

#include "tst_accessibility.moc"

#include "controls/PaintCounter.h"
#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/controls/values/NumericField.h>
#include <MorrantUI/controls/values/SliderField.h>
#include <MorrantUI/controls/values/ValueControl.h>

#include <QtWidgets>

#include <cmath>
#include <functional>
#include <limits>

using ui::test::SignalRecord;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A slider with a field in an active window; the range is 0 to 100 in whole numbers.
struct Panel
{
    explicit Panel(Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        window.setLayoutDirection(direction);
        slider->setRange(0, 100);
        slider->setStep(1);
        slider->setDecimals(0);
        slider->setGeometry(10, 10, 300, 24);
        field->setUsePointerLock(false);
        window.resize(320, 60);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const double handle = track->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, track);
        left = handle / 2;
        right = track->width() - handle / 2;
    }

    /// The point of the track at a share of its way, from the left.
    QPoint at(double share) const
    {
        return QPointF(left + share * (right - left), track->height() / 2).toPoint();
    }
    void press(QPoint position)
    {
        pointer.moveTo(position);
        pointer.press();
    }
    bool isNear(double value) const { return std::abs(slider->value() - value) <= 1; }
    /// Without entering it.
    void begin(const QString& text)
    {
        field->setFocus(Qt::TabFocusReason);
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    void type(const QString& text)
    {
        begin(text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    void dragInField()
    {
        ui::test::FakePointer inField(field);
        inField.moveTo({10, 10});
        inField.press();
        inField.dragTo({40, 10});
        QVERIFY(slider->isDragging());
        inField.release();
    }

    QWidget window;
    SliderField* slider = new SliderField(&window);
    NumericField* field = slider->field();
    ValueControl* track = slider->findChild<ValueControl*>();
    SignalRecord record{slider};
    ui::test::FakePointer pointer{track};
    double left = 0.0;
    double right = 0.0;
};

} // namespace

class SliderFieldTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init() override;
    void cleanup() override;
    void theHandleGoesWhereTheGrooveIsPressed();
    void draggingIsFineAndCoarse();
    void keysStepAndDoubleClickResets();
    void rightToLeftMirrorsPointerAndKeys();
    void aTypedValueMayLeaveTheSoftRange();
    void theFieldCommitsOnceForEachOfItsWays();
    void whatIsBeingTypedIsKept();
    void valuesKeepDecimalsStepsAndLimits();
    void onlyAnotherSetupIsPainted();
    void tabAndAssistiveToolsReachSliderAndField();
    void theFillFollowsTheValue();
};

void SliderFieldTest::init()
{
    TestCase::init();
    ui::setKeyboardModifiersQuery([] { return Qt::KeyboardModifiers(); });
}

void SliderFieldTest::cleanup()
{
    ui::setKeyboardModifiersQuery({});
    TestCase::cleanup();
}

void SliderFieldTest::theHandleGoesWhereTheGrooveIsPressed()
{
    Panel panel;
    panel.press(panel.at(0.75));
    QVERIFY(panel.isNear(75) && panel.slider->isDragging());
    QCOMPARE(panel.field->value(), panel.slider->value());
    panel.pointer.dragTo(panel.at(0.25));
    panel.pointer.release();
    QVERIFY(panel.isNear(25));
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));

    panel.press(panel.at(0.25) + QPoint(4, 0)); // still on the handle
    panel.pointer.release();
    QCOMPARE(panel.record.take(), QByteArray());
    panel.pointer.press();
    panel.pointer.dragTo(panel.at(3.0));
    QCOMPARE(panel.slider->value(), 100.0);
    QTest::keyClick(panel.track, Qt::Key_Escape);
    QVERIFY(panel.isNear(25));
    QCOMPARE(panel.field->value(), panel.slider->value());
    QCOMPARE(panel.record.take(), QByteArray("(s)"));
    panel.pointer.release();
}

void SliderFieldTest::draggingIsFineAndCoarse()
{
    Panel panel;
    panel.slider->setRange(0, 1000);
    panel.slider->setDecimals(1);
    panel.slider->setValue(500);
    const double perPixel = 1000 / (panel.right - panel.left);
    panel.press(panel.at(0.5));
    panel.pointer.setModifiers(Qt::ControlModifier);
    panel.pointer.moveTo(panel.at(0.5) + QPoint(20, 0));
    QVERIFY(std::abs(panel.slider->value() - (500 + 2 * perPixel)) < 0.1);
    QVERIFY(panel.slider->value() != std::round(panel.slider->value())); // tenths of the step
    panel.pointer.setModifiers(Qt::ShiftModifier);
    panel.pointer.moveTo(panel.at(0.5) + QPoint(15, 0));
    QVERIFY(panel.isNear(500 - 48 * perPixel));
    panel.pointer.release();
}

void SliderFieldTest::keysStepAndDoubleClickResets()
{
    Panel panel;
    panel.slider->setSoftRange(20, 80);
    panel.slider->setDefaultValue(30);
    panel.slider->setValue(50);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, double> steps[] = {
        {Qt::Key_Right, Qt::NoModifier, 51},
        {Qt::Key_Up, Qt::ShiftModifier, 61},
        {Qt::Key_Left, Qt::ControlModifier, 60}, // whole numbers have nothing finer
        {Qt::Key_PageUp, Qt::NoModifier, 70},
        {Qt::Key_PageUp, Qt::NoModifier, 80},
        {Qt::Key_Home, Qt::NoModifier, 20},
        {Qt::Key_End, Qt::NoModifier, 80},
        {Qt::Key_Down, Qt::NoModifier, 79},
        {Qt::Key_Backspace, Qt::NoModifier, 30},
    };
    for (const auto& [key, modifiers, expected] : steps) {
        QTest::keyClick(panel.track, key, modifiers);
        QCOMPARE(panel.slider->value(), expected);
        QCOMPARE(panel.field->value(), expected);
        QCOMPARE(panel.record.take(), QByteArray("C"));
    }
    panel.slider->setValue(60);
    QTest::mouseDClick(panel.track, Qt::LeftButton, {}, panel.at(0.66));
    QCOMPARE(panel.slider->value(), 30.0);
}

void SliderFieldTest::rightToLeftMirrorsPointerAndKeys()
{
    Panel panel(Qt::RightToLeft);
    QVERIFY(panel.field->x() < panel.track->x());
    QTest::mouseClick(panel.track, Qt::LeftButton, {}, panel.at(0.0));
    QCOMPARE(panel.slider->value(), 100.0);
    QTest::keyClick(panel.track, Qt::Key_Right);
    QCOMPARE(panel.slider->value(), 99.0);
}

void SliderFieldTest::aTypedValueMayLeaveTheSoftRange()
{
    Panel panel;
    panel.slider->setSoftRange(0, 50);
    panel.type(u"900"_qs); // the hard range holds
    QCOMPARE(panel.slider->value(), 100.0);
    panel.type(u"70+10"_qs);
    panel.press(panel.at(1.0));
    panel.pointer.moveTo(panel.at(1.2));
    QCOMPARE(panel.slider->value(), 80.0); // held at the end, not drawn back
    panel.pointer.dragTo(panel.at(0.5));
    panel.pointer.release();
    QVERIFY(panel.isNear(25));
    panel.type(u"80"_qs);
    QTest::keyClick(panel.track, Qt::Key_Right);
    QCOMPARE(panel.slider->value(), 80.0);
    QTest::keyClick(panel.track, Qt::Key_Left);
    QCOMPARE(panel.slider->value(), 79.0);
}

void SliderFieldTest::theFieldCommitsOnceForEachOfItsWays()
{
    for (const bool hostEchoes : {false, true}) {
        Panel panel;
        if (hostEchoes) { // which disturbs nothing
            connect(panel.slider, &SliderField::valueChanged, &panel.window, [&] {
                panel.slider->setValue(panel.slider->value());
            });
        }
        panel.type(u"40"_qs);
        QCOMPARE(panel.record.take(), QByteArray("C"));
        panel.type(u"40.2"_qs); // is 40 in whole numbers
        QCOMPARE(panel.field->text(), u"40"_qs);
        QCOMPARE(panel.record.take(), QByteArray());

        panel.field->setFocus(Qt::TabFocusReason);
        QTest::keyClick(panel.field, Qt::Key_Up);
        QTest::keyClick(panel.field, Qt::Key_Up);
        QCOMPARE(panel.slider->value(), 42.0);
        panel.track->setFocus();
        QCOMPARE(panel.record.take(), QByteArray("sC"));
        panel.dragInField();
        QVERIFY(panel.slider->value() > 42.0);
        QCOMPARE(panel.record.take(), QByteArray("(sC)"));
    }
}

void SliderFieldTest::whatIsBeingTypedIsKept()
{
    using Push = std::function<void(SliderField&)>;
    const std::pair<Push, double> pushes[] = {
        {[](SliderField& slider) { slider.setValue(70); }, 70},
        {[](SliderField& slider) { slider.setSoftRange(10, 90); }, 20},
        {[](SliderField& slider) { slider.setRange(30, 200); }, 30},
        {[](SliderField& slider) { slider.setDecimals(1); }, 20}};
    for (const auto& [push, pushed] : pushes) {
        Panel panel;
        panel.slider->setValue(20);
        panel.begin(u"40+5"_qs);
        push(*panel.slider);
        QCOMPARE(panel.slider->value(), pushed);
        QCOMPARE(panel.field->text(), u"40+5"_qs);
        QTest::keyClicks(panel.field, u"0"_qs);
        QTest::keyClick(panel.field, Qt::Key_Return);
        QCOMPARE(panel.slider->value(), 90.0);
        QCoreApplication::processEvents();
        QCOMPARE(panel.field->value(), 90.0);
        QCOMPARE(panel.record.take(), QByteArray("C"));
    }
    for (const bool escapes : {false, true}) {
        Panel panel;
        panel.slider->setValue(20);
        panel.begin(u"4"_qs);
        panel.slider->setValue(70);
        QTest::keyClick(panel.field, Qt::Key_Backspace); // an empty field commits nothing
        if (escapes) {
            QTest::keyClick(panel.field, Qt::Key_Escape);
        } else {
            panel.track->setFocus();
        }
        QTRY_COMPARE(panel.field->text(), u"70"_qs);
        QCOMPARE(panel.slider->value(), 70.0);
        QCOMPARE(panel.record.take(), QByteArray());
    }
}

void SliderFieldTest::valuesKeepDecimalsStepsAndLimits()
{
    SliderField slider;
    SignalRecord record(&slider);
    slider.setValue(0.126);
    QCOMPARE(slider.value(), 0.13);
    QCOMPARE(slider.field()->text(), u"0.13"_qs);
    slider.setValue(7);
    slider.setValue(kNaN);
    slider.setRange(5, 3);
    slider.setRange(0, kNaN);
    slider.setSoftRange(2, 3);
    slider.setStep(0);
    QVERIFY(slider.value() == 1.0 && slider.maximum() == 1.0 && slider.softMaximum() == 1.0);
    QCOMPARE(slider.step(), 0.01);
    slider.setRange(-10, -2);
    QVERIFY(slider.value() == -2.0 && slider.defaultValue() == -2.0); // 0 is out of reach
    slider.setSoftRange(-100, -5);
    QCOMPARE(slider.softMinimum(), -10.0);
    slider.setDecimals(99);
    QCOMPARE(slider.decimals(), ui::kMaxSliderDecimals);
    slider.setDecimals(0);
    slider.setValue(-3.5);
    QCOMPARE(slider.field()->text(), u"-4"_qs);
    QCOMPARE(record.take(), QByteArray()); // setting emits nothing
}

void SliderFieldTest::onlyAnotherSetupIsPainted()
{
    Panel panel;
    ui::test::PaintCounter paints(panel.track);
    for (const double softMaximum : {100, 50}) {
        paints.take();
        panel.slider->setStep(1);
        panel.slider->setDecimals(0);
        panel.slider->setSoftRange(0, softMaximum);
        QCOMPARE(paints.take(), softMaximum < 100 ? 1 : 0);
    }
}

void SliderFieldTest::tabAndAssistiveToolsReachSliderAndField()
{
    Panel panel;
    panel.slider->setFocus(Qt::TabFocusReason);
    QVERIFY(panel.track->hasFocus());
    QTest::keyClick(panel.track, Qt::Key_Tab);
    QVERIFY(panel.field->hasFocus());

    QAccessibleInterface* track = QAccessible::queryAccessibleInterface(panel.track);
    QAccessibleInterface* field = QAccessible::queryAccessibleInterface(panel.field);
    QCOMPARE(track->role(), QAccessible::Slider);
    panel.slider->setToolTip(u"Opacity"_qs);
    QCOMPARE(track->text(QAccessible::Name), u"Opacity"_qs);
    panel.slider->setAccessibleName(u"Fill opacity"_qs);
    QCOMPARE(field->text(QAccessible::Name), u"Fill opacity"_qs);
    panel.field->setToolTip(u"<i>Percent</i>"_qs);
    QCOMPARE(field->text(QAccessible::Name), u"Percent"_qs);
    QCOMPARE(track->valueInterface()->maximumValue().toDouble(), 100.0);
    track->valueInterface()->setCurrentValue(33.4);
    QCOMPARE(panel.slider->value(), 33.0);
    QCOMPARE(panel.record.take(), QByteArray("C"));
}

void SliderFieldTest::theFillFollowsTheValue()
{
    Panel panel;
    const auto filled = [&](double share, double ratio) {
        const QPointF at = panel.at(share);
        return ui::test::closeTo(
            ui::test::pixelAt(ui::test::renderWidget(*panel.track, ratio), at),
            theme().getColor(u"Highlight"_qs));
    };
    for (const double ratio : {1.0, 1.5, 2.0}) {
        panel.slider->setRange(0, 100);
        panel.slider->setValue(60);
        QVERIFY(filled(0.2, ratio) && filled(0.5, ratio) && !filled(0.8, ratio));
        panel.slider->setRange(-50, 50);
        panel.slider->setValue(30);
        QVERIFY(!filled(0.2, ratio) && filled(0.6, ratio) && !filled(0.9, ratio));
        panel.slider->setEnabled(false);
        QVERIFY(!filled(0.6, ratio)); // dimmed
        panel.slider->setEnabled(true);
    }
}

const ui::test::Registration<SliderFieldTest> kRegistration;

#include "tst_sliderfield.moc"

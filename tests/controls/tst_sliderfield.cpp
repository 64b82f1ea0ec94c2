#include "controls/SignalRecord.h"
#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/NumericField.h>
#include <MorrantUI/controls/SliderField.h>
#include <MorrantUI/controls/ValueControl.h>
#include <MorrantUI/controls/modifiers.h>
#include <MorrantUI/theme/eventfilters.h>

#include <QtWidgets>

#include <cmath>
#include <functional>
#include <limits>

using ui::test::FakePointer;
using ui::test::SignalRecord;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A slider with a field in a shown window; the range is 0 to 100 in whole numbers.
struct Panel
{
    explicit Panel(Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        window.setLayoutDirection(direction);
        slider->setRange(0, 100);
        slider->setStep(1);
        slider->setDecimals(0);
        slider->setGeometry(10, 10, 300, 24);
        window.resize(320, 60);
        window.show();
        window.activateWindow();
        exposed = QTest::qWaitForWindowActive(&window);
        const double handle = track->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, track);
        left = handle / 2;
        right = track->width() - handle / 2;
    }

    /// The point of the track at a share of its way, from the left.
    QPoint at(double share) const
    {
        return QPointF(left + share * (right - left), track->height() / 2).toPoint();
    }
    void type(const QString& text)
    {
        slider->field()->setFocus(Qt::TabFocusReason);
        slider->field()->selectAll();
        QTest::keyClicks(slider->field(), text);
        QTest::keyClick(slider->field(), Qt::Key_Return);
    }

    QWidget window;
    SliderField* slider = new SliderField(&window);
    ValueControl* track = slider->findChild<ValueControl*>();
    SignalRecord record{slider};
    double left = 0.0;
    double right = 0.0;
    bool exposed = false;
};

} // namespace

class SliderFieldTest : public ui::test::TestCase
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
    void aHostThatHandsValuesBackDisturbsNothing();
    void whatIsBeingTypedIsKept();
    void valuesKeepDecimalsStepsAndLimits();
    void tabReachesSliderAndField();
    void assistiveToolsFindASliderWithTheName();
    void setupThatChangesNothingPaintsNothing();
    void theFillFollowsTheValue();

private:
    ui::test::StyledApplication m_application;
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
    QVERIFY(panel.exposed);
    FakePointer pointer(panel.track);
    pointer.moveTo(panel.at(0.75));
    pointer.press();
    QVERIFY(std::abs(panel.slider->value() - 75) <= 1);
    QCOMPARE(panel.slider->field()->value(), panel.slider->value());
    QVERIFY(panel.slider->isDragging());
    pointer.dragTo(panel.at(0.25));
    pointer.release();
    QVERIFY(std::abs(panel.slider->value() - 25) <= 1);
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));

    pointer.moveTo(panel.at(0.25) + QPoint(4, 0)); // still on the handle
    pointer.press();
    pointer.release();
    QCOMPARE(panel.record.take(), QByteArray());
    pointer.press();
    pointer.dragTo(panel.at(3.0));
    QCOMPARE(panel.slider->value(), 100.0);
    QTest::keyClick(panel.track, Qt::Key_Escape);
    QVERIFY(std::abs(panel.slider->field()->value() - 25) <= 1);
    QCOMPARE(panel.record.take(), QByteArray("(s)"));
    pointer.release();
}

void SliderFieldTest::draggingIsFineAndCoarse()
{
    Panel panel;
    panel.slider->setRange(0, 1000);
    panel.slider->setDecimals(1);
    panel.slider->setValue(500);
    const double perPixel = 1000 / (panel.right - panel.left);
    FakePointer pointer(panel.track);
    pointer.moveTo(panel.at(0.5));
    pointer.press();
    pointer.setModifiers(Qt::ControlModifier);
    pointer.moveTo(panel.at(0.5) + QPoint(20, 0));
    QVERIFY(std::abs(panel.slider->value() - (500 + 2 * perPixel)) < 0.1);
    QVERIFY(panel.slider->value() != std::round(panel.slider->value())); // tenths of the step
    pointer.setModifiers(Qt::ShiftModifier);
    pointer.moveTo(panel.at(0.5) + QPoint(15, 0));
    QVERIFY(std::abs(panel.slider->value() - (500 - 48 * perPixel)) <= 0.6);
    pointer.release();
}

void SliderFieldTest::keysStepAndDoubleClickResets()
{
    Panel panel;
    panel.slider->setSoftRange(20, 80);
    panel.slider->setDefaultValue(30);
    panel.slider->setValue(50);
    panel.track->setFocus();
    const QList<std::tuple<Qt::Key, Qt::KeyboardModifiers, double>> steps{
        {Qt::Key_Right, Qt::NoModifier, 51},
        {Qt::Key_Up, Qt::ShiftModifier, 61},
        {Qt::Key_Left, Qt::ControlModifier, 60}, // whole numbers have nothing finer
        {Qt::Key_PageUp, Qt::NoModifier, 70},
        {Qt::Key_Up, Qt::ShiftModifier, 80},
        {Qt::Key_Home, Qt::NoModifier, 20},
        {Qt::Key_End, Qt::NoModifier, 80},
        {Qt::Key_Down, Qt::NoModifier, 79},
        {Qt::Key_Backspace, Qt::NoModifier, 30},
    };
    for (const auto& [key, modifiers, expected] : steps) {
        QTest::keyClick(panel.track, key, modifiers);
        QCOMPARE(panel.slider->value(), expected);
        QCOMPARE(panel.slider->field()->value(), expected);
        QCOMPARE(panel.record.take(), QByteArray("C"));
    }
    panel.slider->setValue(60);
    QTest::mouseDClick(panel.track, Qt::LeftButton, {}, panel.at(0.66));
    QCOMPARE(panel.slider->value(), 30.0);
}

void SliderFieldTest::rightToLeftMirrorsPointerAndKeys()
{
    Panel panel(Qt::RightToLeft);
    QVERIFY(panel.slider->field()->x() < panel.track->x());
    QTest::mouseClick(panel.track, Qt::LeftButton, {}, panel.at(0.0));
    QCOMPARE(panel.slider->value(), 100.0);
    QTest::keyClick(panel.track, Qt::Key_Right);
    QCOMPARE(panel.slider->value(), 99.0);
    QTest::keyClick(panel.track, Qt::Key_Up);
    QCOMPARE(panel.slider->value(), 100.0);
}

void SliderFieldTest::aTypedValueMayLeaveTheSoftRange()
{
    Panel panel;
    panel.slider->setSoftRange(0, 50);
    panel.type(QStringLiteral("70+10"));
    QCOMPARE(panel.slider->value(), 80.0);
    panel.type(QStringLiteral("900")); // the hard range holds
    QCOMPARE(panel.slider->value(), 100.0);
    panel.type(QStringLiteral("80"));
    FakePointer pointer(panel.track);
    pointer.moveTo(panel.at(1.0));
    pointer.press();
    pointer.moveTo(panel.at(1.2));
    QCOMPARE(panel.slider->value(), 80.0); // held at the end, not drawn back
    pointer.dragTo(panel.at(0.5));
    pointer.release();
    QVERIFY(std::abs(panel.slider->value() - 25) <= 1);
    panel.type(QStringLiteral("80"));
    QTest::keyClick(panel.track, Qt::Key_Right);
    QCOMPARE(panel.slider->value(), 80.0);
    QTest::keyClick(panel.track, Qt::Key_Left);
    QCOMPARE(panel.slider->value(), 79.0);
}

void SliderFieldTest::theFieldCommitsOnceForEachOfItsWays()
{
    Panel panel;
    NumericField* const field = panel.slider->field();
    panel.type(QStringLiteral("40"));
    QCOMPARE(panel.record.take(), QByteArray("C"));
    panel.type(QStringLiteral("40.2")); // is 40 in whole numbers
    QCOMPARE(field->text(), QStringLiteral("40"));
    QCOMPARE(panel.record.take(), QByteArray());

    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_Up);
    QTest::keyClick(field, Qt::Key_Up);
    QCOMPARE(panel.slider->value(), 42.0);
    panel.track->setFocus();
    QCOMPARE(panel.record.take(), QByteArray("sC"));

    FakePointer pointer(field);
    field->setUsePointerLock(false);
    pointer.moveTo({10, 10});
    pointer.press();
    pointer.dragTo({40, 10});
    QVERIFY(panel.slider->isDragging());
    const double reached = panel.slider->value();
    QVERIFY(reached > 42.0);
    pointer.release();
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));
    QCOMPARE(panel.slider->value(), reached);
}

void SliderFieldTest::aHostThatHandsValuesBackDisturbsNothing()
{
    Panel panel;
    connect(panel.slider, &SliderField::valueChanged, &panel.window, [&] {
        panel.slider->setValue(panel.slider->value());
    });
    NumericField* const field = panel.slider->field();
    field->setFocus(Qt::TabFocusReason);
    QTest::keyClick(field, Qt::Key_Up);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(panel.record.take(), QByteArray("sC"));
    field->setUsePointerLock(false);
    panel.track->setFocus();
    FakePointer pointer(field);
    pointer.moveTo({10, 10});
    pointer.press();
    pointer.dragTo({40, 10});
    pointer.release();
    QCOMPARE(panel.record.take(), QByteArray("(sC)"));
}

void SliderFieldTest::whatIsBeingTypedIsKept()
{
    using Push = std::function<void(SliderField&)>;
    const QList<QPair<Push, double>> pushes{
        {[](SliderField& slider) { slider.setValue(70); }, 70},
        {[](SliderField& slider) { slider.setDefaultValue(5); }, 20},
        {[](SliderField& slider) { slider.setStep(2); }, 20},
        {[](SliderField& slider) { slider.setSoftRange(10, 90); }, 20},
        {[](SliderField& slider) { slider.setRange(30, 200); }, 30},
        {[](SliderField& slider) { slider.setDecimals(1); }, 20}};
    const auto leave = [](Panel& panel) { panel.track->setFocus(); };
    const auto takeBack = [](Panel& panel) {
        QTest::keyClick(panel.slider->field(), Qt::Key_Escape);
    };
    const auto enter = [](Panel& panel) { QTest::keyClick(panel.slider->field(), Qt::Key_Return); };
    for (const auto& [push, pushed] : pushes) {
        Panel panel;
        NumericField* const field = panel.slider->field();
        const auto begin = [&, &act = push, value = pushed](const QString& text) {
            panel.slider->setValue(20);
            panel.track->setFocus();
            QTRY_COMPARE(field->text(), QStringLiteral("20"));
            field->setFocus(Qt::TabFocusReason);
            field->selectAll();
            QTest::keyClicks(field, text);
            act(*panel.slider);
            QCOMPARE(panel.slider->value(), value);
            QCOMPARE(field->text(), text);
        };
        begin(QStringLiteral("40+5"));
        QTest::keyClicks(field, QStringLiteral("0"));
        enter(panel);
        QCOMPARE(panel.slider->value(), 90.0);
        QCoreApplication::processEvents();
        QCOMPARE(field->value(), 90.0);
        QCOMPARE(panel.record.take(), QByteArray("C"));
    }
    for (const auto& end : QList<std::function<void(Panel&)>>{leave, takeBack}) {
        Panel panel;
        NumericField* const field = panel.slider->field();
        panel.slider->setValue(20);
        field->setFocus(Qt::TabFocusReason);
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral("4"));
        panel.slider->setValue(70);
        QTest::keyClick(field, Qt::Key_Backspace); // an empty field commits nothing
        end(panel);
        QTRY_COMPARE(field->text(), QStringLiteral("70"));
        QCOMPARE(panel.slider->value(), 70.0);
        QCOMPARE(panel.record.take(), QByteArray());
    }
}

void SliderFieldTest::setupThatChangesNothingPaintsNothing()
{
    int paints = 0; // counted until the panel has gone
    Panel panel;
    panel.slider->setStep(0.5);
    panel.slider->setDefaultValue(7);
    QTest::qWait(50);
    paints = 0;
    ui::installEventFilter(
        panel.track,
        [&](QObject*, QEvent* event) {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        },
        nullptr);
    panel.slider->setStep(0.5);
    panel.slider->setDefaultValue(7);
    panel.slider->setRange(0, 100);
    panel.slider->setDecimals(0);
    QTest::qWait(50);
    QCOMPARE(paints, 0);
    panel.slider->setSoftRange(0, 50);
    QTRY_COMPARE(paints, 1);
}

void SliderFieldTest::valuesKeepDecimalsStepsAndLimits()
{
    SliderField slider;
    SignalRecord record(&slider);
    slider.setValue(0.126);
    QCOMPARE(slider.value(), 0.13);
    QCOMPARE(slider.field()->text(), QStringLiteral("0.13"));
    slider.setValue(7);
    QCOMPARE(slider.value(), 1.0);
    slider.setValue(kNaN);
    slider.setRange(5, 3);
    slider.setRange(0, kNaN);
    slider.setSoftRange(2, 3);
    slider.setStep(0);
    QCOMPARE(slider.value(), 1.0);
    QCOMPARE(slider.maximum(), 1.0);
    QCOMPARE(slider.softMaximum(), 1.0);
    QCOMPARE(slider.step(), 0.01);
    slider.setRange(-10, -2);
    QCOMPARE(slider.value(), -2.0);
    QCOMPARE(slider.defaultValue(), -2.0); // 0 is out of reach
    slider.setSoftRange(-100, -5);
    QCOMPARE(slider.softMinimum(), -10.0);
    slider.setDecimals(99);
    QCOMPARE(slider.decimals(), ui::kMaxSliderDecimals);
    slider.setDecimals(0);
    slider.setValue(-3.5);
    QCOMPARE(slider.field()->text(), QStringLiteral("-4"));
    QCOMPARE(record.take(), QByteArray()); // setting emits nothing
}

void SliderFieldTest::tabReachesSliderAndField()
{
    Panel panel;
    panel.slider->setFocus(Qt::TabFocusReason);
    QVERIFY(panel.track->hasFocus());
    QTest::keyClick(panel.track, Qt::Key_Tab);
    QVERIFY(panel.slider->field()->hasFocus());
}

void SliderFieldTest::assistiveToolsFindASliderWithTheName()
{
    Panel panel;
    panel.slider->setToolTip(QStringLiteral("Opacity"));
    QAccessibleInterface* track = QAccessible::queryAccessibleInterface(panel.track);
    QCOMPARE(track->role(), QAccessible::Slider);
    QCOMPARE(track->text(QAccessible::Name), QStringLiteral("Opacity"));
    QAccessibleInterface* field = QAccessible::queryAccessibleInterface(panel.slider->field());
    QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Opacity"));
    panel.slider->setAccessibleName(QStringLiteral("Fill opacity"));
    QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Fill opacity"));
    panel.slider->field()->setToolTip(QStringLiteral("<i>Percent</i>"));
    QCOMPARE(field->text(QAccessible::Name), QStringLiteral("Percent"));
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
            m_application.theme().getColor(QStringLiteral("Highlight")));
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

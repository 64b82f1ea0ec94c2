// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

namespace {

/// A slider from 0 to 100 in whole numbers; the pointer is on its track, and so are keys.
struct Panel : Bench<SliderField>
{
    Panel()
        : Bench({300, 24})
    {
        control->setRange(0, 100);
        control->setStep(1);
        control->setDecimals(0);
        control->field()->setUsePointerLock(false);
        setEntry(track);
    }

    /// The point of the track at a share of its way, from the left.
    QPoint at(double share) const
    {
        const int handle = track->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, track);
        const double way = track->width() - handle;
        return QPointF(handle / 2.0 + share * way, track->height() / 2).toPoint();
    }
    bool isNear(double value) const { return ui::test::isNear(control->value(), value, 1.0); }

    ValueControl* track = control->findChild<ValueControl*>();
};

} // namespace

class SliderFieldTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theHandleGoesWhereTheGrooveIsPressed()
    {
        Panel panel;
        panel.press(panel.at(0.75));
        QVERIFY(panel.isNear(75) && panel.control->isDragging());
        QCOMPARE(panel.control->field()->value(), panel.control->value());
        panel.pointer.dragTo(panel.at(0.25));
        panel.follow({{"up", "(sC)"}});
        QVERIFY(panel.isNear(25));
        panel.click(panel.at(0.25) + QPoint(4, 0)); // still on the handle
        panel.follow({{"", ""}});
        panel.press(panel.at(0.25));
        panel.pointer.dragTo(panel.at(3.0));
        panel.follow({{"", "(s", "100"}, {"Escape up", "s)"}});
        QVERIFY(panel.isNear(25));
        QCOMPARE(panel.control->field()->value(), panel.control->value());
    }

    void draggingIsFineAndCoarse()
    {
        Panel panel;
        panel.control->setRange(0, 1000);
        panel.control->setDecimals(1);
        panel.control->setValue(500);
        const double perPixel = 1000.0 / (panel.at(1) - panel.at(0)).x();
        panel.press(panel.at(0.5));
        panel.play("[Ctrl]");
        panel.pointer.moveTo(panel.at(0.5) + QPoint(20, 0));
        const double fine = panel.control->value();
        QVERIFY(isNear(fine, 500 + 2 * perPixel, 0.1));
        QVERIFY(fine != std::round(fine)); // tenths of the step
        panel.play("[Shift]");
        panel.pointer.moveTo(panel.at(0.5) + QPoint(15, 0));
        QVERIFY(panel.isNear(500 - 48 * perPixel));
        panel.play("up");
    }

    void keysStepAndDoubleClickResets()
    {
        Panel panel;
        panel.control->setSoftRange(20, 80);
        panel.control->setDefaultValue(30);
        panel.control->setValue(50);
        panel.follow(
            {{"Right", "C", "51"},
             {"Shift+Up", "C", "61"},
             {"Ctrl+Left", "C", "60"}, // whole numbers have nothing finer
             {"PgUp", "C", "70"},
             {"PgUp", "C", "80"},
             {"Home", "C", "20"},
             {"End", "C", "80"},
             {"Down", "C", "79"},
             {"Backspace", "C", "30"}});
        QCOMPARE(panel.control->field()->value(), 30.0);
        panel.control->setValue(60);
        QTest::mouseDClick(panel.track, Qt::LeftButton, {}, panel.at(0.66));
        panel.follow({{"", "C", "30"}});
        panel.window->setLayoutDirection(Qt::RightToLeft); // mirrors pointer and keys
        QCoreApplication::processEvents();
        QVERIFY(panel.control->field()->x() < panel.track->x());
        panel.click(panel.at(0.0));
        panel.follow({{"", "(sC)", "80"}, {"Right", "C", "79"}});
    }

    void aTypedValueMayLeaveTheSoftRange()
    {
        Panel panel;
        panel.control->setSoftRange(0, 50);
        panel.follow(
            {{"#0 in =900 Return", "C", "100"},
             {"in =70+10 Return", "C", "80"}}); // the hard range holds
        panel.setEntry(panel.track);
        panel.press(panel.at(1.0));
        panel.pointer.moveTo(panel.at(1.2));
        panel.follow({{"", "", "80"}}); // held at the end, not drawn back
        panel.pointer.dragTo(panel.at(0.5));
        panel.follow({{"up", "(sC)"}});
        QVERIFY(panel.isNear(25));
        panel.follow({{"#0 in =80 Return out", "C", "80"}});
        panel.setEntry(panel.track);
        panel.follow({{"Right", "", "80"}, {"Left", "C", "79"}});
        panel.follow({{"#0 in =79.2 Return", "", "79"}}); // in whole numbers
        QCOMPARE(panel.control->field()->text(), u"79"_qs);
        panel.follow({{"out @10,10 >40,10", "(s"}});
        QVERIFY(panel.control->isDragging());
        panel.follow({{"up", "C)"}});
    }

    void valuesKeepDecimalsStepsAndLimits()
    {
        SliderField slider;
        const SignalRecord record(&slider);
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
        QCOMPARE(record.signalsSent, 0); // setting emits nothing
    }

    void theFillFollowsTheValueAndOnlyAnotherSetupIsPainted()
    {
        Panel panel;
        const auto filled = [&](double share, double ratio) {
            const QImage image = renderWidget(*panel.track, ratio);
            return closeTo(pixelAt(image, panel.at(share)), ui::colorQt(u"Highlight"_qs));
        };
        for (const double ratio : {1.0, 2.0}) {
            panel.control->setRange(-50, 50);
            panel.control->setValue(30);
            QVERIFY(!filled(0.2, ratio) && filled(0.6, ratio) && !filled(0.9, ratio));
            panel.control->setEnabled(false);
            QVERIFY(!filled(0.6, ratio)); // dimmed
            panel.control->setEnabled(true);
        }
        PaintCounter paints(panel.track);
        for (const double softMaximum : {50, 40}) {
            paints.take();
            panel.control->setStep(1);
            panel.control->setDecimals(0);
            panel.control->setSoftRange(-50, softMaximum);
            QCOMPARE(paints.take(), softMaximum < 50 ? 1 : 0);
        }
    }
};

const Registration<SliderFieldTest> kRegistration;

#include "tst_sliderfield.moc"

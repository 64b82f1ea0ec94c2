// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include <MorrantUI/controls/buttons/CheckBox.h>
#include <MorrantUI/controls/buttons/ToggleSwitch.h>

using ui::test::closeTo;

namespace {

/// The application style with another answer for how long things move.
class TimedStyle : public QProxyStyle
{
public:
    explicit TimedStyle(int milliseconds)
        : m_milliseconds(milliseconds)
    {}
    int styleHint(
        StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* data) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? m_milliseconds
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }

private:
    int m_milliseconds;
};

/// A shown switch whose time is driven by hand.
struct TimedSwitch
{
    explicit TimedSwitch(int milliseconds)
        : style(milliseconds)
        , clock(&control)
    {
        control.setStyle(&style);
        control.show();
    }

    QPropertyAnimation& glide() { return *control.findChild<QPropertyAnimation*>(); }
    bool isGliding() { return glide().state() == QAbstractAnimation::Running; }

    TimedStyle style;
    ToggleSwitch control;
    ui::test::FakeClock clock;
};

} // namespace

class TogglesTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theKnobGlidesComesToRestAndTurnsRoundOnTheWay()
    {
        TimedSwitch timed(1000);
        QSignalSpy toggled(&timed.control, &QAbstractButton::toggled);
        timed.control.click();
        QCOMPARE(toggled.count(), 1);
        timed.glide().pause();
        timed.glide().setCurrentTime(300);
        const double early = timed.control.knobPosition();
        timed.glide().setCurrentTime(600);
        QVERIFY(0.2 < early && early < timed.control.knobPosition());
        QVERIFY(timed.control.knobPosition() < 1.0);
        timed.glide().resume();
        timed.clock.advanceAnimations(1000);
        QCOMPARE(timed.control.knobPosition(), 1.0);
        QVERIFY2(!timed.isGliding(), "nothing moves at idle");

        timed.control.setChecked(false);
        timed.glide().setCurrentTime(300);
        const double reached = timed.control.knobPosition();
        QVERIFY(reached < 0.8);
        timed.control.setChecked(true);
        QVERIFY(std::abs(timed.control.knobPosition() - reached) < 0.05);
        timed.control.hide();
        QCOMPARE(timed.control.knobPosition(), 1.0);
        QVERIFY(!timed.isGliding());
    }

    void theKnobJumpsWithoutAnimation()
    {
        TimedSwitch still(0);
        still.control.click();
        QVERIFY(still.control.knobPosition() == 1.0 && !still.isGliding());

        ToggleSwitch hidden;
        const QSignalBlocker blocker(&hidden); // as hosts do when they push a value
        hidden.setChecked(true);
        QCOMPARE(hidden.knobPosition(), 1.0);
    }

    void theTrackTakesTheHighlightWhenOn()
    {
        ToggleSwitch control;
        control.resize(control.sizeHint());
        const auto at = [&](QPointF point) {
            return ui::test::pixelAt(ui::test::renderWidget(control), point);
        };
        const QPointF offEnd(6, 11); // under the knob when off
        const QPointF onEnd(22, 11);
        QVERIFY(closeTo(at(offEnd), ui::colorQt(u"Light"_qs)));
        QVERIFY(closeTo(at(onEnd), ui::colorQt(u"Base"_qs)));
        control.setChecked(true);
        QVERIFY(closeTo(at(offEnd), ui::colorQt(u"Highlight"_qs)) && closeTo(at(onEnd), Qt::white));
        control.setEnabled(false);
        QVERIFY(at(offEnd).alpha() < 128);
    }

    void keysAndClicksSwitchButReturnIsADialogsDefaultButtons()
    {
        QDialog dialog;
        QPushButton accept(&dialog);
        accept.setDefault(true);
        QSignalSpy accepted(&accept, &QAbstractButton::clicked);
        dialog.show();
        for (QAbstractButton* toggle : std::initializer_list<QAbstractButton*>{
                 new ToggleSwitch(u"Loop"_qs, &dialog), new CheckBox(u"Visible"_qs, &dialog)})
        {
            QSignalSpy toggled(toggle, &QAbstractButton::toggled);
            QTest::keyClick(toggle, Qt::Key_Return);
            QCOMPARE(std::exchange(static_cast<QList<QVariantList>&>(accepted), {}).count(), 1);
            QCOMPARE(toggled.count(), 0);
            toggle->setParent(nullptr);
            toggle->resize(toggle->sizeHint());
            QTest::keyClick(toggle, Qt::Key_Space);
            QTest::keyClick(toggle, Qt::Key_Return);
            QTest::mouseClick(toggle, Qt::LeftButton, {}, {toggle->width() - 3, 10}); // on the text
            QCOMPARE(toggled, QList<QVariantList>({{true}, {false}, {true}}));
            toggle->setEnabled(false);
            QTest::mouseClick(toggle, Qt::LeftButton);
            QCOMPARE(toggled.count(), 3);
            toggle->setParent(&dialog);
        }
    }

    void mixedIsAFindingUnlessOffered()
    {
        CheckBox box;
        const auto statesOfClicks = [&box] {
            QList<Qt::CheckState> states;
            for (int i = 0; i < 4; ++i) {
                box.click();
                states << box.checkState();
            }
            return states;
        };
        using Qt::Checked, Qt::Unchecked, Qt::PartiallyChecked;
        box.setMixed();
        QVERIFY(box.isMixed());
        QSignalSpy changed(&box, &QCheckBox::stateChanged);
        QCOMPARE(statesOfClicks(), QList({Checked, Unchecked, Checked, Unchecked}));
        QCOMPARE(changed.count(), 4);
        box.setMixedOffered(true);
        QCOMPARE(statesOfClicks(), QList({PartiallyChecked, Checked, Unchecked, PartiallyChecked}));
        box.setMixedOffered(false);
        QCOMPARE(statesOfClicks(), QList({Checked, Unchecked, Checked, Unchecked}));
    }
};

const ui::test::Registration<TogglesTest> kRegistration;

#include "tst_toggles.moc"

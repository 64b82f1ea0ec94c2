#include "controls/StyledApplication.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/CheckBox.h>
#include <MorrantUI/controls/ToggleSwitch.h>
#include <MorrantUI/controls/switchgeometry.h>
#include <MorrantUI/theme/colors.h>

#include <QtWidgets>

#include <limits>

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

class TogglesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theKnobStaysInsideItsTrackAndIsMirrored();
    void theKnobGlidesAndComesToRest();
    void switchingBackOnTheWayTurnsTheKnobRound();
    void theKnobJumpsWithoutAnimation();
    void theTrackTakesTheHighlightWhenOn();
    void keysAndClicksSwitch();
    void returnIsLeftToADialogsDefaultButton();
    void mixedIsAFindingUnlessOffered();
    void assistiveToolsSeeWhatIsOn();

private:
    ui::test::StyledApplication m_application;
};

void TogglesTest::theKnobStaysInsideItsTrackAndIsMirrored()
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const QRectF& bounds : {QRectF(0, 0, 100, 22), QRectF(3, 5, 10, 8), QRectF()}) {
        for (const double position : {0.0, 0.3, 1.0, -2.0, 7.0, nan}) {
            const auto parts = ui::switchParts(bounds, 16, position, Qt::LeftToRight);
            const auto mirrored = ui::switchParts(bounds, 16, position, Qt::RightToLeft);
            QVERIFY(parts.track.top() >= bounds.top() && parts.track.bottom() <= bounds.bottom());
            QVERIFY(parts.knob.left() >= parts.track.left());
            QVERIFY(parts.knob.right() <= parts.track.right() || parts.knob.isEmpty());
            QCOMPARE(parts.knob.width(), parts.knob.height());
            QVERIFY(parts.text.width() >= 0);
            const double sum = bounds.left() + bounds.right();
            QCOMPARE(mirrored.track.left(), sum - parts.track.right());
            QCOMPARE(mirrored.knob.left(), sum - parts.knob.right());
            QCOMPARE(mirrored.text.left(), sum - parts.text.right());
        }
    }
    const auto off = ui::switchParts({0, 0, 100, 22}, 16, 0, Qt::LeftToRight);
    const auto on = ui::switchParts({0, 0, 100, 22}, 16, 1, Qt::LeftToRight);
    QCOMPARE(off.track, QRectF(0, 3, 28, 16));
    QCOMPARE(off.knob, QRectF(2, 5, 12, 12));
    QCOMPARE(on.knob, QRectF(14, 5, 12, 12));
    QCOMPARE(on.text, QRectF(34, 0, 66, 22));
}

void TogglesTest::theKnobGlidesAndComesToRest()
{
    TimedSwitch timed(200);
    QSignalSpy toggled(&timed.control, &QAbstractButton::toggled);
    timed.control.click();
    QCOMPARE(toggled.count(), 1);
    QVERIFY(timed.isGliding());
    timed.glide().pause();
    timed.glide().setCurrentTime(60);
    const double early = timed.control.knobPosition();
    timed.glide().setCurrentTime(120);
    QVERIFY(early > 0.0 && early < timed.control.knobPosition());
    QVERIFY(timed.control.knobPosition() < 1.0);
    timed.glide().resume();
    timed.clock.advanceAnimations(200);
    QCOMPARE(timed.control.knobPosition(), 1.0);
    QVERIFY2(!timed.isGliding(), "nothing moves at idle");
}

void TogglesTest::switchingBackOnTheWayTurnsTheKnobRound()
{
    TimedSwitch timed(1000);
    timed.control.setChecked(true);
    timed.glide().setCurrentTime(300);
    const double reached = timed.control.knobPosition();
    QVERIFY(reached > 0.2);
    timed.control.setChecked(false);
    QVERIFY(std::abs(timed.control.knobPosition() - reached) < 0.05);
    timed.clock.advanceAnimations(1000);
    QCOMPARE(timed.control.knobPosition(), 0.0);

    timed.control.setChecked(true);
    timed.control.hide();
    QCOMPARE(timed.control.knobPosition(), 1.0);
    QVERIFY(!timed.isGliding());
}

void TogglesTest::theKnobJumpsWithoutAnimation()
{
    TimedSwitch still(0);
    still.control.click();
    QCOMPARE(still.control.knobPosition(), 1.0);
    QVERIFY(!still.isGliding());

    ToggleSwitch hidden;
    const QSignalBlocker blocker(&hidden); // as hosts do when they push a value
    hidden.setChecked(true);
    QCOMPARE(hidden.knobPosition(), 1.0);
}

void TogglesTest::theTrackTakesTheHighlightWhenOn()
{
    ToggleSwitch control;
    control.resize(control.sizeHint());
    const QPointF offEnd(6, 11); // under the knob when off
    const QPointF onEnd(22, 11);
    const auto at = [&](QPointF point) {
        return ui::test::pixelAt(ui::test::renderWidget(control), point);
    };
    QVERIFY(ui::test::closeTo(at(offEnd), ui::colorQt(QStringLiteral("Light"))));
    QVERIFY(ui::test::closeTo(at(onEnd), ui::colorQt(QStringLiteral("Base"))));
    control.setChecked(true);
    QVERIFY(ui::test::closeTo(at(offEnd), ui::colorQt(QStringLiteral("Highlight"))));
    QVERIFY(ui::test::closeTo(at(onEnd), Qt::white));
    control.setEnabled(false);
    QVERIFY(at(offEnd).alpha() < 128);
}

void TogglesTest::keysAndClicksSwitch()
{
    ToggleSwitch control(QStringLiteral("Loop"));
    CheckBox box(QStringLiteral("Visible"));
    for (QAbstractButton* toggle :
         {static_cast<QAbstractButton*>(&control), static_cast<QAbstractButton*>(&box)})
    {
        QSignalSpy toggled(toggle, &QAbstractButton::toggled);
        toggle->resize(toggle->sizeHint());
        QTest::keyClick(toggle, Qt::Key_Space);
        QTest::keyClick(toggle, Qt::Key_Return);
        QTest::mouseClick(toggle, Qt::LeftButton, {}, {toggle->width() - 3, 10}); // on the text
        QCOMPARE(toggled, QList<QVariantList>({{true}, {false}, {true}}));
        toggle->setEnabled(false);
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggled.count(), 3);
    }
}

void TogglesTest::returnIsLeftToADialogsDefaultButton()
{
    QDialog dialog;
    ToggleSwitch control(&dialog);
    CheckBox box(&dialog);
    QPushButton accept(&dialog);
    accept.setDefault(true);
    QSignalSpy accepted(&accept, &QAbstractButton::clicked);
    dialog.show();
    QTest::keyClick(&control, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(accepted.count(), 2);
    QVERIFY(!control.isChecked() && !box.isChecked());
}

void TogglesTest::mixedIsAFindingUnlessOffered()
{
    const auto clicks = [](CheckBox& box) {
        QList<Qt::CheckState> states;
        for (int i = 0; i < 4; ++i) {
            box.click();
            states << box.checkState();
        }
        return states;
    };
    CheckBox box;
    box.setMixed();
    QVERIFY(box.isMixed());
    QSignalSpy changed(&box, &QCheckBox::stateChanged);
    QCOMPARE(clicks(box), QList({Qt::Checked, Qt::Unchecked, Qt::Checked, Qt::Unchecked}));
    QCOMPARE(changed.count(), 4);

    box.setMixedOffered(true);
    QCOMPARE(
        clicks(box),
        QList({Qt::PartiallyChecked, Qt::Checked, Qt::Unchecked, Qt::PartiallyChecked}));
    box.setMixedOffered(false);
    box.click();
    QCOMPARE(box.checkState(), Qt::Checked);
}

void TogglesTest::assistiveToolsSeeWhatIsOn()
{
    ToggleSwitch control;
    control.setToolTip(QStringLiteral("Loop"));
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&control);
    QCOMPARE(seen->role(), QAccessible::CheckBox);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Loop"));
    seen->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_VERIFY(seen->state().checked);

    CheckBox box(QStringLiteral("&Visible"));
    box.setMixed();
    QAccessibleInterface* const mixed = QAccessible::queryAccessibleInterface(&box);
    QCOMPARE(mixed->text(QAccessible::Name), QStringLiteral("Visible"));
    QVERIFY(mixed->state().checkStateMixed && !mixed->state().checked);
    box.click();
    QVERIFY(!mixed->state().checkStateMixed && mixed->state().checked);
}

const ui::test::Registration<TogglesTest> kRegistration;

#include "tst_toggles.moc"

// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;
using Buttons = std::initializer_list<QAbstractButton*>;

namespace {

QString icon(const char* name)
{
    return u"icons:%1.png"_qs.arg(QLatin1String(name));
}

/// The application style with another answer for how long things move.
class TimedStyle : public QProxyStyle
{
public:
    int styleHint(
        StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* data) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? duration
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }

    int duration = 0; ///< milliseconds
};

/// A shown switch whose time is driven by hand.
struct TimedSwitch
{
    explicit TimedSwitch(int milliseconds)
    {
        style.duration = milliseconds;
        control.setStyle(&style);
        control.show();
    }

    QPropertyAnimation& glide() { return *control.findChild<QPropertyAnimation*>(); }
    bool isGliding() { return glide().state() == QAbstractAnimation::Running; }

    TimedStyle style;
    ToggleSwitch control;
    FakeClock clock{&control};
};

} // namespace

class ButtonsTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void returnAndSpacePressEveryButton()
    {
        QWidget window;
        for (QAbstractButton* button : Buttons{
                 new PushButton(&window),
                 new ToolButton(&window),
                 new IconButton(&window),
                 new GroupButton(&window),
                 new RolloverButton(&window)})
        {
            QSignalSpy clicked(button, &QAbstractButton::clicked);
            QVERIFY(button->focusPolicy() & Qt::TabFocus);
            QTest::keyClick(button, Qt::Key_Space);
            QTest::keyClick(button, Qt::Key_Return);
            QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
            QCOMPARE(clicked.count(), 3);
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(button, &held);
            QTest::keyClick(button, Qt::Key_Return, Qt::ControlModifier);
            button->setEnabled(false);
            QTest::keyClick(button, Qt::Key_Return);
            QCOMPARE(clicked.count(), 3);
        }
    }

    void primaryIsALookAndNotADialogsDefault()
    {
        QDialog dialog;
        PushButton primary(u"Render"_qs, &dialog);
        primary.resize(primary.sizeHint());
        for (const bool isPrimary : {false, true}) {
            primary.setPrimary(isPrimary);
            const QColor ground = pixelAt(renderWidget(primary), {4, 11});
            QVERIFY(closeTo(ground, ui::colorQt(isPrimary ? u"Highlight"_qs : u"Button"_qs)));
            QVERIFY(!primary.isDefault());
        }
    }

    void aMenuIsAnnouncedAtTheTrailingEdge()
    {
        ToolButton button(icon("snap"), u"Snap"_qs);
        QMenu menu;
        const int plain = button.sizeHint().width();
        button.setMenu(&menu);
        QVERIFY(button.sizeHint().width() > plain);
        button.resize(button.sizeHint());
        // The arrow lies in the middle of the height and closer to the edge than icon and text.
        const auto hasInkAt = [&](int x) { return hasInk(renderWidget(button).copy(x, 8, 6, 6)); };
        const int right = button.width() - 12;
        QVERIFY(hasInkAt(right) && !hasInkAt(2));
        button.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(hasInkAt(6) && !hasInkAt(right + 4));
        button.setMenuArrowVisible(false);
        QCOMPARE(button.sizeHint().width(), plain);
    }

    void theDownKeyOpensTheMenuInAnyMode()
    {
        QMenu menu;
        menu.addAction(u"Linear"_qs);
        PushButton push(u"Easing"_qs);
        push.setMenu(&menu);
        ToolButton whole(QString(), u"Easing"_qs);
        whole.setMenu(&menu);
        ToolButton split(QString(), u"Easing"_qs);
        split.setPopupMode(QToolButton::MenuButtonPopup);
        split.setMenu(&menu);
        QSignalSpy opened(&menu, &QMenu::aboutToShow);
        connect(&menu, &QMenu::aboutToShow, &menu, [&menu] {
            QTimer::singleShot(0, &menu, &QWidget::close);
        });
        for (QAbstractButton* button : Buttons{&push, &whole, &split}) {
            QSignalSpy clicked(button, &QAbstractButton::clicked);
            opened.clear();
            button->show();
            QVERIFY(QTest::qWaitForWindowExposed(button));
            QTest::keyClick(button, Qt::Key_Down);
            QCOMPARE(opened.count(), 1);
            QTRY_VERIFY(!menu.isVisible());
            auto* const actions = accessible(button).actionInterface();
            const QString show = QAccessibleActionInterface::showMenuAction();
            actions->doAction(show);
            QTRY_COMPARE(opened.count(), 2);
            QTRY_VERIFY(!menu.isVisible());
            QCOMPARE(clicked.count(), 0);
            button->hide();
        }
    }

    void aSecondIconReplacesTheHighlight()
    {
        IconButton highlighted(icon("eye"));
        highlighted.setCheckable(true);
        IconButton twoFaced(icon("eye"));
        twoFaced.setCheckedIconName(icon("eyeOff"));
        IconButton crossedOut(icon("eyeOff"));
        for (IconButton* button : {&highlighted, &twoFaced, &crossedOut}) {
            button->resize(button->sizeHint());
        }
        QCOMPARE(renderWidget(twoFaced), renderWidget(highlighted));
        highlighted.setChecked(true);
        twoFaced.click();
        QVERIFY(twoFaced.isChecked());
        QCOMPARE(renderWidget(twoFaced), renderWidget(crossedOut));
        QVERIFY(pixelAt(renderWidget(highlighted), {4, 11}).alpha() > 0);
        twoFaced.setCheckedIconName(QString());
        QCOMPARE(renderWidget(twoFaced), renderWidget(highlighted));
    }

    void aRolloverButtonIsTintedByItsState()
    {
        QIcon square;
        for (const int ratio : {1, 2}) {
            const QColor ink(200, 204, 210);
            square.addPixmap(QPixmap::fromImage(drawn({16, 16}, ratio, ink, [](QPainter&) {})));
        }
        RolloverButton button;
        button.setIcon(square);
        button.setCheckable(true);
        button.setTints({u"Red"_qs, u"Green"_qs, u"Yellow"_qs, u"Blue"_qs});
        button.resize(button.sizeHint());
        const auto shows = [&](const QColor& color) {
            return closeTo(pixelAt(renderWidget(button), {10, 10}), color);
        };
        const auto isFlat = [&] { // beside the icon, which must keep its size at any ratio
            return pixelAt(renderWidget(button), {1, 10}).alpha() == 0
                   && pixelAt(renderWidget(button, 2.0), {1, 10}).alpha() == 0;
        };
        QVERIFY(shows(ui::colorQt(u"Red"_qs)) && isFlat());
        button.setChecked(true);
        QVERIFY(shows(ui::colorQt(u"Blue"_qs)) && isFlat());
        button.setAttribute(Qt::WA_UnderMouse);
        QVERIFY(shows(ui::colorQt(u"Green"_qs)) && !isFlat());
        button.setDown(true);
        const QColor pressed = ui::colorQt(u"Yellow"_qs);
        for (const QColor& color : {pressed, QColor(Qt::cyan), pressed}) { // asked at paint time
            theme().setColor(u"Yellow"_qs, color);
            QVERIFY(shows(color) && !isFlat());
        }
        button.setTints({QString(), QString(), QString(), QString()});
        QVERIFY(shows(QColor(200, 204, 210)));
        button.setEnabled(false);
        QVERIFY(isFlat() && pixelAt(renderWidget(button), {10, 10}).alpha() < 128);
    }

    void anIconVariantStandsInForTheNextAndHoverRepaintsOnceEachWay()
    {
        RolloverButton locked(icon("lock"));
        RolloverButton unlocked(icon("unlock"));
        RolloverButton button;
        button.setIcons({.rest = icon("lock"), .hovered = icon("unlock")});
        for (QWidget* one : Buttons{&locked, &unlocked, &button}) {
            one->resize(button.sizeHint());
        }
        QCOMPARE(renderWidget(button), renderWidget(locked));
        for (QWidget* one : Buttons{&locked, &unlocked, &button}) {
            one->setAttribute(Qt::WA_UnderMouse);
        }
        QVERIFY(renderWidget(button) != renderWidget(locked));
        QCOMPARE(renderWidget(button), renderWidget(unlocked));
        unlocked.setDown(true);
        button.setDown(true);
        QCOMPARE(renderWidget(button), renderWidget(unlocked));

        Bench<RolloverButton> bench({20, 20}, icon("close"));
        bench.play("~100,50");
        QTest::qWait(50);
        PaintCounter paints(bench.control);
        bench.play("~8,8 ~10,10");
        QCOMPARE(paints.take(), 1);
        bench.play("~100,50");
        QCOMPARE(paints.take(), 1);
        QCOMPARE(paints.take(), 0);
    }

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
        const auto at = [&](QPointF point) { return pixelAt(renderWidget(control), point); };
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
        for (QAbstractButton* toggle :
             Buttons{new ToggleSwitch(u"Loop"_qs, &dialog), new CheckBox(u"Visible"_qs, &dialog)})
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

const Registration<ButtonsTest> kRegistration;

#include "tst_buttons.moc"

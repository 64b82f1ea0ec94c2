// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include <MorrantUI/MorrantUI.h>

using ui::test::closeTo;
using ui::test::pixelAt;
using ui::test::renderWidget;
using Buttons = std::initializer_list<QAbstractButton*>;

namespace {

QString icon(const char* name)
{
    return u"icons:%1.png"_qs.arg(QLatin1String(name));
}

} // namespace

class ButtonsTest : public ui::test::StyledTestCase
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
        const auto hasInkAt = [&](int x) {
            const QImage image = renderWidget(button).copy(x, 8, 6, 6);
            QImage empty(image.size(), image.format());
            empty.fill(Qt::transparent);
            return image != empty;
        };
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
            auto* const actions = ui::test::accessible(button).actionInterface();
            const QString show = QAccessibleActionInterface::showMenuAction();
            QVERIFY(actions->actionNames().contains(show));
            actions->doAction(show);
            QTRY_COMPARE(opened.count(), 2);
            QTRY_VERIFY(!menu.isVisible());
            QCOMPARE(clicked.count(), 0);
            button->setEnabled(false);
            QVERIFY(!actions->actionNames().contains(show));
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
            QPixmap pixmap(16 * ratio, 16 * ratio);
            pixmap.setDevicePixelRatio(ratio);
            pixmap.fill(QColor(200, 204, 210));
            square.addPixmap(pixmap);
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

        ui::test::Bench<RolloverButton> bench({20, 20}, icon("close"));
        bench.play("~100,50");
        QTest::qWait(50);
        ui::test::PaintCounter paints(bench.control);
        bench.play("~8,8 ~10,10");
        QCOMPARE(paints.take(), 1);
        bench.play("~100,50");
        QCOMPARE(paints.take(), 1);
        QCOMPARE(paints.take(), 0);
    }
};

const ui::test::Registration<ButtonsTest> kRegistration;

#include "tst_buttons.moc"

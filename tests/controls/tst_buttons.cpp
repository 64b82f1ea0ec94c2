#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/CheckBox.h>
#include <MorrantUI/controls/ColorSwatch.h>
#include <MorrantUI/controls/GroupButton.h>
#include <MorrantUI/controls/IconButton.h>
#include <MorrantUI/controls/PushButton.h>
#include <MorrantUI/controls/RolloverButton.h>
#include <MorrantUI/controls/ToggleSwitch.h>
#include <MorrantUI/controls/ToolButton.h>
#include <MorrantUI/theme/colors.h>

#include <QtWidgets>

#include <tuple>

using ui::test::FakePointer;
using ui::test::renderWidget;

namespace {

QString icon(const char* name)
{
    return QStringLiteral("icons:%1.png").arg(QLatin1String(name));
}

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

} // namespace

class ButtonsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void returnAndSpacePressEveryButton();
    void primaryIsALookAndNotADialogsDefault();
    void aMenuIsAnnouncedAtTheTrailingEdge();
    void theDownKeyOpensTheMenuInAnyMode();
    void anIconButtonIsASquareAsHighAsAField();
    void theSecondIconReplacesTheHighlight();
    void joinedGroupButtonsAreRoundAtTheirOuterEnds();
    void aRolloverButtonIsTintedByItsState();
    void anIconVariantStandsInForTheNext();
    void hoverRepaintsOnceEachWay();
    void assistiveToolsSeeNameRoleAndState();
    void aLabelNamesAButtonWithoutAText();

private:
    ui::test::StyledApplication m_application;
};

void ButtonsTest::returnAndSpacePressEveryButton()
{
    QWidget window;
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
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

void ButtonsTest::primaryIsALookAndNotADialogsDefault()
{
    QDialog dialog;
    PushButton primary(QStringLiteral("Render"), &dialog);
    PushButton plain(QStringLiteral("Later"), &dialog);
    const QColor highlight = ui::colorQt(QStringLiteral("Highlight"));
    const QPointF ground(4, 11);

    primary.resize(primary.sizeHint());
    QVERIFY(ui::test::closeTo(
        ui::test::pixelAt(renderWidget(primary), ground), ui::colorQt(QStringLiteral("Button"))));
    primary.setPrimary(true);
    QVERIFY(ui::test::closeTo(ui::test::pixelAt(renderWidget(primary), ground), highlight));
    QVERIFY(!primary.isDefault());
}

void ButtonsTest::aMenuIsAnnouncedAtTheTrailingEdge()
{
    ToolButton button(icon("snap"), QStringLiteral("Snap"));
    QMenu menu;
    const int plain = button.sizeHint().width();
    button.setMenu(&menu);
    QVERIFY(button.sizeHint().width() > plain);
    button.resize(button.sizeHint());
    // The arrow lies in the middle of the height and closer to the edge than icon and text.
    const auto hasInkWithin = [&](const QRect& area) {
        const QImage image = renderWidget(button).copy(area);
        QImage empty(image.size(), image.format());
        empty.fill(Qt::transparent);
        return image != empty;
    };
    const QRect left(2, 8, 6, 6);
    const QRect right(button.width() - 12, 8, 6, 6);
    QVERIFY(hasInkWithin(right) && !hasInkWithin(left));
    button.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(hasInkWithin(left.translated(4, 0)) && !hasInkWithin(right.translated(4, 0)));
    button.setMenuArrowVisible(false);
    QCOMPARE(button.sizeHint().width(), plain);
}

void ButtonsTest::theDownKeyOpensTheMenuInAnyMode()
{
    QMenu menu;
    menu.addAction(QStringLiteral("Linear"));
    PushButton push(QStringLiteral("Easing"));
    push.setMenu(&menu);
    ToolButton whole(QString(), QStringLiteral("Easing"));
    whole.setMenu(&menu);
    ToolButton split(QString(), QStringLiteral("Easing"));
    split.setPopupMode(QToolButton::MenuButtonPopup);
    split.setMenu(&menu);
    QSignalSpy opened(&menu, &QMenu::aboutToShow);
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{&push, &whole, &split}) {
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        button->show();
        QVERIFY(QTest::qWaitForWindowExposed(button));
        QTimer::singleShot(0, &menu, &QWidget::close);
        QTest::keyClick(button, Qt::Key_Down);
        QCOMPARE(opened.count(), 1);

        QAccessibleActionInterface* const actions = accessible(*button).actionInterface();
        const QString show = QAccessibleActionInterface::showMenuAction();
        QVERIFY(actions->actionNames().contains(show));
        connect(
            &menu,
            &QMenu::aboutToShow,
            &menu,
            [&] { QTimer::singleShot(0, &menu, &QWidget::close); },
            Qt::SingleShotConnection);
        actions->doAction(show);
        QTRY_COMPARE(opened.count(), 2);
        QTRY_VERIFY(!menu.isVisible());
        QCOMPARE(clicked.count(), 0);
        button->setEnabled(false);
        QVERIFY(!actions->actionNames().contains(show));
        button->hide();
        opened.clear();
    }
}

void ButtonsTest::anIconButtonIsASquareAsHighAsAField()
{
    IconButton button(icon("eye"));
    QLineEdit field;
    QCOMPARE(button.sizeHint(), QSize(field.sizeHint().height(), field.sizeHint().height()));

    QFont large = button.font();
    large.setPixelSize(24);
    button.setFont(large);
    QCOMPARE(button.sizeHint().width(), button.sizeHint().height());
    QVERIFY(button.sizeHint().height() >= QFontMetrics(large).height());
}

void ButtonsTest::theSecondIconReplacesTheHighlight()
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
    QVERIFY(ui::test::pixelAt(renderWidget(highlighted), {4, 11}).alpha() > 0);

    twoFaced.setCheckedIconName(QString());
    QCOMPARE(renderWidget(twoFaced), renderWidget(highlighted));
}

void ButtonsTest::joinedGroupButtonsAreRoundAtTheirOuterEnds()
{
    GroupButton button(icon("addIcon"));
    button.setFixedSize(20, 20);
    button.setIconSize({18, 18});
    const QColor ground = ui::colorQt(QStringLiteral("Button"));
    const auto isFilled = [&](QPointF point) {
        return ui::test::closeTo(ui::test::pixelAt(renderWidget(button), point), ground);
    };
    const QPointF left(0.25, 0.25);
    const QPointF right(18.25, 0.25); // the last column is the gap to the next button
    QVERIFY(!isFilled(left) && !isFilled({19.25, 0.25}));
    button.setPlace(0, 3);
    QVERIFY(!isFilled(left) && isFilled(right));
    button.setPlace(1, 3);
    QVERIFY(isFilled(left) && isFilled(right));
    button.setPlace(7, 3); // counts as the last
    QVERIFY(isFilled(left) && !isFilled({19.25, 0.25}));
}

void ButtonsTest::aRolloverButtonIsTintedByItsState()
{
    QPixmap plain(16, 16);
    plain.fill(QColor(200, 204, 210));
    QPixmap fine(32, 32);
    fine.setDevicePixelRatio(2.0);
    fine.fill(QColor(200, 204, 210));
    QIcon square(plain);
    square.addPixmap(fine);
    RolloverButton button;
    button.setIcon(square);
    button.setCheckable(true);
    button.setTints(
        {QStringLiteral("Red"),
         QStringLiteral("Green"),
         QStringLiteral("Yellow"),
         QStringLiteral("Blue")});
    button.resize(button.sizeHint());
    const auto shows = [&](const QColor& color) {
        return ui::test::closeTo(ui::test::pixelAt(renderWidget(button), {10, 10}), color);
    };
    const auto isFlat = [&] { // beside the icon, which must keep its size at any ratio
        return ui::test::pixelAt(renderWidget(button), {1, 10}).alpha() == 0
               && ui::test::pixelAt(renderWidget(button, 2.0), {1, 10}).alpha() == 0;
    };

    QVERIFY(shows(ui::colorQt(QStringLiteral("Red"))) && isFlat());
    button.setChecked(true);
    QVERIFY(shows(ui::colorQt(QStringLiteral("Blue"))) && isFlat());
    button.setAttribute(Qt::WA_UnderMouse);
    QVERIFY(shows(ui::colorQt(QStringLiteral("Green"))) && !isFlat());
    button.setDown(true);
    QVERIFY(shows(ui::colorQt(QStringLiteral("Yellow"))) && !isFlat());

    const QColor former = ui::colorQt(QStringLiteral("Yellow"));
    m_application.theme().setColor(QStringLiteral("Yellow"), Qt::cyan);
    QVERIFY2(shows(Qt::cyan), "the colour is asked for at paint time");
    m_application.theme().setColor(QStringLiteral("Yellow"), former);

    button.setTints({QString(), QString(), QString(), QString()});
    QVERIFY(shows(QColor(200, 204, 210)));
    button.setEnabled(false);
    QVERIFY(isFlat());
    QVERIFY(ui::test::pixelAt(renderWidget(button), {10, 10}).alpha() < 128);
}

void ButtonsTest::anIconVariantStandsInForTheNext()
{
    RolloverButton locked(icon("lock"));
    RolloverButton unlocked(icon("unlock"));
    RolloverButton button;
    button.setIcons({.rest = icon("lock"), .hovered = icon("unlock")});
    const auto looksLike = [&](RolloverButton& other) {
        return renderWidget(button) == renderWidget(other);
    };
    for (QWidget* one : std::initializer_list<QWidget*>{&locked, &unlocked, &button}) {
        one->resize(button.sizeHint());
    }
    QVERIFY(looksLike(locked) && !looksLike(unlocked));
    for (QWidget* one : std::initializer_list<QWidget*>{&locked, &unlocked, &button}) {
        one->setAttribute(Qt::WA_UnderMouse);
    }
    QVERIFY(looksLike(unlocked) && !looksLike(locked));
    unlocked.setDown(true);
    button.setDown(true);
    QVERIFY(looksLike(unlocked));
}

void ButtonsTest::hoverRepaintsOnceEachWay()
{
    QWidget window;
    window.resize(200, 100);
    RolloverButton button(icon("close"), &window);
    button.move(20, 20);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    FakePointer pointer(&window);
    pointer.moveTo({150, 80});
    QTest::qWait(50);
    PaintCounter paints;
    button.installEventFilter(&paints);

    pointer.moveTo({28, 28});
    pointer.moveTo({30, 30});
    QTRY_COMPARE(paints.count, 1);
    pointer.moveTo({150, 80});
    QTRY_COMPARE(paints.count, 2);
    QTest::qWait(50);
    QCOMPARE(paints.count, 2);
}

void ButtonsTest::assistiveToolsSeeNameRoleAndState()
{
    PushButton text(QStringLiteral("Save && E&xit"));
    IconButton tip(icon("eye"));
    tip.setToolTip(QStringLiteral("<b>Visible</b>"));
    RolloverButton named(icon("close"));
    named.setToolTip(QStringLiteral("Close (Ctrl+W)"));
    named.setAccessibleName(QStringLiteral("Close the tab"));
    ToolButton opener(QString(), QStringLiteral("Easing"));
    opener.setMenu(new QMenu(&opener));
    for (const auto& [button, name, role] :
         std::initializer_list<std::tuple<QAbstractButton*, QString, QAccessible::Role>>{
             {&text, QStringLiteral("Save & Exit"), QAccessible::Button},
             {&tip, QStringLiteral("Visible"), QAccessible::Button},
             {&named, QStringLiteral("Close the tab"), QAccessible::Button},
             {&opener, QStringLiteral("Easing"), QAccessible::ButtonMenu}})
    {
        QAccessibleInterface& seen = accessible(*button);
        QCOMPARE(seen.text(QAccessible::Name), name);
        QCOMPARE(seen.role(), role);
        QCOMPARE(bool(seen.state().hasPopup), button == &opener);
    }

    QSignalSpy clicked(&tip, &QAbstractButton::clicked);
    tip.setCheckable(true);
    QAccessibleInterface& seen = accessible(tip);
    const QString toggle = QAccessibleActionInterface::toggleAction();
    QVERIFY(seen.actionInterface()->actionNames().contains(toggle));
    seen.actionInterface()->doAction(toggle);
    QCOMPARE(clicked.count(), 0); // through the queue, since a slot may open a dialog
    QTRY_COMPARE(clicked.count(), 1);
    QVERIFY(seen.state().checkable && seen.state().checked && seen.state().focusable);
    tip.setEnabled(false);
    QVERIFY(seen.state().disabled && !seen.actionInterface()->actionNames().contains(toggle));
}

void ButtonsTest::aLabelNamesAButtonWithoutAText()
{
    QGroupBox box(QStringLiteral("Layer"));
    QFormLayout form(&box);
    const std::initializer_list<QAbstractButton*> buttons{
        new IconButton(&box),
        new ToggleSwitch(&box),
        new CheckBox(&box),
        new ColorSwatch(&box),
        new PushButton(&box)};
    for (QAbstractButton* button : buttons) {
        form.addRow(QStringLiteral("&Loop"), button);
        button->setToolTip(QStringLiteral("Plays it again and again"));
        QCOMPARE(accessible(*button).text(QAccessible::Name), QStringLiteral("Loop"));
        button->setText(QStringLiteral("Repeat"));
        QCOMPARE(accessible(*button).text(QAccessible::Name), QStringLiteral("Repeat"));
    }
    IconButton alone(&box); // the box's title would tell less than the tool tip
    QCOMPARE(accessible(alone).text(QAccessible::Name), QStringLiteral("Layer"));
    alone.setToolTip(QStringLiteral("Visible"));
    QCOMPARE(accessible(alone).text(QAccessible::Name), QStringLiteral("Visible"));
}

const ui::test::Registration<ButtonsTest> kRegistration;

#include "tst_buttons.moc"

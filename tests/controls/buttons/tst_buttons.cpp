#include "controls/PaintCounter.h"
#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/buttons/CheckBox.h>
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/controls/buttons/IconButton.h>
#include <MorrantUI/controls/buttons/PushButton.h>
#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/controls/buttons/ToggleSwitch.h>
#include <MorrantUI/controls/buttons/ToolButton.h>
#include <MorrantUI/controls/values/ColorSwatch.h>
#include <MorrantUI/theme/colors.h>

#include <QtWidgets>

#include <tuple>

using ui::test::closeTo;
using ui::test::pixelAt;
using ui::test::renderWidget;
using Buttons = std::initializer_list<QAbstractButton*>;

namespace {

QString icon(const char* name)
{
    return u"icons:%1.png"_qs.arg(QLatin1String(name));
}

QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

} // namespace

class ButtonsTest : public ui::test::StyledTestCase
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
};

void ButtonsTest::returnAndSpacePressEveryButton()
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

void ButtonsTest::primaryIsALookAndNotADialogsDefault()
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

void ButtonsTest::aMenuIsAnnouncedAtTheTrailingEdge()
{
    ToolButton button(icon("snap"), u"Snap"_qs);
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
    menu.addAction(u"Linear"_qs);
    PushButton push(u"Easing"_qs);
    push.setMenu(&menu);
    ToolButton whole(QString(), u"Easing"_qs);
    whole.setMenu(&menu);
    ToolButton split(QString(), u"Easing"_qs);
    split.setPopupMode(QToolButton::MenuButtonPopup);
    split.setMenu(&menu);
    QSignalSpy opened(&menu, &QMenu::aboutToShow);
    connect(
        &menu, &QMenu::aboutToShow, &menu, [&] { QTimer::singleShot(0, &menu, &QWidget::close); });
    for (QAbstractButton* button : Buttons{&push, &whole, &split}) {
        QSignalSpy clicked(button, &QAbstractButton::clicked);
        opened.clear();
        button->show();
        QVERIFY(QTest::qWaitForWindowExposed(button));
        QTest::keyClick(button, Qt::Key_Down);
        QCOMPARE(opened.count(), 1);
        QTRY_VERIFY(!menu.isVisible());

        QAccessibleActionInterface* const actions = accessible(*button).actionInterface();
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

void ButtonsTest::anIconButtonIsASquareAsHighAsAField()
{
    IconButton button(icon("eye"));
    const int height = QLineEdit().sizeHint().height();
    QCOMPARE(button.sizeHint(), QSize(height, height));

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
    QVERIFY(pixelAt(renderWidget(highlighted), {4, 11}).alpha() > 0);

    twoFaced.setCheckedIconName(QString());
    QCOMPARE(renderWidget(twoFaced), renderWidget(highlighted));
}

void ButtonsTest::joinedGroupButtonsAreRoundAtTheirOuterEnds()
{
    GroupButton button(icon("addIcon"));
    button.setFixedSize(20, 20);
    button.setIconSize({18, 18});
    const std::tuple<int, int, const char*> places[] = {
        {0, 1, "00"}, {0, 3, "01"}, {1, 3, "11"}, {7, 3, "10"}}; // 7 counts as the last
    for (const auto& [index, count, ends] : places) {
        button.setPlace(index, count);
        const QImage image = renderWidget(button);
        const double right = index < count - 1 ? 18.25 : 19.25; // else a gap to the next one
        QByteArray filled;
        for (const double x : {0.25, right}) {
            const QColor seen = pixelAt(image, {x, 0.25});
            filled += closeTo(seen, ui::colorQt(u"Button"_qs)) ? '1' : '0';
        }
        QCOMPARE(filled, QByteArray(ends));
    }
}

void ButtonsTest::aRolloverButtonIsTintedByItsState()
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
    for (const QColor& color : {pressed, QColor(Qt::cyan), pressed}) { // asked for at paint time
        theme().setColor(u"Yellow"_qs, color);
        QVERIFY(shows(color) && !isFlat());
    }
    button.setTints({QString(), QString(), QString(), QString()});
    QVERIFY(shows(QColor(200, 204, 210)));
    button.setEnabled(false);
    QVERIFY(isFlat());
    QVERIFY(pixelAt(renderWidget(button), {10, 10}).alpha() < 128);
}

void ButtonsTest::anIconVariantStandsInForTheNext()
{
    RolloverButton locked(icon("lock"));
    RolloverButton unlocked(icon("unlock"));
    RolloverButton button;
    button.setIcons({.rest = icon("lock"), .hovered = icon("unlock")});
    const Buttons all{&locked, &unlocked, &button};
    for (QWidget* one : all) {
        one->resize(button.sizeHint());
    }
    QCOMPARE(renderWidget(button), renderWidget(locked));
    for (QWidget* one : all) {
        one->setAttribute(Qt::WA_UnderMouse);
    }
    QVERIFY(renderWidget(button) != renderWidget(locked));
    QCOMPARE(renderWidget(button), renderWidget(unlocked));
    unlocked.setDown(true);
    button.setDown(true);
    QCOMPARE(renderWidget(button), renderWidget(unlocked));
}

void ButtonsTest::hoverRepaintsOnceEachWay()
{
    QWidget window;
    window.resize(200, 100);
    RolloverButton button(icon("close"), &window);
    button.move(20, 20);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    ui::test::FakePointer pointer(&window);
    pointer.moveTo({150, 80});
    QTest::qWait(50);
    ui::test::PaintCounter paints(&button);
    pointer.moveTo({28, 28});
    pointer.moveTo({30, 30});
    QCOMPARE(paints.take(), 1);
    pointer.moveTo({150, 80});
    QCOMPARE(paints.take(), 1);
    QCOMPARE(paints.take(), 0);
}

void ButtonsTest::assistiveToolsSeeNameRoleAndState()
{
    PushButton text(u"Save && E&xit"_qs);
    IconButton tip(icon("eye"));
    tip.setToolTip(u"<b>Visible</b>"_qs);
    RolloverButton named(icon("close"));
    named.setToolTip(u"Close (Ctrl+W)"_qs);
    named.setAccessibleName(u"Close the tab"_qs);
    ToolButton opener(QString(), u"Easing"_qs);
    opener.setMenu(new QMenu(&opener));
    const std::pair<QAbstractButton*, const char*> names[] = {
        {&text, "Save & Exit"}, {&tip, "Visible"}, {&named, "Close the tab"}, {&opener, "Easing"}};
    for (const auto& [button, name] : names) {
        QAccessibleInterface& seen = accessible(*button);
        const bool opens = button == &opener;
        QCOMPARE(seen.text(QAccessible::Name), QLatin1String(name));
        QCOMPARE(seen.role(), opens ? QAccessible::ButtonMenu : QAccessible::Button);
        QCOMPARE(bool(seen.state().hasPopup), opens);
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
    QGroupBox box(u"Layer"_qs);
    QFormLayout form(&box);
    const auto nameOf = [](QWidget* button) { return accessible(*button).text(QAccessible::Name); };
    for (QAbstractButton* button : Buttons{
             new IconButton(&box),
             new ToggleSwitch(&box),
             new CheckBox(&box),
             new ColorSwatch(&box),
             new PushButton(&box)})
    {
        form.addRow(u"&Loop"_qs, button);
        button->setToolTip(u"Plays it again and again"_qs);
        QCOMPARE(nameOf(button), u"Loop"_qs);
        button->setText(u"Repeat"_qs);
        QCOMPARE(nameOf(button), u"Repeat"_qs);
    }
    IconButton alone(&box); // the box's title would tell less than the tool tip
    QCOMPARE(nameOf(&alone), u"Layer"_qs);
    alone.setToolTip(u"Visible"_qs);
    QCOMPARE(nameOf(&alone), u"Visible"_qs);
}

const ui::test::Registration<ButtonsTest> kRegistration;

#include "tst_buttons.moc"

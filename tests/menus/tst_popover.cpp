#include "MorrantUI/menus/popovergeometry.h"
#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include <MorrantUI/menus/PopoverPanel.h>
#include <MorrantUI/menus/keyboardnavigation.h>

#include <QtWidgets>

using namespace ui::popover;

namespace {

constexpr QRect kScreen(100, 50, 800, 600);

/// A window with a button that toggles a popover of two fields, and a field that has the focus.
struct Stage : QWidget
{
    Stage()
    {
        setGeometry(40, 40, 300, 200);
        button->setGeometry(10, 10, 100, 24);
        field->setGeometry(10, 150, 100, 24);
        auto* const content = new QWidget;
        auto* const column = new QVBoxLayout(content);
        column->addWidget(first);
        column->addWidget(second);
        panel->setContent(content);
        connect(button, &QPushButton::clicked, panel, [this] { panel->openAt(button); });
        show();
        activateWindow();
        field->setFocus();
    }

    bool open()
    {
        panel->openAt(button);
        return QTest::qWaitFor([this] { return first->hasFocus(); });
    }

    QPushButton* button = new QPushButton(QStringLiteral("Options"), this);
    QLineEdit* field = new QLineEdit(this);
    QPointer<PopoverPanel> panel = new PopoverPanel(button);
    QLineEdit* first = new QLineEdit;
    QPushButton* second = new QPushButton;
    QSignalSpy closings{panel, &PopoverPanel::closed};
};

void press(QWidget* widget)
{
    ui::test::FakePointer pointer(widget);
    pointer.moveTo(widget->rect().center());
    pointer.press();
    pointer.release();
}

} // namespace

class PopoverTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void itIsOnTheScreenAndPointsAtItsAnchor();
    void itTakesTheSideThatHasRoom();
    void theKeyboardComesInAndGoesBack();
    void aPressOutsideDoesItsWorkButTheAnchorOnlyCloses();
    void whatIsOpenedFromInsideLeavesItOpen();
    void itGoesWithItsAnchorAndMayDieInDoingSo();
    void itFollowsAnchorAndContent();
    void theContentIsBuiltAfterThePanelIsSeenAndOnce();
    void arrowsWalkWhatStandsInAContainer();
};

void PopoverTest::itIsOnTheScreenAndPointsAtItsAnchor()
{
    for (const Side side : {Side::Below, Side::Above, Side::Right, Side::Left}) {
        for (int x = kScreen.left() - 60; x < kScreen.right() + 60; x += 23) {
            for (int y = kScreen.top() - 60; y < kScreen.bottom() + 60; y += 29) {
                const QRect anchor(x, y, 40, 20);
                const Placement placed = place({anchor, kScreen, {200, 150}, {200, 150}, side});
                QVERIFY(kScreen.contains(placed.window));
                QVERIFY(placed.hasArrow);
                QCOMPARE(placed.body.size(), QSize(200, 150));
                QVERIFY(!anchor.intersects(placed.window));
                const QPoint tip = placed.window.topLeft() + placed.tip;
                QVERIFY(
                    !kScreen.adjusted(20, 20, -20, -20).contains(anchor)
                    || anchor.adjusted(-4, -4, 4, 4).contains(tip));
            }
        }
    }
}

void PopoverTest::itTakesTheSideThatHasRoom()
{
    const auto sideAt = [](QPoint at, Side preferred) {
        return place({{at, QSize(20, 20)}, kScreen, {200, 150}, {}, preferred}).side;
    };
    const QPoint middle = kScreen.center();
    for (const Side side : {Side::Below, Side::Above, Side::Right, Side::Left}) {
        QCOMPARE(sideAt(middle, side), side);
    }
    QCOMPARE(sideAt({middle.x(), kScreen.bottom() - 30}, Side::Below), Side::Above);
    QCOMPARE(sideAt({kScreen.right() - 30, middle.y()}, Side::Right), Side::Left);
    QCOMPARE(sideAt({kScreen.left() + 10, middle.y()}, Side::Left), Side::Right);
    const Placement beside =
        place({{500, 300, 20, 20}, {0, 0, 1000, 640}, {200, 400}, {}, Side::Below});
    QCOMPARE(beside.side, Side::Right); // neither below nor above has room
    QCOMPARE(
        place({{5, 5, 20, 20}, {}, {200, 150}, {}, Side::Above}).side, Side::Above); // no screen

    const QRect anchor(480, 300, 40, 20);
    const Placement shrunk = place({anchor, kScreen, {2000, 2000}, {100, 100}, Side::Below});
    QVERIFY(shrunk.hasArrow && kScreen.contains(shrunk.window));
    QVERIFY(!shrunk.window.intersects(anchor));
    const Placement covering = place({anchor, kScreen, {2000, 2000}, {2000, 2000}, Side::Below});
    QVERIFY(!covering.hasArrow && kScreen.contains(covering.window));
}

void PopoverTest::theKeyboardComesInAndGoesBack()
{
    Stage stage;
    QShortcut escape(Qt::Key_Escape, &stage); // the window's, not the panel's
    QTRY_VERIFY(stage.field->hasFocus());
    QVERIFY(stage.open());
    QTest::keyClick(stage.first, Qt::Key_Tab);
    QVERIFY(stage.second->hasFocus());
    QTest::keyClick(stage.second, Qt::Key_Tab);
    QVERIFY(stage.first->hasFocus()); // round inside
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(stage.panel);
    QCOMPARE(seen->role(), QAccessible::Dialog);
    QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Options"));
    QTest::keyClick(stage.first, Qt::Key_Escape);
    QVERIFY(!stage.panel->isOpen());
    QCOMPARE(stage.closings.count(), 1);
    QTRY_VERIFY(stage.field->hasFocus());
}

void PopoverTest::aPressOutsideDoesItsWorkButTheAnchorOnlyCloses()
{
    Stage stage;
    QPushButton other(&stage);
    other.setGeometry(150, 100, 80, 24);
    other.show();
    QSignalSpy clicks(&other, &QPushButton::clicked);
    QVERIFY(stage.open());
    press(stage.first);
    QVERIFY(stage.panel->isOpen());
    press(&other);
    QCOMPARE(stage.closings.count(), 1);
    QCOMPARE(clicks.count(), 1);
    press(stage.button);
    QVERIFY(stage.panel->isOpen());
    press(stage.button);
    QVERIFY(!stage.panel->isOpen());
    QCOMPARE(stage.closings.count(), 2);
}

void PopoverTest::whatIsOpenedFromInsideLeavesItOpen()
{
    Stage stage;
    QVERIFY(stage.open());
    // A popover whose parent lies elsewhere belongs to what it was opened beside.
    PopoverPanel nested(stage.field);
    auto* const inner = new QLineEdit;
    nested.setContent(inner);
    nested.openAt(stage.second);
    press(inner);
    QVERIFY(stage.panel->isOpen() && nested.isOpen());
    press(stage.first); // outside of the inner one alone
    QVERIFY(stage.panel->isOpen() && !nested.isOpen());

    QMenu menu;
    menu.addAction(QStringLiteral("Row"));
    menu.popup(stage.mapToGlobal(QPoint(0, 0)));
    press(&menu);
    QTest::keyClick(&menu, Qt::Key_Escape);
    QVERIFY(stage.panel->isOpen());

    QDialog dialog; // with no parent at all
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    press(&dialog);
    QVERIFY(stage.panel->isOpen());
    dialog.close();

    nested.openAt(stage.second);
    press(&stage); // outside of both
    QVERIFY(!stage.panel->isOpen() && !nested.isOpen());
}

void PopoverTest::itGoesWithItsAnchorAndMayDieInDoingSo()
{
    Stage stage;
    QVERIFY(stage.open());
    QWidget elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    QTRY_VERIFY(!stage.panel->isOpen()); // the user has turned to another window
    auto* const mortal = new QWidget(&stage);
    mortal->show();
    stage.panel->openAt(mortal);
    QVERIFY(stage.panel->isOpen());
    delete mortal;
    QVERIFY(!stage.panel->isOpen());
    stage.panel->openAt(stage.button);
    connect(stage.panel, &PopoverPanel::closed, &stage, [&stage] { delete stage.panel; });
    stage.hide();
    QVERIFY(!stage.panel);
    press(&stage); // nothing of it is left that listens
}

void PopoverTest::itFollowsAnchorAndContent()
{
    Stage stage;
    QVERIFY(stage.open());
    const auto tip = [&stage] { return stage.panel->arrowTip().value_or(QPoint()); };
    const auto isBelow = [&stage, &tip] {
        const QRect anchor(stage.button->mapToGlobal(QPoint()), stage.button->size());
        return tip().x() == anchor.center().x() && tip().y() == anchor.bottom() + 1 + kAnchorGap;
    };
    QVERIFY(isBelow());
    const QPoint before = tip();
    stage.button->move(40, 30);
    QVERIFY(isBelow());
    stage.move(stage.pos() + QPoint(50, 20));
    QTRY_VERIFY(isBelow() && tip() != before);
    stage.first->setMinimumSize(300, 120);
    QTRY_VERIFY(stage.panel->width() > 300);
    QVERIFY(isBelow());
}

void PopoverTest::theContentIsBuiltAfterThePanelIsSeenAndOnce()
{
    Stage stage;
    int built = 0;
    stage.panel->setContentMaker([&built] { return ++built, new QLineEdit; }, {200, 200});
    stage.panel->openAt(stage.button);
    QCOMPARE(built, 0);
    QVERIFY(stage.panel->isOpen() && stage.panel->height() > 200);
    QTRY_COMPARE(built, 1);
    QTRY_VERIFY(stage.panel->content()->hasFocus());
    QVERIFY(stage.panel->height() < 200);
    stage.panel->dismiss();
    stage.panel->openAt(stage.button);
    QTRY_VERIFY(stage.panel->content()->hasFocus());
    QCOMPARE(built, 1);
}

void PopoverTest::arrowsWalkWhatStandsInAContainer()
{
    QWidget grid;
    QList<QPushButton*> buttons;
    for (int i = 0; i < 6; ++i) {
        buttons.append(new QPushButton(&grid));
        buttons.last()->setGeometry(i % 3 * 50, i / 3 * 30, 40, 20);
    }
    buttons[4]->setEnabled(false);
    grid.show();
    grid.activateWindow();
    buttons[0]->setFocus();
    QTRY_VERIFY(buttons[0]->hasFocus());
    const auto walks = [&buttons](std::initializer_list<Qt::Key> keys) {
        QList<qsizetype> way;
        for (const Qt::Key key : keys) {
            QTest::keyClick(QApplication::focusWidget(), key);
            way.append(buttons.indexOf(QApplication::focusWidget()));
        }
        return way;
    };
    using Way = QList<qsizetype>;
    auto list = std::unique_ptr<QObject>(ui::installListNavigation(&grid));
    QCOMPARE(walks({Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up}), (Way{1, 0, 5, 3}));
    QCOMPARE(walks({Qt::Key_Home, Qt::Key_End, Qt::Key_Down}), (Way{0, 5, 0}));
    list.reset(ui::installArrowNavigation(&grid));
    QCOMPARE(walks({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right}), (Way{1, 2, 2}));
    QCOMPARE(walks({Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}), (Way{5, 3, 0}));

}

const ui::test::Registration<PopoverTest> kRegistration;

#include "tst_popover.moc"

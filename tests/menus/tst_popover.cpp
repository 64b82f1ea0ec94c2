// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/popovergeometry.h"
#include "controls/StyledApplication.h"
#include <MorrantUI/menus/PopoverPanel.h>
#include <MorrantUI/menus/dismiss.h>
#include <MorrantUI/menus/keyboardnavigation.h>

using namespace ui::popover;
using ui::test::click;

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

    QPushButton* button = new QPushButton(u"Options"_qs, this);
    QLineEdit* field = new QLineEdit(this);
    QPointer<PopoverPanel> panel = new PopoverPanel(button);
    QLineEdit* first = new QLineEdit;
    QPushButton* second = new QPushButton;
    QSignalSpy closings{panel, &PopoverPanel::closed};
};

QLineEdit* openWithin(Stage& stage, PopoverPanel& nested)
{
    auto* const inner = new QLineEdit;
    nested.setContent(inner);
    nested.openAt(stage.second);
    return inner;
}

} // namespace

class PopoverTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void itIsOnTheScreenAndPointsAtItsAnchor()
    {
        for (const Side side : {Side::Below, Side::Above, Side::Right, Side::Left}) {
            for (int x = kScreen.left() - 60; x < kScreen.right() + 60; x += 23) {
                for (int y = kScreen.top() - 60; y < kScreen.bottom() + 60; y += 29) {
                    const QRect anchor(x, y, 40, 20);
                    const Placement placed = place({anchor, kScreen, {200, 150}, {200, 150}, side});
                    QVERIFY(placed.hasArrow && kScreen.contains(placed.window));
                    QCOMPARE(placed.body.size(), QSize(200, 150));
                    QVERIFY(!anchor.intersects(placed.window));
                    const QPoint tip = placed.window.topLeft() + placed.tip;
                    QVERIFY(
                        !kScreen.adjusted(20, 20, -20, -20).contains(anchor)
                        || anchor.adjusted(-4, -4, 4, 4).contains(tip));
                }
            }
        }
        const QRect anchor(480, 300, 40, 20);
        const Placement shrunk = place({anchor, kScreen, {2000, 2000}, {100, 100}, Side::Below});
        QVERIFY(shrunk.hasArrow && kScreen.contains(shrunk.window));
        QVERIFY(!shrunk.window.intersects(anchor));
        const Placement over = place({anchor, kScreen, {2000, 2000}, {2000, 2000}, Side::Below});
        QVERIFY(!over.hasArrow && kScreen.contains(over.window));
    }

    void itTakesTheSideThatHasRoom()
    {
        const QPoint middle = kScreen.center();
        const std::tuple<QPoint, Side, Side> cases[] = {
            {middle, Side::Below, Side::Below},
            {middle, Side::Above, Side::Above},
            {middle, Side::Right, Side::Right},
            {middle, Side::Left, Side::Left},
            {{middle.x(), kScreen.bottom() - 30}, Side::Below, Side::Above},
            {{kScreen.right() - 30, middle.y()}, Side::Right, Side::Left},
            {{kScreen.left() + 10, middle.y()}, Side::Left, Side::Right}};
        for (const auto& [at, preferred, side] : cases) {
            QCOMPARE(place({{at, QSize(20, 20)}, kScreen, {200, 150}, {}, preferred}).side, side);
        }
        const QRect low(0, 0, 1000, 640); // neither below nor above has room
        QCOMPARE(place({{500, 300, 20, 20}, low, {200, 400}, {}, Side::Below}).side, Side::Right);
        QCOMPARE(place({{5, 5, 20, 20}, {}, {200, 150}, {}, Side::Above}).side, Side::Above);
    }

    void theKeyboardComesInAndGoesBack()
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
        QCOMPARE(seen->text(QAccessible::Name), u"Options"_qs);
        QTest::keyClick(stage.first, Qt::Key_Escape);
        QVERIFY(!stage.panel->isOpen() && stage.closings.count() == 1);
        QTRY_VERIFY(stage.field->hasFocus());
    }

    void aPressOutsideDoesItsWorkButTheAnchorOnlyCloses()
    {
        Stage stage;
        QPushButton other(&stage);
        other.setGeometry(150, 100, 80, 24);
        other.show();
        QSignalSpy clicks(&other, &QPushButton::clicked);
        QVERIFY(stage.open());
        click(stage.first);
        QVERIFY(stage.panel->isOpen());
        click(&other);
        QVERIFY(stage.closings.count() == 1 && clicks.count() == 1);
        click(stage.button);
        QVERIFY(stage.panel->isOpen());
        click(stage.button);
        QVERIFY(!stage.panel->isOpen() && stage.closings.count() == 2);
    }

    void whatIsOpenedFromInsideLeavesItOpen()
    {
        Stage stage;
        QVERIFY(stage.open());
        // A popover whose parent lies elsewhere belongs to what it was opened beside.
        PopoverPanel nested(stage.field);
        auto* const inner = openWithin(stage, nested);
        click(inner);
        QVERIFY(stage.panel->isOpen() && nested.isOpen());
        click(stage.first); // outside of the inner one alone
        QVERIFY(stage.panel->isOpen() && !nested.isOpen());

        QMenu menu;
        menu.addAction(u"Row"_qs);
        menu.popup(stage.mapToGlobal(QPoint(0, 0)));
        click(&menu);
        QTest::keyClick(&menu, Qt::Key_Escape);
        QVERIFY(stage.panel->isOpen());

        QDialog dialog; // with no parent at all
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        click(&dialog);
        QVERIFY(stage.panel->isOpen());
        dialog.close();

        nested.openAt(stage.second);
        click(&stage); // outside of both
        QVERIFY(!stage.panel->isOpen() && !nested.isOpen());
    }

    void itGoesWithItsAnchorAndMayDieInDoingSo()
    {
        Stage stage;
        QVERIFY(stage.open());
        QWidget elsewhere;
        ui::test::showActive(elsewhere);
        QTRY_VERIFY(!stage.panel->isOpen()); // the user has turned to another window
        auto* const mortal = new QWidget(&stage);
        mortal->show();
        for (const bool isBackAtOnce : {false, true}) {
            stage.panel->openAt(mortal);
            mortal->move(0, 999); // out of sight
            isBackAtOnce ? mortal->move(0, 0) : void();
            QCoreApplication::processEvents();
            QTRY_COMPARE(stage.panel->isOpen(), isBackAtOnce);
            mortal->move(0, 0);
        }
        delete mortal;
        QVERIFY(!stage.panel->isOpen());
        stage.panel->openAt(stage.button);
        connect(stage.panel, &PopoverPanel::closed, &stage, [&stage] { delete stage.panel; });
        stage.hide();
        QVERIFY(!stage.panel);
        click(&stage); // nothing of it is left that listens
    }

    void itFollowsAnchorAndContentWhichIsBuiltOnceItIsSeen()
    {
        Stage stage;
        QVERIFY(stage.open());
        const auto tip = [&stage] { return stage.panel->arrowTip().value_or(QPoint()); };
        const auto isBelow = [&stage, &tip] {
            const QRect anchor(stage.button->mapToGlobal(QPoint()), stage.button->size());
            return tip() == QPoint(anchor.center().x(), anchor.bottom() + 1 + kAnchorGap);
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

        stage.panel->dismiss();
        int built = 0;
        stage.panel->setContentMaker([&built] { return ++built, new QLineEdit; }, {200, 200});
        for (const int builds : {0, 1}) {
            QVERIFY(QTest::qWaitForWindowActive(&stage));
            stage.panel->openAt(stage.button);
            QCOMPARE(built, builds);
            QVERIFY(stage.panel->isOpen());
            QCOMPARE(stage.panel->height() > 200, builds == 0);
            QTRY_COMPARE(built, 1);
            QTRY_VERIFY(stage.panel->content()->hasFocus());
            QVERIFY(stage.panel->height() < 200);
            stage.panel->dismiss();
        }
    }

    void arrowsWalkWhatStandsInAContainer()
    {
        QWidget grid;
        QList<QPushButton*> buttons;
        for (int i = 0; i < 6; ++i) {
            buttons.append(new QPushButton(&grid));
            buttons.last()->setGeometry(i % 3 * 50, i / 3 * 30, 40, 20);
        }
        buttons[4]->setEnabled(false);
        ui::test::showActive(grid);
        buttons[0]->setFocus();
        QTRY_VERIFY(buttons[0]->hasFocus());
        const auto walks = [&buttons](std::initializer_list<Qt::Key> keys) {
            QByteArray way;
            for (const Qt::Key key : keys) {
                QTest::keyClick(QApplication::focusWidget(), key);
                way += QByteArray::number(buttons.indexOf(QApplication::focusWidget()));
            }
            return way;
        };
        auto list = std::unique_ptr<QObject>(ui::installListNavigation(&grid));
        QCOMPARE(walks({Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Up}), QByteArray("1053"));
        QCOMPARE(walks({Qt::Key_Home, Qt::Key_End, Qt::Key_Down}), QByteArray("050"));
        list.reset(ui::installArrowNavigation(&grid));
        QCOMPARE(walks({Qt::Key_Right, Qt::Key_Right, Qt::Key_Right}), QByteArray("122"));
        QCOMPARE(walks({Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}), QByteArray("530"));
    }

    void aSlotMayReplaceTheContentAndDeleteWhatIsPressed()
    {
        Stage stage;
        QVERIFY(stage.open());
        const QPointer<QWidget> before = stage.panel->content();
        connect(stage.first, &QLineEdit::returnPressed, stage.panel, [&stage] {
            stage.panel->setContent(new QLineEdit);
        });
        QTest::keyClick(stage.first, Qt::Key_Return);
        QTRY_VERIFY(!before && stage.panel->content()->hasFocus());
        stage.panel->setContent(&stage); // in which it lies
        QVERIFY(stage.panel->content() != &stage);

        auto* const inner = new QWidget(&stage);
        const QPointer<QWidget> mortal = new QLabel(inner);
        inner->setGeometry(150, 100, 80, 24);
        inner->show();
        int told = 0;
        QWidget other;
        other.show();
        ui::dismissOnOutsidePress(&other, [&told](QWidget*, QPoint) { return ++told < 0; });
        click(mortal); // goes on to all that it lies in
        click(mortal);
        QCOMPARE(told, 2);
        stage.panel->openAt(stage.button);
        connect(stage.panel, &PopoverPanel::closed, &stage, [&mortal] { delete mortal; });
        click(mortal);
        QVERIFY(!mortal && !stage.panel->isOpen());
    }

    void panelsWithinEachOtherAreLeftTogetherAndMakeNoCircle()
    {
        Stage stage;
        QVERIFY(stage.open());
        PopoverPanel nested(stage.field);
        auto* const inner = openWithin(stage, nested);
        QTRY_VERIFY(inner->hasFocus() && QApplication::activeWindow() == &nested);
        stage.panel->openAt(inner); // which was opened from there
        QCOMPARE(stage.panel->anchor(), stage.button);
        QDialog dialog; // of no window
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        dialog.close();
        QTRY_VERIFY(inner->hasFocus() && QApplication::activeWindow() == &nested);
        QWidget elsewhere;
        ui::test::showActive(elsewhere);
        QTRY_VERIFY(!nested.isOpen() && !stage.panel->isOpen());
    }
};

const ui::test::Registration<PopoverTest> kRegistration;

#include "tst_popover.moc"

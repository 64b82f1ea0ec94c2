#include "docking/DockTree.h"
#include "docking/Hand.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DockableToolBarHeader.h>
#include <MorrantUI/theme/colors.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QWheelEvent>

#include <functional>
#include <utility>

using ui::test::brokenInvariants;
using ui::test::DockTree;
using ui::test::settle;
using Area = DockableArea;

/// A main window of a, tabs of b, c and d, and e, side by side.
class TabbedTree
{
public:
    TabbedTree()
    {
        m_tree.showRow({200, 300, 100});
        m_tree.root().getChild(2)->setText(QStringLiteral("e"));
        for (const auto* title : {u"c", u"d"}) {
            DockableWindow* target = m_tree.root().getChild(1);
            target->dockInArea(DockTree::panel(QString::fromUtf16(title)), Area::Center);
        }
        settle();
        m_tabs = qobject_cast<DockableTabGroup*>(m_tree.root().getChild(1));
    }
    DockableGroup& root() { return m_tree.root(); }
    DockableTabGroup& tabs() { return *m_tabs; }
    QString text() { return DockTree::text(root()); }

private:
    DockTree m_tree;
    QPointer<DockableTabGroup> m_tabs;
};

class DockableTabGroupTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theCentreMakesTabs();
    void theActiveTabSurvivesWhatHappensBesideIt();
    void onlyTheActiveChildHasASay();
    void tabsCarryTheTitlesOfTheirWindows();
    void aWindowThatLeavesIsAsItCame();
    void aTornOutTabFollowsThePointer();
    void oneTabLeftIsNoGroup_data();
    void oneTabLeftIsNoGroup();
    void tabsGoWithTheirWindows();
    void aSlotMayTakeTheTabAway();
    void pagesMayActAsTheyShowAndHide();
    void theStripLiesBelowAHeaderOfTheGroup();
    void keysWalkBetweenTabs();
    void aDragThatRestsOnATabBringsItForward_data();
    void aDragThatRestsOnATabBringsItForward();
    void anOverfullStripScrolls();
    void aToolBarsGripTakesItsWindowAlong_data();
    void aToolBarsGripTakesItsWindowAlong();
};

void DockableTabGroupTest::theCentreMakesTabs()
{
    TabbedTree tree;
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b c d) e)"));
    QCOMPARE(tree.root().sizes(), (QList{200, 300, 100}));
    QCOMPARE(tree.tabs().activeIndex(), 2); // what was dropped last
    QVERIFY(tree.tabs().getChild(2)->isVisible() && !tree.tabs().getChild(0)->isVisible());

    DockableWindow* floating = DockTree::panel(QStringLiteral("f"), QSize(240, 180));
    floating->move(200, 150);
    floating->show();
    DockableWindow* group =
        floating->dockInArea(DockTree::panel(QStringLiteral("g")), Area::Center);
    QCOMPARE(DockTree::text(*group), QStringLiteral("T(f g)"));
    QVERIFY(group->isFloating() && group->isVisible());
    QCOMPARE(group->pos(), QPoint(200, 150));
    QCOMPARE(floating->size(), QSize(240, 180));

    // Beside the group, not into it; and a group of groups.
    tree.tabs().dockInArea(group, Area::Top);
    QCOMPARE(tree.text(), QStringLiteral("H(a V(T(f g) T(b c d)) e)"));
    tree.root().getChild(1)->dockInArea(tree.root().getChild(0), Area::Center);
    QCOMPARE(tree.text(), QStringLiteral("H(T(V(T(f g) T(b c d)) a) e)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableTabGroupTest::theActiveTabSurvivesWhatHappensBesideIt()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    const QSignalSpy changes(&tabs, &DockableTabGroup::activeIndexChanged);
    const QSignalSpy layouts(&tree.root(), &DockableGroup::layoutChanged);
    tabs.setActiveIndex(1);
    DockableWindow* active = tabs.activeChild();
    QCOMPARE(active->getText(), QStringLiteral("c"));
    for (const int nowhere : {-1, 3, 1}) {
        tabs.setActiveIndex(nowhere);
    }
    QCOMPARE(changes.count(), 1);
    QCOMPARE(layouts.count(), 1);
    tabs.getChild(2)->show();
    QTRY_COMPARE(tabs.activeIndex(), 2);
    QVERIFY(!active->isVisible());
    tabs.setActiveIndex(1);

    tabs.insertChild(0, DockTree::panel(QStringLiteral("x")));
    QCOMPARE(tabs.activeIndex(), 2);
    QCOMPARE(tabs.activeChild(), active);
    delete tabs.getChild(0);
    QCOMPARE(tabs.activeChild(), active);
    QCOMPARE(changes.count(), 5);

    // A panel that is split within its tab stays in front.
    active->dockInArea(DockTree::panel(QStringLiteral("y")), Area::Right);
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b H(c y) d) e)"));
    QCOMPARE(tabs.activeIndex(), 1);
    active->undock(true);
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b y d) e)"));
    QCOMPARE(tabs.activeIndex(), 1);

    tabs.takeChild(2);
    QCOMPARE(tabs.activeIndex(), 0); // the first whenever one is taken
    const auto told = changes.count();
    tabs.takeChild(0);
    QCOMPARE(tabs.activeChild()->getText(), QStringLiteral("y"));
    QCOMPARE(changes.count(), told + 1); // another child, if at the same index
    tabs.activeChild()->setAttribute(Qt::WA_DeleteOnClose, false);
    tabs.activeChild()->close();
    tabs.setActiveIndex(0);
    QVERIFY(tabs.activeChild()->isVisible());
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableTabGroupTest::onlyTheActiveChildHasASay()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    const QSizePolicy ignored(QSizePolicy::Ignored, QSizePolicy::Ignored);
    const QSizePolicy own(QSizePolicy::Expanding, QSizePolicy::Minimum);
    DockableWindow* wide = DockTree::panel(QStringLiteral("w"));
    wide->content()->setMinimumWidth(380);
    wide->setSizePolicy(own);
    tabs.appendChild(wide);
    QCOMPARE(wide->sizePolicy(), ignored);
    settle();
    QCOMPARE(tabs.width(), 300);

    tabs.setActiveIndex(3);
    settle();
    QVERIFY(tabs.width() >= 380);
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(tabs.getChild(i)->sizePolicy() == ignored, i != 3);
    }
    const QSizePolicy changed(QSizePolicy::Fixed, QSizePolicy::Expanding);
    QCOMPARE(wide->sizePolicy(), own);
    wide->setSizePolicy(changed); // by the host, meanwhile
    tabs.setActiveIndex(0);
    QCOMPARE(wide->sizePolicy(), ignored);
    wide->undock(true);
    QCOMPARE(wide->sizePolicy(), changed);
}

void DockableTabGroupTest::tabsCarryTheTitlesOfTheirWindows()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    DockableWindow* child = tabs.getChild(0);
    tabs.setTabTextForChild(child, QStringLiteral("Fish & chips"));
    QCOMPARE(child->getText(), QStringLiteral("Fish & chips"));
    QCOMPARE(tabs.tabAt(0)->text(), child->getText());
    child->setText(QStringLiteral("Graph"));
    QCOMPARE(tabs.tabAt(0)->text(), QStringLiteral("Graph"));
    QCOMPARE(tabs.tabAt(0)->accessibleName(), QStringLiteral("Graph"));
    tabs.setTabTextForChild(child, QString()); // the tab's alone, until there is another title
    tabs.setActiveIndex(1);
    QCOMPARE(tabs.tabAt(0)->text() + child->getText(), QStringLiteral("Graph"));
    child->setText(QStringLiteral("Curves"));
    tabs.setTabTextForChild(tree.root().getChild(0), QStringLiteral("none of the children"));
    tabs.setTabTextForChild(nullptr, QStringLiteral("nobody"));
    QCOMPARE(tabs.tabAt(0)->text(), QStringLiteral("Curves"));
    QCOMPARE(tree.root().getChild(0)->getText(), QStringLiteral("a"));

    // A group has no title of its own: it goes by the first panel in it.
    child->dockInArea(DockTree::panel(QStringLiteral("first")), Area::Left);
    QCOMPARE(tabs.tabAt(0)->text(), QStringLiteral("first"));
    auto* group = qobject_cast<DockableGroup*>(tabs.getChild(0));
    group->getChild(0)->setText(QStringLiteral("renamed"));
    QCOMPARE(tabs.tabAt(0)->text(), QStringLiteral("renamed"));
    group->getChild(0)->undock(true);
    QCOMPARE(tabs.tabAt(0)->text(), QStringLiteral("Curves"));
}

void DockableTabGroupTest::aWindowThatLeavesIsAsItCame()
{
    TabbedTree tree;
    DockableWindow* panel = tree.tabs().getChild(1);
    panel->setHeader(new DockableToolBarHeader(DockableToolBarHeader::Direction::Horizontal));
    tree.tabs().setActiveIndex(1);
    QVERIFY(!panel->header()->isVisible());
    panel->undock(true);
    settle();
    QVERIFY(panel->isFloating() && panel->isVisible() && panel->header()->isVisible());

    // A group inside tabs has no border, and one again on its own.
    DockableWindow* other = tree.tabs().getChild(1);
    DockableWindow* group = other->dockInArea(panel, Area::Bottom);
    QVERIFY(group->isBorderHidden());
    group->undock(true);
    QVERIFY(!group->isBorderHidden() && group->isVisible());
    QCOMPARE(tree.text(), QStringLiteral("H(a b e)"));
    QVERIFY(tree.root().getChild(1)->header()->isVisible());
    QCOMPARE(tree.root().sizes(), (QList{200, 300, 100}));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableTabGroupTest::aTornOutTabFollowsThePointer()
{
    TabbedTree tree;
    DockableTabWidget* tab = tree.tabs().tabAt(1);
    const QPointer<DockableWindow> panel = tree.tabs().getChild(1);
    ui::test::Hand hand;
    hand.press(*tab, QPoint(10, 8));
    QCOMPARE(tree.tabs().activeIndex(), 1); // by the press
    hand.moveTo(tab->mapToGlobal(QPoint(60, 10)), 5);
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b c d) e)"));
    const QPoint outside = tree.root().mapToGlobal(QPoint(200, tree.root().height() + 60));
    hand.moveTo(outside, 3);
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b d) e)"));
    const QPoint place = panel->pos();
    hand.moveTo(outside + QPoint(30, 20), 4);
    QCOMPARE(panel->pos(), place + QPoint(30, 20));

    // Back, into the strip: the tab group's centre.
    const QPoint strip = tree.tabs().mapToGlobal(QPoint(150, 10));
    hand.moveTo(strip, 3);
    QCOMPARE(tree.tabs().dropArea(), Area::Center);
    hand.release();
    settle();
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b d c) e)"));
    QCOMPARE(tree.tabs().activeIndex(), 2);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableTabGroupTest::oneTabLeftIsNoGroup_data()
{
    QTest::addColumn<bool>("floats");
    QTest::newRow("in the main window") << false;
    QTest::newRow("floating") << true;
}

void DockableTabGroupTest::oneTabLeftIsNoGroup()
{
    QFETCH(bool, floats);
    TabbedTree tree;
    const QPointer<DockableTabGroup> tabs = &tree.tabs();
    if (floats) {
        tabs->undock(true);
        settle();
    }
    const QPointer<DockableWindow> last = tabs->getChild(1);
    const QPoint place = tabs->mapToGlobal(QPoint());
    tabs->getChild(0)->undockAndClose();
    tabs->getChild(1)->undock(true);
    settle();
    QVERIFY(!tabs);
    QVERIFY(last && last->isVisible() && last->header()->isVisible());
    QCOMPARE(last->isFloating(), floats);
    QCOMPARE(tree.text(), floats ? QStringLiteral("H(a e)") : QStringLiteral("H(a c e)"));
    if (floats) {
        QCOMPARE(last->mapToGlobal(QPoint()), place);
    }
    QCOMPARE(ui::test::emptyShellsInSight(), 0);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableTabGroupTest::tabsGoWithTheirWindows()
{
    TabbedTree tree;
    const QPointer<DockableTabGroup> tabs = &tree.tabs();
    delete tabs->getChild(2); // the active one
    QCOMPARE(tabs->activeIndex(), 0);
    DockableWindow* stolen = tabs->getChild(1);
    stolen->setParent(nullptr);
    QVERIFY(
        stolen->sizePolicy() == tabs->getChild(0)->sizePolicy() && !stolen->header()->isHidden());
    stolen->setParent(&tree.root(), Qt::Window);
    QCOMPARE(tabs->childCount(), 1);
    QVERIFY(tabs->tabAt(0) && !tabs->tabAt(1));
    QCOMPARE(tabs->tabAt(0)->text(), QStringLiteral("b"));
    delete tabs->getChild(0);
    settle();
    QVERIFY(!tabs);
    QCOMPARE(tree.text(), QStringLiteral("H(a e)"));
}

void DockableTabGroupTest::aSlotMayTakeTheTabAway()
{
    TabbedTree tree;
    const QPointer<DockableWindow> panel = tree.tabs().getChild(0);
    DockableTabWidget* tab = tree.tabs().tabAt(0);
    connect(tab, &DockableTabWidget::pressed, panel, [panel] { panel->undockAndClose(); });
    QTest::mousePress(tab, Qt::LeftButton);
    settle();
    QVERIFY(!panel);
    QCOMPARE(tree.text(), QStringLiteral("H(a T(c d) e)"));

    connect(tree.tabs().tabAt(0), &DockableTabWidget::pressed, &tree.root(), [&] {
        delete &tree.tabs();
    });
    QTest::mousePress(tree.tabs().tabAt(0), Qt::LeftButton);
    settle();
    QCOMPARE(tree.text(), QStringLiteral("H(a e)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

/// A content that does something when it is shown or hidden.
class Restless : public QWidget
{
public:
    std::function<void()> whenShown;
    std::function<void()> whenHidden;

protected:
    void showEvent(QShowEvent* /*event*/) override { run(whenShown); }
    void hideEvent(QHideEvent* /*event*/) override { run(whenHidden); }

private:
    static void run(std::function<void()>& action)
    {
        if (const auto once = std::exchange(action, nullptr)) {
            once();
        }
    }
};

void DockableTabGroupTest::pagesMayActAsTheyShowAndHide()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    auto* content = new Restless;
    auto* panel = new DockableWindow(content);
    panel->setText(QStringLiteral("r"));
    tabs.dockInArea(panel, Area::Center);
    tabs.setActiveIndex(0);
    DockableWindow* newcomer = DockTree::panel(QStringLiteral("n"));
    content->whenShown = [&] { tabs.appendChild(newcomer); };
    tabs.setActiveIndex(3);
    QVERIFY(newcomer->updatesEnabled() && newcomer->content()->updatesEnabled());

    tabs.setActiveIndex(1);
    content->whenShown = [&] { tabs.setActiveIndex(0); };
    tabs.setActiveIndex(3);
    QCOMPARE(tabs.activeIndex(), 0);
    for (int i = 0; i < tabs.childCount(); ++i) {
        QCOMPARE(tabs.tabAt(i)->isActive(), i == 0);
    }

    tabs.setActiveIndex(3);
    content->whenHidden = [&] { panel->undock(true); };
    tabs.setActiveIndex(0);
    settle();
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b c d n) e)"));
    QVERIFY(panel->isFloating());

    tabs.dockInArea(panel, Area::Center);
    content->whenHidden = [&] { panel->undock(true); };
    panel->undock(true); // which it does itself on the way
    settle();
    QCOMPARE(tree.text(), QStringLiteral("H(a T(b c d n) e)"));
    newcomer->setText(QStringLiteral("m"));
    ui::test::Hand hand; // its neighbour can still be torn out
    hand.press(*tabs.tabAt(3), QPoint(8, 8));
    hand.moveTo(tree.root().mapToGlobal(QPoint(200, tree.root().height() + 60)), 4);
    hand.release();
    settle();
    QVERIFY(newcomer->isFloating());
    tabs.dockInArea(newcomer, Area::Center);
    tabs.setActiveIndex(0);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());

    // By a key, whose tab had the focus.
    connect(&tabs, &DockableTabGroup::activeIndexChanged, &tree.root(), [&tabs] { delete &tabs; });
    QTest::keyClick(tabs.tabAt(0), Qt::Key_Right);
    settle();
    QCOMPARE(tree.text(), QStringLiteral("H(a e)"));
}

void DockableTabGroupTest::theStripLiesBelowAHeaderOfTheGroup()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    tabs.setHeaderVisible(true);
    settle();
    const QWidget* tab = tabs.tabAt(2);
    ui::test::Hand hand;
    hand.press(*tree.root().getChild(0)->header(), QPoint(8, 8));
    for (const int y : {1, tab->height() - 2}) { // all of it takes tabs
        hand.moveTo(tab->mapToGlobal(QPoint(5, y)), 3);
        QCOMPARE(tabs.dropArea(), Area::Center);
    }
    hand.moveTo(tab->mapToGlobal(QPoint(5, tab->height() + 3)), 2);
    QCOMPARE(tabs.dropArea(), Area::Top);
    hand.moveTo(tabs.mapToGlobal(tabs.rect().center()), 2);
    hand.release();
    tabs.setHeaderDirection(QBoxLayout::LeftToRight);
    settle();
    QVERIFY(
        tab->isVisible() && tabs.rect().contains(QRect(tab->mapTo(&tabs, QPoint()), tab->size())));
}

void DockableTabGroupTest::keysWalkBetweenTabs()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    tree.root().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&tree.root()));
    tabs.tabAt(2)->setFocus(Qt::TabFocusReason);
    for (const auto& [key, index] :
         {std::pair(Qt::Key_Right, 2),
          std::pair(Qt::Key_Left, 1),
          std::pair(Qt::Key_Home, 0),
          std::pair(Qt::Key_Left, 0),
          std::pair(Qt::Key_End, 2)})
    {
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(tabs.activeIndex(), index);
        QCOMPARE(QApplication::focusWidget(), tabs.tabAt(index));
    }
    QTest::mouseClick(tabs.tabAt(1), Qt::LeftButton); // the focus goes along
    QCOMPARE(QApplication::focusWidget(), tabs.tabAt(1));
}

void DockableTabGroupTest::aDragThatRestsOnATabBringsItForward_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("leaves");
    QTest::addColumn<bool>("switches");
    QTest::newRow("a file") << QStringLiteral("text/uri-list") << 0 << false << true;
    QTest::newRow("a file that goes on") << QStringLiteral("text/uri-list") << 0 << true << false;
    QTest::newRow("a tab of a tab bar")
        << QStringLiteral("application/tab-reorder") << 0 << false << false;
    QTest::newRow("the active tab") << QStringLiteral("text/uri-list") << 2 << false << false;
}

void DockableTabGroupTest::aDragThatRestsOnATabBringsItForward()
{
    QFETCH(int, tab);
    QFETCH(QString, format);
    QFETCH(bool, leaves);
    QFETCH(bool, switches);
    TabbedTree tree;
    DockableTabWidget* target = tree.tabs().tabAt(tab);
    QMimeData data;
    data.setData(format, "1");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QCOMPARE(enter.isAccepted(), switches || leaves);
    if (leaves) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(target, &leave);
    }
    ui::test::FakeClock clock(target);
    QCOMPARE(clock.fireTimers(399), 0);
    QCOMPARE(clock.fireTimers(400), switches ? 1 : 0);
    QCOMPARE(tree.tabs().activeIndex(), switches ? tab : 2);
}

void DockableTabGroupTest::anOverfullStripScrolls()
{
    TabbedTree tree;
    DockableTabGroup& tabs = tree.tabs();
    for (int i = 0; i < 20; ++i) {
        tabs.appendChild(DockTree::panel(QStringLiteral("Panel number %1").arg(i)));
    }
    settle();
    QCOMPARE(tabs.width(), 300); // tabs do not make it any wider
    const auto isSeen = [&](int index) {
        DockableTabWidget* tab = tabs.tabAt(index);
        return tabs.rect().contains(QRect(tab->mapTo(&tabs, QPoint()), tab->size()));
    };
    QVERIFY(isSeen(2) && !isSeen(22));
    tabs.setActiveIndex(22);
    QVERIFY(isSeen(22) && !isSeen(0));
    QWidget* strip = tabs.tabAt(0)->parentWidget()->parentWidget();
    for (int notch = 0; notch < 60; ++notch) {
        QWheelEvent wheel(
            QPointF(5, 5),
            strip->mapToGlobal(QPointF(5, 5)),
            QPoint(),
            QPoint(0, 120),
            Qt::NoButton,
            Qt::NoModifier,
            Qt::NoScrollPhase,
            false);
        QApplication::sendEvent(strip, &wheel);
    }
    QVERIFY(isSeen(0) && !isSeen(22));
}

void DockableTabGroupTest::aToolBarsGripTakesItsWindowAlong_data()
{
    using Direction = DockableToolBarHeader::Direction;
    QTest::addColumn<Direction>("direction");
    QTest::addColumn<QSize>("grip");
    QTest::newRow("above") << Direction::Horizontal << QSize(22, 10);
    QTest::newRow("beside") << Direction::Vertical << QSize(10, 22);
}

void DockableTabGroupTest::aToolBarsGripTakesItsWindowAlong()
{
    QFETCH(DockableToolBarHeader::Direction, direction);
    DockTree tree;
    DockableWindow* panel = DockTree::panel(QStringLiteral("Tools"), QSize(200, 200));
    auto* header = new DockableToolBarHeader(direction);
    panel->setHeader(header);
    panel->setHeaderDirection(
        direction == DockableToolBarHeader::Direction::Vertical ? QBoxLayout::LeftToRight
                                                                : QBoxLayout::TopToBottom);
    panel->move(100, 100);
    panel->show();
    auto* grip = header->findChild<QLabel*>();
    QTEST(grip->size(), "grip");
    QVERIFY(!grip->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(header->accessibleName(), QStringLiteral("Tools"));
    const QImage picture = ui::test::renderWidget(*header);
    QVERIFY(ui::test::closeTo(
        ui::test::pixelAt(picture, {0.5, 0.5}), ui::colorQt(QStringLiteral("Mid"))));

    ui::test::Hand hand;
    hand.press(*header, QPoint(5, 5));
    hand.moveTo(header->mapToGlobal(QPoint(5, 5)) + QPoint(40, 50), 4);
    QCOMPARE(panel->pos(), QPoint(140, 150));
    hand.release();
}

const ui::test::Registration<DockableTabGroupTest> kRegistration;
#include "tst_dockabletabgroup.moc"

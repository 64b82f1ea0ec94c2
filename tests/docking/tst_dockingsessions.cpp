#include "docking/DockFuzzer.h"
#include "docking/DockTree.h"
#include "docking/Hand.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>

using ui::test::DockSteps;
using ui::test::DockTree;
using ui::test::Hand;
using ui::test::playDockSteps;

/// Random sessions over every operation on the tree of windows. MORRANT_DOCK_SEEDS sets how many
/// (20, or 5 on a display, which takes its time) and MORRANT_DOCK_STEPS how long each is (100).
class DockingSessionsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void noSessionBreaksTheTree();
    void noSessionBreaksItAgain_data();
    void noSessionBreaksItAgain();
    void theMainWindowMayDieInADrag_data();
    void theMainWindowMayDieInADrag();
    void aWindowDockedByTheHostInADragIsOpaqueAgain();
};

void DockingSessionsTest::noSessionBreaksTheTree()
{
    bool given = false;
    const int wantedSeeds = qEnvironmentVariableIntValue("MORRANT_DOCK_SEEDS", &given);
    const bool display = QGuiApplication::platformName() != QLatin1String("offscreen");
    const int seeds = given ? wantedSeeds : (display ? 5 : 20);
    const int wantedSteps = qEnvironmentVariableIntValue("MORRANT_DOCK_STEPS", &given);
    const int count = given ? wantedSteps : 100;
    for (int seed = 1; seed <= seeds; ++seed) {
        const DockSteps steps = ui::test::randomDockSteps(static_cast<unsigned>(seed), count);
        const QString broken = playDockSteps(steps);
        if (!broken.isEmpty()) {
            const QString fewest = ui::test::shrunkDockSteps(steps);
            QFAIL(qPrintable(QStringLiteral("seed %1, %2\n%3").arg(seed).arg(broken, fewest)));
        }
    }
}

void DockingSessionsTest::noSessionBreaksItAgain_data()
{
    QTest::addColumn<DockSteps>("steps");
    QTest::newRow("a group taken out of a group has its border back")
        << DockSteps{{177, 127, 0, 103}, {115, 144, 228, 102}, {202, 1, 206, 133}};
    QTest::newRow("a newcomer in a splitter hides no handle")
        << DockSteps{{9, 183, 153, 232}, {19, 0, 0, 0}};
}

void DockingSessionsTest::noSessionBreaksItAgain()
{
    QFETCH(DockSteps, steps);
    QCOMPARE(playDockSteps(steps), QString());
}

void DockingSessionsTest::theMainWindowMayDieInADrag_data()
{
    QTest::addColumn<bool>("byTab");
    QTest::addColumn<bool>("tornOut");
    QTest::newRow("header, docked") << false << false;
    QTest::newRow("header, torn out") << false << true;
    QTest::newRow("tab, docked") << true << false;
    QTest::newRow("tab, torn out") << true << true;
}

void DockingSessionsTest::theMainWindowMayDieInADrag()
{
    QFETCH(bool, byTab);
    QFETCH(bool, tornOut);
    DockTree tree(QSize(400, 200));
    tree.root().move(20, 20);
    tree.showRow({120, 120, 120});
    DockableWindow* c = tree.root().getChild(2);
    auto* tabs = qobject_cast<DockableTabGroup*>(
        tree.root().getChild(1)->dockInArea(DockTree::panel(), DockableArea::Center));
    ui::test::settle();
    QWidget* header = tree.root().getChild(0)->header();
    Hand hand;
    hand.press(byTab ? *tabs->tabAt(0) : *header, {10, 8});
    if (tornOut) {
        hand.moveTo(tree.root().geometry().bottomLeft() + QPoint(30, 60), 2);
    }
    hand.moveTo(c->mapToGlobal(c->rect().center()), 2); // over which zones are shown now
    tree.destroy();
    hand.moveTo(QPoint(5, 5));
    hand.release();
    ui::test::settle();
    QVERIFY(!ui::test::mouseEventsAreKept());
}

void DockingSessionsTest::aWindowDockedByTheHostInADragIsOpaqueAgain()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(20, 20);
    tree.showRow({140, 140});
    DockableWindow* a = tree.root().getChild(0);
    Hand hand;
    hand.press(*a->header(), {10, 8});
    hand.moveTo(tree.root().geometry().bottomLeft() + QPoint(30, 60), 2);
    QVERIFY(a->isFloating());
    tree.root().dockInArea(a, DockableArea::Right);
    hand.release();
    a->undock(false);
    QCOMPARE(a->windowOpacity(), 1.0);
}

const ui::test::Registration<DockingSessionsTest> kRegistration;
#include "tst_dockingsessions.moc"

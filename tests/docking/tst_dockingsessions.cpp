#include "docking/DockFuzzer.h"
#include "support/TestCase.h"

using ui::test::DockSteps;
using ui::test::playDockSteps;

/// Random sessions over every operation on the tree of windows. MORRANT_DOCK_SEEDS sets how many
/// (20) and MORRANT_DOCK_STEPS how long each is (100).
class DockingSessionsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void noSessionBreaksTheTree();
    void noSessionBreaksItAgain_data();
    void noSessionBreaksItAgain();
};

void DockingSessionsTest::noSessionBreaksTheTree()
{
    bool given = false;
    const int wantedSeeds = qEnvironmentVariableIntValue("MORRANT_DOCK_SEEDS", &given);
    const int seeds = given ? wantedSeeds : 20;
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

const ui::test::Registration<DockingSessionsTest> kRegistration;
#include "tst_dockingsessions.moc"

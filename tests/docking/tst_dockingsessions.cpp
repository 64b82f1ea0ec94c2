// SPDX-License-Identifier: Apache-2.0
#include "docking/DockFuzzer.h"
#include "support/TestCase.h"

#include <QGuiApplication>

/// Random sessions over every operation on the tree of windows. MORRANT_DOCK_SEEDS sets how many
/// (20, or 5 on a display, which takes its time) and MORRANT_DOCK_STEPS how long each is (100).
class DockingSessionsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void noSessionBreaksTheTree()
    {
        const auto given = [](const char* name, int otherwise) {
            return qEnvironmentVariableIsSet(name) ? qEnvironmentVariableIntValue(name) : otherwise;
        };
        const bool display = QGuiApplication::platformName() != QLatin1String("offscreen");
        const int count = given("MORRANT_DOCK_STEPS", 100);
        for (int seed = given("MORRANT_DOCK_SEEDS", display ? 5 : 20); seed > 0; --seed) {
            const auto steps = ui::test::randomDockSteps(static_cast<unsigned>(seed), count);
            const QString name = u"seed %1, "_qs.arg(seed);
            QCOMPARE(name + ui::test::playDockSteps(steps), name);
        }
    }

    void aNewcomerInASplitterHidesNoHandle()
    {
        const ui::test::DockSteps steps{{9, 183, 153, 232}, {19, 0, 0, 0}};
        QCOMPARE(ui::test::playDockSteps(steps), QString());
    }
};

const ui::test::Registration<DockingSessionsTest> kRegistration;
#include "tst_dockingsessions.moc"

// SPDX-License-Identifier: Apache-2.0
#include "support/LogSink.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QtTest>

#include <algorithm>
#include <cstdio>

/// Runs every registered test class, or only the one that the first argument names; further
/// arguments go to Qt Test. The exit code is the number of failed classes.
int main(int argc, char** argv)
{
    // Application style sheets and platform themes of the developer's desktop are not under test.
    QApplication::setDesktopSettingsAware(false);
    const QApplication app(argc, argv);
    ui::test::LogSink::install();

    auto entries = ui::test::testRegistry();
    std::erase_if(entries, [](const auto& entry) { return entry.runsHere && !entry.runsHere(); });
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::tie(a.order, a.name) < std::tie(b.order, b.name);
    });

    QStringList arguments = QCoreApplication::arguments();
    QString only;
    if (arguments.size() > 1 && !arguments.at(1).startsWith(u'-')) {
        only = arguments.takeAt(1);
    }

    int failedClasses = 0;
    bool ranAny = false;
    for (const auto& entry : entries) {
        if (only.isEmpty() || only == QString::fromStdString(entry.name)) {
            ranAny = true;
            failedClasses += QTest::qExec(entry.make().get(), arguments) != 0 ? 1 : 0;
        }
    }
    if (!ranAny) {
        std::fprintf(stderr, "no test class '%s' in this program\n", qPrintable(only));
        return 1;
    }
    return failedClasses;
}

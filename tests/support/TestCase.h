// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/LogSink.h"
#include "support/TestRegistry.h"
#include "support/paths.h"
#include "support/pixels.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace ui::test {

/// Also where no window manager makes what is shown active.
inline void showActive(QWidget& widget)
{
    widget.show();
    widget.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

/// Base of every test class. A test function fails when the library logs a line that the test did
/// not take with LogSink::take(), or when Qt warns about something other than what its off-screen
/// plug-in lacks.
///
/// A class that needs its own init() or cleanup() calls these first. This header brings what most
/// tests need of Qt, of the standard library and of the tests' support.
class TestCase : public QObject
{
    Q_OBJECT

protected:
    /// The lines logged since the last call or the start of the test function.
    QStringList takeLog() { return LogSink::take(); }

    /// Whether the test has themes of its own that lack colours. Others must miss none.
    virtual bool lacksColors() const { return false; }

    Q_SLOT virtual void init();
    Q_SLOT virtual void cleanup();

private:
    void failOnLoggedLines();
};

} // namespace ui::test

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/LogSink.h"
#include "support/TestRegistry.h"

#include <QObject>
#include <QtTest>

namespace ui::test {

/// Base of every test class. A test function fails when the library logs a line that the test did
/// not take with LogSink::take(), or when Qt warns about something other than what its off-screen
/// plug-in lacks.
///
/// A class that needs its own init() or cleanup() calls these first.
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

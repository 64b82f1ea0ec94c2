// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/FakeClock.h"
#include "support/FakePointer.h"
#include "support/LogSink.h"
#include "support/TestRegistry.h"
#include "support/paths.h"
#include "support/pixels.h"
#include "support/themes.h"
#include <MorrantUI/theme/VisualDesignBase.h>

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

/// The override cursors, the lowest first; empty again afterwards.
inline QList<Qt::CursorShape> takeCursors()
{
    QList<Qt::CursorShape> shapes;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        shapes.prepend(cursor->shape());
        QGuiApplication::restoreOverrideCursor();
    }
    return shapes;
}

/// The words of a text, for tables with many names in one row.
inline QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ');
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

    Q_SLOT virtual void init()
    {
        // Everything but a platform plug-in's own complaints; the one about setParent is ours to
        // mend. Windows has a least and a greatest size of its own for a window with a title, and
        // Wine cannot tell the colour of that title.
        QTest::failOnWarning(QRegularExpression(QStringLiteral(
            "^(?!This plugin does not support (?!setParent)|setGeometry: Unable to set geometry"
            "|queryDarkBorder: Unable to retrieve)")));
        // What initTestCase() logged, or an object that outlived the last test function.
        failOnLoggedLines();
    }
    Q_SLOT virtual void cleanup() { failOnLoggedLines(); }

private:
    void failOnLoggedLines() const
    {
        const QStringList missed = VisualDesignBase::takeMissedColors();
        const QStringList unexpected = LogSink::take() + (lacksColors() ? QStringList() : missed);
        QVERIFY2(unexpected.isEmpty(), qPrintable(u"unexpected log: "_qs + unexpected.join(u'\n')));
    }
};

} // namespace ui::test

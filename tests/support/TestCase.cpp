// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"

#include <QRegularExpression>

namespace ui::test {

void TestCase::init()
{
    // Everything but a platform plug-in's own complaints; the one about setParent is ours to mend.
    // Windows has a least and a greatest size of its own for a window with a title, and Wine cannot
    // tell the colour of that title.
    QTest::failOnWarning(QRegularExpression(QStringLiteral(
        "^(?!This plugin does not support (?!setParent)|setGeometry: Unable to set geometry"
        "|queryDarkBorder: Unable to retrieve)")));
    // What initTestCase() logged, or an object that outlived the last test function.
    failOnLoggedLines();
}

void TestCase::cleanup()
{
    failOnLoggedLines();
}

void TestCase::failOnLoggedLines()
{
    QStringList unexpected = LogSink::take();
    const QStringList missed = LogSink::takeMissedColors();
    unexpected += lacksColors() ? QStringList() : missed;
    if (!unexpected.isEmpty()) {
        QFAIL(qPrintable(QStringLiteral("unexpected log: ") + unexpected.join(u'\n')));
    }
}

} // namespace ui::test

#include "support/TestCase.h"

#include <QRegularExpression>

namespace ui::test {

void TestCase::init()
{
    // Everything but a platform plug-in's own complaints; the one about setParent is ours to mend,
    // the one about dark borders is for what Wine lacks.
    QTest::failOnWarning(QRegularExpression(QStringLiteral(
        "^(?!This plugin does not support (?!setParent)|queryDarkBorder: Unable to retrieve)")));
    // What initTestCase() logged, or an object that outlived the last test function.
    failOnLoggedLines();
}

void TestCase::cleanup()
{
    failOnLoggedLines();
}

void TestCase::failOnLoggedLines()
{
    const QStringList unexpected = LogSink::take();
    if (!unexpected.isEmpty()) {
        QFAIL(qPrintable(QStringLiteral("unexpected log: ") + unexpected.join(u'\n')));
    }
}

} // namespace ui::test

#include "support/TestCase.h"

#include <QRegularExpression>

namespace ui::test {

void TestCase::init()
{
    LogSink::take();
    // Everything but the off-screen plug-in's own complaints ("This plugin does not support …") and
    // what a display without a window manager cannot do.
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support (?!setParent)|QFont::fromString|"
                       "XKB|libpng|propagateSizeHints)")));
}

void TestCase::cleanup()
{
    const QStringList unexpected = LogSink::take();
    if (!unexpected.isEmpty()) {
        QFAIL(qPrintable(QStringLiteral("unexpected log: ") + unexpected.join(u'\n')));
    }
}

} // namespace ui::test

#include "support/TestCase.h"
#include <MorrantUI/docking/tabs/tabgeometry.h>
#include <MorrantUI/docking/tabs/tabreorder.h>

#include <QMimeData>

#include <limits>

using namespace ui::tabs;

namespace {

/// Three tabs of 100, 60 and 40 pixels with gaps of 10.
const std::vector<Span> kTabs{{0, 100}, {110, 60}, {180, 40}};
constexpr int kContent = 220;

View viewOf(int viewport, int offset, Qt::LayoutDirection direction = Qt::LeftToRight)
{
    return {viewport, kContent, offset, direction};
}

} // namespace

class TabGeometryTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theOffsetLeavesNoEmptySpace();
    void positionsAndPointsAreInversesInBothDirections();
    void aTabIsShownWithALittleOfItsNeighbours_data();
    void aTabIsShownWithALittleOfItsNeighbours();
    void anEdgeFadesOnlyAsFarAsSomethingIsHidden();
    void aDropGoesWhereThePointerIs_data();
    void aDropGoesWhereThePointerIs();
    void holdingATabAtAnEdgeScrollsTowardsIt();
    void onlyPlainDigitsAreAnIndex_data();
    void onlyPlainDigitsAreAnIndex();
};

void TabGeometryTest::theOffsetLeavesNoEmptySpace()
{
    QCOMPARE(largestOffset(viewOf(300, 0)), 0);
    QCOMPARE(largestOffset(viewOf(100, 0)), 120);
    QCOMPARE(boundedOffset(viewOf(100, 0), 500), 120);
    QCOMPARE(boundedOffset(viewOf(100, 0), -500), 0);
    QCOMPARE(boundedOffset(viewOf(300, 0), 20), 0);
    // The row starts at the edge where reading begins.
    QCOMPARE(rowLeft(viewOf(100, 30)), -30);
    QCOMPARE(rowLeft(viewOf(300, 0, Qt::RightToLeft)), 80);
    QCOMPARE(rowLeft(viewOf(100, 120, Qt::RightToLeft)), 0);
}

void TabGeometryTest::positionsAndPointsAreInversesInBothDirections()
{
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        for (const int offset : {0, 45, 120}) {
            const View view = viewOf(100, offset, direction);
            for (const int x : {-20, 0, 1, 50, 99, 140}) {
                QCOMPARE(xAt(view, positionAt(view, x)), x);
            }
        }
    }
    QCOMPARE(positionAt(viewOf(100, 30), 20), 50);
    QCOMPARE(positionAt(viewOf(100, 30, Qt::RightToLeft), 20), 110);
}

void TabGeometryTest::aTabIsShownWithALittleOfItsNeighbours_data()
{
    QTest::addColumn<int>("viewport");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("expected");
    QTest::newRow("in sight with its margin") << 150 << 50 << 1 << 50;
    QTest::newRow("behind the end") << 150 << 0 << 1 << 35;
    QTest::newRow("the last has no neighbour") << 150 << 0 << 2 << 70;
    QTest::newRow("before the beginning") << 100 << 120 << 1 << 95;
    QTest::newRow("the first has no neighbour") << 100 << 60 << 0 << 0;
    QTest::newRow("no room for the margin") << 65 << 0 << 1 << 105;
    QTest::newRow("wider than the header") << 50 << 120 << 0 << 0;
    QTest::newRow("no header at all") << 0 << 7 << 1 << 110;
    QTest::newRow("everything fits") << 400 << 0 << 2 << 0;
}

void TabGeometryTest::aTabIsShownWithALittleOfItsNeighbours()
{
    QFETCH(int, viewport);
    QFETCH(int, offset);
    QFETCH(int, tab);
    QFETCH(int, expected);
    const View view = viewOf(viewport, offset);
    const int shown = offsetShowing(view, kTabs.at(static_cast<std::size_t>(tab)), 15);
    QCOMPARE(shown, expected);
}

void TabGeometryTest::anEdgeFadesOnlyAsFarAsSomethingIsHidden()
{
    const auto widths = [](const View& view, int widest) {
        const Fades result = fades(view, widest);
        return QPoint(result.leading, result.trailing);
    };
    QCOMPARE(widths(viewOf(300, 0), 32), QPoint(0, 0));
    QCOMPARE(widths(viewOf(100, 0), 32), QPoint(0, 32));
    QCOMPARE(widths(viewOf(100, 10), 32), QPoint(10, 32));
    QCOMPARE(widths(viewOf(100, 115), 32), QPoint(32, 5));
    QCOMPARE(widths(viewOf(20, 100), 32), QPoint(10, 10)); // never over each other
    QCOMPARE(widths(viewOf(0, 0), 32), QPoint(0, 0));
}

void TabGeometryTest::aDropGoesWhereThePointerIs_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("mirrored");
    QTest::addColumn<int>("gap");
    QTest::newRow("before all") << -50 << 0 << false << 0;
    QTest::newRow("first half of the first") << 49 << 0 << false << 0;
    QTest::newRow("the middle counts as behind") << 50 << 0 << false << 1;
    QTest::newRow("between two tabs") << 105 << 0 << false << 1;
    QTest::newRow("behind all") << 900 << 0 << false << 3;
    QTest::newRow("scrolled") << 49 << 100 << false << 2;
    QTest::newRow("scrolled to the end") << 81 << 120 << false << 3;
    QTest::newRow("mirrored, at the right edge") << 100 << 0 << true << 0;
    QTest::newRow("mirrored, at the left edge") << 0 << 0 << true << 1;
    QTest::newRow("mirrored and scrolled") << 0 << 120 << true << 3;
}

void TabGeometryTest::aDropGoesWhereThePointerIs()
{
    QFETCH(int, x);
    QFETCH(int, offset);
    QFETCH(bool, mirrored);
    QFETCH(int, gap);
    const View view = viewOf(100, offset, mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    QCOMPARE(gapAt(kTabs, positionAt(view, x)), gap);

    // The tab ends up at that gap, whichever it was.
    for (int from = 0; from < 3; ++from) {
        QStringList order{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
        const QString moved = order.at(from);
        const QStringList before = order.mid(0, gap);
        const int to = indexAfterDrop(from, gap);
        QVERIFY(to >= 0 && to < 3);
        order.move(from, to);
        const qsizetype expected = before.size() - (before.contains(moved) ? 1 : 0);
        QCOMPARE(order.indexOf(moved), expected);
    }
    const std::vector<int> marks{0, 105, 175, 220};
    QCOMPARE(gapPosition(kTabs, gap), marks.at(static_cast<std::size_t>(gap)));
    QCOMPARE(gapPosition({}, gap), 0);
}

void TabGeometryTest::holdingATabAtAnEdgeScrollsTowardsIt()
{
    const auto step = [](int x, int offset, Qt::LayoutDirection direction = Qt::LeftToRight) {
        return edgeScroll(viewOf(100, offset, direction), x, 20, 10);
    };
    QCOMPARE(step(50, 60), 0);
    QCOMPARE(step(20, 60), 0);
    QCOMPARE(step(19, 60), -1);
    QCOMPARE(step(10, 60), -5);
    QCOMPARE(step(-500, 60), -10);
    QCOMPARE(step(100, 60), 10);
    QCOMPARE(step(100, 60, Qt::RightToLeft), -10);
    QCOMPARE(step(0, 0), 0); // nothing hidden there
    QCOMPARE(step(100, 117), 3);
    QCOMPARE(edgeScroll(viewOf(0, 0), 0, 20, 10), 0);
}

void TabGeometryTest::onlyPlainDigitsAreAnIndex_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("index"); // -1 for none
    QTest::newRow("first") << QByteArray("0") << 0;
    QTest::newRow("two digits") << QByteArray("12") << 12;
    QTest::newRow("largest") << QByteArray("2147483647") << std::numeric_limits<int>::max();
    QTest::newRow("too large") << QByteArray("2147483648") << -1;
    QTest::newRow("huge") << QByteArray(5000, '9') << -1;
    QTest::newRow("empty") << QByteArray() << -1;
    QTest::newRow("negative") << QByteArray("-1") << -1;
    QTest::newRow("signed") << QByteArray("+1") << -1;
    QTest::newRow("space") << QByteArray(" 1") << -1;
    QTest::newRow("hexadecimal") << QByteArray("0x1") << -1;
    QTest::newRow("fraction") << QByteArray("1.0") << -1;
    QTest::newRow("terminated") << QByteArray("1", 2) << -1;
    QTest::newRow("words") << QByteArray("tab") << -1;
    QTest::newRow("digits of another script") << QByteArray("\xd9\xa1") << -1;
}

void TabGeometryTest::onlyPlainDigitsAreAnIndex()
{
    QFETCH(QByteArray, data);
    QFETCH(int, index);
    QCOMPARE(reorderIndex(data).value_or(-1), index);
    QMimeData carried;
    carried.setText(QStringLiteral("1"));
    QVERIFY(!reorderIndex(&carried)); // the format counts, too
    carried.setData(QStringLiteral("application/tab-reorder"), data);
    QCOMPARE(reorderIndex(&carried).value_or(-1), index);
    if (index >= 0) {
        QCOMPARE(reorderData(index), data);
    }
}

const ui::test::Registration<TabGeometryTest> kRegistration;

#include "tst_tabgeometry.moc"

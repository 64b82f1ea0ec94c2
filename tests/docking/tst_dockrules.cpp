// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/arrivals.h"
#include "MorrantUI/docking/placing.h"
#include "MorrantUI/docking/shares.h"
#include "MorrantUI/docking/tabs/tabkeys.h"
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/dropzones.h>
#include <MorrantUI/docking/tabs/tabgeometry.h>
#include <MorrantUI/docking/tabs/tabreorder.h>

#include <climits>

using namespace ui::docking;
using namespace ui::tabs;

using Area = DockableArea;

namespace {

/// Three tabs of 100, 60 and 40 pixels with gaps of 10.
const std::vector<Span> kTabs{{0, 100}, {110, 60}, {180, 40}};

View viewOf(int viewport, int offset, bool mirrored = false)
{
    return {viewport, 220, offset, mirrored ? Qt::RightToLeft : Qt::LeftToRight};
}

/// Rows of numbers apart by commas.
QList<QList<int>> rowsOf(const char* text)
{
    QList<QList<int>> rows;
    for (const QByteArray& row : QByteArray(text).split(',')) {
        rows.append(QList<int>());
        for (const QByteArray& number : row.simplified().split(' ')) {
            rows.last() << number.toInt();
        }
    }
    return rows;
}

Command keyed(int key, Qt::KeyboardModifiers held = {}, bool mirrored = false)
{
    return commandOf({QEvent::KeyPress, key, held}, mirrored ? Qt::RightToLeft : Qt::LeftToRight);
}

} // namespace

/// The rules of docking and of tabs as numbers, without a window.
class DockRulesTest : public ui::test::TestCase
{
    Q_OBJECT

private:
    static void hitZones(double w, double h, double header)
    {
        const auto zones = dropZones({QSizeF(w, h), header});
        const double m = std::min({20.0, w / 2, h / 2});
        QCOMPARE(zones.inset, m);
        QCOMPARE(zones.inner, QRectF(m, header + m, w - 2 * m, h - header - 2 * m));
        const std::pair<QPointF, Area> hits[] = {
            {{m / 2, (h + header) / 2}, Area::Left},
            {{w - m / 2, (h + header) / 2}, Area::Right},
            {{w / 2, header + m / 2 - 1}, Area::Top},
            {{w / 2, h - m / 2 + 1}, Area::Bottom},
            {{w / 2, header / 2}, header > 0 ? Area::Center : Area::Top},
            {{m / 4, header + m / 2}, Area::Left}, // below the diagonal
            {{m / 2, header + m / 4}, Area::Top},  // above it
            {{-1, h / 2}, Area::None}};
        for (const auto& [point, area] : hits) {
            QCOMPARE(hitTest(zones, point), area);
        }
        if (zones.inner.isValid() && zones.inner.width() > 2) {
            QCOMPARE(hitTest(zones, zones.inner.center()), Area::None);
        }
    }

private Q_SLOTS:
    void windowsComeToLieOnTheirScreen()
    {
        const QRect room(-800, 20, 800, 600);
        const auto placed = [&](const QRect& frame) { return placeWithin(frame, room); };
        QCOMPARE(placed({-700, 30, 100, 100}), QPoint(-700, 30));
        QCOMPARE(placed({-50, 590, 100, 100}), QPoint(-100, 520));
        QCOMPARE(placed({-900, 0, 100, 100}), QPoint(-800, 20));
        QCOMPARE(placed({-300, 500, 900, 700}), QPoint(-800, 20)); // of a large one the title
        QCOMPARE(gripAfter({600, 9}, {800, 500}, {200, 100}), QPoint(150, 9));
        QCOMPARE(gripAfter({799, 400}, {800, 500}, {200, 100}), QPoint(199, 99));
        QCOMPARE(gripAfter({5, 5}, {0, 0}, {0, 0}), QPoint(0, 0));
    }

    void zonesAreHitWhereTheyArePainted()
    {
        // Width, height, header: usual, without a header, narrow, flat.
        for (const auto& row : rowsOf("200 160 24, 200 160 0, 30 160 24, 200 60 20")) {
            hitZones(row[0], row[1], row[2]);
        }
    }

    void disabledZonesAreNeverHit()
    {
        const auto hits = [](bool sides, bool topBottom) {
            const auto zones = dropZones({{200, 160}, 24.0, 20.0, sides, topBottom});
            QByteArray found;
            for (const QPointF point :
                 {QPointF(5, 80), {195, 80}, {100, 30}, {100, 155}, {100, 10}, {100, 80}}) {
                found += QByteArray::number(static_cast<int>(hitTest(zones, point)));
            }
            return found;
        };
        QCOMPARE(hits(false, false), QByteArray("312450"));
        QCOMPARE(hits(true, false), QByteArray("002400"));
        QCOMPARE(hits(false, true), QByteArray("310000"));
        QCOMPARE(hits(true, true), QByteArray("000000"));
        QCOMPARE(hitTest({}, {0, 0}), Area::None); // never built
    }

    void sharesAddUpToTheRoom()
    {
        using Row = QList<int>;
        QCOMPARE(scaledTo({1, 1, 1}, 100), (Row{33, 34, 33}));
        QCOMPARE(scaledTo({200, 300, 100}, 60), (Row{20, 30, 10}));
        QCOMPARE(scaledTo({0, 0}, 7), (Row{4, 3}));
        QCOMPARE(scaledTo({5, 5}, -3), (Row{0, 0}));
        QCOMPARE(scaledTo({INT_MAX, INT_MAX}, INT_MAX), (Row{INT_MAX / 2 + 1, INT_MAX / 2}));
        for (const auto& row : rowsOf("300 100 100, 300 151 150, 300 -5 0, -20 5 0")) {
            QCOMPARE(newcomerShare(row[0], row[1]), row[2]); // at most half
        }
        QCOMPARE(withNewcomer({200, 100}, 0, 60, 6), (Row{60, 156, 78}));
        QCOMPARE(withNewcomer({206}, 1, 800, 6), (Row{100, 100}));
        QCOMPARE(withReplaced({50, 106, 20}, 1, {30, 70}, 6), (Row{50, 30, 70, 20}));
        QCOMPARE(withReplaced({100}, 0, {0, 0}, 6), (Row{47, 47}));
    }

    void whoFillsTheRoom()
    {
        // Room, then for each window its size, the most it should have, its stretch and whether it
        // is hidden; then the sizes that come of it.
        for (const auto& row :
             {std::pair("100, 50 64 0 0, 44 999 0 0", "53 47"),     // the one without a limit
              {"200, 50 60 0 0, 50 80 0 0, 0 999 0 1", "60 140 0"}, // the one that may have most
              {"200, 50 60 2 0, 50 80 0 0", "120 80"},              // the one that stretches
              {"90, 10 20 0 0, 10 20 0 0", "45 45"},
              {"100, 60 64 0 0, 60 64 0 0", "60 60"}, // no room is left
              {"100, 0 0 0 1", "0"}})
        {
            const auto numbers = rowsOf(row.first);
            std::vector<Cell> cells;
            QList<int> sizes;
            for (const auto& cell : numbers.mid(1)) {
                sizes << cell[0];
                cells.push_back({cell[1], cell[2], cell[3] == 0});
            }
            QByteArray all;
            for (const int size : filled(sizes, cells, numbers[0][0])) {
                all += QByteArray::number(size) + ' ';
            }
            QCOMPARE(all.trimmed(), QByteArray(row.second));
        }
    }

    void anArrivalIsUndoneOnceAndByItsOwnKind()
    {
        ui::test::DockTree tree(u"H() a b c"_qs);
        const DockableWindow& a = *tree["a"];
        const DockableWindow& b = *tree["b"];
        const DockableWindow& c = *tree["c"];
        Arrivals arrivals;
        const auto remember = [&](const DockableWindow& newcomer,
                                  const DockableWindow& other,
                                  int size,
                                  bool inPlace = false) {
            Arrival arrival;
            arrival.newcomer = &newcomer;
            arrival.others = {&other};
            arrival.sizes = {size};
            arrival.inPlace = inPlace;
            arrivals.remember(arrival, {&newcomer, &other});
        };
        remember(a, b, 1);
        remember(a, b, 2, true);
        remember(b, a, 3);
        QCOMPARE(arrivals.take(a, false)->sizes, QList{1});
        QVERIFY(!arrivals.take(a, false));
        arrivals.replace(a, c);
        QCOMPARE(arrivals.take(c, true)->sizes, QList{2});
        QCOMPARE(arrivals.take(b, false)->others, std::vector<const DockableWindow*>{&c});
        remember(a, c, 4);
        remember(b, c, 5); // a is no child any more
        QVERIFY(!arrivals.take(a, false) && arrivals.take(b, false));
    }

    void keysMeanWhatTheyPointAt()
    {
        constexpr auto kMoving = Qt::ControlModifier | Qt::ShiftModifier;
        QCOMPARE(keyed(Qt::Key_Left), Command::SelectPrevious);
        QCOMPARE(keyed(Qt::Key_Left, {}, true), Command::SelectNext);
        QCOMPARE(keyed(Qt::Key_Right, Qt::KeypadModifier), Command::SelectNext);
        QCOMPARE(keyed(Qt::Key_Home, {}, true), Command::SelectFirst);
        QCOMPARE(keyed(Qt::Key_End), Command::SelectLast);
        QCOMPARE(keyed(Qt::Key_PageUp), Command::ScrollBack);
        QCOMPARE(keyed(Qt::Key_PageDown), Command::ScrollOn);
        QCOMPARE(keyed(Qt::Key_Right, kMoving), Command::MoveOn);
        QCOMPARE(keyed(Qt::Key_Right, kMoving, true), Command::MoveBack);
        QCOMPARE(keyed(Qt::Key_F2), Command::Rename);
        for (const auto& [key, held] :
             {std::pair(int(Qt::Key_Down), Qt::KeyboardModifiers()),
              {Qt::Key_Left, Qt::ShiftModifier},
              {Qt::Key_Home, kMoving}})
        {
            QCOMPARE(keyed(key, held), Command::None);
        }
    }

    void placesInTheRowAreFoundBothWays()
    {
        // The row starts at the edge where reading begins.
        QCOMPARE(rowLeft(viewOf(100, 30)), -30);
        QCOMPARE(rowLeft(viewOf(300, 0, true)), 80);
        QCOMPARE(rowLeft(viewOf(100, 120, true)), 0);
        for (const int x : {-20, 0, 50, 140}) {
            QCOMPARE(xAt(viewOf(100, 45), positionAt(viewOf(100, 45), x)), x);
            QCOMPARE(xAt(viewOf(100, 45, true), positionAt(viewOf(100, 45, true), x)), x);
        }
        QCOMPARE(positionAt(viewOf(100, 30), 20), 50);
        QCOMPARE(positionAt(viewOf(100, 30, true), 20), 110);
    }

    void aTabIsShownWithALittleOfItsNeighbours()
    {
        // Viewport, offset, tab, expected: in sight with its margin, behind the end, the last,
        // before the beginning, the first, no room for the margin, wider than all there is, no
        // header at all, everything fits.
        for (const auto& row :
             rowsOf("150 50 1 50, 150 0 1 35, 150 0 2 70, 100 120 1 95, 100 60 0 0, "
                    "65 0 1 105, 50 120 0 0, 0 7 1 110, 400 0 2 0"))
        {
            const Span& span = kTabs.at(static_cast<std::size_t>(row[2]));
            QCOMPARE(offsetShowing(viewOf(row[0], row[1]), span, 15), row[3]);
        }
    }

    void aDropGoesWhereThePointerIs()
    {
        // x, offset, mirrored, gap; the middle of a tab counts as behind it.
        for (const auto& row : rowsOf("-50 0 0 0, 49 0 0 0, 50 0 0 1, 105 0 0 1, 900 0 0 3, "
                                      "49 100 0 2, 81 120 0 3, 100 0 1 0, 0 0 1 1, 0 120 1 3"))
        {
            QCOMPARE(gapAt(kTabs, positionAt(viewOf(100, row[1], row[2]), row[0])), row[3]);
        }
        for (int gap = 0; gap <= 3; ++gap) {
            QCOMPARE(gapPosition(kTabs, gap), (QList{0, 105, 175, 220}.at(gap)));
            for (int from = 0; from < 3; ++from) { // the tab ends up at that gap
                QString order = u"abc"_qs;
                const QChar moved = order.at(from);
                QString expected = order;
                expected.insert(gap, u'*').remove(moved).replace(u'*', moved);
                order.remove(from, 1).insert(indexAfterDrop(from, gap), moved);
                QCOMPARE(order, expected);
            }
        }
        QCOMPARE(gapPosition({}, 1), 0);
    }

    void holdingATabAtAnEdgeScrollsTowardsIt()
    {
        // x, offset, mirrored, step; nothing where nothing is hidden.
        for (const auto& row :
             rowsOf("50 60 0 0, 20 60 0 0, 19 60 0 -1, 10 60 0 -5, -500 60 0 -10, "
                    "100 60 0 10, 100 60 1 -10, 0 0 0 0, 100 117 0 3"))
        {
            QCOMPARE(edgeScroll(viewOf(100, row[1], row[2]), row[0], 20, 10), row[3]);
        }
        QCOMPARE(edgeScroll(viewOf(0, 0), 0, 20, 10), 0);
    }

    void onlyPlainDigitsAreAnIndex()
    {
        QList<QByteArray> others{"", QByteArray("1", 2), QByteArray(5000, '9'), "\xd9\xa1"};
        others += QByteArray("2147483648|-1|+1| 1|0x1|1.0|tab").split('|');
        for (const QByteArray& data : others + QByteArray("0|12|2147483647").split('|')) {
            const int index = others.contains(data) ? -1 : data.toInt();
            QCOMPARE(reorderIndex(data).value_or(-1), index);
            QMimeData carried;
            carried.setText(u"1"_qs);
            QVERIFY(!reorderIndex(&carried)); // the format counts, too
            carried.setData(u"application/tab-reorder"_qs, data);
            QCOMPARE(reorderIndex(&carried).value_or(-1), index);
            QVERIFY(index < 0 || reorderData(index) == data);
        }
    }
};

const ui::test::Registration<DockRulesTest> kRegistration;
#include "tst_dockrules.moc"

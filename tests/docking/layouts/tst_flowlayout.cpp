// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/docking/layouts/FlowLayout.h>

#include <climits>

namespace {

ui::FlowItem item(int width, int height = 10, int minimum = 5)
{
    ui::FlowItem described;
    described.hint = {width, height};
    described.minimum = {minimum, minimum};
    return described;
}

using Items = std::vector<ui::FlowItem>;

/// Every item as "x,y wxh".
QString arranged(
    const Items& items,
    int width,
    Qt::LayoutDirection direction = Qt::LeftToRight,
    ui::FlowAlignment rows = ui::FlowAlignment::Leading)
{
    QStringList all;
    for (const QRect& r : ui::arrangeFlow(items, {width, 4, 6, rows, direction}).rects) {
        all << u"%1,%2 %3x%4"_qs.arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
    }
    return all.join(u"; "_qs);
}

QWidget* box(int width, int height)
{
    auto* widget = new QWidget;
    widget->setFixedSize(width, height);
    return widget;
}

} // namespace

class FlowLayoutTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rowsBreakWhereTheNextItemDoesNotFit()
    {
        const Items items{item(40), item(40, 20), item(40), item(90)};
        // 40 + 4 + 40 fit exactly; the first is in the middle of its row, the last shrinks.
        QCOMPARE(arranged(items, 84), u"0,5 40x10; 44,0 40x20; 0,26 40x10; 0,42 84x10"_qs);
        QCOMPARE(ui::arrangeFlow(items, {84, 4, 6}).height, 52);
        QCOMPARE(ui::arrangeFlow(items, {83, 4, 6}).rows, 4);
        QCOMPARE(ui::arrangeFlow(items, {222, 4, 6}).rows, 1);
        QCOMPARE(ui::arrangeFlow({}, {100, 4, 6}).height, 0);
        const Items three{item(40), item(30), item(50)};
        QCOMPARE(arranged(three, 100), u"0,0 40x10; 44,0 30x10; 0,16 50x10"_qs);
        QCOMPARE(arranged(three, 100, Qt::RightToLeft), u"60,0 40x10; 26,0 30x10; 50,16 50x10"_qs);
    }

    void itemsStandInTheirRowsAsTheyAreAligned()
    {
        Items items{item(20, 40), item(20), item(20), item(20)};
        items[1].alignment = Qt::AlignTop;
        items[2].alignment = Qt::AlignBottom;
        items[3].fillsHeight = true;
        QCOMPARE(arranged(items, 200), u"0,0 20x40; 24,0 20x10; 48,30 20x10; 72,0 20x40"_qs);
        using Alignment = ui::FlowAlignment;
        for (const auto& [rows, direction, last] :
             {std::tuple(Alignment::Trailing, Qt::LeftToRight, u"; 180,0 20x40"_qs),
              {Alignment::Trailing, Qt::RightToLeft, u"; 0,0 20x40"_qs},
              {Alignment::Center, Qt::RightToLeft, u"; 54,0 20x40"_qs}})
        {
            QVERIFY(arranged(items, 200, direction, rows).endsWith(last));
        }
    }

    void whatIsLeftGoesToItemsThatExpand()
    {
        Items items{item(20), item(20), item(20)};
        items[0].expands = true;
        items[2].expands = true; // 33 left, the odd pixel to the first
        QCOMPARE(arranged(items, 101), u"0,0 37x10; 41,0 20x10; 65,0 36x10"_qs);
        items[0].maximum = {25, 100};
        items[0].heightFor = [](int width) { return width; }; // for the final width
        QCOMPARE(arranged(items, 101), u"0,0 25x25; 29,7 20x10; 53,7 48x10"_qs);
    }

    void anyWidthGivesAnEnd()
    {
        Items items(50, item(40));
        items[3].expands = true;
        items[7].minimum = {500, 5};
        for (const int width : {-INT_MAX, -1, 0, 1, 39}) {
            const ui::Flow flow = ui::arrangeFlow(items, {width, 4, 6});
            QVERIFY(flow.rows > 24 && flow.rows <= 50);
            QCOMPARE(flow.rects.at(7).width(), 500);
            for (const QRect& rect : flow.rects) {
                QVERIFY(rect.width() >= 5 && rect.bottom() < flow.height);
            }
        }
        QCOMPARE(ui::arrangeFlow(items, {INT_MAX, 4, 6}).rows, 1);
    }

    void heightFollowsWidthInAWindow()
    {
        QWidget window;
        auto* column = new QVBoxLayout(&window);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        auto* host = new QWidget;
        auto* flow = new FlowLayout(host);
        flow->setContentsMargins(1, 2, 3, 4);
        flow->setSpacing(5);
        for (int i = 0; i < 6; ++i) {
            flow->addWidget(box(40, 20));
        }
        column->addWidget(host);
        column->addWidget(new QWidget, 1);
        QCOMPARE(flow->minimumSize(), QSize(44, 26));
        QCOMPARE(flow->sizeHint(), QSize(4 + 6 * 40 + 5 * 5, 26));
        QCOMPARE(flow->heightForWidth(-5), 6 + 6 * 20 + 5 * 5);
        window.resize(300, 400);
        window.show();
        QTRY_COMPARE(host->height(), 26);
        window.resize(139, 400); // three in a row
        QTRY_COMPARE(host->height(), 6 + 2 * 20 + 5);
        QCOMPARE(flow->itemAt(3)->geometry(), QRect(1, 2 + 25, 40, 20));
        window.setLayoutDirection(Qt::RightToLeft);
        QTRY_COMPARE(flow->itemAt(0)->geometry(), QRect(139 - 3 - 40, 2, 40, 20));
        flow->setVerticalSpacing(15);
        QTRY_COMPARE(host->height(), 6 + 2 * 20 + 15);
        QCOMPARE(flow->spacing(), -1);
        flow->itemAt(0)->widget()->hide(); // takes no room
        QTRY_COMPARE(flow->itemAt(1)->geometry().x(), 139 - 3 - 40);
        QCOMPARE(flow->sizeHint().width(), 4 + 5 * 40 + 4 * 5);
    }

    void itemsComeAndGo()
    {
        QWidget window;
        auto* flow = new FlowLayout(&window);
        QWidget* const a = box(1, 1);
        const QPointer<QWidget> b = box(1, 1);
        QWidget* const c = box(1, 1);
        flow->addWidget(a);
        flow->insertWidget(0, b);
        flow->insertWidget(99, c, Qt::AlignTop);
        flow->insertWidget(0, nullptr);
        QVERIFY(flow->indexOf(b) == 0 && flow->indexOf(c) == 2);
        QCOMPARE(flow->itemAt(2)->alignment(), Qt::AlignTop);
        flow->insertWidget(1, c); // moves
        QVERIFY(flow->count() == 3 && flow->indexOf(a) == 2);
        QVERIFY(!flow->itemAt(3) && !flow->takeAt(-1));
        delete b; // takes its item along
        QCOMPARE(flow->count(), 2);
        delete flow->takeAt(0);
        QCOMPARE(flow->itemAt(0)->widget(), a);
        delete flow;
        QCOMPARE(a->parentWidget(), &window); // widgets are the window's
    }
};

const ui::test::Registration<FlowLayoutTest> kRegistration;
#include "tst_flowlayout.moc"

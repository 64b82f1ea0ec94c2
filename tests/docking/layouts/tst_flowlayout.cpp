#include "support/TestCase.h"
#include <MorrantUI/docking/layouts/FlowLayout.h>

#include <QtWidgets>

#include <limits>

namespace {

constexpr int kHuge = std::numeric_limits<int>::max();

ui::FlowItem item(int width, int height = 10, int minimum = 5)
{
    ui::FlowItem described;
    described.hint = {width, height};
    described.minimum = {minimum, minimum};
    return described;
}

ui::FlowRules rules(int width, Qt::LayoutDirection direction = Qt::LeftToRight)
{
    return {width, 4, 6, ui::FlowAlignment::Leading, direction};
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
    void rowsBreakWhereTheNextItemDoesNotFit();
    void rightToLeftMirrorsTheRows();
    void itemsStandInTheirRowsAsTheyAreAligned();
    void whatIsLeftGoesToItemsThatExpand();
    void anyWidthGivesAnEnd();
    void heightFollowsWidthInAWindow();
    void hiddenWidgetsTakeNoRoom();
    void itemsComeAndGo();
};

void FlowLayoutTest::rowsBreakWhereTheNextItemDoesNotFit()
{
    const std::vector<ui::FlowItem> items{item(40), item(40, 20), item(40), item(90)};
    const ui::Flow exact = ui::arrangeFlow(items, rules(84)); // 40 + 4 + 40
    QCOMPARE(exact.rows, 3);
    QCOMPARE(exact.rects.at(1), QRect(44, 0, 40, 20));
    QCOMPARE(exact.rects.at(0), QRect(0, 5, 40, 10)); // in the middle of its row
    QCOMPARE(exact.rects.at(2), QRect(0, 26, 40, 10));
    QCOMPARE(exact.rects.at(3), QRect(0, 42, 84, 10)); // shrunk to the width
    QCOMPARE(exact.height, 52);
    QCOMPARE(ui::arrangeFlow(items, rules(83)).rows, 4);
    QCOMPARE(ui::arrangeFlow(items, rules(222)).rows, 1);
    QCOMPARE(ui::arrangeFlow({}, rules(100)).height, 0);
}

void FlowLayoutTest::rightToLeftMirrorsTheRows()
{
    const std::vector<ui::FlowItem> items{item(40), item(30), item(50)};
    const ui::Flow there = ui::arrangeFlow(items, rules(100));
    const ui::Flow mirrored = ui::arrangeFlow(items, rules(100, Qt::RightToLeft));
    for (std::size_t i = 0; i < items.size(); ++i) {
        QCOMPARE(mirrored.rects.at(i).left(), 100 - there.rects.at(i).right() - 1);
        QCOMPARE(mirrored.rects.at(i).top(), there.rects.at(i).top());
    }
}

void FlowLayoutTest::itemsStandInTheirRowsAsTheyAreAligned()
{
    std::vector<ui::FlowItem> items{item(20, 40), item(20, 10), item(20, 10), item(20, 10)};
    items[1].alignment = Qt::AlignTop;
    items[2].alignment = Qt::AlignBottom;
    items[3].fillsHeight = true;
    const ui::Flow flow = ui::arrangeFlow(items, rules(200));
    QCOMPARE(flow.rects.at(1), QRect(24, 0, 20, 10));
    QCOMPARE(flow.rects.at(2), QRect(48, 30, 20, 10));
    QCOMPARE(flow.rects.at(3), QRect(72, 0, 20, 40));

    ui::FlowRules aligned = rules(200);
    aligned.rows = ui::FlowAlignment::Trailing;
    QCOMPARE(ui::arrangeFlow(items, aligned).rects.at(3).right(), 199);
    aligned.direction = Qt::RightToLeft;
    QCOMPARE(ui::arrangeFlow(items, aligned).rects.at(3).left(), 0);
    aligned.rows = ui::FlowAlignment::Center;
    QCOMPARE(ui::arrangeFlow(items, aligned).rects.at(3).left(), 54);
}

void FlowLayoutTest::whatIsLeftGoesToItemsThatExpand()
{
    std::vector<ui::FlowItem> items{item(20), item(20), item(20)};
    items[0].expands = true;
    items[2].expands = true;
    const ui::Flow shared = ui::arrangeFlow(items, rules(101));
    QCOMPARE(shared.rects.at(0).width(), 37); // 33 left, the odd pixel to the first
    QCOMPARE(shared.rects.at(2).width(), 36);
    QCOMPARE(shared.rects.at(2).right(), 100);
    items[0].maximum = {25, 100};
    QCOMPARE(ui::arrangeFlow(items, rules(101)).rects.at(2).width(), 48);
    items[0].heightFor = [](int width) { return width; };
    QCOMPARE(ui::arrangeFlow(items, rules(101)).rects.at(0).height(), 25); // for the final width
}

void FlowLayoutTest::anyWidthGivesAnEnd()
{
    std::vector<ui::FlowItem> items(50, item(40));
    items[3].expands = true;
    items[7].minimum = {500, 5};
    for (const int width : {-kHuge, -1, 0, 1, 39}) {
        const ui::Flow flow = ui::arrangeFlow(items, rules(width));
        QVERIFY(flow.rows > 24 && flow.rows <= 50);
        QCOMPARE(flow.rects.at(7).width(), 500);
        for (const QRect& rect : flow.rects) {
            QVERIFY(rect.width() >= 5 && rect.bottom() < flow.height);
        }
    }
    QCOMPARE(ui::arrangeFlow(items, rules(kHuge)).rows, 1);
}

void FlowLayoutTest::heightFollowsWidthInAWindow()
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
    auto* below = new QWidget;
    column->addWidget(host);
    column->addWidget(below, 1);
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
}

void FlowLayoutTest::hiddenWidgetsTakeNoRoom()
{
    QWidget window;
    auto* flow = new FlowLayout(&window);
    flow->setContentsMargins(0, 0, 0, 0);
    flow->setSpacing(2);
    QWidget* const first = box(30, 10);
    flow->addWidget(first);
    flow->addWidget(box(30, 10));
    window.resize(100, 50);
    window.show();
    QTRY_COMPARE(flow->itemAt(1)->geometry().left(), 32);
    first->hide();
    QTRY_COMPARE(flow->itemAt(1)->geometry().left(), 0);
    QCOMPARE(flow->sizeHint(), QSize(30, 10));
}

void FlowLayoutTest::itemsComeAndGo()
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
    QCOMPARE(flow->itemAt(0)->widget(), b.data());
    QCOMPARE(flow->indexOf(c), 2);
    QCOMPARE(flow->itemAt(2)->alignment(), Qt::AlignTop);
    flow->insertWidget(1, c); // moves
    QCOMPARE(flow->count(), 3);
    QCOMPARE(flow->indexOf(a), 2);
    QCOMPARE(flow->itemAt(3), nullptr);
    QCOMPARE(flow->takeAt(-1), nullptr);
    delete b; // takes its item along
    QCOMPARE(flow->count(), 2);
    delete flow->takeAt(0);
    QCOMPARE(flow->itemAt(0)->widget(), a);
    delete flow;
    QCOMPARE(a->parentWidget(), &window); // widgets are the window's
}

const ui::test::Registration<FlowLayoutTest> kRegistration;

#include "tst_flowlayout.moc"

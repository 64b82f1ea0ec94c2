// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/theme/Widget.h>
#include <MorrantUI/theme/painting.h>

using namespace ui::test;

class WidgetTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theBackgroundStopsAtTheRoundedCorners()
    {
        Widget widget;
        widget.resize(40, 40);
        QCOMPARE(pixelAt(renderWidget(widget), {20, 20}).alpha(), 0);
        widget.setBackgroundColor(Qt::red);
        const auto filled = [&] { // which corners, clockwise from the top left one
            const QImage image = renderWidget(widget, 2.0);
            QByteArray corners;
            for (const QPoint corner : {QPoint(1, 1), {38, 1}, {38, 38}, {1, 38}}) {
                corners += closeTo(pixelAt(image, corner), Qt::red) ? '1' : '0';
            }
            return corners;
        };
        const num2<double> none{0, 0};
        const num2<double> round{12, 12};
        const std::pair<std::function<void()>, const char*> steps[] = {
            {[&] { widget.setRadius(12); }, "0000"},
            {[&] { widget.setRadius(-3); }, "1111"},
            {[&] { widget.setRadius(std::numeric_limits<double>::quiet_NaN()); }, "1111"},
            {[&] { widget.setRadius(12, 0, 0, 12); }, "0110"},
            {[&] { widget.setRadius(round, round, none, none); }, "0011"},
            {[&] { widget.setRadius(1); }, "1111"}, // instead of the four
            {[&] { widget.setRadius(12); }, "0000"},
            {[&] { widget.setRadius(none, none, none, none); }, "1111"}}; // instead of the one
        for (const auto& [step, corners] : steps) {
            step();
            QCOMPARE(filled(), QByteArray(corners));
        }
    }

    void theBorderLiesInsideTheWidgetUntilItIsCleared()
    {
        QCOMPARE(ui::borderedRect({0, 0, 100, 40}, 2.0, true), QRectF(1.5, 1.5, 97, 37));
        QCOMPARE(ui::borderedRect({0, 0, 100, 40}, 2.0, false), QRectF(1, 1, 98, 38));
        Widget widget;
        widget.resize(100, 40);
        const auto column = [&](int x) { return pixelAt(renderWidget(widget), QPointF(x, 20)); };
        const auto coverage = [&](int x) { return qRound(column(x).alphaF() * 20) * 5; }; // percent
        widget.setBorder(QPen(Qt::green, 2.0)); // on pixel centres, unless told otherwise
        QVERIFY(coverage(0) == 50 && coverage(1) == 100 && coverage(99) == 50);
        widget.setPixelAlignedBorder(false);
        QVERIFY(coverage(0) == 100 && coverage(2) == 0);
        widget.setBackgroundColor(Qt::red);
        widget.clearBorder();
        QVERIFY(closeTo(column(0), Qt::red));
    }

    void theChildFillsTheWidgetInPlaceOfTheOneBefore()
    {
        Widget widget;
        const QPointer<QWidget> first = new QLabel;
        const QPointer<QWidget> second = new QLabel(u"child"_qs);
        widget.setChild(first);
        const QPointer<QLayout> firstLayout = widget.layout();
        widget.setChild(second);
        QVERIFY(first.isNull() && firstLayout.isNull());
        widget.resize(120, 60);
        widget.show();
        QTRY_COMPARE(second->geometry(), QRect(0, 0, 120, 60));
        delete second; // from outside
        const QPointer<QWidget> third = new QLabel;
        widget.setChild(third);
        QCOMPARE(widget.layout()->count(), 1);
        widget.setChild(nullptr);
        QVERIFY(third.isNull());
        QCOMPARE(widget.layout(), nullptr);
    }

    void aChildThatIsStillWantedIsNotDeleted()
    {
        QWidget window;
        Widget widget(&window);
        auto* outer = new QWidget;
        const QPointer<QWidget> inner = new QLabel(outer);
        widget.setChild(outer);
        for (QWidget* child : {inner.data(), inner.data(), static_cast<QWidget*>(&widget), &window})
        {
            widget.setChild(child); // out of the one before, again, and what cannot be hosted
            QVERIFY(!inner.isNull());
            QCOMPARE(inner->parentWidget(), &widget);
            QCOMPARE(widget.layout()->itemAt(0)->widget(), inner.data());
            QCOMPARE(widget.layout()->count(), 1);
        }
        QCOMPARE(widget.parentWidget(), &window);

        inner->setParent(&window);
        widget.setChild(nullptr);
        QVERIFY(!inner.isNull());
    }

    void eachCornerHasItsOwnEllipseUpToHalfTheRect()
    {
        const QPainterPath path =
            ui::radiusClip({{{20, 4}, {0, 0}, {4, 20}, {10, 10}}}, QRectF(10, 10, 100, 60));

        QVERIFY(!path.contains({14, 11}));
        QVERIFY(path.contains({18, 13})); // wide and flat: the side is straight again from 14 down
        QVERIFY(path.contains({109.5, 10.5}));
        QVERIFY(!path.contains({109, 66}) && path.contains({103, 69})); // narrow and tall
        QVERIFY(!path.contains({11.5, 68.5}) && path.contains({14, 66}));
        QCOMPARE(path.boundingRect(), QRectF(10, 10, 100, 60));
    }

    void textAndPixmapAreCenteredByTheirLogicalSize()
    {
        QCOMPARE(ui::centredText({101, 51}, {40, 20}, {}).baseline, QPoint(30, 30));
        QCOMPARE(ui::centredText({100, 50}, {40, 20}, {}).baseline, QPoint(29, 29));
        QCOMPARE(ui::centredText({101, 51}, {40, 20}, 21.5).pixmapTopLeft, QPoint(39, 4));
        QCOMPARE(ui::centredText({101, 51}, {40, 20}, 21.5).baseline, QPoint(30, 46));
    }
};

const Registration<WidgetTest> kRegistration;

#include "tst_widget.moc"

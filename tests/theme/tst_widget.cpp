#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/theme/FocusFrame.h>
#include <MorrantUI/theme/Widget.h>

#include <QLabel>
#include <QLayout>

#include <functional>
#include <limits>

using ui::test::closeTo;
using ui::test::pixelAt;
using ui::test::renderWidget;

namespace {

/// Counts its paints.
class PaintCounter : public Widget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        Widget::paintEvent(event);
    }
};

QPen greenPen(double width)
{
    return {QColor(Qt::green), width};
}

} // namespace

class WidgetTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFreshWidgetShowsNothing();
    void theBackgroundStopsAtTheRoundedCorners_data();
    void theBackgroundStopsAtTheRoundedCorners();
    void cornersFollowTheirOrder();
    void theBorderLiesInsideTheWidget_data();
    void theBorderLiesInsideTheWidget();
    void aClearedBorderIsGone();
    void everySetterRepaintsAVisibleWidget();
    void theChildFillsTheWidget();
    void aSecondChildReplacesTheFirst();
    void hostingTheSameChildAgainKeepsIt();
    void aChildTakenFromInsideThePreviousOneSurvives();
    void aChildThatMovedElsewhereIsNotDeleted();
    void hostingItselfOrAnAncestorIsIgnored();
    void aFocusFrameDrawsOneLineAlongItsTop();
};

void WidgetTest::aFreshWidgetShowsNothing()
{
    QWidget window;
    window.resize(40, 40);
    QPalette blue;
    blue.setColor(QPalette::Window, Qt::blue);
    window.setPalette(blue);
    Widget child(&window);
    child.resize(40, 40);
    child.setRadius(3.0);

    QCOMPARE(pixelAt(renderWidget(child), {20, 20}).alpha(), 0);
}

void WidgetTest::theBackgroundStopsAtTheRoundedCorners_data()
{
    using Setup = std::function<void(Widget&)>;
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<bool>("topLeftFilled");
    QTest::addColumn<bool>("topRightFilled");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const num2<double> square{0.0, 0.0};
    const num2<double> round{12.0, 12.0};
    const auto row = [](const char* name, Setup setup, bool topLeft, bool topRight) {
        QTest::newRow(name) << std::move(setup) << topLeft << topRight;
    };
    row(
        "square", [](Widget&) {}, true, true);
    row(
        "one radius", [](Widget& w) { w.setRadius(12.0); }, false, false);
    row(
        "negative radius", [](Widget& w) { w.setRadius(-3.0); }, true, true);
    row(
        "radius that is no number", [nan](Widget& w) { w.setRadius(nan); }, true, true);
    row(
        "four numbers", [](Widget& w) { w.setRadius(12.0, 0.0, 0.0, 0.0); }, false, true);
    row(
        "four pairs", [=](Widget& w) { w.setRadius(square, round, square, square); }, true, false);
    row(
        "pairs after one radius",
        [=](Widget& w) {
            w.setRadius(12.0);
            w.setRadius(square, square, square, square);
        },
        true,
        true);
    row(
        "one radius after pairs",
        [=](Widget& w) {
            w.setRadius(round, square, square, square);
            w.setRadius(1.0);
        },
        true,
        true);
}

void WidgetTest::theBackgroundStopsAtTheRoundedCorners()
{
    QFETCH(const std::function<void(Widget&)>, setup);
    QFETCH(const bool, topLeftFilled);
    QFETCH(const bool, topRightFilled);
    Widget widget;
    widget.resize(40, 40);
    widget.setBackgroundColor(Qt::red);
    setup(widget);

    for (const double ratio : {1.0, 2.0}) {
        const QImage image = renderWidget(widget, ratio);
        QVERIFY(closeTo(pixelAt(image, {20, 20}), Qt::red));
        QCOMPARE(pixelAt(image, {1.5, 1.5}).alpha() == 255, topLeftFilled);
        QCOMPARE(pixelAt(image, {38.4, 1.5}).alpha() == 255, topRightFilled);
    }
}

void WidgetTest::cornersFollowTheirOrder()
{
    const std::array<QPointF, 4> corners{{{1, 1}, {38, 1}, {38, 38}, {1, 38}}};
    for (std::size_t round = 0; round < corners.size(); ++round) {
        std::array<double, 4> radii{};
        radii.at(round) = 15.0;
        Widget widget;
        widget.resize(40, 40);
        widget.setBackgroundColor(Qt::red);
        widget.setRadius(radii[0], radii[1], radii[2], radii[3]);

        const QImage image = renderWidget(widget);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            QCOMPARE(pixelAt(image, corners.at(i)).alpha(), i == round ? 0 : 255);
        }
    }
}

void WidgetTest::theBorderLiesInsideTheWidget_data()
{
    QTest::addColumn<bool>("aligned");
    QTest::addColumn<int>("outermost"); // coverage of the columns from the left edge, percent
    QTest::addColumn<int>("second");
    QTest::addColumn<int>("third");

    QTest::newRow("on pixel centres") << true << 50 << 100 << 50;
    QTest::newRow("on the edge") << false << 100 << 100 << 0;
}

void WidgetTest::theBorderLiesInsideTheWidget()
{
    QFETCH(const bool, aligned);
    QFETCH(const int, outermost);
    QFETCH(const int, second);
    QFETCH(const int, third);
    Widget widget;
    widget.resize(100, 40);
    widget.setBorder(greenPen(2.0));
    widget.setPixelAlignedBorder(aligned);

    const QImage image = renderWidget(widget);
    const auto coverage = [&](int x) { return pixelAt(image, QPointF(x, 20)).alpha(); };
    const auto near = [](int alpha, int percent) { return qAbs(alpha - percent * 255 / 100) <= 3; };
    QVERIFY2(near(coverage(0), outermost), qPrintable(QString::number(coverage(0))));
    QVERIFY2(near(coverage(1), second), qPrintable(QString::number(coverage(1))));
    QVERIFY2(near(coverage(2), third), qPrintable(QString::number(coverage(2))));
    QVERIFY(near(coverage(99), outermost));
    QVERIFY(near(coverage(98), second));
}

void WidgetTest::aClearedBorderIsGone()
{
    Widget widget;
    widget.resize(20, 20);
    widget.setBackgroundColor(Qt::red);
    widget.setBorder(greenPen(4.0));
    QVERIFY(closeTo(pixelAt(renderWidget(widget), {1, 10}), Qt::green));

    widget.clearBorder();
    QVERIFY(closeTo(pixelAt(renderWidget(widget), {0, 10}), Qt::red));
}

void WidgetTest::everySetterRepaintsAVisibleWidget()
{
    PaintCounter widget;
    widget.resize(60, 60);
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QTRY_VERIFY(widget.paints > 0);

    const std::vector<std::pair<const char*, std::function<void()>>> setters{
        {"background", [&] { widget.setBackgroundColor(Qt::red); }},
        {"same background", [&] { widget.setBackgroundColor(Qt::red); }},
        {"radius", [&] { widget.setRadius(3.0); }},
        {"radii", [&] { widget.setRadius(1.0, 2.0, 3.0, 4.0); }},
        {"border", [&] { widget.setBorder(greenPen(1.0)); }},
        {"alignment", [&] { widget.setPixelAlignedBorder(false); }},
        {"no border", [&] { widget.clearBorder(); }},
    };
    for (const auto& [name, set] : setters) {
        QCoreApplication::processEvents();
        widget.paints = 0;
        set();
        QTRY_VERIFY2(widget.paints > 0, name);
    }
}

void WidgetTest::theChildFillsTheWidget()
{
    Widget widget;
    widget.setChild(new QLabel(QStringLiteral("child")));
    auto* child = widget.findChild<QLabel*>();
    widget.resize(120, 60);
    widget.show();

    QTRY_COMPARE(child->geometry(), QRect(0, 0, 120, 60));
    QVERIFY(child->isVisible());
    delete child;
    widget.setChild(new QLabel); // after the first one died from outside
    QCOMPARE(widget.layout()->count(), 1);
}

void WidgetTest::aSecondChildReplacesTheFirst()
{
    Widget widget;
    const QPointer<QWidget> first = new QLabel;
    const QPointer<QWidget> second = new QLabel;
    widget.setChild(first);
    const QPointer<QLayout> firstLayout = widget.layout();

    widget.setChild(second);
    QVERIFY(first.isNull());
    QVERIFY(firstLayout.isNull());
    QCOMPARE(widget.layout()->itemAt(0)->widget(), second.data());

    widget.setChild(nullptr);
    QVERIFY(second.isNull());
    QCOMPARE(widget.layout(), nullptr);
}

void WidgetTest::hostingTheSameChildAgainKeepsIt()
{
    Widget widget;
    const QPointer<QWidget> child = new QLabel;
    widget.setChild(child);
    widget.setChild(child);

    QVERIFY(!child.isNull());
    QCOMPARE(widget.layout()->count(), 1);
}

void WidgetTest::aChildTakenFromInsideThePreviousOneSurvives()
{
    Widget widget;
    auto* outer = new QWidget;
    const QPointer<QWidget> inner = new QLabel(outer);
    widget.setChild(outer);
    widget.setChild(inner);

    QVERIFY(!inner.isNull());
    QCOMPARE(inner->parentWidget(), &widget);
}

void WidgetTest::aChildThatMovedElsewhereIsNotDeleted()
{
    QWidget elsewhere;
    Widget widget;
    const QPointer<QWidget> child = new QLabel;
    widget.setChild(child);
    child->setParent(&elsewhere);
    widget.setChild(nullptr);

    QVERIFY(!child.isNull());
}

void WidgetTest::hostingItselfOrAnAncestorIsIgnored()
{
    QWidget window;
    Widget widget(&window);
    const QPointer<QWidget> child = new QLabel;
    widget.setChild(child);
    widget.setChild(&widget);
    widget.setChild(&window);

    QCOMPARE(widget.parentWidget(), &window);
    QCOMPARE(widget.layout()->itemAt(0)->widget(), child.data());
}

void WidgetTest::aFocusFrameDrawsOneLineAlongItsTop()
{
    morrant::FocusFrame frame(Qt::green);
    frame.resize(30, 10);
    frame.setBackgroundColor(Qt::red);

    const QImage image = renderWidget(frame, 2.0);
    QVERIFY(closeTo(pixelAt(image, {0.0, 0.0}), Qt::green));
    QVERIFY(closeTo(pixelAt(image, {29.9, 0.9}), Qt::green));
    QVERIFY(closeTo(pixelAt(image, {15.0, 1.1}), Qt::red));
}

const ui::test::Registration<WidgetTest> kRegistration;

#include "tst_widget.moc"

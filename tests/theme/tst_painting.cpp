#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/theme/painting.h>

#include <QPixmap>
#include <QWidget>

#include <limits>

namespace {

/// Paints a centred pixmap and no text.
class CentredPixmap : public QWidget
{
public:
    QPixmap pixmap;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        ui::textAtWidgetCentre(this, QString(), Qt::black, &pixmap);
    }
};

QRegion covered(const QPainterPath& path)
{
    return QRegion(path.toFillPolygon(QTransform::fromScale(10.0, 10.0)).toPolygon());
}

} // namespace

class PaintingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aBorderedRectKeepsThePenInside_data();
    void aBorderedRectKeepsThePenInside();
    void equalRadiiGiveQtsRoundedRect();
    void eachCornerHasItsOwnEllipse();
    void radiiAreLimitedToHalfTheRect_data();
    void radiiAreLimitedToHalfTheRect();
    void textAndPixmapAreCentred_data();
    void textAndPixmapAreCentred();
    void aSharpPixmapIsCentredByItsLogicalSize();
};

void PaintingTest::aBorderedRectKeepsThePenInside_data()
{
    QTest::addColumn<double>("penWidth");
    QTest::addColumn<bool>("aligned");
    QTest::addColumn<QRectF>("expected");

    QTest::newRow("aligned") << 2.0 << true << QRectF(1.5, 1.5, 97, 37);
    QTest::newRow("not aligned") << 2.0 << false << QRectF(1, 1, 98, 38);
    QTest::newRow("cosmetic") << 0.0 << false << QRectF(0, 0, 100, 40);
    QTest::newRow("hairline, aligned") << 1.0 << true << QRectF(1, 1, 98, 38);
}

void PaintingTest::aBorderedRectKeepsThePenInside()
{
    QFETCH(const double, penWidth);
    QFETCH(const bool, aligned);
    QTEST(ui::borderedRect(QRectF(0, 0, 100, 40), penWidth, aligned), "expected");
}

void PaintingTest::equalRadiiGiveQtsRoundedRect()
{
    const QRectF rect(3, 5, 60, 40);
    const num2<double> radius{8.0, 8.0};
    QPainterPath expected;
    expected.addRoundedRect(rect, 8.0, 8.0);
    const QPainterPath path = ui::radiusClip({radius, radius, radius, radius}, rect);

    const QRegion difference = covered(path).xored(covered(expected));
    qint64 area = 0;
    for (const QRect& part : difference) {
        area += part.width() * part.height();
    }
    QVERIFY2(area < 100, qPrintable(QString::number(area))); // hundredths of a square pixel
}

void PaintingTest::eachCornerHasItsOwnEllipse()
{
    const QPainterPath path =
        ui::radiusClip({{{20, 4}, {0, 0}, {4, 20}, {10, 10}}}, QRectF(10, 10, 100, 60));

    QVERIFY(!path.contains({14, 11}));
    QVERIFY(path.contains({18, 13})); // wide and flat: the side is straight again from 14 down
    QVERIFY(path.contains({109.5, 10.5}));
    QVERIFY(!path.contains({109, 66}));
    QVERIFY(path.contains({103, 69})); // narrow and tall
    QVERIFY(!path.contains({11.5, 68.5}));
    QVERIFY(path.contains({14, 66}));
    QCOMPARE(path.boundingRect(), QRectF(10, 10, 100, 60));
}

void PaintingTest::radiiAreLimitedToHalfTheRect_data()
{
    QTest::addColumn<double>("given");
    QTest::addColumn<double>("used");

    QTest::newRow("larger than half") << 500.0 << 20.0;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 20.0;
    QTest::newRow("negative") << -4.0 << 0.0;
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0.0;
}

void PaintingTest::radiiAreLimitedToHalfTheRect()
{
    QFETCH(const double, given);
    QFETCH(const double, used);
    const auto path = [](double radius) {
        const num2<double> corner{radius, radius};
        return ui::radiusClip({corner, corner, corner, corner}, QRectF(0, 0, 40, 40));
    };
    QCOMPARE(path(given), path(used));
    QCOMPARE(path(given).boundingRect(), QRectF(0, 0, 40, 40));
}

void PaintingTest::textAndPixmapAreCentred_data()
{
    QTest::addColumn<QSize>("widget");
    QTest::addColumn<double>("pixmapWidth"); // none below zero
    QTest::addColumn<QPoint>("pixmap");
    QTest::addColumn<QPoint>("baseline");

    QTest::newRow("text alone") << QSize(100, 50) << -1.0 << QPoint() << QPoint(29, 29);
    QTest::newRow("odd size") << QSize(101, 51) << -1.0 << QPoint() << QPoint(30, 30);
    QTest::newRow("with pixmap") << QSize(101, 51) << 16.0 << QPoint(42, 7) << QPoint(30, 43);
    QTest::newRow("fraction") << QSize(101, 51) << 21.5 << QPoint(39, 4) << QPoint(30, 46);
}

void PaintingTest::textAndPixmapAreCentred()
{
    QFETCH(const QSize, widget);
    QFETCH(const double, pixmapWidth);
    QFETCH(const QPoint, pixmap);
    const auto width = pixmapWidth >= 0.0 ? std::optional(pixmapWidth) : std::nullopt;
    const ui::CentredText place = ui::centredText(widget, QSize(40, 20), width);

    QCOMPARE(place.pixmapTopLeft.has_value(), width.has_value());
    QCOMPARE(place.pixmapTopLeft.value_or(QPoint()), pixmap);
    QTEST(place.baseline, "baseline");
}

void PaintingTest::aSharpPixmapIsCentredByItsLogicalSize()
{
    CentredPixmap widget;
    widget.resize(101, 101);
    widget.pixmap = QPixmap(40, 40);
    widget.pixmap.setDevicePixelRatio(2.0);
    widget.pixmap.fill(Qt::red);

    const QImage image = ui::test::renderWidget(widget);
    const auto red = [&](QPoint point) {
        return ui::test::closeTo(ui::test::pixelAt(image, point), Qt::red);
    };
    // Without text the box is the one pixel that is added to its sides: 50 - 10 - 0.25 - 5.
    QVERIFY(red({40, 35}) && red({59, 54}));
    QVERIFY(!red({39, 35}) && !red({60, 54}) && !red({50, 34}) && !red({50, 55}));
}

const ui::test::Registration<PaintingTest> kRegistration;

#include "tst_painting.moc"

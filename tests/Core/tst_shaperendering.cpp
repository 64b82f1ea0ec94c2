#include "support/TestCase.h"

#include <Core/ShapeRendering.h>

#include <include/core/SkBlendMode.h>

class ShapeRenderingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyDrawingStartsFromTheSamePaint();
};

void ShapeRenderingTest::everyDrawingStartsFromTheSamePaint()
{
    SkPaint paint = ShapeRendering::commonPaint();
    QVERIFY(paint.isAntiAlias());
    QCOMPARE(paint.getStyle(), SkPaint::kFill_Style);
    QCOMPARE(paint.getColor(), SK_ColorBLACK);
    QVERIFY(paint.isSrcOver());

    paint.setColor(SK_ColorRED);
    QCOMPARE(ShapeRendering::commonPaint().getColor(), SK_ColorBLACK);
}

const ui::test::Registration<ShapeRenderingTest> kRegistration;

#include "tst_shaperendering.moc"

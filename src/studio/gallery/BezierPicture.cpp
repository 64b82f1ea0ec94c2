// SPDX-License-Identifier: Apache-2.0
#include "gallery/BezierPicture.h"

#include "gallery/recoloring.h"
#include <MorrantUI/theme/colors.h>

#include <include/core/SkCanvas.h>
#include <include/core/SkMatrix.h>
#include <include/core/SkPaint.h>
#include <include/core/SkPath.h>

#include <cmath>

namespace studio {

namespace {

constexpr float kMargin = 26.0F; ///< around the curve, logical pixels
constexpr float kGridStep = 26.0F;
constexpr float kKeyReach = 6.0F; ///< from a key's centre to its points
constexpr int kShapes = 22;

SkColor named(const char* name)
{
    return ui::color(name);
}

SkColor fadedNamed(const char* name, U8CPU alpha)
{
    return SkColorSetA(named(name), alpha);
}

/// Two keys and the handles between them, in the canvas's units.
struct Segment
{
    SkPoint start;
    SkPoint startHandle;
    SkPoint endHandle;
    SkPoint end;

    SkPoint at(float t) const
    {
        const float s = 1.0F - t;
        const float a = s * s * s;
        const float b = 3 * s * s * t;
        const float c = 3 * s * t * t;
        const float d = t * t * t;
        return {
            a * start.x() + b * startHandle.x() + c * endHandle.x() + d * end.x(),
            a * start.y() + b * startHandle.y() + c * endHandle.y() + d * end.y()};
    }
};

Segment segmentIn(float width, float height)
{
    const float left = kMargin;
    const float right = width - kMargin;
    const float top = kMargin;
    const float bottom = height - kMargin;
    const float reach = (right - left) * 0.55F;
    return {{left, bottom}, {left + reach, bottom}, {right - reach, top}, {right, top}};
}

SkPaint stroke(const SkPaint& base, SkColor color, float width)
{
    SkPaint paint(base);
    paint.setStyle(SkPaint::kStroke_Style);
    paint.setStrokeWidth(width);
    paint.setStrokeCap(SkPaint::kRound_Cap);
    paint.setColor(color);
    return paint;
}

void drawGrid(SkCanvas& canvas, const SkPaint& base, float width, float height)
{
    const SkPaint paint = stroke(base, fadedNamed("Midlight", 110), 1.0F);
    for (float x = kMargin; x <= width - kMargin + 1; x += kGridStep) {
        canvas.drawLine(
            std::floor(x) + 0.5F, kMargin, std::floor(x) + 0.5F, height - kMargin, paint);
    }
    for (float y = kMargin; y <= height - kMargin + 1; y += kGridStep) {
        canvas.drawLine(
            kMargin, std::floor(y) + 0.5F, width - kMargin, std::floor(y) + 0.5F, paint);
    }
}

SkColor4f between(const char* from, const char* to, float share)
{
    const SkColor4f a = SkColor4f::FromColor(named(from));
    const SkColor4f b = SkColor4f::FromColor(named(to));
    const auto mix = [share](float x, float y) { return x + (y - x) * share; };
    return {mix(a.fR, b.fR), mix(a.fG, b.fG), mix(a.fB, b.fB), 1.0F};
}

/// Squares that turn and grow along the curve, from one accent to another.
void drawShapes(SkCanvas& canvas, const SkPaint& base, const Segment& segment)
{
    SkPaint paint(base);
    for (int index = 0; index < kShapes; ++index) {
        const float t = static_cast<float>(index) / (kShapes - 1);
        const SkPoint center = segment.at(t);
        const float side = 6.0F + 22.0F * t;
        const SkRect square =
            SkRect::MakeXYWH(center.x() - side / 2, center.y() - side / 2, side, side);
        SkPath path;
        path.addRoundRect(square, side * 0.22F, side * 0.22F);
        path.transform(SkMatrix::RotateDeg(90.0F * t, center));
        paint.setColor4f(between("Accent2", "Accent3", t));
        paint.setAlphaf(0.12F + 0.3F * t);
        canvas.drawPath(path, paint);
    }
}

void drawCurve(SkCanvas& canvas, const SkPaint& base, const Segment& segment)
{
    SkPath path;
    path.moveTo(segment.start);
    path.cubicTo(segment.startHandle, segment.endHandle, segment.end);
    canvas.drawPath(path, stroke(base, named("Yellow"), 2.0F));
}

void drawHandle(SkCanvas& canvas, const SkPaint& base, SkPoint key, SkPoint handle)
{
    canvas.drawLine(key, handle, stroke(base, named("Light"), 1.25F));
    SkPaint disc(base);
    disc.setColor(named("Window"));
    canvas.drawCircle(handle, 4.0F, disc);
    canvas.drawCircle(handle, 4.0F, stroke(base, named("Light"), 1.5F));
}

void drawKey(SkCanvas& canvas, const SkPaint& base, SkPoint center, const char* color)
{
    SkPath diamond;
    diamond.moveTo(center.x() - kKeyReach, center.y());
    diamond.lineTo(center.x(), center.y() - kKeyReach);
    diamond.lineTo(center.x() + kKeyReach, center.y());
    diamond.lineTo(center.x(), center.y() + kKeyReach);
    diamond.close();
    SkPaint fill(base);
    fill.setColor(named(color));
    canvas.drawPath(diamond, fill);
    canvas.drawPath(diamond, stroke(base, named("Base"), 1.5F));
}

} // namespace

BezierPicture::BezierPicture(QWidget* parent)
    : SkiaQWidgetAdapter(parent)
{
    gallery::keepColored(
        this, [this] { setBackgroundColor(ui::colorQt(QStringLiteral("WindowBase"))); });
    setRadius(6);
    setMinimumHeight(180);
}

BezierPicture::~BezierPicture() = default;

QSize BezierPicture::sizeHint() const
{
    return {420, 220};
}

void BezierPicture::paintSkia(SkCanvas* canvas, const SkPaint& paint)
{
    const auto wide = static_cast<float>(width());
    const auto high = static_cast<float>(height());
    const Segment segment = segmentIn(wide, high);
    drawGrid(*canvas, paint, wide, high);
    drawShapes(*canvas, paint, segment);
    drawCurve(*canvas, paint, segment);
    drawHandle(*canvas, paint, segment.start, segment.startHandle);
    drawHandle(*canvas, paint, segment.end, segment.endHandle);
    drawKey(*canvas, paint, segment.start, "Light");
    drawKey(*canvas, paint, segment.end, "Accent1");
}

} // namespace studio

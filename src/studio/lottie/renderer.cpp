// SPDX-License-Identifier: Apache-2.0
#include "lottie/renderer.h"

#include "lottie/BoundsCanvas.h"
#include "lottie/drawcost.h"
#include "lottie/evaluate.h"
#include "lottie/gradients.h"
#include "lottie/masking.h"
#include "lottie/outlines.h"
#include "lottie/paints.h"

#include <include/core/SkBlendMode.h>
#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>
#include <include/core/SkShader.h>
#include <include/core/SkSurface.h>
#include <include/effects/SkDashPathEffect.h>

#include <algorithm>
#include <numeric>

namespace studio {

namespace {

// Draws of this opacity cannot be seen.
constexpr float kInvisible = 0.5f / 255;

// Precompositions never hold themselves as read; an edit could make them. Deeper ones stay out.
constexpr int kMaxLevel = 100;

// A dash and its gap that are shorter than this cannot be told from a line, in device pixels.
constexpr double kShortestDash = 0.1;

using Items = std::vector<ShapeItem>;

// The trims that a group lies under, the innermost first.
using Trims = std::vector<const TrimShape*>;

template <typename Shape>
bool is(const ShapeItem& item)
{
    return std::holds_alternative<Shape>(item.shape);
}

bool isStyle(const ShapeItem& item)
{
    return is<FillShape>(item) || is<StrokeShape>(item) || is<GradientFillShape>(item)
           || is<GradientStrokeShape>(item);
}

// The outlines of a list of items, and how many of them stand above each item.
struct Outlines
{
    std::vector<SkPath> paths;
    std::vector<std::size_t> above;
};

bool isShown(const Layer& layer, double frame)
{
    return layer.inPoint <= frame && frame < layer.outPoint;
}

// Whether anything has been drawn that can be seen.
bool hasInk(SkSurface& surface)
{
    constexpr SkAlpha kSeen = 0x10;
    SkPixmap pixels;
    if (!surface.peekPixels(&pixels)) {
        return false;
    }
    for (int y = 0; y < pixels.height(); ++y) {
        const SkPMColor* row = pixels.addr32(0, y);
        if (std::any_of(row, row + pixels.width(), [](SkPMColor color) {
                return SkColorGetA(color) >= kSeen; // in both forms the top byte
            }))
        {
            return true;
        }
    }
    return false;
}

// Of looking at one shape item, whatever it is.
constexpr double kItemCost = 100;

double layerMatrixCost(const Composition& composition, const Layer& layer)
{
    double cost = transformCost(layer.transform);
    for (int parent = layer.parent; parent >= 0 && cost <= kMaxDrawCost;) {
        const Layer& above = composition.layers[static_cast<std::size_t>(parent)];
        cost += transformCost(above.transform);
        parent = above.parent;
    }
    return cost;
}

// What is drawn shows through with an opacity. A single draw takes it into its paint; several that
// overlap have to be put together in a layer of their own first.
class OpacityScope
{
public:
    OpacityScope(SkCanvas& canvas, float opacity, bool isSingleDraw)
        : m_restore(&canvas, false)
        , m_opacity(isSingleDraw ? opacity : 1)
    {
        if (!isSingleDraw && opacity < 1) {
            canvas.saveLayerAlphaf(nullptr, opacity);
        }
    }

    /// What is left for the paints.
    float opacity() const { return m_opacity; }

private:
    SkAutoCanvasRestore m_restore;
    float m_opacity;
};

class Renderer
{
public:
    Renderer(SkCanvas& canvas, const Document& document)
        : m_canvas(canvas)
        , m_document(document)
    {}

    void drawComposition(const Composition& composition, double frame);
    /// Without what clips, fades or moves the layer.
    void drawContent(const Layer& layer, float opacity, double frame);
    /// @return the first layer from above that leaves something on the canvas, which is `surface`'s
    const Layer* topmost(const Composition& composition, double frame, SkSurface& surface);

    const DrawResult& result() const { return m_result; }

private:
    void drawLayer(const Composition& composition, const Layer& layer, double frame);
    void drawMasked(
        const Composition& composition, const Layer& layer, float opacity, double frame);
    void drawPrecomposition(const Layer& layer, double frame, float opacity);
    void drawSolid(const Layer& layer, float opacity);
    void drawShapes(const Items& items, float opacity, const Trims& outer, double frame);
    void drawGroup(const GroupShape& group, float opacity, const Trims& outer, double frame);
    void drawStyle(const ShapeItem& item, const SkPath& path, float opacity, double frame);
    template <typename Ink>
    void drawFill(const FillStyle& fill, const Ink& ink, SkPath path, float opacity, double frame);
    template <typename Ink>
    void drawStroke(
        const StrokeStyle& stroke, const Ink& ink, const SkPath& path, float opacity, double frame);
    bool mixInk(SkPaint& paint, const NumberProperty& color, double pixels, double frame);
    bool mixInk(SkPaint& paint, const Gradient& gradient, double pixels, double frame);

    Outlines collectOutlines(const Items& items, const Trims& outer, double frame);
    void trimWithin(std::vector<SkPath>& paths, const TrimShape& trimming, double frame);
    void mergeWithin(std::vector<SkPath>& paths, const MergeShape& merging);
    SkPath joined(const std::vector<SkPath>& paths, std::size_t count);
    int countStyles(const Items& items);

    // Whether there is still budget for this; once there is not, nothing more is drawn.
    bool spend(double cost);
    double pixelsUnder(const SkRect& area) const;
    double clipPixels() const;
    double layerCost(float opacity, bool isSingleDraw) const;
    double matteCost(MatteMode mode) const;
    double maskCost(const std::vector<MaskShape>& masks) const;
    double scale() const { return m_canvas.getLocalToDeviceAs3x3().getMaxScale(); }
    PathExtent extentOnDevice(const SkPath& path) const;

    SkCanvas& m_canvas;
    const Document& m_document;
    int m_level = 0;
    DrawResult m_result;
    bool m_isSpent = false;
};

bool Renderer::spend(double cost)
{
    m_isSpent = m_isSpent || !(m_result.cost + cost <= kMaxDrawCost);
    m_result.cost += m_isSpent ? 0 : cost;
    return !m_isSpent;
}

double Renderer::pixelsUnder(const SkRect& area) const
{
    SkRect device = m_canvas.getLocalToDeviceAs3x3().mapRect(area);
    const bool isSeen = device.intersect(SkRect::Make(m_canvas.getDeviceClipBounds()));
    return isSeen ? double(device.width()) * double(device.height()) : 0;
}

double Renderer::clipPixels() const
{
    const SkIRect clip = m_canvas.getDeviceClipBounds();
    return double(clip.width()) * clip.height();
}

double Renderer::layerCost(float opacity, bool isSingleDraw) const
{
    const bool needsLayer = !isSingleDraw && opacity < 1;
    return needsLayer ? 2 * pixelCost(clipPixels()) : 0;
}

double Renderer::matteCost(MatteMode mode) const
{
    return 4 * pixelCost(clipPixels()) + (isLuma(mode) ? lumaCost(clipPixels()) : 0);
}

double Renderer::maskCost(const std::vector<MaskShape>& masks) const
{
    const bool isClip = areClips(masks);
    const auto room = roomOf(masks);
    const double layers = 4 * pixelCost(room ? pixelsUnder(*room) : clipPixels());
    return std::accumulate(
        masks.begin(), masks.end(), isClip ? 0 : layers, [&](double sum, const MaskShape& mask) {
            const PathExtent extent = extentOnDevice(mask.path);
            const bool isBounded =
                mask.mode != MaskMode::Intersect && !mask.path.isInverseFillType();
            const double pixels =
                isBounded || isClip ? pixelsUnder(mask.path.getBounds()) : 2 * clipPixels();
            return sum + copyCost(extent) + 2 * fillCost(extent) + pixelCost(pixels);
        });
}

PathExtent Renderer::extentOnDevice(const SkPath& path) const
{
    return extentOf(path, scale(), m_canvas.getDeviceClipBounds().height());
}

int Renderer::countStyles(const Items& items)
{
    spend(10 * static_cast<double>(items.size()));
    return std::accumulate(items.begin(), items.end(), 0, [this](int sum, const ShapeItem& item) {
        const auto* group = std::get_if<GroupShape>(&item.shape);
        return item.hidden ? sum : sum + (group ? countStyles(group->items) : isStyle(item));
    });
}

void Renderer::trimWithin(std::vector<SkPath>& paths, const TrimShape& trimming, double frame)
{
    const double cost =
        std::accumulate(paths.begin(), paths.end(), 0.0, [](double sum, const SkPath& path) {
            return sum + 3 * measureCost(extentOf(path)) + dashCost(1);
        });
    if (spend(cost)) {
        trim(paths, trimming, frame);
    }
}

void Renderer::mergeWithin(std::vector<SkPath>& paths, const MergeShape& merging)
{
    const double verbs =
        std::accumulate(paths.begin(), paths.end(), 0.0, [](double sum, const SkPath& path) {
            return sum + path.countVerbs();
        });
    if (spend(merging.mode == MergeMode::Append ? copyCost({verbs}) : mergeCost(verbs))) {
        merge(paths, merging);
    }
}

Outlines Renderer::collectOutlines(const Items& items, const Trims& outer, double frame)
{
    Outlines result;
    for (const ShapeItem& item : items) {
        result.above.push_back(result.paths.size());
        if (item.hidden || m_isSpent) {
            continue;
        }
        if (const auto* trimming = std::get_if<TrimShape>(&item.shape)) {
            trimWithin(result.paths, *trimming, frame);
        } else if (const auto* merging = std::get_if<MergeShape>(&item.shape)) {
            mergeWithin(result.paths, *merging);
        } else if (const auto* group = std::get_if<GroupShape>(&item.shape)) {
            spend(transformCost(group->transform));
            const SkMatrix matrix = matrixAt(group->transform, frame);
            for (const SkPath& path : collectOutlines(group->items, {}, frame).paths) {
                if (spend(copyCost({double(path.countVerbs())}))) {
                    path.transform(matrix, &result.paths.emplace_back());
                }
            }
        } else if (SkPath path = outlineAt(item, frame); !path.isEmpty()) {
            spend(copyCost({double(path.countVerbs())}));
            result.paths.push_back(std::move(path));
        }
    }
    for (const TrimShape* trimming : outer) {
        trimWithin(result.paths, *trimming, frame);
    }
    return result;
}

SkPath Renderer::joined(const std::vector<SkPath>& paths, std::size_t count)
{
    SkPath all = count > 0 ? paths.front() : SkPath();
    for (std::size_t i = 1; i < count && spend(copyCost({double(paths[i].countVerbs())})); ++i) {
        all.addPath(paths[i]);
    }
    return all;
}

void Renderer::drawComposition(const Composition& composition, double frame)
{
    for (auto layer = composition.layers.rbegin(); layer != composition.layers.rend(); ++layer) {
        if (isShown(*layer, frame) && !layer->hidden && !layer->isMatte) {
            drawLayer(composition, *layer, frame);
        }
        if (m_isSpent) {
            m_result.unfinished = m_result.unfinished ? m_result.unfinished : &*layer;
            return;
        }
    }
}

const Layer* Renderer::topmost(const Composition& composition, double frame, SkSurface& surface)
{
    for (const Layer& layer : composition.layers) {
        const bool isSeen = isShown(layer, frame) && !layer.hidden && !layer.isMatte;
        if (isSeen && !layer.locked) {
            drawLayer(composition, layer, frame);
        }
        if (m_isSpent || hasInk(surface)) {
            return m_isSpent ? nullptr : &layer;
        }
    }
    return nullptr;
}

void Renderer::drawLayer(const Composition& composition, const Layer& layer, double frame)
{
    const auto opacity = static_cast<float>(opacityAt(layer.transform.opacity, frame));
    const bool isDrawn = layer.kind != LayerKind::Null && layer.kind != LayerKind::Other;
    if (!isDrawn || opacity < kInvisible || !spend(layerMatrixCost(composition, layer))) {
        return;
    }
    const Layer* matte = matteOf(composition, layer);
    if (!matte) {
        drawMasked(composition, layer, opacity, frame);
    } else if (spend(matteCost(layer.matte))) {
        const SkAutoCanvasRestore restore(&m_canvas, false);
        m_canvas.saveLayer(nullptr, nullptr);
        drawMasked(composition, layer, opacity, frame);
        const SkPaint paint = mattePaint(layer.matte);
        m_canvas.saveLayer(nullptr, &paint);
        if (isShown(*matte, frame)) {
            drawLayer(composition, *matte, frame);
        }
    }
}

void Renderer::drawMasked(
    const Composition& composition, const Layer& layer, float opacity, double frame)
{
    const SkAutoCanvasRestore restore(&m_canvas, true);
    m_canvas.concat(layerMatrix(composition, layer, frame));
    const std::vector<MaskShape> masks = masksAt(layer, frame);
    if (!spend(maskCost(masks))) {
        return;
    }
    if (areClips(masks)) {
        clipTo(m_canvas, masks);
        drawContent(layer, opacity, frame);
        return;
    }
    const auto room = roomOf(masks);
    m_canvas.saveLayer(room ? &*room : nullptr, nullptr);
    drawContent(layer, opacity, frame);
    SkPaint paint;
    paint.setBlendMode(SkBlendMode::kDstIn);
    m_canvas.saveLayer(nullptr, &paint);
    paintCoverage(m_canvas, masks);
}

void Renderer::drawContent(const Layer& layer, float opacity, double frame)
{
    if (layer.kind == LayerKind::Solid) {
        drawSolid(layer, opacity);
    } else if (layer.kind == LayerKind::Precomposition) {
        drawPrecomposition(layer, frame, opacity);
    } else {
        const bool isSingleDraw = countStyles(layer.shapes) <= 1;
        if (spend(layerCost(opacity, isSingleDraw))) {
            const OpacityScope scope(m_canvas, opacity, isSingleDraw);
            drawShapes(layer.shapes, scope.opacity(), {}, frame);
        }
    }
}

void Renderer::drawPrecomposition(const Layer& layer, double frame, float opacity)
{
    if (layer.composition < 0 || m_level >= kMaxLevel || !spend(layerCost(opacity, false))) {
        return;
    }
    m_canvas.clipRect(
        SkRect::MakeWH(static_cast<float>(layer.width), static_cast<float>(layer.height)), true);
    const OpacityScope scope(m_canvas, opacity, false);
    ++m_level;
    drawComposition(
        m_document.compositions[static_cast<std::size_t>(layer.composition)],
        innerFrame(layer, frame, m_document.frameRate));
    --m_level;
}

void Renderer::drawSolid(const Layer& layer, float opacity)
{
    const auto area =
        SkRect::MakeWH(static_cast<float>(layer.width), static_cast<float>(layer.height));
    const double pixels = pixelsUnder(area);
    SkPaint paint = paintOf(opacity);
    if (spend(pixelCost(pixels)) && mixInk(paint, layer.color, pixels, 0)) {
        m_canvas.drawRect(area, paint);
    }
}

void Renderer::drawShapes(const Items& items, float opacity, const Trims& outer, double frame)
{
    const bool hasStyle = std::any_of(items.begin(), items.end(), isStyle);
    const Outlines outlines = hasStyle ? collectOutlines(items, outer, frame) : Outlines();
    Trims trims = outer;
    SkPath path;
    std::size_t pathCount = 0; // that `path` is made of; styles one after the other share it
    for (std::size_t i = items.size(); i-- > 0 && spend(kItemCost);) {
        const ShapeItem& item = items[i];
        if (item.hidden) {
            continue;
        }
        if (isStyle(item)) {
            if (outlines.above[i] != pathCount) {
                pathCount = outlines.above[i];
                path = joined(outlines.paths, pathCount);
            }
            drawStyle(item, path, opacity, frame);
        } else if (const auto* group = std::get_if<GroupShape>(&item.shape)) {
            drawGroup(*group, opacity, trims, frame);
        } else if (const auto* trimming = std::get_if<TrimShape>(&item.shape)) {
            trims.insert(trims.begin(), trimming); // for the groups above it
        }
    }
}

void Renderer::drawGroup(const GroupShape& group, float opacity, const Trims& outer, double frame)
{
    const auto own = static_cast<float>(opacityAt(group.transform.opacity, frame));
    const bool isSingleDraw = countStyles(group.items) <= 1;
    const double cost = transformCost(group.transform) + layerCost(own, isSingleDraw);
    if (own * opacity < kInvisible || !spend(cost)) {
        return;
    }
    const SkAutoCanvasRestore restore(&m_canvas, true);
    m_canvas.concat(matrixAt(group.transform, frame));
    const OpacityScope scope(m_canvas, own, isSingleDraw);
    drawShapes(group.items, opacity * scope.opacity(), outer, frame);
}

void Renderer::drawStyle(const ShapeItem& item, const SkPath& path, float opacity, double frame)
{
    if (const auto* fill = std::get_if<FillShape>(&item.shape)) {
        drawFill(*fill, fill->color, path, opacity, frame);
    } else if (const auto* stroke = std::get_if<StrokeShape>(&item.shape)) {
        drawStroke(*stroke, stroke->color, path, opacity, frame);
    } else if (const auto* blend = std::get_if<GradientFillShape>(&item.shape)) {
        drawFill(*blend, blend->gradient, path, opacity, frame);
    } else if (const auto* line = std::get_if<GradientStrokeShape>(&item.shape)) {
        drawStroke(*line, line->gradient, path, opacity, frame);
    }
}

template <typename Ink>
void Renderer::drawFill(
    const FillStyle& fill, const Ink& ink, SkPath path, float opacity, double frame)
{
    path.setFillType(
        fill.rule == FillRule::EvenOdd ? SkPathFillType::kEvenOdd : SkPathFillType::kWinding);
    SkPaint paint = paintOf(opacity * static_cast<float>(opacityAt(fill.opacity, frame)));
    const double pixels = pixelsUnder(path.getBounds());
    const double cost = fillCost(extentOnDevice(path)) + pixelCost(pixels);
    if (spend(cost) && mixInk(paint, ink, pixels, frame)) {
        m_canvas.drawPath(path, paint);
    }
}

template <typename Ink>
void Renderer::drawStroke(
    const StrokeStyle& stroke, const Ink& ink, const SkPath& path, float opacity, double frame)
{
    SkPaint paint = paintOf(opacity * static_cast<float>(opacityAt(stroke.opacity, frame)));
    applyStroke(stroke, frame, paint);
    if (!(paint.getStrokeWidth() > 0)) { // Skia draws a width of 0 as a hairline
        return;
    }
    const PathExtent extent = extentOnDevice(path);
    const double pixels =
        pixelsUnder(path.getBounds().makeOutset(paint.getStrokeWidth(), paint.getStrokeWidth()));
    double cost = strokeCost(extent) + pixelCost(pixels);
    const std::vector<float> dashes = dashesOf(stroke, frame);
    const double period = std::accumulate(dashes.begin(), dashes.end(), 0.0);
    if (period * scale() >= kShortestDash) {
        const auto perPeriod = static_cast<double>(dashes.size());
        cost += measureCost(extent) + dashCost((extent.length / period + 1) * perPeriod);
        paint.setPathEffect(SkDashPathEffect::Make(
            SkSpan<const float>(dashes.data(), dashes.size()),
            static_cast<float>(scalarAt(stroke.dashOffset, frame))));
    }
    if (spend(cost) && mixInk(paint, ink, pixels, frame)) {
        m_canvas.drawPath(path, paint);
    }
}

bool Renderer::mixInk(SkPaint& paint, const NumberProperty& color, double, double frame)
{
    const Numbers channels = valueAt(color, frame);
    const auto channel = [&](std::size_t i) {
        return static_cast<float>(std::clamp(channels[i], 0.0, 1.0));
    };
    paint.setColor4f({channel(0), channel(1), channel(2), paint.getAlphaf()});
    return true;
}

bool Renderer::mixInk(SkPaint& paint, const Gradient& gradient, double pixels, double frame)
{
    const GradientStops stops = valueAt(gradient.stops, frame);
    if (spend(gradientCost(static_cast<double>(stops.size()), pixels))) {
        paint.setShader(shaderAt(gradient, stops, frame));
    }
    return paint.getShader() != nullptr;
}

} // namespace

DrawResult draw(SkCanvas& canvas, const Document& document, double frame)
{
    const SkAutoCanvasRestore restore(&canvas, true);
    canvas.clipRect(SkRect::MakeIWH(document.width, document.height));
    Renderer renderer(canvas, document);
    renderer.drawComposition(document.main, frame);
    return renderer.result();
}

const Layer* layerAt(const Document& document, double frame, SkPoint point, double scale)
{
    constexpr int kSide = 3; // device pixels: the pointer's and those around it
    const auto surface = SkSurfaces::Raster(SkImageInfo::MakeN32Premul(kSide, kSide));
    SkCanvas& canvas = *surface->getCanvas();
    canvas.clear(SK_ColorTRANSPARENT);
    canvas.translate(kSide / 2.0f, kSide / 2.0f);
    canvas.scale(static_cast<float>(scale), static_cast<float>(scale));
    canvas.translate(-point.x(), -point.y());
    canvas.clipRect(SkRect::MakeIWH(document.width, document.height));
    return Renderer(canvas, document).topmost(document.main, frame, *surface);
}

SkRect boundsOf(const Document& document, const Layer& layer, double frame)
{
    if (layer.kind == LayerKind::Solid || layer.kind == LayerKind::Precomposition) {
        return SkRect::MakeWH(static_cast<float>(layer.width), static_cast<float>(layer.height));
    }
    // A small canvas, as drawing costs by its pixels; its scale is a power of two, which is exact.
    constexpr int kSide = 1024;
    constexpr float kScale = 1.0f / 512;
    BoundsCanvas canvas(SkIRect::MakeLTRB(-kSide, -kSide, kSide, kSide));
    canvas.scale(kScale, kScale);
    Renderer(canvas, document).drawContent(layer, 1, frame);
    const SkRect bounds = SkMatrix::Scale(1 / kScale, 1 / kScale).mapRect(canvas.bounds());
    return bounds.isFinite() ? bounds : SkRect::MakeEmpty();
}

} // namespace studio

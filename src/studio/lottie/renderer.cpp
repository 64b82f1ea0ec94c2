#include "lottie/renderer.h"

#include "lottie/evaluate.h"
#include "lottie/outlines.h"

#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>
#include <include/effects/SkDashPathEffect.h>

#include <algorithm>
#include <numeric>

namespace studio {

namespace {

// Draws of this opacity cannot be seen.
constexpr float kInvisible = 0.5f / 255;

// Precompositions never hold themselves as read; an edit could make them. Deeper ones stay out.
constexpr int kMaxLevel = 100;

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
    return is<FillShape>(item) || is<StrokeShape>(item);
}

int countStyles(const Items& items)
{
    return std::accumulate(items.begin(), items.end(), 0, [](int sum, const ShapeItem& item) {
        const auto* group = std::get_if<GroupShape>(&item.shape);
        return item.hidden ? sum : sum + (group ? countStyles(group->items) : isStyle(item));
    });
}

// The outlines of a list of items, and how many of them stand above each item.
struct Outlines
{
    std::vector<SkPath> paths;
    std::vector<std::size_t> above;
};

Outlines collectOutlines(const Items& items, const Trims& outer, double frame)
{
    Outlines result;
    const bool hasStyle = std::any_of(items.begin(), items.end(), isStyle);
    for (const ShapeItem& item : items) {
        result.above.push_back(result.paths.size());
        if (item.hidden) {
            continue;
        }
        if (const auto* trimming = std::get_if<TrimShape>(&item.shape)) {
            trim(result.paths, *trimming, frame);
        } else if (const auto* merging = std::get_if<MergeShape>(&item.shape)) {
            merge(result.paths, *merging);
        } else if (const auto* group = std::get_if<GroupShape>(&item.shape)) {
            if (hasStyle) {
                const SkMatrix matrix = matrixAt(group->transform, frame);
                for (const SkPath& path : collectOutlines(group->items, {}, frame).paths) {
                    path.transform(matrix, &result.paths.emplace_back());
                }
            }
        } else if (SkPath path = outlineAt(item, frame); !path.isEmpty()) {
            result.paths.push_back(std::move(path));
        }
    }
    for (const TrimShape* trimming : outer) {
        trim(result.paths, *trimming, frame);
    }
    return result;
}

SkPath joined(const std::vector<SkPath>& paths, std::size_t count)
{
    SkPath all = count > 0 ? paths.front() : SkPath();
    for (std::size_t i = 1; i < count; ++i) {
        all.addPath(paths[i]);
    }
    return all;
}

SkPaint paintOf(const NumberProperty& color, float opacity, double frame)
{
    const Numbers channels = valueAt(color, frame);
    const auto channel = [&](std::size_t i) {
        return static_cast<float>(std::clamp(channels[i], 0.0, 1.0));
    };
    SkPaint paint(SkColor4f{channel(0), channel(1), channel(2), opacity});
    paint.setAntiAlias(true);
    return paint;
}

sk_sp<SkPathEffect> dashesOf(const StrokeShape& stroke, double frame)
{
    std::vector<float> lengths;
    for (const NumberProperty& dash : stroke.dashes) {
        lengths.push_back(static_cast<float>(std::max(scalarAt(dash, frame), 0.0)));
    }
    if (lengths.size() % 2 == 1) {
        // A dash without its gap: the list goes round twice.
        const std::vector<float> once = lengths;
        lengths.insert(lengths.end(), once.begin(), once.end());
    }
    if (lengths.empty()) {
        return nullptr;
    }
    return SkDashPathEffect::Make(
        SkSpan<const float>(lengths.data(), lengths.size()),
        static_cast<float>(scalarAt(stroke.dashOffset, frame)));
}

void applyStroke(const StrokeShape& stroke, double frame, SkPaint& paint)
{
    static constexpr SkPaint::Cap kCaps[] = {
        SkPaint::kButt_Cap, SkPaint::kRound_Cap, SkPaint::kSquare_Cap};
    static constexpr SkPaint::Join kJoins[] = {
        SkPaint::kMiter_Join, SkPaint::kRound_Join, SkPaint::kBevel_Join};
    paint.setStyle(SkPaint::kStroke_Style);
    paint.setStrokeWidth(static_cast<float>(scalarAt(stroke.width, frame)));
    paint.setStrokeCap(kCaps[static_cast<int>(stroke.cap)]);
    paint.setStrokeJoin(kJoins[static_cast<int>(stroke.join)]);
    paint.setStrokeMiter(static_cast<float>(stroke.miterLimit));
    paint.setPathEffect(dashesOf(stroke, frame));
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

private:
    void drawLayer(const Composition& composition, const Layer& layer, double frame);
    void drawPrecomposition(const Layer& layer, double frame, float opacity);
    void drawSolid(const Layer& layer, float opacity);
    void drawShapes(const Items& items, float opacity, const Trims& outer, double frame);
    void drawGroup(const GroupShape& group, float opacity, const Trims& outer, double frame);
    void drawFill(const FillShape& fill, SkPath path, float opacity, double frame);
    void drawStroke(const StrokeShape& stroke, const SkPath& path, float opacity, double frame);

    SkCanvas& m_canvas;
    const Document& m_document;
    int m_level = 0;
};

void Renderer::drawComposition(const Composition& composition, double frame)
{
    for (auto layer = composition.layers.rbegin(); layer != composition.layers.rend(); ++layer) {
        const bool isShown = layer->inPoint <= frame && frame < layer->outPoint;
        if (isShown && !layer->hidden && !layer->isMatte) {
            drawLayer(composition, *layer, frame);
        }
    }
}

void Renderer::drawLayer(const Composition& composition, const Layer& layer, double frame)
{
    const auto opacity = static_cast<float>(opacityAt(layer.transform.opacity, frame));
    const bool isDrawn = layer.kind != LayerKind::Null && layer.kind != LayerKind::Other;
    if (!isDrawn || opacity < kInvisible) {
        return;
    }
    const SkAutoCanvasRestore restore(&m_canvas, true);
    m_canvas.concat(layerMatrix(composition, layer, frame));
    if (layer.kind == LayerKind::Solid) {
        drawSolid(layer, opacity);
    } else if (layer.kind == LayerKind::Precomposition) {
        drawPrecomposition(layer, frame, opacity);
    } else {
        const OpacityScope scope(m_canvas, opacity, countStyles(layer.shapes) <= 1);
        drawShapes(layer.shapes, scope.opacity(), {}, frame);
    }
}

void Renderer::drawPrecomposition(const Layer& layer, double frame, float opacity)
{
    if (layer.composition < 0 || m_level >= kMaxLevel) {
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
    SkPaint paint{SkColor4f::FromColor(layer.color)};
    paint.setAlphaf(paint.getAlphaf() * opacity);
    paint.setAntiAlias(true);
    m_canvas.drawRect(
        SkRect::MakeWH(static_cast<float>(layer.width), static_cast<float>(layer.height)), paint);
}

void Renderer::drawShapes(const Items& items, float opacity, const Trims& outer, double frame)
{
    const Outlines outlines = collectOutlines(items, outer, frame);
    Trims trims = outer;
    for (std::size_t i = items.size(); i-- > 0;) {
        const ShapeItem& item = items[i];
        if (item.hidden) {
            continue;
        }
        if (const auto* fill = std::get_if<FillShape>(&item.shape)) {
            drawFill(*fill, joined(outlines.paths, outlines.above[i]), opacity, frame);
        } else if (const auto* stroke = std::get_if<StrokeShape>(&item.shape)) {
            drawStroke(*stroke, joined(outlines.paths, outlines.above[i]), opacity, frame);
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
    if (own * opacity < kInvisible) {
        return;
    }
    const SkAutoCanvasRestore restore(&m_canvas, true);
    m_canvas.concat(matrixAt(group.transform, frame));
    const OpacityScope scope(m_canvas, own, countStyles(group.items) <= 1);
    drawShapes(group.items, opacity * scope.opacity(), outer, frame);
}

void Renderer::drawFill(const FillShape& fill, SkPath path, float opacity, double frame)
{
    path.setFillType(
        fill.rule == FillRule::EvenOdd ? SkPathFillType::kEvenOdd : SkPathFillType::kWinding);
    const auto own = static_cast<float>(opacityAt(fill.opacity, frame));
    m_canvas.drawPath(path, paintOf(fill.color, own * opacity, frame));
}

void Renderer::drawStroke(
    const StrokeShape& stroke, const SkPath& path, float opacity, double frame)
{
    const auto own = static_cast<float>(opacityAt(stroke.opacity, frame));
    SkPaint paint = paintOf(stroke.color, own * opacity, frame);
    applyStroke(stroke, frame, paint);
    if (paint.getStrokeWidth() > 0) { // Skia draws a width of 0 as a hairline
        m_canvas.drawPath(path, paint);
    }
}

} // namespace

void draw(SkCanvas& canvas, const Document& document, double frame)
{
    const SkAutoCanvasRestore restore(&canvas, true);
    canvas.clipRect(SkRect::MakeIWH(document.width, document.height));
    Renderer(canvas, document).drawComposition(document.main, frame);
}

} // namespace studio

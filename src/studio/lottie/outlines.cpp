// SPDX-License-Identifier: Apache-2.0
#include "lottie/outlines.h"

#include "lottie/evaluate.h"

#include <include/core/SkContourMeasure.h>
#include <include/core/SkRRect.h>
#include <include/pathops/SkPathOps.h>

#include <cmath>
#include <numbers>

namespace studio {

namespace {

constexpr double kMaxStarPoints = 1000;

SkPoint toPoint(double x, double y)
{
    return SkPoint::Make(static_cast<float>(x), static_cast<float>(y));
}

SkPathDirection direction(const ShapeItem& item)
{
    return item.reversed ? SkPathDirection::kCCW : SkPathDirection::kCW;
}

SkRect centeredRect(const NumberProperty& position, const NumberProperty& size, double frame)
{
    const Numbers center = valueAt(position, frame);
    const Numbers extent = valueAt(size, frame);
    const SkPoint corner = toPoint(center[0] - extent[0] / 2, center[1] - extent[1] / 2);
    return SkRect::MakeXYWH(
        corner.x(), corner.y(), static_cast<float>(extent[0]), static_cast<float>(extent[1]));
}

SkPath rectangleAt(const RectangleShape& shape, SkPathDirection direction, double frame)
{
    const SkRect rect = centeredRect(shape.position, shape.size, frame);
    const auto radius = static_cast<float>(std::max(scalarAt(shape.radius, frame), 0.0));
    // Both start at the right end of the top edge, below its rounding.
    constexpr unsigned kStartOfRect = 1;
    constexpr unsigned kStartOfRoundRect = 2;
    SkPath path;
    if (radius > 0) {
        path.addRRect(SkRRect::MakeRectXY(rect, radius, radius), direction, kStartOfRoundRect);
    } else {
        path.addRect(rect, direction, kStartOfRect);
    }
    return path;
}

SkPath starAt(const StarShape& shape, bool reversed, double frame)
{
    const double points =
        std::clamp(std::floor(scalarAt(shape.points, frame)), 0.0, kMaxStarPoints);
    const int corners = static_cast<int>(points) * (shape.isPolygon ? 1 : 2);
    const Numbers center = valueAt(shape.position, frame);
    const double start = (scalarAt(shape.rotation, frame) - 90) * std::numbers::pi / 180;
    const double turn = reversed ? -1 : 1;
    BezierPath outline;
    outline.closed = true;
    for (int i = 0; i < corners; ++i) {
        const bool isOuter = shape.isPolygon || i % 2 == 0;
        const double radius = scalarAt(isOuter ? shape.outerRadius : shape.innerRadius, frame);
        const double roundness =
            scalarAt(isOuter ? shape.outerRoundness : shape.innerRoundness, frame) / 100;
        const double angle = start + turn * 2 * std::numbers::pi * i / corners;
        // Full roundness spans half of the arc between two corners on its own circle, or a quarter
        // in a polygon.
        const double reach = turn * roundness * 2 * std::numbers::pi * radius
                             / (corners * (shape.isPolygon ? 4 : 2));
        const double x = std::cos(angle);
        const double y = std::sin(angle);
        outline.vertices.push_back({center[0] + radius * x, center[1] + radius * y});
        outline.outTangents.push_back({-y * reach, x * reach});
        outline.inTangents.push_back({y * reach, -x * reach});
    }
    return toSkPath(outline);
}

// Adds the stretch of a path from start to stop, in pixels along its contours.
void appendStretch(const SkPath& path, float start, float stop, SkPath& result)
{
    SkContourMeasureIter contours(path, false);
    while (const sk_sp<SkContourMeasure> contour = contours.next()) {
        const float length = contour->length();
        if (start < length && stop > 0) {
            // Nothing is added for a stretch of no length.
            static_cast<void>(
                contour->getSegment(std::max(start, 0.0f), std::min(stop, length), &result, true));
        }
        start -= length;
        stop -= length;
    }
}

float lengthOf(const SkPath& path)
{
    float sum = 0;
    SkContourMeasureIter contours(path, false);
    while (const sk_sp<SkContourMeasure> contour = contours.next()) {
        sum += contour->length();
    }
    return sum;
}

// Trims paths that lie one after the other from `before` on within a length of `total`. A stretch
// past the end goes on at the beginning.
SkPath stretchOf(const SkPath& path, float before, float total, double start, double stop)
{
    SkPath result;
    result.setFillType(path.getFillType());
    const auto place = [&](double share) { return static_cast<float>(share) * total - before; };
    appendStretch(path, place(start), place(std::min(stop, 1.0)), result);
    if (stop > 1) {
        appendStretch(path, place(0), place(stop - 1), result);
    }
    return result;
}

SkPathOp toPathOp(MergeMode mode)
{
    switch (mode) {
    case MergeMode::Subtract: return kDifference_SkPathOp;
    case MergeMode::Intersect: return kIntersect_SkPathOp;
    case MergeMode::Exclude: return kXOR_SkPathOp;
    case MergeMode::Append:
    case MergeMode::Add: break;
    }
    return kUnion_SkPathOp;
}

} // namespace

SkPath toSkPath(const BezierPath& outline, bool reversed)
{
    SkPath path;
    const std::size_t count = outline.vertices.size();
    if (count == 0) {
        return path;
    }
    const auto at = [](const auto& vertex, const auto& tangent) {
        return toPoint(vertex[0] + tangent[0], vertex[1] + tangent[1]);
    };
    path.moveTo(toPoint(outline.vertices[0][0], outline.vertices[0][1]));
    for (std::size_t i = 1; i < count + (outline.closed ? 1 : 0); ++i) {
        const std::size_t from = i - 1;
        const std::size_t to = i % count;
        path.cubicTo(
            at(outline.vertices[from], outline.outTangents[from]),
            at(outline.vertices[to], outline.inTangents[to]),
            toPoint(outline.vertices[to][0], outline.vertices[to][1]));
    }
    if (outline.closed) {
        path.close();
    }
    if (reversed) {
        SkPath backwards;
        backwards.reverseAddPath(path);
        return backwards;
    }
    return path;
}

SkPath outlineAt(const ShapeItem& item, double frame)
{
    if (const auto* shape = std::get_if<PathShape>(&item.shape)) {
        return shape->path.isAnimated() ? toSkPath(valueAt(shape->path, frame), item.reversed)
                                        : toSkPath(shape->path.value, item.reversed);
    }
    if (const auto* shape = std::get_if<RectangleShape>(&item.shape)) {
        return rectangleAt(*shape, direction(item), frame);
    }
    if (const auto* shape = std::get_if<EllipseShape>(&item.shape)) {
        constexpr unsigned kStartAtTop = 0;
        SkPath path;
        path.addOval(
            centeredRect(shape->position, shape->size, frame), direction(item), kStartAtTop);
        return path;
    }
    if (const auto* shape = std::get_if<StarShape>(&item.shape)) {
        return starAt(*shape, item.reversed, frame);
    }
    return {};
}

void trim(std::vector<SkPath>& paths, const TrimShape& shape, double frame)
{
    const double one = std::clamp(scalarAt(shape.start, frame) / 100, 0.0, 1.0);
    const double other = std::clamp(scalarAt(shape.end, frame) / 100, 0.0, 1.0);
    const double length = std::abs(other - one);
    if (length >= 1) {
        return;
    }
    const double offset = scalarAt(shape.offset, frame) / 360;
    const double shifted = std::min(one, other) + offset;
    const double start = shifted - std::floor(shifted);

    float total = 0;
    if (shape.sequential) {
        for (const SkPath& path : paths) {
            total += lengthOf(path);
        }
    }
    float before = 0;
    for (SkPath& path : paths) {
        const float own = lengthOf(path);
        path = length > 0
                   ? stretchOf(path, before, shape.sequential ? total : own, start, start + length)
                   : SkPath();
        before += shape.sequential ? own : 0;
    }
}

void merge(std::vector<SkPath>& paths, const MergeShape& shape)
{
    if (paths.empty()) {
        return;
    }
    SkPath& all = paths.front();
    for (std::size_t i = 1; i < paths.size(); ++i) {
        SkPath result;
        if (shape.mode == MergeMode::Append) {
            all.addPath(paths[i]);
        } else if (Op(all, paths[i], toPathOp(shape.mode), &result)) {
            all = result;
        }
        paths[i].reset();
    }
}

} // namespace studio

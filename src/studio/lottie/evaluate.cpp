// SPDX-License-Identifier: Apache-2.0
#include "lottie/evaluate.h"

#include "lottie/easing.h"
#include "lottie/spatial.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace studio {

namespace {

// How far the segment that starts at a key has come, by the easing of one dimension.
template <typename Value>
double progressAt(
    const Keyframe<Value>& from, const Keyframe<Value>& to, double frame, int dimension)
{
    const double time = (frame - from.time) / (to.time - from.time);
    if (from.easeOut.count == 0 || from.easeIn.count == 0) {
        return time;
    }
    const auto n = static_cast<std::size_t>(dimension);
    return ease(time, {from.easeOut.x[n], from.easeOut.y[n]}, {from.easeIn.x[n], from.easeIn.y[n]});
}

Numbers between(
    const Keyframe<Numbers>& from, const Keyframe<Numbers>& to, int dimensions, double frame)
{
    Numbers result{};
    if (from.hasSpatial) {
        const double progress = progressAt(from, to, frame, 0);
        const Point point = pointAlong(wayBetween(from, to), progress);
        result = {point[0], point[1], std::lerp(from.value[2], to.value[2], progress), 0};
        return result;
    }
    for (int i = 0; i < dimensions; ++i) {
        const auto n = static_cast<std::size_t>(i);
        result[n] = std::lerp(from.value[n], to.value[n], progressAt(from, to, frame, i));
    }
    return result;
}

BezierPath between(
    const Keyframe<BezierPath>& from, const Keyframe<BezierPath>& to, int, double frame)
{
    BezierPath result = from.value;
    if (from.value.vertices.size() != to.value.vertices.size()) {
        return result;
    }
    const double progress = progressAt(from, to, frame, 0);
    const auto mix = [progress](auto& points, const auto& ends) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            points[i][0] = std::lerp(points[i][0], ends[i][0], progress);
            points[i][1] = std::lerp(points[i][1], ends[i][1], progress);
        }
    };
    mix(result.vertices, to.value.vertices);
    mix(result.inTangents, to.value.inTangents);
    mix(result.outTangents, to.value.outTangents);
    return result;
}

GradientStops between(
    const Keyframe<GradientStops>& from, const Keyframe<GradientStops>& to, int, double frame)
{
    GradientStops result = from.value;
    if (from.value.size() == to.value.size()) {
        const double progress = progressAt(from, to, frame, 0);
        for (std::size_t i = 0; i < result.size(); ++i) {
            result[i] = std::lerp(result[i], to.value[i], progress);
        }
    }
    return result;
}

template <typename Value>
Value propertyAt(const Property<Value>& property, double frame)
{
    const auto& keys = property.keys;
    if (keys.empty()) {
        return property.value;
    }
    // The first key after the frame: of two keys at one frame the later one counts.
    const auto next = std::upper_bound(
        keys.begin(), keys.end(), frame, [](double f, const auto& key) { return f < key.time; });
    if (next == keys.begin()) {
        return keys.front().value;
    }
    const auto& from = *(next - 1);
    if (next == keys.end() || from.hold) {
        return from.value;
    }
    return between(from, *next, property.dimensions, frame);
}

float toScalar(double value)
{
    return static_cast<float>(value);
}

Numbers positionAt(const Transform& transform, double frame)
{
    if (transform.splitPosition) {
        return {scalarAt(transform.positionX, frame), scalarAt(transform.positionY, frame)};
    }
    return valueAt(transform.position, frame);
}

std::vector<double> positionKeyTimes(const Transform& transform)
{
    std::vector<double> times;
    const auto append = [&times](const NumberProperty& property) {
        for (const auto& key : property.keys) {
            times.push_back(key.time);
        }
    };
    if (transform.splitPosition) {
        append(transform.positionX);
        append(transform.positionY);
        std::sort(times.begin(), times.end());
    } else {
        append(transform.position);
    }
    return times;
}

// The direction of movement in degrees between two keys, from a step around the frame: one too
// small to be seen, unless slow easing asks for more. Empty where nothing moves.
std::optional<double> headingBetween(
    const Transform& transform, double begin, double end, double frame)
{
    constexpr double kStep = 0.01;   // frames
    constexpr double kStill = 1e-6;  // pixels
    constexpr double kInside = 1e-4; // frames; at the second key itself a hold jumps
    const double last = end - kInside;
    if (last <= begin) {
        return std::nullopt;
    }
    const double middle = std::clamp(frame, begin, last);
    for (double step = kStep;; step *= 10) {
        const Numbers before = positionAt(transform, std::max(middle - step, begin));
        const Numbers after = positionAt(transform, std::min(middle + step, last));
        const double x = after[0] - before[0];
        const double y = after[1] - before[1];
        if (std::hypot(x, y) > kStill) {
            return std::atan2(y, x) * 180 / std::numbers::pi;
        }
        if (middle - step <= begin && middle + step >= last) {
            return std::nullopt;
        }
    }
}

// Before the first key the way it sets out, and where it stands still the way it came.
double headingAt(const Transform& transform, double frame)
{
    const std::vector<double> times = positionKeyTimes(transform);
    const auto next = std::upper_bound(times.begin(), times.end(), frame);
    const auto reached = std::max<std::ptrdiff_t>(next - times.begin(), 1);
    const auto count = static_cast<std::ptrdiff_t>(times.size());
    for (std::ptrdiff_t i = std::min(reached, count - 1); i > 0; --i) {
        const auto end = times.begin() + i;
        if (const auto heading = headingBetween(transform, *(end - 1), *end, frame)) {
            return *heading;
        }
    }
    return 0;
}

} // namespace

SpatialCurve wayBetween(const Keyframe<Numbers>& from, const Keyframe<Numbers>& to)
{
    SpatialCurve curve;
    for (std::size_t i = 0; i < 2; ++i) {
        curve.start[i] = from.value[i];
        curve.control1[i] = from.value[i] + from.spatialOut[i];
        curve.control2[i] = to.value[i] + from.spatialIn[i];
        curve.end[i] = to.value[i];
    }
    return curve;
}

Numbers valueAt(const NumberProperty& property, double frame)
{
    return propertyAt(property, frame);
}

BezierPath valueAt(const PathProperty& property, double frame)
{
    return propertyAt(property, frame);
}

GradientStops valueAt(const StopsProperty& property, double frame)
{
    return propertyAt(property, frame);
}

double scalarAt(const NumberProperty& property, double frame)
{
    return valueAt(property, frame)[0];
}

double opacityAt(const NumberProperty& percent, double frame)
{
    return std::clamp(scalarAt(percent, frame) / 100, 0.0, 1.0);
}

SkMatrix matrixAt(const Transform& transform, double frame)
{
    const Numbers position = positionAt(transform, frame);
    const Numbers anchor = valueAt(transform.anchor, frame);
    const Numbers scale = valueAt(transform.scale, frame);
    const double heading = transform.autoOrient ? headingAt(transform, frame) : 0;
    const double skew = scalarAt(transform.skew, frame);

    SkMatrix matrix = SkMatrix::Translate(toScalar(position[0]), toScalar(position[1]));
    matrix.preRotate(toScalar(scalarAt(transform.rotation, frame) + heading));
    if (skew != 0) {
        const float axis = toScalar(scalarAt(transform.skewAxis, frame));
        matrix.preRotate(-axis);
        matrix.preSkew(toScalar(-std::tan(skew * std::numbers::pi / 180)), 0);
        matrix.preRotate(axis);
    }
    matrix.preScale(toScalar(scale[0] / 100), toScalar(scale[1] / 100));
    matrix.preTranslate(toScalar(-anchor[0]), toScalar(-anchor[1]));
    return matrix;
}

SkMatrix layerMatrix(const Composition& composition, const Layer& layer, double frame)
{
    SkMatrix matrix = matrixAt(layer.transform, frame);
    int parent = layer.parent;
    // Counting the steps keeps a circle that an edit made from hanging the program.
    for (std::size_t i = 0; parent >= 0 && i < composition.layers.size(); ++i) {
        const Layer& above = composition.layers[static_cast<std::size_t>(parent)];
        matrix.postConcat(matrixAt(above.transform, frame));
        parent = above.parent;
    }
    return matrix;
}

double innerFrame(const Layer& layer, double frame, double frameRate)
{
    if (layer.hasTimeRemap) {
        // A remapping that ends with the precomposition shows its last frame, not the empty one
        // after.
        const double inner = scalarAt(layer.timeRemap, frame) * frameRate;
        return inner == layer.outPoint ? inner - 1 : inner;
    }
    return (frame - layer.startTime) / layer.stretch;
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/easings.h"

#include "MorrantUI/graph/graphmoves.h"
#include <MorrantUI/graph/graphsegments.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using morrant::KeyInterpolationType;
using ui::Graph::Interpolation;

namespace ui::easing {

namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();
constexpr double kOnLine = 1e-3; ///< share by which handles on one line may miss it

/// What a preset is shown as.
struct Face
{
    const char* name;
    const char* icon;
};

constexpr std::array kFaces{// as kPresets
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Linear"), "easeLinear"},
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Ease in"), "easeIn"},
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Ease out"), "easeOut"},
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Ease in and out"), "easeBezier"},
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Back"), "easeBack"},
                            Face{QT_TRANSLATE_NOOP("ui::easing", "Hold"), "easeHold"}};
static_assert(kFaces.size() == kPresets.size());

const Face& faceOf(EasingPreset preset)
{
    const auto index = static_cast<std::size_t>(preset);
    return index < kFaces.size() ? kFaces[index] : kFaces.front();
}

bool isNear(QPointF a, QPointF b, double tolerance)
{
    return std::abs(a.x() - b.x()) <= tolerance && std::abs(a.y() - b.y()) <= tolerance;
}

/// Along the diagonal a curve is straight, however long its handles.
bool isStraight(QPointF handle, double tolerance)
{
    return std::abs(handle.x() - handle.y()) <= tolerance;
}

bool isNone(QPointF handle)
{
    return handle.x() == 0 && handle.y() == 0;
}

QPointF distanceBetween(const ValueGraphKey& from, const ValueGraphKey& to)
{
    return {to.time - from.time, to.value - from.value};
}

std::optional<double> shareOf(double part, double whole)
{
    const double share = part / whole;
    return whole != 0 && std::isfinite(share) ? std::optional(share) : std::nullopt;
}

/// @param start the share of what the handle is an offset from
QPointF shareOf(QPointF handle, QPointF distance, double start, QPointF before)
{
    const auto time = shareOf(handle.x(), distance.x());
    const auto change = shareOf(handle.y(), distance.y());
    return {
        std::clamp(time ? start + *time : before.x(), 0.0, 1.0),
        change ? start + *change : before.y()};
}

bool hasBothHandles(const ValueGraphKey& key)
{
    return !isNone(key.leftHandle) && !isNone(key.rightHandle);
}

Interpolation interpolationOf(const ValueGraphKey& key)
{
    const bool isCurved = !isNone(key.leftHandle) || !isNone(key.rightHandle);
    return isCurved ? Interpolation::Bezier : Interpolation::Linear;
}

} // namespace

SegmentEasing finiteEasing(const SegmentEasing& easing)
{
    const bool isFinite = Graph::isFinite(easing.out) && Graph::isFinite(easing.in);
    return isFinite ? easing : SegmentEasing{.hold = easing.hold};
}

// Presets

SegmentEasing easingOf(EasingPreset preset)
{
    switch (preset) {
    case EasingPreset::EaseIn: return {false, {0.42, 0}, {1, 1}};
    case EasingPreset::EaseOut: return {false, {0, 0}, {0.58, 1}};
    case EasingPreset::EaseInAndOut: return {false, {0.42, 0}, {0.58, 1}};
    case EasingPreset::Back: return {false, {0.34, 1.4}, {0.64, 1}};
    case EasingPreset::Hold: return {true, {0, 0}, {1, 1}};
    case EasingPreset::Linear: break;
    }
    return {};
}

std::optional<EasingPreset> presetOf(const SegmentEasing& easing, double tolerance)
{
    if (easing.hold) {
        return EasingPreset::Hold;
    }
    if (isStraight(easing.out, tolerance) && isStraight(easing.in, tolerance)) {
        return EasingPreset::Linear;
    }
    const auto found = std::find_if(kPresets.begin(), kPresets.end(), [&](EasingPreset preset) {
        const SegmentEasing known = easingOf(preset);
        return !known.hold && isNear(known.out, easing.out, tolerance)
               && isNear(known.in, easing.in, tolerance);
    });
    return found != kPresets.end() ? std::optional(*found) : std::nullopt;
}

QString presetName(EasingPreset preset)
{
    return QCoreApplication::translate("ui::easing", faceOf(preset).name);
}

QString presetIcon(EasingPreset preset)
{
    return QStringLiteral("icons:%1.png").arg(QLatin1String(faceOf(preset).icon));
}

double easedShare(const SegmentEasing& wanted, double time)
{
    const SegmentEasing easing = finiteEasing(wanted);
    const Graph::Segment whole{{0, 0}, easing.out, easing.in, {1, 1}, easing.hold};
    return Graph::valueAt(
        Graph::limited(whole, {-kEndless, -kEndless, kEndless, kEndless}),
        std::isnan(time) ? 0.0 : std::clamp(time, 0.0, 1.0));
}

// Between keys of values

QPointF outHandle(QPointF share, QPointF distance)
{
    return {share.x() * distance.x(), share.y() * distance.y()};
}

QPointF inHandle(QPointF share, QPointF distance)
{
    return {(share.x() - 1) * distance.x(), (share.y() - 1) * distance.y()};
}

QPointF outShare(QPointF handle, QPointF distance, QPointF before)
{
    return shareOf(handle, distance, 0, before);
}

QPointF inShare(QPointF handle, QPointF distance, QPointF before)
{
    return shareOf(handle, distance, 1, before);
}

void setEasing(ValueGraphKey& from, ValueGraphKey& to, const SegmentEasing& wanted)
{
    const SegmentEasing easing = finiteEasing(wanted);
    from.hold = easing.hold;
    if (!easing.hold) {
        const QPointF distance = distanceBetween(from, to);
        from.rightHandle = outHandle(easing.out, distance);
        to.leftHandle = inHandle(easing.in, distance);
        for (ValueGraphKey* const key : {&from, &to}) {
            key->interpolation = interpolationOf(*key);
            key->handlesLocked = key->handlesLocked && (isSmooth(*key) || !hasBothHandles(*key));
        }
    }
}

SegmentEasing easingOf(
    const ValueGraphKey& from, const ValueGraphKey& to, const SegmentEasing& before)
{
    const QPointF distance = distanceBetween(from, to);
    const auto isCurved = [](const ValueGraphKey& key) {
        return key.interpolation == Interpolation::Bezier;
    };
    return {
        from.hold,
        isCurved(from) ? outShare(from.rightHandle, distance, before.out) : QPointF(0, 0),
        isCurved(to) ? inShare(to.leftHandle, distance, before.in) : QPointF(1, 1)};
}

bool isSmooth(const ValueGraphKey& key)
{
    const double one = key.leftHandle.x() * key.rightHandle.y();
    const double other = key.leftHandle.y() * key.rightHandle.x();
    const bool isLine = std::abs(one - other) <= kOnLine * (std::abs(one) + std::abs(other));
    const bool isOpposite = QPointF::dotProduct(key.leftHandle, key.rightHandle) < 0;
    return hasBothHandles(key) && isLine && isOpposite;
}

// Between keys of a fixed graph

std::vector<GraphCurveKey> curveOf(const SegmentEasing& easing, double room)
{
    const double scale = 1 - 2 * room;
    const bool isCurved = !easing.hold && !(easing == SegmentEasing());
    GraphCurveKey first;
    first.value = room;
    first.handlesLocked = false;
    first.interpolation = isCurved ? KeyInterpolationType::Bezier : KeyInterpolationType::Linear;
    GraphCurveKey last = first;
    last.time = 1;
    last.value = room + scale;
    last.index = 1;
    if (easing.hold) {
        GraphCurveKey corner = first; // a level segment, and a jump at its end
        corner.time = 1;
        corner.index = 2;
        return {first, corner, last};
    }
    first.rightHandle = {std::clamp(easing.out.x(), 0.0, 1.0), scale * easing.out.y()};
    last.leftHandle = {std::clamp(easing.in.x(), 0.0, 1.0) - 1, scale * (easing.in.y() - 1)};
    return {first, last};
}

SegmentEasing easingOf(const std::vector<GraphCurveKey>& curve, double room)
{
    if (curve.size() != 2) {
        return easingOf(curve.empty() ? EasingPreset::Linear : EasingPreset::Hold);
    }
    const GraphCurveKey& first = curve.front();
    const GraphCurveKey& last = curve.back();
    const auto isCurved = [](const GraphCurveKey& key) {
        return key.interpolation == KeyInterpolationType::Bezier;
    };
    const QPointF whole(1, 1 - 2 * room);
    const SegmentEasing straight;
    const QPointF out = outShare({first.rightHandle.x, first.rightHandle.y}, whole);
    const QPointF in = inShare({last.leftHandle.x, last.leftHandle.y}, whole);
    return {false, isCurved(first) ? out : straight.out, isCurved(last) ? in : straight.in};
}

} // namespace ui::easing

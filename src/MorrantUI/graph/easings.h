// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/valuegraphkey.h>
#include <MorrantUI/morrantui_export.h>

#include <Core/GraphCurveData.h>

#include <QPointF>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// How a value goes from one key to the next, apart from times and values: as shares of the
/// segment's time and of its change, so that one easing fits any segment.
namespace ui::easing {

/// A cubic bezier from (0, 0) over its two handles to (1, 1); a new one is even and straight. Both
/// handles are places in these shares: x of the time, which counts as 0 to 1, and y of the change,
/// unbounded, so that a value may overshoot.
struct SegmentEasing
{
    bool hold = false; ///< the value stays, and jumps at the end; the handles do not count
    QPointF out{0, 0};
    QPointF in{1, 1};

    /// To the last digit, which QPointF would compare roughly.
    friend bool operator==(const SegmentEasing& a, const SegmentEasing& b)
    {
        return a.hold == b.hold && a.out.x() == b.out.x() && a.out.y() == b.out.y()
               && a.in.x() == b.in.x() && a.in.y() == b.in.y();
    }
};

/// Itself, or, of numbers that are not finite, a linear one that holds where it does. easedShare()
/// and setEasing() go by it.
MORRANT_UI_EXPORT SegmentEasing finiteEasing(const SegmentEasing& easing);

/// Those that have names; others are made by hand.
enum class EasingPreset
{
    Linear,
    EaseIn, ///< leaves slowly
    EaseOut,
    EaseInAndOut,
    Back, ///< goes beyond the next key and comes back
    Hold,
};

/// In the order in which they are offered.
inline constexpr std::array kPresets{
    EasingPreset::Linear,
    EasingPreset::EaseIn,
    EasingPreset::EaseOut,
    EasingPreset::EaseInAndOut,
    EasingPreset::Back,
    EasingPreset::Hold};

/// Linear for what is none of them.
MORRANT_UI_EXPORT SegmentEasing easingOf(EasingPreset preset);
/// The one that an easing is. Whatever has both handles on the diagonal is linear.
/// @param tolerance by which each number may be another one
MORRANT_UI_EXPORT std::optional<EasingPreset> presetOf(
    const SegmentEasing& easing, double tolerance = 0.01);
MORRANT_UI_EXPORT QString presetName(EasingPreset preset); ///< for the user: "Ease in"
MORRANT_UI_EXPORT QString presetIcon(EasingPreset preset); ///< such as "icons:easeIn.png"

/// The share of the change at a share of the time, which counts as 0 to 1, and as 0 where it is
/// NaN; both ends are exact. A hold is 0 before the end.
MORRANT_UI_EXPORT double easedShare(const SegmentEasing& easing, double time);

// Between shares and the handles of keys, which are offsets from their keys. A distance is the one
// from the segment's first key to its second: frames, and the change of the value.

MORRANT_UI_EXPORT QPointF outHandle(QPointF share, QPointF distance); ///< of the first key
MORRANT_UI_EXPORT QPointF inHandle(QPointF share, QPointF distance);  ///< of the second one
/// The way back, of the first key. The share of time is kept within 0 to 1. Where the value does
/// not change, or both keys are at one frame, the handle says nothing about that share, which
/// stays.
/// @param before the share that there was
MORRANT_UI_EXPORT QPointF outShare(QPointF handle, QPointF distance, QPointF before = {0, 0});
/// The same of the second key.
MORRANT_UI_EXPORT QPointF inShare(QPointF handle, QPointF distance, QPointF before = {1, 1});

/// Eases the segment between two keys: its two handles, whether it holds, and, unless it does, that
/// a key with a handle on either side is curved and another one straight. Locked handles that do
/// not lie on one line any more are freed, or the next drag of one would turn the other. What is a
/// hold keeps its handles, which come back with the next easing.
MORRANT_UI_EXPORT void setEasing(
    ValueGraphKey& from, ValueGraphKey& to, const SegmentEasing& easing);
/// What setEasing() would give two keys. A handle of a straight key does not count.
/// @param before what stays where the keys say nothing, see outShare()
MORRANT_UI_EXPORT SegmentEasing
easingOf(const ValueGraphKey& from, const ValueGraphKey& to, const SegmentEasing& before = {});
/// Whether a key has both handles, and these lie on one line to its two sides, so that they should
/// stay so: ValueGraphKey::handlesLocked for a host whose document does not say.
MORRANT_UI_EXPORT bool isSmooth(const ValueGraphKey& key);

/// The data's value of an easing's 0, and as far below 1 that of its 1: a fixed graph keeps its
/// curve between 0 and 1, and an easing may overshoot.
inline constexpr double kOvershootRoom = 0.25;

/// Keys for a GraphCurveData that show an easing: two, or three for a hold.
/// @param easing of finite numbers, see finiteEasing()
/// @param room as kOvershootRoom, from 0 on and below a half
MORRANT_UI_EXPORT std::vector<GraphCurveKey> curveOf(
    const SegmentEasing& easing, double room = kOvershootRoom);
/// What such keys say, as the user has moved their handles. Those of another number are a hold, or
/// linear where there are none.
MORRANT_UI_EXPORT SegmentEasing
easingOf(const std::vector<GraphCurveKey>& curve, double room = kOvershootRoom);

} // namespace ui::easing

using ui::easing::EasingPreset;
using ui::easing::SegmentEasing;

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

/// Which frames of a ruler have ticks and labels. All of it depends on zoom, rate and the width of
/// digits alone, so that nothing jumps while the ruler scrolls.
namespace ui {

inline constexpr double kLabelGap = 14.0;         ///< pixels at least between two labels
inline constexpr double kLeastTickDistance = 5.0; ///< pixels

struct RulerScale
{
    double pixelsPerFrame = 0.0;
    double framesPerSecond = 0.0; ///< as of time codes, whose seconds have a whole number of frames
    bool timeCode = false;        ///< labels are time codes, if the rate is one
};

/// Frames from one to the next; 0 for none. Each divides those above it.
struct RulerSteps
{
    std::int64_t label = 0;
    std::int64_t medium = 0;
    std::int64_t minor = 0;
};

/// Pixels that one character of a label takes.
struct LabelMetrics
{
    double digit = 0.0;
    double separator = 0.0;
    double sign = 0.0;
};

enum class TickKind
{
    Minor,
    Medium,
    Label,
};

struct RulerTick
{
    std::int64_t frame = 0;
    TickKind kind = TickKind::Minor;
};

/// Pixels that a label takes at most: one as long, whatever its digits.
double labelRoom(const LabelMetrics& metrics, const QString& label);

/// Steps of 1, 2 and 5 by tens; for time codes parts of a second that divide it, then 1, 2, 5, 10,
/// 15 and 30 seconds and minutes, then hours by 1, 2 and 5.
/// @param labelWidth pixels of the widest label; labels at the step stay a gap apart
RulerSteps rulerSteps(const RulerScale& scale, double labelWidth);

/// All ticks from one scene x to another, those that are frames.
std::vector<RulerTick> rulerTicks(const RulerSteps& steps, double first, double last);

} // namespace ui

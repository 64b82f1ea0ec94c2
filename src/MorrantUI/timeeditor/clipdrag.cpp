// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/clipdrag.h"

#include <MorrantUI/scene/framemath.h>

#include <algorithm>
#include <limits>

namespace ui {

EndPointHover clipPart(const ClipSpan& area, double x, double scale)
{
    const double fromStart = (x - area.start) * scale;
    const double fromEnd = (area.end - x) * scale;
    if (fromStart < 0.0 || fromEnd < 0.0) {
        return EndPointHover::None;
    }
    const double handle = std::min(kClipHandle, (fromStart + fromEnd) / 3.0);
    if (fromStart <= handle) {
        return EndPointHover::Start;
    }
    return fromEnd <= handle ? EndPointHover::End : EndPointHover::Body;
}

ClipLimits clipLimits(std::span<const ClipSpan> areas, std::size_t index)
{
    ClipLimits limits{std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    const ClipSpan& own = areas[index];
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const ClipSpan& other = areas[i];
        if (i != index && other.end <= own.start) {
            limits.lowest = std::max(limits.lowest, other.end);
        } else if (i != index && other.start >= own.end) {
            limits.highest = std::min(limits.highest, other.start);
        }
    }
    return limits;
}

double sharedMove(std::span<const HeldClip> areas, double frames)
{
    for (const HeldClip& area : areas) {
        const double least = static_cast<double>(area.limits.lowest) - area.atPress.start;
        const double most = static_cast<double>(area.limits.highest) - area.atPress.end;
        frames = std::clamp(frames, least, most);
    }
    return frames;
}

ClipSpan draggedClip(
    const ClipSpan& atPress, EndPointHover part, bool slip, double frames, const ClipLimits& limits)
{
    ClipSpan area = atPress;
    if (part == EndPointHover::Start) {
        const int latest = std::max(limits.lowest, movedFrame(area.end, -kShortestClip));
        area.start = std::clamp(movedFrame(area.start, frames), limits.lowest, latest);
    } else if (part == EndPointHover::End) {
        const int earliest = std::min(limits.highest, movedFrame(area.start, kShortestClip));
        area.end = std::clamp(movedFrame(area.end, frames), earliest, limits.highest);
    } else if (part == EndPointHover::Body && slip) {
        area.slip = movedFrame(area.slip, frames);
    } else if (part == EndPointHover::Body) {
        const HeldClip alone{area, limits};
        const int moved = nearestFrame(sharedMove({&alone, 1}, frames));
        area.start = movedFrame(area.start, moved);
        area.end = movedFrame(area.end, moved);
    }
    return area;
}

} // namespace ui

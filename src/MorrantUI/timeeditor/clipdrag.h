// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/EndPointHover.h>

#include <cstddef>
#include <span>

namespace ui {

inline constexpr double kClipHandle = 6.0; ///< pixels at either end of an area that trim it
inline constexpr int kShortestClip = 1;    ///< frames that trimming leaves

/// An area as numbers, in frames.
struct ClipSpan
{
    int start = 0;
    int end = 0;
    int slip = 0;

    friend bool operator==(const ClipSpan&, const ClipSpan&) = default;
};

/// The part of an area that a place is on. Handles share a narrow area between them.
/// @param x frame, also between frames @param scale pixels a frame
EndPointHover clipPart(const ClipSpan& area, double x, double scale);

/// How far an area may reach, by its neighbours in the row: those that lie wholly before and behind
/// it. One that overlaps it already does not hold it.
struct ClipLimits
{
    int lowest = 0;
    int highest = 0;
};
ClipLimits clipLimits(std::span<const ClipSpan> areas, std::size_t index);

/// An area that is dragged together with others.
struct HeldClip
{
    ClipSpan atPress;
    ClipLimits limits;
};

/// How far several areas can be moved together, of a wanted number of frames: as far as the one
/// that has the least room.
double sharedMove(std::span<const HeldClip> areas, double frames);

/// An area dragged by a number of frames from where it was at the press: an end is trimmed, the
/// body moved, or with `slip` what it shows shifted. A moved area keeps its length, a trimmed one
/// at least a frame of it.
ClipSpan draggedClip(
    const ClipSpan& atPress,
    EndPointHover part,
    bool slip,
    double frames,
    const ClipLimits& limits);

} // namespace ui

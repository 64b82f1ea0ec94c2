// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/platform/RawMouseRecord.h>

#include <QPointF>
#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>

/// A point moved by whole spans of a rectangle until it lies in it: one that leaves at the right
/// comes in at the left, as far from the edge as it had gone past it. Points on the edges are
/// inside.
///
/// The span is the distance between the first and the last column, or row. A rectangle without a
/// span in a direction, and a point that is not finite, are left alone.
/// @param offset  receives what was added; may be null
MORRANT_UI_EXPORT QPointF wrapPoint(QPointF p, const QRect& r, QPointF* offset);

namespace ui {

/// Where the pointer may go in a window: its frame less 15 logical pixels on every side, truncated
/// to whole physical pixels. Empty when nothing is left.
/// @param ratio  physical pixels in a logical one; 1 in place of what is not above 0
MORRANT_UI_EXPORT QRect confiningRect(const QRect& frame, double ratio);

/// Where a pointer that only warping keeps from the edges may go: the middle half of a screen. It
/// has a quarter of the screen's size left for what it does until a warp takes hold.
MORRANT_UI_EXPORT QRect wrappingRect(const QRect& screen);

/// Whether a movement is a drag: |x| + |y| has reached the distance.
MORRANT_UI_EXPORT bool reachesDragDistance(QPointF movement, int distance);

struct RawMotion
{
    QPointF delta; ///< in units of the device
    bool absolute = false;

    bool operator==(const RawMotion&) const = default;
};

/// What has to be remembered between the records of an absolute device.
struct AbsoluteTrack
{
    QPointF previous;
    bool first = true;
};

/// The motion that a record tells of. None for wheels, records without motion and other devices,
/// and for the first position of an absolute device, which only starts the track.
MORRANT_UI_EXPORT std::optional<RawMotion> decodeRawMotion(
    const RawMouseRecord& record, AbsoluteTrack& track);

/// Physical pixels in a unit of an absolute record: positions run from 0 to 65535 over the primary
/// screen or over all screens.
MORRANT_UI_EXPORT QPointF
absoluteUnit(std::uint16_t flags, QSize primaryScreen, QSize virtualDesktop);

/// As many warps undone in a row tell an absolute pointer; a single one may be a quick hand.
inline constexpr int kWarpsForProof = 2;

/// Follows a pointer that is warped by whole offsets while it moves, and tells how far it would
/// have gone without. Positions from before a warp may still arrive after it, and the first one
/// from behind it may be far from it: each is taken for what makes the more sensible way.
///
/// An absolute pointer (of a remote desktop, a virtual machine, a tablet that poses as a mouse) is
/// back after the warp where it would have been without: then the warp is taken out again.
class MORRANT_UI_EXPORT WarpedPath
{
public:
    explicit WarpedPath(QPointF start = {})
        : m_start(start)
        , m_last(start)
    {}

    /// The next position; returns where it would be without the warps.
    /// @param present  where the pointer is by now; counts only while isWarping()
    QPointF moveTo(QPointF position, QPointF present);

    /// The pointer was moved by an offset, null for none. Only one may be pending.
    void warp(QPointF offset) { m_pending = offset; }
    /// Whether no position from behind the latest warp was seen yet.
    bool isWarping() const { return !m_pending.isNull(); }

    /// Whether the pointer has undone warps: it tells positions, and another warp would be in vain.
    bool isAbsolute() const { return m_undone >= kWarpsForProof; }

    QPointF movement() const { return m_last - m_start; }

private:
    void takeOut(QPointF position);
    QPointF goTo(QPointF place);

    QPointF m_start;
    QPointF m_last;    ///< without the warps
    QPointF m_step;    ///< the latest one that led anywhere
    QPointF m_offset;  ///< of all warps but the pending one
    QPointF m_pending; ///< null when no warp is
    QPointF m_taken;   ///< the warp behind which no motion was seen yet, if any
    int m_undone = 0;  ///< warps in a row
};

} // namespace ui

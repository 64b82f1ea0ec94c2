// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/gestures/pointermath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double kWindowMargin = 15.0; ///< logical pixels between a window's frame and the pointer
constexpr double kAbsoluteRange = 65535.0;

/// What brings a coordinate between two others, in whole spans.
double wrapOffset(double value, double first, double last)
{
    const double span = last - first;
    if (span <= 0.0 || (value >= first && value <= last)) {
        return 0.0;
    }
    return value < first ? std::ceil((first - value) / span) * span
                         : -std::ceil((value - last) / span) * span;
}

int truncated(double value)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(
        value, Limits::min() / 2, Limits::max() / 2)); // a rectangle can subtract
}

} // namespace

QPointF wrapPoint(QPointF p, const QRect& r, QPointF* offset)
{
    QPointF shift;
    if (std::isfinite(p.x()) && std::isfinite(p.y())) {
        shift = {wrapOffset(p.x(), r.left(), r.right()), wrapOffset(p.y(), r.top(), r.bottom())};
    }
    if (offset) {
        *offset = shift;
    }
    // Very large coordinates have no room for what is behind the point.
    const auto inside = [](double value, double added, double first, double last) {
        return added == 0.0 ? value : std::clamp(value + added, first, last);
    };
    return {
        inside(p.x(), shift.x(), r.left(), r.right()),
        inside(p.y(), shift.y(), r.top(), r.bottom())};
}

namespace ui {

QRect confiningRect(const QRect& frame, double ratio)
{
    const double margin = kWindowMargin * (ratio > 0.0 ? ratio : 1.0);
    const int left = truncated(frame.left() + margin);
    const int top = truncated(frame.top() + margin);
    const int right = truncated(frame.left() + frame.width() - margin); // beyond the last column
    const int bottom = truncated(frame.top() + frame.height() - margin);
    return left < right && top < bottom ? QRect(left, top, right - left, bottom - top) : QRect();
}

QRect wrappingRect(const QRect& screen)
{
    const int dx = screen.width() / 4;
    const int dy = screen.height() / 4;
    return screen.adjusted(dx, dy, -dx, -dy);
}

bool reachesDragDistance(QPointF movement, int distance)
{
    return movement.manhattanLength() >= distance;
}

std::optional<RawMotion> decodeRawMotion(const RawMouseRecord& record, AbsoluteTrack& track)
{
    const bool moves = record.x != 0 || record.y != 0;
    if (!record.isMouse || record.buttonFlags == RawMouseRecord::kWheel || !moves) {
        return {};
    }
    const QPointF latest(record.x, record.y);
    if ((record.flags & RawMouseRecord::kAbsolute) == 0) {
        return RawMotion{latest, false};
    }
    const QPointF delta = latest - std::exchange(track.previous, latest);
    return std::exchange(track.first, false) ? std::nullopt : std::optional(RawMotion{delta, true});
}

QPointF absoluteUnit(std::uint16_t flags, QSize primaryScreen, QSize virtualDesktop)
{
    if ((flags & RawMouseRecord::kPixels) != 0) {
        return {1.0, 1.0};
    }
    const bool allScreens = (flags & RawMouseRecord::kVirtualDesktop) != 0;
    const QSize size = allScreens ? virtualDesktop : primaryScreen;
    return {size.width() / kAbsoluteRange, size.height() / kAbsoluteRange};
}

namespace {

double distance(QPointF a, QPointF b)
{
    return (a - b).manhattanLength();
}

} // namespace

QPointF WarpedPath::moveTo(QPointF position, QPointF present)
{
    if (!isWarping()) {
        takeOut(position);
        return goTo(position - m_offset);
    }
    const QPointF before = position - m_offset;
    const QPointF behind = before - m_pending;
    // The two are a warp apart. After a long way neither is near the last position; then it is the
    // latest one, near to where the pointer is.
    const bool farAway = std::min(distance(before, m_last), distance(behind, m_last))
                         > m_pending.manhattanLength() / 4;
    const QPointF likely = farAway ? present - m_offset - m_pending : m_last;
    if (distance(behind, likely) >= distance(before, likely)) {
        return goTo(before);
    }
    m_taken = std::exchange(m_pending, {});
    m_offset += m_taken;
    return goTo(behind);
}

QPointF WarpedPath::goTo(QPointF place)
{
    const QPointF step = place - m_last;
    m_step = step.isNull() ? m_step : step;
    return m_last = place;
}

/// Undoes the latest warp if the pointer's first step behind it is a small one from where it was
/// before, more like the last step than one from where the warp led. Where a busy machine has made
/// one step of many, all are as long.
void WarpedPath::takeOut(QPointF position)
{
    const QPointF step = position - m_offset - m_last;
    if (m_taken.isNull() || step.isNull()) {
        return;
    }
    const QPointF warp = std::exchange(m_taken, {});
    const QPointF undone = step + warp;
    const bool isBack = undone.manhattanLength() < warp.manhattanLength() / 4
                        && distance(undone, m_step) < distance(step, m_step);
    m_undone = isBack ? m_undone + 1 : 0;
    if (isBack) {
        m_offset -= warp;
    }
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/PopoverSide.h>

#include <QPainterPath>
#include <QRect>
#include <QSize>

/// Where a popover goes, in logical pixels. A popover is a body with round corners, and an arrow
/// that stands on one of its sides and points at the anchor.
namespace ui::popover {

using Side = PopoverSide;

inline constexpr int kArrowLength = 8;  ///< from the body to the tip
inline constexpr int kArrowHalf = 8;    ///< of the arrow's foot
inline constexpr int kRadius = 6;       ///< of the body's corners
inline constexpr int kAnchorGap = 2;    ///< from the anchor to the tip
inline constexpr int kScreenMargin = 4; ///< kept between popover and the edges of the screen

struct Request
{
    QRect anchor; ///< on screen
    QRect screen; ///< what may be covered; empty if there is no screen
    QSize wanted; ///< of the body
    QSize least;  ///< of the body, where there is not enough room
    Side preferred = Side::Below;
};

struct Placement
{
    QRect window; ///< on screen, the arrow's room included
    QRect body;   ///< in the window
    Side side = Side::Below;
    QPoint tip;            ///< of the arrow, in the window
    bool hasArrow = false; ///< not where the body has to cover the anchor

    bool operator==(const Placement&) const = default;
};

/// Places a popover beside its anchor: on the preferred side if it fits there, else on the opposite
/// one, else on the other two; else, smaller, on the one with the most room; else over the anchor.
/// It is centred on what is to be seen of the anchor and moved along it to stay on the screen,
/// while the arrow stays at the anchor as far as the corners let it.
Placement place(const Request& request);

/// The popover's outline in its window, along which its edge is stroked.
/// @param inset from the outermost line to the outline
QPainterPath outline(const Placement& placement, double inset);

} // namespace ui::popover

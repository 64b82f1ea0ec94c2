// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where windows that float come to lie, as rules.
namespace ui::docking {

/// The top-left corner of a frame that moves as little as it can to lie in a room as a whole. Of
/// one that is larger than the room, left and top are seen.
QPoint placeWithin(const QRect& frame, const QRect& room);

/// Where a window that becomes smaller or larger under the pointer is held: as far along its header
/// as before, and at the same height; never outside.
QPoint gripAfter(QPoint grip, QSize before, QSize after);

} // namespace ui::docking

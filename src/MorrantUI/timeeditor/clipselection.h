// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>

#include <set>
#include <vector>

class TimeEditorClipItem;
class VisClip;

namespace ui {

inline constexpr int kClipAreaTop = 4; ///< scene units below the row's upper edge

/// The part of its row that a clip area's selection looks at, in the scene.
QRect clipAreaBand(const VisClip& area, QPointF clipPosition, int trackHeight);

/// Selects the areas of all clips that the rectangle between two points of the scene meets, and no
/// others.
void selectClipAreas(
    const std::set<TimeEditorClipItem*>& clips, QPointF from, QPointF to, int trackHeight);

/// What a press without Ctrl leaves of the clips' selected areas: everything, where a clip of a
/// selection was pressed or a place in a clip all of whose areas are selected; else nothing.
/// @param pressed the clip that was pressed, or null @param frame of the press
void deselectClipAreas(
    const std::set<TimeEditorClipItem*>& clips, TimeEditorClipItem* pressed, int frame);

} // namespace ui

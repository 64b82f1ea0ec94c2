// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/clipselection.h"

#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/VisClip.h>

#include <algorithm>

namespace ui {

namespace {

QPoint rounded(QPointF point)
{
    return {nearestFrame(point.x()), nearestFrame(point.y())};
}

/// Whether all areas are selected and one of them holds a frame.
bool isWhollySelectedAt(const TimeEditorClipItem& clip, int frame)
{
    const std::vector<VisClip*> areas = clip.getClipAreas();
    const auto isSelected = [](const VisClip* area) { return area->isSelected(); };
    const auto holdsFrame = [frame](const VisClip* area) { return area->isWithinRange(frame); };
    return std::all_of(areas.begin(), areas.end(), isSelected)
           && std::any_of(areas.begin(), areas.end(), holdsFrame);
}

} // namespace

QRect clipAreaBand(const VisClip& area, QPointF clipPosition, int trackHeight)
{
    const double width = std::min(frameSpan({area.getStart(), area.getEnd()}), 1e9);
    return QRect(
               area.getStart(),
               kClipAreaTop,
               static_cast<int>(width),
               trackHeight - 1 - kClipAreaTop)
        .translated(rounded(clipPosition));
}

void selectClipAreas(
    const std::set<TimeEditorClipItem*>& clips, QPointF from, QPointF to, int trackHeight)
{
    const QPoint a = rounded(from);
    const QPoint b = rounded(to);
    const QRect reached(
        QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
        QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
    for (TimeEditorClipItem* const clip : clips) {
        for (VisClip* const area : clip->getClipAreas()) {
            area->setSelected(
                clipAreaBand(*area, clip->scenePos(), trackHeight).intersects(reached));
        }
        clip->update();
    }
}

void deselectClipAreas(
    const std::set<TimeEditorClipItem*>& clips, TimeEditorClipItem* pressed, int frame)
{
    for (TimeEditorClipItem* const clip : clips) {
        const bool together = pressed != nullptr && pressed->isSelected() && clip->isSelected();
        if (!together && !(clip == pressed && isWhollySelectedAt(*clip, frame))) {
            clip->clearSelectedClipAreas();
        }
    }
}

} // namespace ui

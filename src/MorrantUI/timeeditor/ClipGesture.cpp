// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/ClipGesture.h"

#include "MorrantUI/timeeditor/ItemEdit.h"
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>
#include <MorrantUI/timeeditor/VisClip.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ui {

ClipSpan spanOf(const VisClip& area)
{
    return {area.getStart(), area.getEnd(), area.slip()};
}

ClipGesture::ClipGesture(
    TimeEditorClipItem& clip, int index, EndPointHover part, bool slips, double sceneX)
    : m_part(part)
    , m_slips(slips)
    , m_pressX(sceneX)
{
    takeAlong(clip, index);
    const VisClip* const pressed = clip.m_areas.at(static_cast<std::size_t>(index)).get();
    const auto* const scene = qobject_cast<const TimeEditorScene*>(clip.scene());
    if (scene && pressed->isSelected()) {
        for (TimeEditorClipItem* const other : scene->clips()) {
            for (std::size_t i = 0; i < other->m_areas.size(); ++i) {
                const VisClip* const area = other->m_areas.at(i).get();
                if (area != pressed && area->isSelected()) {
                    takeAlong(*other, static_cast<int>(i));
                }
            }
        }
    }
    for (Area& entry : m_areas) {
        // Bodies that move together are no neighbours of each other.
        std::vector<ClipSpan> row{entry.held.atPress};
        for (const auto& area : entry.clip->m_areas) {
            const bool itself = area == entry.area.lock();
            if (!itself && !(part == EndPointHover::Body && holds(*area))) {
                row.push_back(spanOf(*area));
            }
        }
        entry.held.limits = clipLimits(row, 0);
    }
}

void ClipGesture::takeAlong(TimeEditorClipItem& clip, int index)
{
    const auto& area = clip.m_areas.at(static_cast<std::size_t>(index));
    m_areas.push_back({&clip, area, {spanOf(*area), {}}});
}

bool ClipGesture::holds(const VisClip& area) const
{
    return std::any_of(m_areas.begin(), m_areas.end(), [&area](const Area& entry) {
        return entry.area.lock().get() == &area;
    });
}

ClipSpan ClipGesture::now() const
{
    const std::shared_ptr<VisClip> pressed = m_areas.front().area.lock();
    return pressed ? spanOf(*pressed) : atPress();
}

bool ClipGesture::begins(double pixels)
{
    m_hasBegun = m_hasBegun || std::abs(pixels) >= kLeastDrag;
    return m_hasBegun;
}

void ClipGesture::dragBy(double frames)
{
    std::vector<HeldClip> held;
    for (const Area& entry : m_areas) {
        if (!entry.area.expired()) {
            held.push_back(entry.held);
        }
    }
    if (m_part == EndPointHover::Body && !m_slips) {
        frames = sharedMove(held, frames);
    }
    std::vector<ClipSpan> spans;
    for (const Area& entry : m_areas) {
        spans.push_back(
            draggedClip(entry.held.atPress, m_part, m_slips, frames, entry.held.limits));
    }
    apply(spans);
}

void ClipGesture::cancel()
{
    apply(spansAtPress());
}

void ClipGesture::restore()
{
    set(spansAtPress());
}

std::vector<ClipSpan> ClipGesture::spansAtPress() const
{
    std::vector<ClipSpan> spans;
    for (const Area& entry : m_areas) {
        spans.push_back(entry.held.atPress);
    }
    return spans;
}

/// @return the areas that have changed
std::vector<ClipGesture::Area> ClipGesture::set(const std::vector<ClipSpan>& spans)
{
    std::vector<Area> changed;
    for (std::size_t i = 0; i < m_areas.size(); ++i) {
        const std::shared_ptr<VisClip> area = m_areas.at(i).area.lock();
        if (area && m_areas.at(i).clip && spanOf(*area) != spans.at(i)) {
            area->setRange(spans.at(i).start, spans.at(i).end);
            area->setSlip(spans.at(i).slip);
            m_areas.at(i).clip->refresh();
            changed.push_back(m_areas.at(i));
        }
    }
    return changed;
}

void ClipGesture::apply(const std::vector<ClipSpan>& spans)
{
    for (const Area& entry : set(spans)) {
        const int index = entry.clip ? entry.clip->indexOf(entry.area.lock().get()) : -1;
        if (index >= 0) {
            Q_EMIT entry.clip->clipChanging(index);
        }
    }
}

ClipMoves ClipGesture::moves() const
{
    ClipMoves moves;
    for (const Area& entry : m_areas) {
        const std::shared_ptr<VisClip> area = entry.area.lock();
        if (!area || !entry.clip || spanOf(*area) == entry.held.atPress) {
            continue;
        }
        const ClipSpan& from = entry.held.atPress;
        const ClipSpan to = spanOf(*area);
        moves.push_back(
            {entry.clip,
             {entry.clip->indexOf(area.get()),
              from.start,
              to.start,
              from.end,
              to.end,
              from.slip,
              to.slip}});
    }
    return moves;
}

} // namespace ui

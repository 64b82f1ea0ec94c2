// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/KeptSelection.h"

#include "MorrantUI/timeeditor/SelectionTold.h"
#include <MorrantUI/timeeditor/TimeEditorClipItem.h>
#include <MorrantUI/timeeditor/TimeEditorScene.h>

namespace ui {

KeptSelection::KeptSelection(const TimeEditorScene& scene)
{
    for (QGraphicsItem* const selected : scene.selectedItems()) {
        if (auto* const item = dynamic_cast<TimeEditorBaseItem*>(selected)) {
            m_items.emplace_back(item);
        }
    }
    for (const TimeEditorClipItem* const clip : scene.clips()) {
        for (const std::shared_ptr<VisClip>& area : clip->m_areas) {
            if (area->isSelected()) {
                m_areas.push_back(area);
            }
        }
    }
}

void KeptSelection::restore(TimeEditorScene& scene) const
{
    const SelectionTold told(scene);
    scene.clearSelection();
    for (TimeEditorClipItem* const clip : scene.clips()) {
        clip->clearSelectedClipAreas();
    }
    for (TimeEditorBaseItem* const item : m_items) {
        if (item) {
            item->setSelected(true);
        }
    }
    for (const std::weak_ptr<VisClip>& kept : m_areas) {
        if (const std::shared_ptr<VisClip> area = kept.lock()) {
            area->setSelected(true);
        }
    }
}

} // namespace ui

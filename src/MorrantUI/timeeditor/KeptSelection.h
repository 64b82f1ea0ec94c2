// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointer>

#include <memory>
#include <vector>

class TimeEditorBaseItem;
class TimeEditorScene;
class VisClip;

namespace ui {

/// What is selected in a time editor, to come back to. Items and areas of clips may die meanwhile.
class KeptSelection
{
public:
    explicit KeptSelection(const TimeEditorScene& scene);

    /// Selects that and nothing else; told once, if it is a change.
    void restore(TimeEditorScene& scene) const;

private:
    std::vector<QPointer<TimeEditorBaseItem>> m_items;
    std::vector<std::weak_ptr<VisClip>> m_areas;
};

} // namespace ui

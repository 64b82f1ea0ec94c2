// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/AccessibleTimeline.h"

#include "MorrantUI/scene/framemath.h"
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

namespace ui {

AccessibleTimeline::AccessibleTimeline(TimelineView* view)
    : AccessibleNumberControl(
        view,
        QAccessible::Slider,
        {[view] { return view->currentFrame(); },
         [view](double frame) { view->seek(nearestFrame(frame)); },
         [view] { return view->getTimelineScene()->getStartFrame(); },
         [view] { return view->getTimelineScene()->getEndFrame(); },
         [] { return 1.0; }})
{}

QString AccessibleTimeline::text(QAccessible::Text kind) const
{
    const auto* const view = static_cast<TimelineView*>(widget());
    if (kind == QAccessible::Value) {
        return view->getTimelineScene()->frameText(view->currentFrame());
    }
    const QString own = AccessibleNumberControl::text(kind);
    return kind == QAccessible::Name && own.isEmpty() ? TimelineView::tr("Timeline") : own;
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class TimelineView;

namespace ui {

/// The ruler as assistive tools see it: a slider whose number is the current frame, read out as the
/// ruler writes it.
class AccessibleTimeline : public AccessibleNumberControl
{
public:
    explicit AccessibleTimeline(TimelineView* view);

    QString text(QAccessible::Text kind) const override;
    int childCount() const override { return 0; } ///< the viewport is the slider
};

} // namespace ui

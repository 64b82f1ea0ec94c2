// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/timeline/rulerlayout.h"

#include <QPointF>
#include <Qt>

#include <optional>
#include <vector>

namespace ui {

/// A drag on the ruler, from the press to whatever ends it: what is held, and what was before.
struct TimelineGesture
{
    RulerHit hit;
    Qt::MouseButton button = Qt::LeftButton;
    QPointF press;
    QPointF last;
    bool hasBegun = false;  ///< far enough from the press; a drag of the playhead begins at once
    double heldFrame = 0.0; ///< of what is held, at the press
    double pressFrame = 0.0;
    int frame = 0; ///< current one before
    FrameRange playback;
    std::optional<TimelineMarker> marker;
    std::optional<std::vector<int>> snapFrames; ///< gathered when they are first asked for
};

} // namespace ui

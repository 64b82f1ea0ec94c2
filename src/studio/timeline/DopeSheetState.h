// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/timeeditor/soundfile.h>
#include <MorrantUI/timeline/markers.h>

#include <QSet>

#include <optional>
#include <utility>

namespace studio {

/// How the user sees a document in the dope sheet. No part of the document: nothing of it is undone
/// or saved.
struct DopeSheetState
{
    std::optional<QSet<QString>> folded; ///< none before the document was first shown
    bool isShown = false;                ///< whether it was shown before
    std::optional<ui::FrameRange> loop;  ///< what is played; none for all of it
    TimelineMarkers markers;
    ui::SoundFile sound; ///< without peaks for none
    std::optional<std::pair<double, double>>
        visible; ///< frames from edge to edge; none to fit them
};

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <optional>

class TimeEditorView;

namespace ui {

/// The frame to scroll to the left edge of a page of frames so that a frame is in sight, a little
/// behind that edge; empty when it is in sight already, or where there is no page.
/// @param left, right what is in sight
MORRANT_UI_EXPORT std::optional<double> pageFor(double left, double right, double frame);

/// Turns the page when a frame is out of sight, as for a playhead that is followed. The scene's
/// ends hold it. Null is ignored.
MORRANT_UI_EXPORT void followFrame(TimeEditorView* view, int frame);

} // namespace ui

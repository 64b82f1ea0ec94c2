#pragma once

#include <MorrantUI/morrantui_export.h>

namespace ui {

/// Lets pending events run, so that what listens to a signal through the queue has its turn.
/// Objects may die meanwhile: guard what is used afterwards.
MORRANT_UI_EXPORT void processEvents();

} // namespace ui

#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>

namespace ui {

/// What the Control key is called in texts for the user.
MORRANT_UI_EXPORT QString ctrlKeyName();

} // namespace ui

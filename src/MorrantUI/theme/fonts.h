#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QFont>

namespace ui {

/// The current theme's font, at its large size while the size override is on; a default QFont when
/// there is no theme.
MORRANT_UI_EXPORT QFont font();

} // namespace ui

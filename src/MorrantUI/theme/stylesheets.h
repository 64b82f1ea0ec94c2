// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>

namespace ui {

/// The style sheet of the dialogs, with the theme's "Window", "Base" and "Shadow" as they are now:
/// a dialog that outlives a theme change asks again.
MORRANT_UI_EXPORT QString getCommonStyleSheet();

/// The same, with margins around all widgets.
MORRANT_UI_EXPORT QString getCommonStyleSheetWithPadding();

} // namespace ui

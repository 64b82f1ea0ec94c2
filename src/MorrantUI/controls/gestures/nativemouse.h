// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

/// Hides the pointer everywhere. Hiding it twice is hiding it once: the library remembers only that
/// it has hidden it.
MORRANT_UI_EXPORT void hideNativeMouse();

/// Shows the pointer that the library has hidden; one that others have hidden stays so.
MORRANT_UI_EXPORT void showNativeMouse();

/// Lets a confined pointer go and shows it: the host's way out when a drag was cut short.
MORRANT_UI_EXPORT void resetNativeMouseState();

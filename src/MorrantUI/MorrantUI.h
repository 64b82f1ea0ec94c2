#pragma once

/// Every public header of the library.

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/platform/native.h>
#include <MorrantUI/platform/notifications.h>
#include <MorrantUI/theme/FocusFrame.h>
#include <MorrantUI/theme/OverrideCursor.h>
#include <MorrantUI/theme/SkiaQWidgetAdapter.h>
#include <MorrantUI/theme/Style.h>
#include <MorrantUI/theme/VisualDesignBase.h>
#include <MorrantUI/theme/VisualDesignDark.h>
#include <MorrantUI/theme/Widget.h>
#include <MorrantUI/theme/colors.h>
#include <MorrantUI/theme/eventfilters.h>
#include <MorrantUI/theme/events.h>
#include <MorrantUI/theme/fonts.h>
#include <MorrantUI/theme/icons.h>
#include <MorrantUI/theme/images.h>
#include <MorrantUI/theme/keys.h>
#include <MorrantUI/theme/painting.h>
#include <MorrantUI/theme/palettes.h>
#include <MorrantUI/theme/pixels.h>
#include <MorrantUI/theme/preferences.h>
#include <MorrantUI/theme/screens.h>
#include <MorrantUI/theme/stylesheets.h>
#include <MorrantUI/theme/widgets.h>

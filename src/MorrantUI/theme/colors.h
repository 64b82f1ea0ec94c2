// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <Core/Color.h>

#include <QColor>
#include <QString>

#include <string>

namespace ui {

/// The current theme's named colour, case-sensitive. Opaque black for one that the theme lacks and
/// without a theme. Cheap enough to ask at paint time, which is how a change of theme reaches
/// widgets: do not store the result.
MORRANT_UI_EXPORT QColor colorQt(const QString& name);

/// The same for Core's drawing; `name` is UTF-8.
MORRANT_UI_EXPORT Color color(const std::string& name);

/// "Base" at three quarters of its brightness: behind the panels of a window.
MORRANT_UI_EXPORT QColor windowBackground();

/// A shade darker than windowBackground(), for windows that let events through.
MORRANT_UI_EXPORT QColor windowPassthroughBackground();

/// Scales brightness (HSV value). The result is always opaque, whatever the colour's alpha, and in
/// RGB.
/// @param percent 100 leaves the colour as it is; above brightens up to full value; negative or NaN
///     gives black. An invalid colour gives black.
MORRANT_UI_EXPORT QColor changeValue(const QColor& color, double percent);

/// The same on 0xAARRGGBB, except that it can only darken: percentages above 100 count as 100
/// (deliberate). The result is opaque.
MORRANT_UI_EXPORT unsigned int changeValue(const unsigned int& argb, double percent);

/// Scales HSV saturation on 0xAARRGGBB; like the overload above it can only reduce. The result is
/// opaque.
/// @param percent 100 or more leaves the colour as it is; 0, negative or NaN gives a grey
MORRANT_UI_EXPORT unsigned int changeSaturation(const unsigned int& argb, double percent);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/theme/drawing.h>

#include <QPalette>

class QStyleOption;
class QWidget;

namespace ui::style {

using ui::kDisabledOpacity;

/// What a control's state does to its colours, read once from the option.
struct WidgetState
{
    bool enabled = true;
    bool hovered = false;  ///< never when disabled
    bool pressed = false;  ///< never when disabled
    bool focused = false;  ///< by any means
    bool keyboard = false; ///< focused, and the window's focus last moved by a key
    bool on = false;
};
WidgetState stateOf(const QStyleOption& option);
/// Of a widget that draws itself, as the application style would see it.
WidgetState stateOf(const QWidget& widget, bool pressed = false);

/// The fill of a control in its state: brighter under the pointer, darker when pressed, faint when
/// disabled. Keeps the colour's own alpha.
QColor shade(const QColor& fill, const WidgetState& state);

/// The colour of text, marks and icons in a state: as it is, or faded when disabled.
QColor ink(const QColor& color, const WidgetState& state);

/// Faded to the strength of a disabled control.
QColor faded(const QColor& color);

/// The colour at `share` (0 to 1) of its own alpha. Lines and handles are drawn so rather than in a
/// mixture with the ground: grounds may be transparent and show a parent's.
QColor translucent(const QColor& color, double share);

/// The ground of a control, from its palette's Button or Base role. Panels hand their own ground
/// down to their children in these roles, which would make buttons and fields vanish: a control
/// without a palette of its own then gets the theme's colour of that name.
QColor groundOf(const QStyleOption& option, QPalette::ColorRole role, const QWidget* widget);

/// The edge of fields, frames and panels.
QColor edge(const QStyleOption& option);

/// The theme's accent: keyboard focus, the edge of a field being edited, marks of what is active.
QColor accentColor();

/// Ground of switched-on buttons and of hovered rows: the theme's quiet highlight.
QColor quietHighlight();

} // namespace ui::style

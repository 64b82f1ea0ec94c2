// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/KeyEasing.h>

#include <QColor>

namespace ui {

/// Scene units, which are pixels downward, from a key's y to the middle of its diamond.
inline constexpr double kKeyMiddle = 6.0;

/// The named colours that keys are drawn with, fetched once for all keys of a pass.
struct KeyColors
{
    QColor outline;
    QColor selected;
    QColor extra;

    /// From the current theme.
    static KeyColors fetch();
};

/// What decides about a key's fill.
struct KeyState
{
    QColor base;
    QColor animating; ///< invalid unless a colour animation runs
    bool selected = false;
    bool shadedByEasing = false; ///< the row's colour mode
    KeyEasing easing = KeyEasing::Bezier;
};

/// A colour animation goes before the selection, and that before the key's own colour, which the
/// row's colour mode darkens to 130 % for keys that hold and lightens to 120 % for curved ones.
QColor keyFill(const KeyState& state, const KeyColors& colors);

/// A colour as the row's colour mode shades it.
QColor easedShade(const QColor& color, KeyEasing easing);

} // namespace ui

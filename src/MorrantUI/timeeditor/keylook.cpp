// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/keylook.h"

#include <MorrantUI/theme/colors.h>

namespace ui {

namespace {

constexpr int kHoldDark = 130;    ///< percent
constexpr int kBezierLight = 120; ///< percent

} // namespace

KeyColors KeyColors::fetch()
{
    return {
        colorQt(QStringLiteral("Base")),
        colorQt(QStringLiteral("Accent1")),
        colorQt(QStringLiteral("Accent4"))};
}

QColor easedShade(const QColor& color, KeyEasing easing)
{
    switch (easing) {
    case KeyEasing::Hold: return color.darker(kHoldDark);
    case KeyEasing::Bezier: return color.lighter(kBezierLight);
    default: return color;
    }
}

QColor keyFill(const KeyState& state, const KeyColors& colors)
{
    if (state.animating.isValid()) {
        return state.animating;
    }
    if (state.selected) {
        return colors.selected;
    }
    return state.shadedByEasing ? easedShade(state.base, state.easing) : state.base;
}

} // namespace ui

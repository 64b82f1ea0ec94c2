// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/shades.h"

#include <MorrantUI/theme/colors.h>

#include <QStyleOption>
#include <QWidget>

namespace ui::style {

namespace {

constexpr double kHoverValue = 116.0;  ///< percent of the colour's value
constexpr double kPressedValue = 82.0; ///< percent of the colour's value
constexpr double kEdgeStrength = 0.8;  ///< of the Midlight role in edges

QColor withValue(const QColor& color, double percent)
{
    QColor changed = changeValue(color, percent);
    changed.setAlpha(color.alpha()); // changeValue is opaque by design
    return changed;
}

} // namespace

WidgetState stateOf(const QStyleOption& option)
{
    const QStyle::State flags = option.state;
    const bool enabled = flags.testFlag(QStyle::State_Enabled);
    const bool focused = enabled && flags.testFlag(QStyle::State_HasFocus);
    return {
        .enabled = enabled,
        .hovered = enabled && flags.testFlag(QStyle::State_MouseOver),
        .pressed = enabled && flags.testFlag(QStyle::State_Sunken),
        .focused = focused,
        .keyboard = focused && flags.testFlag(QStyle::State_KeyboardFocusChange),
        .on = flags.testFlag(QStyle::State_On),
    };
}

WidgetState stateOf(const QWidget& widget, bool pressed)
{
    QStyleOption option;
    option.initFrom(&widget);
    option.state.setFlag(QStyle::State_Sunken, pressed);
    return stateOf(option);
}

QColor shade(const QColor& fill, const WidgetState& state)
{
    if (!state.enabled) {
        return faded(fill);
    }
    if (state.pressed) {
        return withValue(fill, kPressedValue);
    }
    return state.hovered ? withValue(fill, kHoverValue) : fill;
}

QColor ink(const QColor& color, const WidgetState& state)
{
    return state.enabled ? color : faded(color);
}

QColor faded(const QColor& color)
{
    return translucent(color, kDisabledOpacity);
}

QColor translucent(const QColor& color, double share)
{
    QColor result = color;
    result.setAlphaF(static_cast<float>(color.alphaF() * share));
    return result;
}

QColor groundOf(const QStyleOption& option, QPalette::ColorRole role, const QWidget* widget)
{
    const QColor ground = option.palette.color(role);
    const bool isOwn = widget && widget->testAttribute(Qt::WA_SetPalette);
    if (isOwn || ground != option.palette.color(QPalette::Window)) {
        return ground;
    }
    return colorQt(role == QPalette::Base ? QStringLiteral("Base") : QStringLiteral("Button"));
}

QColor edge(const QStyleOption& option)
{
    return ink(
        translucent(option.palette.color(QPalette::Midlight), kEdgeStrength), stateOf(option));
}

QColor accentColor()
{
    return colorQt(QStringLiteral("Accent1"));
}

QColor quietHighlight()
{
    return colorQt(QStringLiteral("RowHighlight2"));
}

} // namespace ui::style

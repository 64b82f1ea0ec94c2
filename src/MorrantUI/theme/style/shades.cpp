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

Mood moodOf(const QStyleOption& option)
{
    const QStyle::State state = option.state;
    const bool enabled = state.testFlag(QStyle::State_Enabled);
    const bool focused = enabled && state.testFlag(QStyle::State_HasFocus);
    return {
        .enabled = enabled,
        .hovered = enabled && state.testFlag(QStyle::State_MouseOver),
        .pressed = enabled && state.testFlag(QStyle::State_Sunken),
        .focused = focused,
        .keyboard = focused && state.testFlag(QStyle::State_KeyboardFocusChange),
        .on = state.testFlag(QStyle::State_On),
    };
}

QColor shade(const QColor& fill, const Mood& mood)
{
    if (!mood.enabled) {
        return faded(fill);
    }
    if (mood.pressed) {
        return withValue(fill, kPressedValue);
    }
    return mood.hovered ? withValue(fill, kHoverValue) : fill;
}

QColor ink(const QColor& color, const Mood& mood)
{
    return mood.enabled ? color : faded(color);
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
        translucent(option.palette.color(QPalette::Midlight), kEdgeStrength), moodOf(option));
}

QColor focusColor()
{
    return colorQt(QStringLiteral("Accent1"));
}

QColor quietHighlight()
{
    return colorQt(QStringLiteral("RowHighlight2"));
}

} // namespace ui::style

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"

#include <QPainter>

#include <algorithm>

namespace ui::style {

namespace {

constexpr int kIconGap = 5; ///< from a button's icon to its text, logical pixels

bool isDefault(const QStyleOptionButton& button)
{
    return button.features.testFlag(QStyleOptionButton::DefaultButton);
}

QColor buttonFill(
    const QStyleOption& option, const WidgetState& state, bool emphasised, const QWidget* widget)
{
    if (emphasised) {
        return option.palette.color(QPalette::Highlight);
    }
    return state.on ? quietHighlight() : groundOf(option, QPalette::Button, widget);
}

void drawRaised(
    const QStyleOption& option, QPainter& painter, bool emphasised, const QWidget* widget)
{
    const WidgetState state = stateOf(option);
    const QColor ground = buttonFill(option, state, emphasised, widget);
    fillRounded(painter, option.rect, kRadius, shade(ground, state));
    if (state.on && state.enabled) {
        strokeRounded(painter, option.rect, kRadius, option.palette.color(QPalette::Highlight));
    }
}

/// The box behind a tick or a radio dot: a field when off, filled with the highlight when on.
void drawIndicatorBox(
    const QStyleOption& option, QPainter& painter, double radius, const QWidget* widget)
{
    const WidgetState state = stateOf(option);
    const bool filled = state.on || option.state.testFlag(QStyle::State_NoChange);
    const QRectF box = centeredSquare(option.rect, option.rect.width());
    const QColor ground = filled ? option.palette.color(QPalette::Highlight)
                                 : groundOf(option, QPalette::Base, widget);
    fillRounded(painter, box, radius, shade(ground, state));
    if (!filled) {
        const QColor text = option.palette.color(QPalette::Text);
        strokeRounded(
            painter, box, radius, ink(translucent(text, state.hovered ? 0.55 : 0.3), state));
    }
    if (state.keyboard) {
        drawFocusRing(painter, box, radius);
    }
}

QColor markColor(const QStyleOption& option)
{
    return ink(option.palette.color(QPalette::HighlightedText), stateOf(option));
}

/// The elements that make up a check box or a radio button.
struct Checkable
{
    QStyle::PrimitiveElement mark;
    QStyle::SubElement markRect;
    QStyle::ControlElement label;
    QStyle::SubElement labelRect;
};

/// The focus is ringed at the mark: a second ring around the text would only repeat it.
void drawMarkAndLabel(
    const QStyleOption& option, QPainter& painter, const Context& context, const Checkable& parts)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (!button) {
        return;
    }
    QStyleOptionButton part(*button);
    part.rect = context.style.subElementRect(parts.markRect, button, context.widget);
    context.style.drawPrimitive(parts.mark, &part, &painter, context.widget);
    part.rect = context.style.subElementRect(parts.labelRect, button, context.widget);
    context.style.drawControl(parts.label, &part, &painter, context.widget);
}

/// Draws the icon of a push button, in the middle together with the text.
/// @param inside the button without its menu arrow, as if laid out from left to right
/// @return where the text goes
QRect drawButtonIcon(const QStyleOptionButton& button, QPainter& painter, const QRect& inside)
{
    const WidgetState state = stateOf(button);
    QRect text = inside;
    if (!button.icon.isNull()) {
        const int textWidth = button.fontMetrics.size(Qt::TextShowMnemonic, button.text).width();
        const int gap = button.text.isEmpty() ? 0 : kIconGap;
        const int width = button.iconSize.width();
        const int left = inside.left() + (inside.width() - width - gap - textWidth) / 2;
        const QRect icon(std::max(inside.left(), left), inside.top(), width, inside.height());
        drawSharp(
            painter,
            centeredSquare(QStyle::visualRect(button.direction, button.rect, icon), width),
            button.icon,
            state.enabled ? QIcon::Normal : QIcon::Disabled,
            state.on ? QIcon::On : QIcon::Off);
        text = QRect(icon.right() + 1 + gap, inside.top(), textWidth, inside.height());
    }
    return QStyle::visualRect(button.direction, button.rect, text);
}

} // namespace

void drawButtonPanel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    drawRaised(option, painter, false, context.widget);
}

void drawPushButtonBevel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (!button) {
        return;
    }
    const WidgetState state = stateOf(option);
    const bool flat = button->features.testFlag(QStyleOptionButton::Flat);
    if (!flat || state.hovered || state.pressed || state.on) {
        drawRaised(option, painter, isDefault(*button), context.widget);
    }
    if (state.keyboard) {
        drawFocusRing(painter, option.rect);
    }
    if (button->features.testFlag(QStyleOptionButton::HasMenu)) {
        const int column =
            context.style.pixelMetric(QStyle::PM_MenuButtonIndicator, &option, context.widget);
        const QRect arrow(
            option.rect.right() - column, option.rect.top(), column, option.rect.height());
        drawChevron(
            painter,
            QStyle::visualRect(option.direction, option.rect, arrow),
            Qt::DownArrow,
            ink(option.palette.color(QPalette::ButtonText), state));
    }
}

void drawPushButtonLabel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (!button) {
        return;
    }
    QRect inside = option.rect;
    if (button->features.testFlag(QStyleOptionButton::HasMenu)) {
        inside.setRight(
            inside.right()
            - context.style.pixelMetric(QStyle::PM_MenuButtonIndicator, &option, context.widget));
    }
    const QRect text = drawButtonIcon(*button, painter, inside);
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
    if (context.style.styleHint(QStyle::SH_UnderlineShortcut, &option, context.widget) == 0) {
        flags |= Qt::TextHideMnemonic;
    }
    context.style.drawItemText(
        &painter,
        text,
        flags,
        option.palette,
        stateOf(option).enabled,
        button->text,
        isDefault(*button) ? QPalette::HighlightedText : QPalette::ButtonText);
}

void drawToolButtonPanel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const WidgetState state = stateOf(option);
    const bool raises = option.state.testFlag(QStyle::State_AutoRaise);
    if (!raises || state.hovered || state.pressed || state.on) {
        drawRaised(option, painter, false, context.widget);
    }
}

void drawToolButtonDropDown(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const WidgetState state = stateOf(option);
    const QRectF rect = option.rect;
    if (state.hovered || state.pressed) {
        fillRounded(
            painter,
            rect,
            kRadius,
            shade(groundOf(option, QPalette::Button, context.widget), state));
    }
    drawChevron(
        painter, rect, Qt::DownArrow, ink(option.palette.color(QPalette::ButtonText), state));
}

void drawCheckMark(const QStyleOption& option, QPainter& painter, const Context& context)
{
    drawIndicatorBox(option, painter, kSmallRadius, context.widget);
    const QRectF box = centeredSquare(option.rect, option.rect.width());
    if (option.state.testFlag(QStyle::State_NoChange)) {
        const QPointF reach(box.width() * 0.22, 1.0);
        fillRounded(painter, {box.center() - reach, box.center() + reach}, 1.0, markColor(option));
    } else if (option.state.testFlag(QStyle::State_On)) {
        drawTick(painter, box, markColor(option));
    }
}

void drawRadioMark(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const QRectF circle = centeredSquare(option.rect, option.rect.width());
    drawIndicatorBox(option, painter, circle.width() / 2, context.widget);
    if (option.state.testFlag(QStyle::State_On)) {
        const QRectF dot = centeredSquare(circle, circle.width() - 8);
        fillRounded(painter, dot, dot.width() / 2, markColor(option));
    }
}

void drawCheckBox(const QStyleOption& option, QPainter& painter, const Context& context)
{
    drawMarkAndLabel(
        option,
        painter,
        context,
        {QStyle::PE_IndicatorCheckBox,
         QStyle::SE_CheckBoxIndicator,
         QStyle::CE_CheckBoxLabel,
         QStyle::SE_CheckBoxContents});
}

void drawRadioButton(const QStyleOption& option, QPainter& painter, const Context& context)
{
    drawMarkAndLabel(
        option,
        painter,
        context,
        {QStyle::PE_IndicatorRadioButton,
         QStyle::SE_RadioButtonIndicator,
         QStyle::CE_RadioButtonLabel,
         QStyle::SE_RadioButtonContents});
}

void drawToolButton(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(&option);
    if (!button) {
        return;
    }
    // The base style would ring the icon, three pixels inside the button.
    QStyleOptionToolButton unfocused(*button);
    unfocused.icon = sharpened(button->icon);
    unfocused.state.setFlag(QStyle::State_HasFocus, false);
    context.base.drawComplexControl(QStyle::CC_ToolButton, &unfocused, &painter, context.widget);
    if (stateOf(option).keyboard) {
        drawFocusRing(painter, option.rect);
    }
}

} // namespace ui::style

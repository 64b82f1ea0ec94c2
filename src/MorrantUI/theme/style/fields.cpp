// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>

namespace ui::style {

namespace {

constexpr int kTextPadding = 6; ///< before a field's text, logical pixels

void drawField(const QStyleOption& option, QPainter& painter, const QWidget* widget)
{
    const QColor ground = groundOf(option, QPalette::Base, widget);
    fillRounded(painter, option.rect, kRadius, ink(ground, stateOf(option)));
}

void drawFieldEdge(const QStyleOption& option, QPainter& painter)
{
    const WidgetState state = stateOf(option);
    QColor line = edge(option);
    if (state.focused) {
        line = accentColor();
    } else if (state.hovered) {
        line = translucent(option.palette.color(QPalette::Text), 0.35);
    }
    strokeRounded(painter, option.rect, kRadius, line);
}

/// Whether a line edit stands in a control that has drawn the field already.
bool isPartOfAField(const QWidget* widget)
{
    const QWidget* parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
}

int arrowWidth(const QStyleOption& option, const Context& context)
{
    return context.style.pixelMetric(QStyle::PM_MenuButtonIndicator, &option, context.widget);
}

/// One of a spin box's two arrows, with a ground of its own under the pointer.
void drawStepArrow(
    const QStyleOptionSpinBox& spin,
    QPainter& painter,
    QStyle::SubControl part,
    const Context& context)
{
    const bool up = part == QStyle::SC_SpinBoxUp;
    const QRectF rect =
        context.style.subControlRect(QStyle::CC_SpinBox, &spin, part, context.widget);
    WidgetState state = stateOf(spin);
    const bool active = spin.activeSubControls.testFlag(part);
    state.enabled = state.enabled
                    && spin.stepEnabled.testFlag(
                        up ? QAbstractSpinBox::StepUpEnabled : QAbstractSpinBox::StepDownEnabled);
    state.pressed = state.pressed && active;
    if (active && state.enabled) {
        fillRounded(
            painter,
            rect.adjusted(1, 0.5, -1, -0.5),
            2.0,
            shade(groundOf(spin, QPalette::Button, context.widget), state));
    }
    const QColor color = ink(spin.palette.color(QPalette::Text), state);
    if (spin.buttonSymbols == QAbstractSpinBox::PlusMinus) {
        const QRectF center = centeredSquare(rect, 7);
        fillSharp(painter, {center.left(), center.center().y() - 0.5, center.width(), 1}, color);
        if (up) {
            fillSharp(
                painter, {center.center().x() - 0.5, center.top(), 1, center.height()}, color);
        }
        return;
    }
    drawChevron(painter, rect.adjusted(0, -1, 0, 1), up ? Qt::UpArrow : Qt::DownArrow, color);
}

} // namespace

void drawFieldPanel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (!frame || frame->lineWidth > 0) {
        drawField(option, painter, context.widget);
        drawFieldEdge(option, painter);
    } else if (!isPartOfAField(context.widget)) {
        const QColor ground = groundOf(option, QPalette::Base, context.widget);
        fillSharp(painter, option.rect, ink(ground, stateOf(option)));
    }
    if (!stateOf(option).enabled && qobject_cast<const QLineEdit*>(context.widget)) {
        // Deliberately left on: the line edit draws its text next, with this painter and without
        // asking the style.
        painter.setOpacity(painter.opacity() * kDisabledOpacity);
    }
}

void drawFieldFrame(const QStyleOption& option, QPainter& painter, const Context&)
{
    drawFieldEdge(option, painter);
}

void drawComboBox(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
    if (!combo) {
        return;
    }
    const WidgetState state = stateOf(option);
    if (combo->editable) {
        drawField(option, painter, context.widget);
        if (combo->frame) {
            drawFieldEdge(option, painter);
        }
    } else if (combo->frame || state.hovered || state.pressed) {
        fillRounded(
            painter,
            option.rect,
            kRadius,
            shade(groundOf(option, QPalette::Button, context.widget), state));
    }
    if (state.keyboard && !combo->editable) {
        drawFocusRing(painter, option.rect);
    }
    const QRect arrow = context.style.subControlRect(
        QStyle::CC_ComboBox, combo, QStyle::SC_ComboBoxArrow, context.widget);
    drawChevron(
        painter, arrow, Qt::DownArrow, ink(option.palette.color(QPalette::ButtonText), state));
}

void drawComboBoxLabel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
    if (!combo || combo->editable) {
        return;
    }
    QRect text = context.style.subControlRect(
        QStyle::CC_ComboBox, combo, QStyle::SC_ComboBoxEditField, context.widget);
    if (!combo->currentIcon.isNull()) {
        const QIcon::Mode mode = stateOf(option).enabled ? QIcon::Normal : QIcon::Disabled;
        QRect icon(text.topLeft(), QSize(combo->iconSize.width(), text.height()));
        icon = QStyle::visualRect(option.direction, text, icon);
        drawSharp(
            painter, centeredSquare(icon, combo->iconSize.height()), combo->currentIcon, mode);
        const int shift = combo->iconSize.width() + 5;
        const bool leftToRight = option.direction == Qt::LeftToRight;
        text.adjust(leftToRight ? shift : 0, 0, leftToRight ? 0 : -shift, 0);
    }
    context.style.drawItemText(
        &painter,
        text,
        static_cast<int>(
            QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter)),
        option.palette,
        stateOf(option).enabled,
        option.fontMetrics.elidedText(combo->currentText, Qt::ElideRight, text.width()),
        QPalette::ButtonText);
}

void drawSpinBox(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
    if (!spin) {
        return;
    }
    drawField(option, painter, context.widget);
    if (spin->frame) {
        drawFieldEdge(option, painter);
    }
    if (spin->buttonSymbols != QAbstractSpinBox::NoButtons) {
        drawStepArrow(*spin, painter, QStyle::SC_SpinBoxUp, context);
        drawStepArrow(*spin, painter, QStyle::SC_SpinBoxDown, context);
    }
}

QRect comboBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context)
{
    const QRect all = option.rect;
    const int column = arrowWidth(option, context);
    QRect result = all;
    if (part == QStyle::SC_ComboBoxArrow) {
        result.setLeft(all.right() + 1 - column - 2);
    } else if (part == QStyle::SC_ComboBoxEditField) {
        const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(&option);
        const int before = combo && combo->editable ? 1 : kTextPadding + 2;
        result.adjust(before, 1, -column - 2, -1);
    }
    return QStyle::visualRect(option.direction, all, result);
}

QRect spinBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context)
{
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(&option);
    const bool hasArrows = spin && spin->buttonSymbols != QAbstractSpinBox::NoButtons;
    const int column = hasArrows ? arrowWidth(option, context) : 0;
    const int frame = spin && spin->frame ? 1 : 0;
    const QRect inside = option.rect.adjusted(frame, frame, -frame, -frame);
    const QRect arrows(inside.right() + 1 - column, inside.top(), column, inside.height());
    QRect result = option.rect;
    switch (part) {
    case QStyle::SC_SpinBoxUp:
        result = hasArrows ? arrows.adjusted(0, 0, 0, -(arrows.height() / 2)) : QRect();
        break;
    case QStyle::SC_SpinBoxDown:
        result =
            hasArrows ? arrows.adjusted(0, arrows.height() - arrows.height() / 2, 0, 0) : QRect();
        break;
    case QStyle::SC_SpinBoxEditField: result = inside.adjusted(2, 0, -column, 0); break;
    default: break;
    }
    return QStyle::visualRect(option.direction, option.rect, result);
}

} // namespace ui::style

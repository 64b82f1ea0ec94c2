// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QAbstractScrollArea>
#include <QFrame>
#include <QLCDNumber>
#include <QLabel>
#include <QPainter>
#include <QTextDocument>

#include <algorithm>

namespace ui::style {

namespace {

constexpr double kDot = 2.0;        ///< of grips, logical pixels
constexpr double kDotSpacing = 4.0; ///< from one dot to the next
constexpr int kTitleGap = 5;        ///< around the title of a group
constexpr int kTitleIndent = 2;     ///< of a group's title

QColor ruleColor(const QStyleOption& option)
{
    return translucent(option.palette.color(QPalette::Midlight), 0.8);
}

void drawDot(QPainter& painter, const QPointF& center, const QColor& color)
{
    const QPointF reach(kDot / 2, kDot / 2);
    fillRounded(painter, {center - reach, center + reach}, kDot / 2, color);
}

/// A hairline through the middle of the rectangle.
void drawRule(QPainter& painter, const QRectF& rect, bool horizontal, const QColor& color)
{
    const QPointF middle = rect.center();
    fillSharp(
        painter,
        horizontal ? QRectF(rect.left(), middle.y() - 0.5, rect.width(), 1)
                   : QRectF(middle.x() - 0.5, rect.top(), 1, rect.height()),
        color);
}

/// Widgets that draw their contents after their frame without asking the style: labels whose text
/// is a document, and digits.
bool paintsPastTheStyle(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (!label) {
        return qobject_cast<const QLCDNumber*>(widget) != nullptr;
    }
    const Qt::TextFormat format = label->textFormat();
    const bool plain =
        format == Qt::PlainText || (format == Qt::AutoText && !Qt::mightBeRichText(label->text()));
    constexpr Qt::TextInteractionFlags kSelectable =
        Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    return !label->text().isEmpty() && (!plain || (label->textInteractionFlags() & kSelectable));
}

} // namespace

void drawFrame(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (frame && frame->lineWidth == 0) {
        return;
    }
    const bool edited = stateOf(option).focused
                        && qobject_cast<const QAbstractScrollArea*>(context.widget)
                        && stateOf(option).keyboard;
    strokeRounded(painter, option.rect, 0.0, edited ? accentColor() : edge(option));
}

void drawShapedFrame(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    if (!frame) {
        return;
    }
    switch (frame->frameShape) {
    case QFrame::NoFrame: break;
    case QFrame::HLine:
    case QFrame::VLine:
        drawRule(painter, option.rect, frame->frameShape == QFrame::HLine, ruleColor(option));
        break;
    default: drawFrame(option, painter, context); break;
    }
    if (!stateOf(option).enabled && paintsPastTheStyle(context.widget)) {
        // Deliberately left on: the widget draws its contents next, with this painter.
        painter.setOpacity(painter.opacity() * kDisabledOpacity);
    }
}

void drawGroupFrame(const QStyleOption& option, QPainter& painter, const Context&)
{
    strokeRounded(painter, option.rect, kRadius, edge(option));
}

QRect groupBoxPart(const QStyleOption& option, QStyle::SubControl part, const Context& context)
{
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(&option);
    if (!box) {
        return {};
    }
    const QStyle& style = context.style;
    const bool checkable = box->subControls.testFlag(QStyle::SC_GroupBoxCheckBox);
    const int mark = checkable ? style.pixelMetric(QStyle::PM_IndicatorWidth, &option) : 0;
    const bool titled = checkable || !box->text.isEmpty();
    const int title = titled ? std::max(mark, option.fontMetrics.height()) : 0;
    const QRect all = option.rect;
    const QRect frame = all.adjusted(0, titled ? title + kTitleGap : 0, 0, 0);
    const int textLeft = all.left() + kTitleIndent + (checkable ? mark + kTitleGap : 0);
    const int textWidth = option.fontMetrics.horizontalAdvance(box->text) + 1;
    QRect result;
    switch (part) {
    case QStyle::SC_GroupBoxFrame: result = frame; break;
    case QStyle::SC_GroupBoxContents: result = frame.adjusted(1, 1, -1, -1); break;
    case QStyle::SC_GroupBoxCheckBox:
        result = {all.left() + kTitleIndent, all.top() + (title - mark) / 2, mark, mark};
        break;
    case QStyle::SC_GroupBoxLabel: result = {textLeft, all.top(), textWidth, title}; break;
    default: return {};
    }
    return QStyle::visualRect(option.direction, all, result);
}

void drawFocusRect(const QStyleOption& option, QPainter& painter, const Context&)
{
    if (!option.state.testFlag(QStyle::State_KeyboardFocusChange)) {
        return;
    }
    strokeRounded(painter, option.rect, kSmallRadius, accentColor());
}

void drawSplitter(const QStyleOption& option, QPainter& painter, const Context&)
{
    const WidgetState state = stateOf(option);
    painter.fillRect(option.rect, option.palette.color(QPalette::Shadow));
    if (state.hovered || state.pressed) {
        const bool upright = option.state.testFlag(QStyle::State_Horizontal);
        const QRectF rect = option.rect;
        const QPointF middle = rect.center();
        fillSharp(
            painter,
            upright ? QRectF(middle.x() - 1, rect.top(), 2, rect.height())
                    : QRectF(rect.left(), middle.y() - 1, rect.width(), 2),
            option.palette.color(QPalette::Highlight));
    }
}

void drawToolBar(const QStyleOption& option, QPainter& painter, const Context&)
{
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
}

void drawToolBarHandle(const QStyleOption& option, QPainter& painter, const Context&)
{
    const bool horizontal = option.state.testFlag(QStyle::State_Horizontal);
    const QPointF middle = QRectF(option.rect).center();
    const QColor color = option.palette.color(QPalette::Midlight);
    for (int along = -1; along <= 1; ++along) {
        for (const double across : {-kDotSpacing / 2, kDotSpacing / 2}) {
            const QPointF offset = horizontal ? QPointF(across, along * kDotSpacing)
                                              : QPointF(along * kDotSpacing, across);
            drawDot(painter, middle + offset, color);
        }
    }
}

void drawToolBarSeparator(const QStyleOption& option, QPainter& painter, const Context&)
{
    const bool horizontal = option.state.testFlag(QStyle::State_Horizontal);
    const QRectF rect = horizontal ? QRectF(option.rect).adjusted(0, 4, 0, -4)
                                   : QRectF(option.rect).adjusted(4, 0, -4, 0);
    drawRule(painter, rect, !horizontal, ruleColor(option));
}

void drawSizeGrip(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* grip = qstyleoption_cast<const QStyleOptionSizeGrip*>(&option);
    const bool left =
        grip && (grip->corner == Qt::BottomLeftCorner || grip->corner == Qt::TopLeftCorner);
    const QRectF rect = option.rect;
    const QColor color = option.palette.color(QPalette::Midlight);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column <= row; ++column) {
            const double fromEdge = kDotSpacing * column + kDot + 1;
            const double x = left ? rect.left() + fromEdge : rect.right() - fromEdge;
            drawDot(painter, {x, rect.bottom() - kDotSpacing * (2 - row) - kDot - 1}, color);
        }
    }
}

void drawRubberBand(const QStyleOption& option, QPainter& painter, const Context&)
{
    const QColor accent = accentColor();
    fillSharp(painter, option.rect, translucent(accent, 0.18));
    strokeRounded(painter, option.rect, 0.0, accent);
}

void drawNothing(const QStyleOption&, QPainter&, const Context&)
{}

void drawArrow(const QStyleOption& option, QPainter& painter, Qt::ArrowType direction)
{
    const QColor color = option.palette.color(QPalette::ButtonText);
    drawChevron(painter, option.rect, direction, ink(color, stateOf(option)));
}

} // namespace ui::style

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>

namespace ui::style {

namespace {

QColor headerGround(const QStyleOption& option)
{
    const WidgetState state = stateOf(option);
    const QColor ground = colorQt(QStringLiteral("ElementHeader"));
    return state.enabled ? shade(ground, state) : ground;
}

QPalette fadedTexts(QPalette palette)
{
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::HighlightedText})
    {
        palette.setColor(role, faded(palette.color(role)));
    }
    return palette;
}

QColor selectedGround(const QStyleOptionViewItem& item)
{
    return ink(item.palette.color(QPalette::Highlight), stateOf(item));
}

} // namespace

void drawItemGround(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
    if (!item) {
        return;
    }
    if (item->backgroundBrush.style() != Qt::NoBrush) {
        const PainterState saved(painter);
        painter.setBrushOrigin(item->rect.topLeft());
        painter.fillRect(item->rect, item->backgroundBrush);
    }
    const bool whole = item->viewItemPosition == QStyleOptionViewItem::OnlyOne;
    const QRectF row = whole ? QRectF(item->rect).adjusted(1, 0, -1, 0) : QRectF(item->rect);
    const double radius = whole ? kSmallRadius : 0.0;
    if (item->state.testFlag(QStyle::State_Selected)) {
        fillRounded(painter, row, radius, selectedGround(*item));
    } else if (stateOf(option).hovered) {
        drawHoverWash(painter, row, radius);
    }
}

void drawItem(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(&option);
    if (!item) {
        return;
    }
    QStyleOptionViewItem copy(*item);
    copy.icon = sharpened(item->icon);
    if (!option.state.testFlag(QStyle::State_Enabled)) {
        copy.palette = fadedTexts(copy.palette);
    }
    context.base.drawControl(QStyle::CE_ItemViewItem, &copy, &painter, context.widget);
}

void drawBranch(const QStyleOption& option, QPainter& painter, const Context&)
{
    if (!option.state.testFlag(QStyle::State_Children)) {
        return;
    }
    const bool open = option.state.testFlag(QStyle::State_Open);
    const bool leftToRight = option.direction == Qt::LeftToRight;
    const Qt::ArrowType closedArrow = leftToRight ? Qt::RightArrow : Qt::LeftArrow;
    drawChevron(
        painter,
        centeredSquare(option.rect, 12),
        open ? Qt::DownArrow : closedArrow,
        ink(option.palette.color(QPalette::Text), stateOf(option)));
}

void drawHeaderSection(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(&option);
    const bool vertical = header && header->orientation == Qt::Vertical;
    const QRectF rect = option.rect;
    painter.fillRect(option.rect, headerGround(option));
    const QColor line = translucent(option.palette.color(QPalette::Midlight), 0.8);
    const QRectF below(rect.left(), rect.bottom() - 1, rect.width(), 1);
    const QRectF beside(rect.right() - 1, rect.top() + 4, 1, rect.height() - 8);
    fillSharp(painter, below, line);
    const bool last = header
                      && (header->position == QStyleOptionHeader::End
                          || header->position == QStyleOptionHeader::OnlyOneSection);
    if (!vertical && !last) {
        fillSharp(painter, beside, line);
    }
}

void drawHeaderEmptyArea(const QStyleOption& option, QPainter& painter, const Context&)
{
    painter.fillRect(option.rect, colorQt(QStringLiteral("ElementHeader")));
}

void drawHeaderArrow(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(&option);
    if (!header || header->sortIndicator == QStyleOptionHeader::None) {
        return;
    }
    const bool up = header->sortIndicator == QStyleOptionHeader::SortUp;
    drawChevron(
        painter,
        centeredSquare(option.rect, 12),
        up ? Qt::UpArrow : Qt::DownArrow,
        ink(option.palette.color(QPalette::ButtonText), stateOf(option)));
}

void drawDropIndicator(const QStyleOption& option, QPainter& painter, const Context&)
{
    if (option.rect.height() == 0) {
        const QPointF left = option.rect.topLeft();
        const QPointF right = left + QPointF(option.rect.width(), 0);
        const bool leftToRight = option.direction == Qt::LeftToRight;
        drawDropMark(painter, leftToRight ? left : right, leftToRight ? right : left);
    } else {
        drawFocusRing(painter, option.rect, kSmallRadius);
    }
}

} // namespace ui::style

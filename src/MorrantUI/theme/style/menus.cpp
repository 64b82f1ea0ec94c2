// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/metrics.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>

#include <algorithm>

namespace ui::style {

namespace {

constexpr double kPanelRadius = 6.0; ///< corners of menus and tool tips
constexpr int kMenuWideChar = 2;     ///< average ones, of a wide character in any font
constexpr int kMenuMostChars = 400;  ///< that are measured: more than fit into a row

QRect mirrored(const QStyleOption& option, const QRect& rect)
{
    return QStyle::visualRect(option.direction, option.rect, rect);
}

QPalette::ColorRole textRole(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText
                                                         : QPalette::WindowText;
}

QColor textColor(const QStyleOption& option)
{
    return ink(option.palette.color(textRole(option)), stateOf(option));
}

void drawPanel(const QStyleOption& option, QPainter& painter, const QColor& ground)
{
    fillRounded(painter, option.rect, kPanelRadius, ground);
    strokeRounded(painter, option.rect, kPanelRadius, option.palette.color(QPalette::Midlight));
}

void drawSeparator(const QStyleOptionMenuItem& item, QPainter& painter, const Context& context)
{
    const QRect row = item.rect.adjusted(kMenuRowPadding, 0, -kMenuRowPadding, 0);
    const QColor line = translucent(item.palette.color(QPalette::Midlight), 0.8);
    if (item.text.isEmpty()) {
        fillSharp(painter, QRectF(row.left(), row.center().y(), row.width(), 1), line);
        return;
    }
    const PainterState state(painter);
    painter.setFont(item.font);
    QPalette palette = item.palette;
    palette.setColor(QPalette::WindowText, colorQt(QStringLiteral("HelperHints")));
    context.style.drawItemText(
        &painter,
        row,
        Qt::AlignVCenter | Qt::AlignLeading,
        palette,
        true,
        item.text,
        QPalette::WindowText);
    const int after = row.left() + item.fontMetrics.horizontalAdvance(item.text) + kMenuRowPadding;
    const QRect rule(after, row.center().y(), row.right() + 1 - after, 1);
    if (rule.width() > 0) {
        fillSharp(painter, mirrored(item, rule), line);
    }
}

/// Tick, radio dot or icon, in the column before the text.
void drawMark(const QStyleOptionMenuItem& item, QPainter& painter)
{
    const int width = menuTextOffset(item);
    const QRect column =
        mirrored(item, {item.rect.left(), item.rect.top(), width, item.rect.height()});
    const QColor color = textColor(item);
    if (!item.icon.isNull()) {
        const QIcon::Mode mode =
            item.state.testFlag(QStyle::State_Enabled) ? QIcon::Normal : QIcon::Disabled;
        if (item.checked) {
            const QRectF ground = centeredSquare(column, 20);
            fillRounded(painter, ground, kSmallRadius, translucent(color, 0.18));
        }
        const QIcon::State state = item.checked ? QIcon::On : QIcon::Off;
        drawSharp(painter, centeredSquare(column, 16), item.icon, mode, state);
    } else if (item.checked && item.checkType == QStyleOptionMenuItem::Exclusive) {
        const QRectF dot = centeredSquare(column, 6);
        fillRounded(painter, dot, dot.width() / 2, color);
    } else if (item.checked && item.checkType == QStyleOptionMenuItem::NonExclusive) {
        drawTick(painter, centeredSquare(column, 14), color);
    }
}

/// The text before the shortcut, cut where the row is too narrow for it.
QString shownText(const QStyleOptionMenuItem& item, int room)
{
    const QString text = item.text.left(item.text.indexOf(QLatin1Char('\t')));
    const int widest = widestMenuText(item.fontMetrics);
    if (text.size() * kMenuWideChar * item.fontMetrics.averageCharWidth() <= widest) {
        return text; // which is not worth measuring
    }
    return item.fontMetrics.elidedText(
        text.left(kMenuMostChars),
        Qt::ElideRight,
        std::min(room, widest + 1),
        Qt::TextShowMnemonic);
}

void drawTexts(const QStyleOptionMenuItem& item, QPainter& painter, const Context& context)
{
    const PainterState state(painter);
    painter.setFont(item.font);
    const int tab = static_cast<int>(item.text.indexOf(QLatin1Char('\t')));
    const QRect row =
        item.rect.adjusted(menuTextOffset(item), 0, -kMenuArrowColumn + kMenuRowPadding, 0);
    int flags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextShowMnemonic;
    if (context.style.styleHint(QStyle::SH_UnderlineShortcut, &item, context.widget) == 0) {
        flags |= Qt::TextHideMnemonic;
    }
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const Qt::Alignment leading = QStyle::visualAlignment(item.direction, Qt::AlignLeft);
    context.style.drawItemText(
        &painter,
        mirrored(item, row),
        flags | static_cast<int>(leading),
        item.palette,
        enabled,
        shownText(item, tab < 0 ? row.width() : row.width() - kMenuShortcutGap),
        textRole(item));
    if (tab < 0) {
        return;
    }
    QPalette palette = item.palette;
    if (textRole(item) == QPalette::WindowText) {
        palette.setColor(QPalette::WindowText, colorQt(QStringLiteral("HelperHints")));
    }
    const Qt::Alignment trailing = QStyle::visualAlignment(item.direction, Qt::AlignRight);
    context.style.drawItemText(
        &painter,
        mirrored(item, row),
        flags | static_cast<int>(trailing),
        palette,
        enabled,
        item.text.mid(tab + 1),
        textRole(item));
}

void drawSubmenuArrow(const QStyleOptionMenuItem& item, QPainter& painter)
{
    const QRect column(
        item.rect.right() + 1 - kMenuArrowColumn,
        item.rect.top(),
        kMenuArrowColumn,
        item.rect.height());
    const bool leftToRight = item.direction == Qt::LeftToRight;
    drawChevron(
        painter,
        mirrored(item, column),
        leftToRight ? Qt::RightArrow : Qt::LeftArrow,
        textColor(item));
}

} // namespace

void drawMenuPanel(const QStyleOption& option, QPainter& painter, const Context&)
{
    drawPanel(option, painter, option.palette.color(QPalette::Window));
}

void drawMenuItem(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (!item) {
        return;
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        drawSeparator(*item, painter, context);
        return;
    }
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    if (enabled && option.state.testFlag(QStyle::State_Selected)) {
        fillRounded(painter, option.rect, kRadius, option.palette.color(QPalette::Highlight));
    }
    drawMark(*item, painter);
    drawTexts(*item, painter, context);
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
        drawSubmenuArrow(*item, painter);
    }
}

void drawMenuScroller(const QStyleOption& option, QPainter& painter, const Context&)
{
    const bool down = option.state.testFlag(QStyle::State_DownArrow);
    drawChevron(
        painter,
        option.rect,
        down ? Qt::DownArrow : Qt::UpArrow,
        option.palette.color(QPalette::WindowText));
}

void drawMenuBarItem(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
    if (!item) {
        return;
    }
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    const WidgetState state = stateOf(option);
    if (state.enabled && option.state.testFlag(QStyle::State_Selected)) {
        const QColor ground =
            option.palette.color(state.pressed ? QPalette::Highlight : QPalette::Button);
        fillRounded(painter, QRectF(option.rect).adjusted(1, 2, -1, -2), kRadius, ground);
    }
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (context.style.styleHint(QStyle::SH_UnderlineShortcut, &option, context.widget) == 0) {
        flags |= Qt::TextHideMnemonic;
    }
    if (!item->icon.isNull()) {
        const QIcon::Mode mode = state.enabled ? QIcon::Normal : QIcon::Disabled;
        drawSharp(painter, centeredSquare(option.rect, 16), item->icon, mode);
        return;
    }
    context.style.drawItemText(
        &painter, option.rect, flags, option.palette, state.enabled, item->text, textRole(option));
}

void drawMenuBarGround(const QStyleOption& option, QPainter& painter, const Context&)
{
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
}

void drawToolTipPanel(const QStyleOption& option, QPainter& painter, const Context&)
{
    drawPanel(option, painter, option.palette.color(QPalette::ToolTipBase));
}

} // namespace ui::style

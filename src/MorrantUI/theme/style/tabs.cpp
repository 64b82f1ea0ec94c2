// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/elements.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QTabBar>

namespace ui::style {

namespace {

/// The side of the tabs that faces away from their page.
Qt::Edge outerSide(QTabBar::Shape shape)
{
    switch (shape) {
    case QTabBar::RoundedSouth:
    case QTabBar::TriangularSouth: return Qt::BottomEdge;
    case QTabBar::RoundedWest:
    case QTabBar::TriangularWest: return Qt::LeftEdge;
    case QTabBar::RoundedEast:
    case QTabBar::TriangularEast: return Qt::RightEdge;
    default: return Qt::TopEdge;
    }
}

} // namespace

void drawTabShape(const QStyleOption& option, QPainter& painter, const Context&)
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(&option);
    if (!tab) {
        return;
    }
    WidgetState state = stateOf(option);
    state.pressed = false;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const Qt::Edge side = outerSide(tab->shape);
    const PainterState saved(painter);
    painter.setClipRect(option.rect, Qt::IntersectClip);
    const QRectF shape = openedAgainst(option.rect, side);
    if (selected) {
        fillRounded(painter, shape, kRadius, ink(option.palette.color(QPalette::Window), state));
        drawSelectionEdge(painter, option.rect, side, state.enabled);
    } else {
        fillRounded(
            painter, shape, kRadius, shade(colorQt(QStringLiteral("TabBackground")), state));
    }
    if (state.keyboard && selected) {
        drawFocusRing(painter, QRectF(option.rect).adjusted(2, 4, -2, -2));
    }
}

void drawTabLabel(const QStyleOption& option, QPainter& painter, const Context& context)
{
    const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(&option);
    if (!tab) {
        return;
    }
    QStyleOptionTab label(*tab);
    label.state.setFlag(QStyle::State_HasFocus, false); // the shape has drawn the ring
    const bool quiet = !option.state.testFlag(QStyle::State_Selected)
                       && !option.state.testFlag(QStyle::State_MouseOver);
    if (quiet) {
        label.palette.setColor(QPalette::WindowText, colorQt(QStringLiteral("HelperHints")));
    }
    // The base style places the icon itself, between device pixels at uneven ratios.
    const PainterState saved(painter);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    context.base.drawControl(QStyle::CE_TabBarTabLabel, &label, &painter, context.widget);
}

void drawTabPane(const QStyleOption& option, QPainter& painter, const Context&)
{
    fillSharp(painter, option.rect, option.palette.color(QPalette::Window));
}

void drawTabBarBase(const QStyleOption& option, QPainter& painter, const Context&)
{
    fillSharp(painter, option.rect, option.palette.color(QPalette::Window));
}

void drawTabClose(const QStyleOption& option, QPainter& painter, const Context&)
{
    const WidgetState state = stateOf(option);
    const QRectF box = centeredSquare(option.rect, 16);
    if (state.hovered || state.pressed) {
        fillRounded(
            painter, box, kSmallRadius, shade(option.palette.color(QPalette::Button), state));
    }
    drawCross(painter, box, ink(option.palette.color(QPalette::WindowText), state));
}

} // namespace ui::style

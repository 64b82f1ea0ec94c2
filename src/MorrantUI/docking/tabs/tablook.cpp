// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tablook.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QWidget>

using namespace ui::style;

namespace ui::tabs {

namespace {

constexpr int kBeyondRow = 6; ///< what a tab is higher than a row of controls

} // namespace

int tabHeight(const QWidget& widget)
{
    return qMax(rowHeight(widget), widget.fontMetrics().height()) + kBeyondRow;
}

void paintTab(QPainter& painter, const QRectF& tab, bool active, const WidgetState& state)
{
    // Drawn out beyond the bottom, so that only the upper corners are round.
    const QRectF shape = tab.adjusted(0, 0, 0, kRadius);
    const PainterState saved(painter);
    painter.setClipRect(tab);
    if (!active) {
        fillRounded(
            painter, shape, kRadius, shade(colorQt(QStringLiteral("TabBackground")), state));
        return;
    }
    fillRounded(painter, shape, kRadius, ink(colorQt(QStringLiteral("Window")), state));
    paintAccent(painter, tab, state);
}

void paintAccent(QPainter& painter, const QRectF& tab, const WidgetState& state)
{
    drawSelectionEdge(painter, tab, Qt::TopEdge, state.enabled);
}

void paintFocus(QPainter& painter, const QRectF& tab)
{
    drawFocusRing(painter, tab.adjusted(2, 4, -2, -2), kSmallRadius);
}

QColor rowGround()
{
    return colorQt(QStringLiteral("WindowBase"));
}

} // namespace ui::tabs

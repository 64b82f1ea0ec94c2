#include "MorrantUI/docking/tabs/tablook.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QPainter>
#include <QStyleOption>
#include <QWidget>

using namespace ui::style;

namespace ui::tabs {

namespace {

constexpr int kBeyondRow = 6; ///< what a tab is higher than a row of controls

} // namespace

Mood moodOf(const QWidget& widget)
{
    QStyleOption option;
    option.initFrom(&widget);
    return style::moodOf(option);
}

int tabHeight(const QWidget& widget)
{
    return qMax(rowHeight(widget), widget.fontMetrics().height()) + kBeyondRow;
}

void paintTab(QPainter& painter, const QRectF& tab, bool active, const Mood& mood)
{
    // Drawn out beyond the bottom, so that only the upper corners are round.
    const QRectF shape = tab.adjusted(0, 0, 0, kRadius);
    const PainterState state(painter);
    painter.setClipRect(tab);
    if (!active) {
        fillRounded(painter, shape, kRadius, shade(colorQt(QStringLiteral("TabBackground")), mood));
        return;
    }
    fillRounded(painter, shape, kRadius, ink(colorQt(QStringLiteral("Window")), mood));
    paintAccent(painter, tab, mood);
}

void paintAccent(QPainter& painter, const QRectF& tab, const Mood& mood)
{
    drawSelectionEdge(painter, tab, Qt::TopEdge, mood.enabled);
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

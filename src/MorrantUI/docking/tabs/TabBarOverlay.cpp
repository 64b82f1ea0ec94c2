#include "MorrantUI/docking/tabs/TabBarOverlay.h"

#include "MorrantUI/docking/tabs/tablook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QPainter>

#include <algorithm>

using namespace ui::style;

namespace {

constexpr double kVeil = 0.6;        ///< strength of the ground over the dragged tab
constexpr double kMarkerWidth = 2.0; ///< logical pixels
constexpr double kMarkerHead = 6.0;  ///< diameter of the dot on the line

void paintMarker(QPainter& painter, double x, double height)
{
    const QColor color = focusColor();
    const QRectF head(x - kMarkerHead / 2, 0, kMarkerHead, kMarkerHead);
    const QRectF line(x - kMarkerWidth / 2, kMarkerHead / 2, kMarkerWidth, height);
    fillSharp(painter, line, color);
    fillRounded(painter, head, kMarkerHead / 2, color);
}

} // namespace

TabBarOverlay::TabBarOverlay(QWidget* parent)
    : Widget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

TabBarOverlay::~TabBarOverlay() = default;

void TabBarOverlay::setDrop(const QRect& tab, std::optional<int> markerX)
{
    if (tab != m_tab || markerX != m_markerX) {
        m_tab = tab;
        m_markerX = markerX;
        update();
    }
}

void TabBarOverlay::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QColor ground = ui::tabs::rowGround();
    if (!m_tab.isEmpty()) {
        fillSharp(painter, m_tab, translucent(ground, kVeil));
    }
    if (m_markerX) {
        // Whole at the outer edges of the row too.
        const double half = kMarkerHead / 2;
        paintMarker(
            painter, std::max(half, std::min<double>(*m_markerX, width() - half)), height());
    }
}

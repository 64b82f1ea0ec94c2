// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabBarOverlay.h"

#include "MorrantUI/docking/tabs/tablook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QPainter>

#include <algorithm>

using namespace ui::style;

namespace {

constexpr double kVeil = 0.6;       ///< strength of the ground over the dragged tab
constexpr double kMarkerHead = 6.0; ///< diameter of the mark's dot

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
        const double x = std::max(half, std::min<double>(*m_markerX, width() - half));
        ui::drawDropMark(painter, {x, 0}, {x, static_cast<double>(height())});
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabGradientOverlay.h"

#include "MorrantUI/docking/tabs/tablook.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

/// Over `rect`, from the header's ground at one edge to nothing at the other.
void paintFade(QPainter& painter, const QRect& rect, bool atLeftEdge)
{
    QColor ground = ui::tabs::rowGround();
    QColor nothing = ground;
    nothing.setAlpha(0);
    QLinearGradient fade(rect.topLeft(), QPoint(rect.x() + rect.width(), rect.y()));
    fade.setColorAt(0.0, atLeftEdge ? ground : nothing);
    fade.setColorAt(1.0, atLeftEdge ? nothing : ground);
    painter.fillRect(rect, fade);
}

} // namespace

TabGradientOverlay::TabGradientOverlay(QWidget* parent)
    : Widget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

TabGradientOverlay::~TabGradientOverlay() = default;

void TabGradientOverlay::setFades(const ui::tabs::Fades& fades)
{
    if (fades.leading != m_fades.leading || fades.trailing != m_fades.trailing) {
        m_fades = fades;
        update();
    }
}

void TabGradientOverlay::paintEvent(QPaintEvent* /*event*/)
{
    const int left = isRightToLeft() ? m_fades.trailing : m_fades.leading;
    const int right = isRightToLeft() ? m_fades.leading : m_fades.trailing;
    QPainter painter(this);
    if (left > 0) {
        paintFade(painter, QRect(0, 0, left, height()), true);
    }
    if (right > 0) {
        paintFade(painter, QRect(width() - right, 0, right, height()), false);
    }
}

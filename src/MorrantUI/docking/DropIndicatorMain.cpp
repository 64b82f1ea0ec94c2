// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DropIndicatorMain.h"

#include <QCursor>
#include <QPainter>
#include <QResizeEvent>

namespace {

// Neutral and half transparent, whatever the theme: they lie over contents of any colour, a picture
// or a curve, and have to be told from it and from each other.
constexpr QColor kHighlight(150, 150, 150, 200);
constexpr QColor kShade(0x55, 0x55, 0x55, 0xdd); // of the bands and the header strip
constexpr QColor kOutline(255, 255, 255);

} // namespace

DropIndicatorMain::DropIndicatorMain(QWidget* parent)
    : Widget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

DropIndicatorMain::~DropIndicatorMain() = default;

void DropIndicatorMain::updateArea()
{
    m_area = ui::docking::hitTest(m_zones, mapFromGlobal(QPointF(QCursor::pos())));
    update(); // painted once, together with the zones
    raise();
}

void DropIndicatorMain::showZones(double topOffset, bool sidesDisabled, bool topBottomDisabled)
{
    m_setup = {
        QSizeF(size()), topOffset, ui::docking::kZoneDepth, sidesDisabled, topBottomDisabled};
    m_zones = ui::docking::dropZones(m_setup);
    raise();
    show();
    repaint();
}

void DropIndicatorMain::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::transparent);

    painter.setPen(QPen(kOutline, 1.0));
    painter.setBrush(kShade);
    painter.drawPath(m_zones.outline);

    painter.setPen(Qt::NoPen);
    painter.setBrush(kHighlight);
    painter.drawPath(m_zones.of(m_area));
}

void DropIndicatorMain::resizeEvent(QResizeEvent* event)
{
    Widget::resizeEvent(event);
    if (isVisible()) { // the target changes its size under a resting pointer
        m_setup.size = QSizeF(event->size());
        m_zones = ui::docking::dropZones(m_setup);
    }
}

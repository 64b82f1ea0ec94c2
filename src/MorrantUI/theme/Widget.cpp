// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/Widget.h"

#include <MorrantUI/theme/painting.h>
#include <MorrantUI/theme/palettes.h>

#include <QHBoxLayout>
#include <QPainter>

#include <cmath>

Widget::Widget(QWidget* parent)
    : QWidget(parent)
{
    QPalette ownPalette = palette();
    ownPalette.setColor(QPalette::Base, Qt::transparent);
    ownPalette.setColor(QPalette::Window, Qt::transparent);
    setPalette(ownPalette);
}

Widget::~Widget() = default;

void Widget::setBackgroundColor(const QColor& color)
{
    ui::setWidgetBackground(this, color);
    // Qt would fill the whole rectangle, the rounded corners included.
    setAutoFillBackground(false);
    updateIfVisible();
}

void Widget::setRadius(double radius)
{
    if (!std::isfinite(radius)) {
        return;
    }
    m_radius = radius;
    m_useRadius = true;
    m_cornerRadii.reset();
    updateIfVisible();
}

void Widget::setRadius(double topLeft, double topRight, double bottomRight, double bottomLeft)
{
    const auto circle = [](double radius) { return num2<double>{radius, radius}; };
    setRadius(circle(topLeft), circle(topRight), circle(bottomRight), circle(bottomLeft));
}

void Widget::setRadius(
    num2<double> topLeft, num2<double> topRight, num2<double> bottomRight, num2<double> bottomLeft)
{
    m_cornerRadii = {topLeft, topRight, bottomRight, bottomLeft};
    m_useRadius = false;
    updateIfVisible();
}

void Widget::setBorder(const QPen& pen)
{
    m_border = pen;
    updateIfVisible();
}

void Widget::clearBorder()
{
    m_border.reset();
    updateIfVisible();
}

void Widget::setPixelAlignedBorder(bool aligned)
{
    m_pixelAlignedBorder = aligned;
    updateIfVisible();
}

void Widget::setChild(QWidget* child)
{
    if (child == this || (child && child->isAncestorOf(this))) {
        return;
    }
    const QPointer<QWidget> previous = m_child;
    m_child = child;
    if (previous && previous != child && previous->parentWidget() == this) {
        if (child && previous->isAncestorOf(child)) {
            child->setParent(this); // out of what is about to be deleted
        }
        delete previous.data(); // at once, deliberate: the new child must not meet the old one
    }
    delete layout();

    if (m_child) {
        auto* box = new QHBoxLayout(this);
        box->setContentsMargins(0, 0, 0, 0);
        box->setSpacing(0);
        box->addWidget(m_child);
    }
}

void Widget::paintEvent(QPaintEvent* /*event*/)
{
    paintBackground(contentsRect());
}

void Widget::paintBackground(const QRect& rect)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    QRectF area(rect);
    if (m_border) {
        area = ui::borderedRect(area, m_border->widthF(), m_pixelAlignedBorder);
    }
    painter.setPen(m_border.value_or(QPen(Qt::transparent)));
    painter.setBrush(palette().color(QPalette::Window));

    if (m_useRadius) {
        painter.drawRoundedRect(area, m_radius, m_radius, Qt::AbsoluteSize);
    } else if (m_cornerRadii) {
        painter.save();
        painter.setClipPath(ui::radiusClip(*m_cornerRadii, area), Qt::ReplaceClip);
        painter.drawRect(area);
        painter.restore();
    } else {
        painter.drawRect(area);
    }
}

void Widget::updateIfVisible()
{
    if (isVisible()) {
        update();
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TimeThumb.h"

#include "MorrantUI/scene/framemath.h"
#include <MorrantUI/theme/colors.h>

#include <QCursor>
#include <QPainter>
#include <QPolygonF>
#include <QTransform>

#include <cmath>

namespace {

constexpr int kBoundsMargin = 25;   ///< scene units, on every side
constexpr double kLift = -16.0;     ///< of the painted place above the outline's own, device pixels
constexpr double kStickiness = 0.5; ///< frames that a step has to exceed

QPolygonF outline()
{
    return QPolygonF({{-1, 5}, {-7, -2}, {-7, -4}, {7, -4}, {7, -2}, {1, 5}, {-1, 5}});
}

bool isScale(double scale)
{
    return std::isfinite(scale) && scale != 0.0;
}

} // namespace

TimeThumb::TimeThumb(bool flag)
    : m_flag(flag)
    , m_boundsMargin(kBoundsMargin)
{
    setFlags(ItemIsMovable | ItemSendsGeometryChanges);
    setCursor(Qt::SizeHorCursor);
}

TimeThumb::~TimeThumb() = default;

void TimeThumb::setCurrentFrame(int frame)
{
    if (frame != m_frame) {
        m_frame = frame;
        setX(frame);
    }
}

void TimeThumb::moveTo(int frame)
{
    if (frame != m_frame) {
        setCurrentFrame(frame);
        Q_EMIT timeChangedSignal(frame);
    }
}

void TimeThumb::externalTimeChangeSlot(double time)
{
    if (std::isfinite(time)) {
        setCurrentFrame(ui::nearestFrame(time));
    }
}

void TimeThumb::fitTo(double scaleX, double scaleY)
{
    if (!isScale(scaleX) || !isScale(scaleY)) {
        return;
    }
    const QTransform toPixels = QTransform::fromScale(scaleX, scaleY).translate(0.0, kLift);
    QPainterPath path;
    path.addPolygon(toPixels.inverted().map(outline()));
    if (path != m_path) {
        prepareGeometryChange();
        m_path = path;
        m_shapeBounds = path.boundingRect();
    }
}

void TimeThumb::paint(
    QPainter* painter, const QStyleOptionGraphicsItem* /*option*/, QWidget* /*widget*/)
{
    painter->save();
    fitTo(painter->transform().m11(), painter->transform().m22());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ui::colorQt(QStringLiteral("Accent5")));
    painter->drawPath(m_path);
    painter->restore();
}

QRectF TimeThumb::boundingRect() const
{
    const double margin = m_boundsMargin;
    return m_shapeBounds.adjusted(-margin, -margin, margin, margin);
}

QPainterPath TimeThumb::shape() const
{
    return m_path;
}

QVariant TimeThumb::itemChange(GraphicsItemChange change, const QVariant& value)
{
    if (change != ItemPositionChange || !scene()) {
        return QGraphicsWidget::itemChange(change, value);
    }
    const double x = value.toPointF().x();
    if (std::isfinite(x) && std::abs(x - m_frame) > kStickiness) {
        m_frame = ui::nearestFrame(x);
        Q_EMIT timeChangedSignal(m_frame);
    }
    return QPointF(m_frame, pos().y());
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/PointTransformTool.h"

#include <MorrantUI/graph/GeneralGraphView.h>

#include <QGraphicsSceneMouseEvent>

namespace {

constexpr double kBehindCurves = -1.0; ///< so that points under it can still be pressed

} // namespace

PointTransformTool::PointTransformTool(GeneralGraphView* view, QObject* parent)
    : TransformTool(parent)
    , m_view(view)
{
    setZValue(kBehindCurves);
}

double PointTransformTool::horizontalScale() const
{
    return m_view ? m_view->transform().m11() : 1.0;
}

QRectF PointTransformTool::selectionRect() const
{
    return m_view ? m_view->getSelectionRect() : QRectF();
}

void PointTransformTool::startScaling(QPoint position, bool right)
{
    if (m_view) {
        m_view->setupKeyScaling(position, right);
    }
}

void PointTransformTool::scaleTo(QPoint position)
{
    if (m_view) {
        m_view->scaleKeys(position);
    }
}

void PointTransformTool::cancelScaling()
{
    if (m_view) {
        m_view->cancelKeyScaling();
    }
}

/// Whoever sends the press: other views show the scene, too.
void PointTransformTool::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_view && event->button() == Qt::LeftButton) {
        m_view->startToolDrag();
    }
    TransformTool::mousePressEvent(event);
}

double PointTransformTool::moveSelection(double distance)
{
    return m_view ? m_view->moveSelectedPoints(distance) : 0.0;
}

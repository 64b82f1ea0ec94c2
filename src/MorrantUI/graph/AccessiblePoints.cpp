// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/graph/AccessiblePoints.h"

#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>

namespace ui {

AccessibleCurve::AccessibleCurve(GraphCurveWidget* curve)
    : AccessibleSceneItem(curve, curve, QAccessible::List)
    , m_curve(curve)
{}

QString AccessibleCurve::name() const
{
    const QString own = plainText(m_curve->toolTip());
    return own.isEmpty() ? GeneralGraphView::tr("Curve") : own;
}

QObjectList AccessibleCurve::items() const
{
    return objectsOf(m_curve->points());
}

AccessiblePoint::AccessiblePoint(GraphPointWidget* point)
    : AccessibleSceneItem(point, point, QAccessible::ListItem)
    , m_point(point)
{}

QObject* AccessiblePoint::list() const
{
    return m_point->curve();
}

QString AccessiblePoint::name() const
{
    const QObjectList all =
        m_point->curve() ? objectsOf(m_point->curve()->points()) : QObjectList();
    const GeneralGraphView* const view = m_point->parentView();
    return GeneralGraphView::tr("Keyframe %1: %2")
        .arg(
            QString::number(all.indexOf(m_point) + 1),
            view ? view->pointText(*m_point) : QString());
}

} // namespace ui

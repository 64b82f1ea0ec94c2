// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/scene/AccessibleView.h"

class GraphCurveWidget;
class GraphPointWidget;

namespace ui {

/// A curve as assistive tools see it: a list of points, called by its tool tip if it has one.
class AccessibleCurve : public AccessibleSceneItem
{
public:
    explicit AccessibleCurve(GraphCurveWidget* curve);

protected:
    QString name() const override;
    QObjectList items() const override;

private:
    GraphCurveWidget* m_curve;
};

/// A point of its curve, by its view's words for where it is.
class AccessiblePoint : public AccessibleSceneItem
{
public:
    explicit AccessiblePoint(GraphPointWidget* point);

protected:
    QString name() const override;
    QObject* list() const override;

private:
    GraphPointWidget* m_point;
};

} // namespace ui

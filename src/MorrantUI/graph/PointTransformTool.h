// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/TransformTool.h>

#include <QPointer>

class GeneralGraphView;

/// The transform tool of the graph editor: it lies over the selected points, moves them in time and
/// scales them in time, with Alt rippling the points beyond the dragged edge. The view makes, shows
/// and sizes it, or a host that adds one of its own to the view's scene.
///
/// The body moves points by the exact distance of the pointer; their own rules (grid, axis lock,
/// the range of a fixed graph) decide where they end. They count the whole distance from the press,
/// so that a point held at a border is back at its place when the pointer is. Scaled points land on
/// whole units, as key scaling has it. Escape takes the drag back.
class MORRANT_UI_EXPORT PointTransformTool : public TransformTool
{
    Q_OBJECT

public:
    /// @param view whose points are transformed; it may die before the tool
    PointTransformTool(GeneralGraphView* view, QObject* parent);

protected:
    double horizontalScale() const override;
    QRectF selectionRect() const override;
    void startScaling(QPoint position, bool right) override;
    void scaleTo(QPoint position) override;
    void cancelScaling() override;
    double moveSelection(double distance) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;

private:
    QPointer<GeneralGraphView> m_view;
};

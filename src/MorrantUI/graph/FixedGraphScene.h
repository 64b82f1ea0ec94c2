// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QGraphicsScene>

/// The scene of a FixedGraphView: a light grid over its square, ten by ten. Only the left mouse
/// button does anything in it, so that a click that opens a menu never changes the selection.
class MORRANT_UI_EXPORT FixedGraphScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit FixedGraphScene(QObject* parent = nullptr);

protected:
    void drawBackground(QPainter* painter, const QRectF& exposed) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    /// The second of two quick presses, which Qt would also take for one.
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
};

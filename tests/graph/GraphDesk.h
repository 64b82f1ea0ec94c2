// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/pixels.h"
#include <MorrantUI/controls/gestures/modifiers.h>
#include <MorrantUI/graph/GeneralGraphUtils.h>
#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/GraphBezierHandleItem.h>
#include <MorrantUI/graph/GraphCurveWidget.h>
#include <MorrantUI/graph/GraphPointWidget.h>
#include <MorrantUI/graph/PointTransformTool.h>

#include <QtWidgets>

#include <functional>
#include <limits>

namespace ui::test {

/// Values from 0 to 100 over as many frames, four pixels a unit, one curve without limits on y.
class GraphDesk : public GeneralGraphView
{
public:
    explicit GraphDesk(const QPolygonF& places = {}, bool bezier = false)
        : desk(new QGraphicsScene(this))
        , pointer(viewport())
    {
        desk->setSceneRect(-20, -20, 140, 140);
        setScene(desk);
        curve = addCurve(places, bezier);
        connect(
            desk, &QGraphicsScene::selectionChanged, this, &GeneralGraphView::updateTransformTool);
        setDragMode(RubberBandDrag);
        resize(600, 600);
        show();
        activateWindow();
        setFocus();
        zoomAt({4, 4}, {});
        centerOn(50, 50);
        (void)QTest::qWaitForWindowExposed(this);
        viewport()->grab();
    }
    ~GraphDesk() override { setKeyboardModifiersQuery({}); }

    GraphCurveWidget* addCurve(const QPolygonF& places, bool bezier)
    {
        constexpr double kFar = std::numeric_limits<double>::infinity();
        auto* const made = new GraphCurveWidget;
        made->setLimits({kFar, -kFar, kFar, kFar});
        for (const QPointF& place : places) {
            addPoint(made, place, bezier);
        }
        desk->addItem(made);
        for (GraphPointWidget* const point : made->points()) {
            point->getLeftBezier()->soloPointCheck();
            point->getRightBezier()->soloPointCheck();
        }
        return made;
    }
    GraphPointWidget* addPoint(GraphCurveWidget* to, QPointF place, bool bezier)
    {
        auto* const point = new GraphPointWidget(this, to);
        point->forceMove(place);
        new GraphBezierHandleItem(Graph::Side::Left, point, point);
        new GraphBezierHandleItem(Graph::Side::Right, point, point);
        point->setInterpolation(Graph::Interpolation(bezier ? 0 : 1), false);
        connect(point, &GraphPointWidget::pointDataChange, this, [this, point] {
            ++pointChanges;
            told(point);
        });
        for (GraphBezierHandleItem* const each : {point->getLeftBezier(), point->getRightBezier()})
        {
            connect(each, &GraphBezierHandleItem::bezierDataChange, this, [this, each] {
                ++handleChanges;
                told(each);
            });
        }
        return point;
    }

    GraphPointWidget* point(std::size_t index) const { return curve->points().at(index); }
    GraphBezierHandleItem* left(std::size_t index) const { return point(index)->getLeftBezier(); }
    GraphBezierHandleItem* right(std::size_t index) const { return point(index)->getRightBezier(); }
    QPoint at(const QGraphicsItem* item) const { return mapFromScene(item->scenePos()); }

    void select(std::initializer_list<std::size_t> indices)
    {
        for (const std::size_t index : indices) {
            point(index)->setSelected(true);
        }
    }
    /// Holds modifiers for events and for those who ask the keyboard.
    void hold(Qt::KeyboardModifiers modifiers)
    {
        pointer.setModifiers(modifiers);
        setKeyboardModifiersQuery([modifiers] { return modifiers; });
    }
    void press(const QGraphicsItem* item)
    {
        pointer.moveTo(at(item));
        pointer.press();
    }
    /// In one step; the button stays down. @param distance scene units
    void dragBy(const QGraphicsItem* item, QPointF distance)
    {
        press(item);
        pointer.moveTo(pointer.position() + (distance * 4).toPoint());
    }
    void click(const QGraphicsItem* item)
    {
        press(item);
        pointer.release();
    }

    QGraphicsScene* desk;
    GraphCurveWidget* curve = nullptr;
    FakePointer pointer;
    int pointChanges = 0;
    int handleChanges = 0;
    std::function<void(QObject*)> told = [](QObject*) {}; ///< what else a host does
    QStringList edits;                                    ///< "start", "changed", "same"

protected:
    void editStarted() override { edits << QStringLiteral("start"); }
    void editEnded(bool changed) override { edits << QLatin1String(changed ? "changed" : "same"); }
};

} // namespace ui::test

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "controls/StyledApplication.h"
#include "support/FakePointerSystem.h"
#include <MorrantUI/MorrantUI.h>

namespace ui::test {

/// A user who does anything. MORRANT_MONKEY_SEED makes it another one.
class Monkey
{
public:
    int below(int limit) { return static_cast<int>(m_random() % unsigned(limit)); }
    /// One thing with mouse or keyboard, which the view may not outlive.
    void act(GeneralGraphView& view, FakePointer& pointer, QPoint place)
    {
        constexpr Qt::Key kKeys[] = {
            Qt::Key_Delete, Qt::Key_Escape, Qt::Key_Z, Qt::Key_Up, Qt::Key_Right};
        const auto button = below(6) == 0 ? Qt::MiddleButton : Qt::LeftButton;
        switch (below(8)) {
        case 0: pointer.hold(Qt::KeyboardModifiers(below(8) << 25)); break;
        case 1: pointer.release(button); break;
        case 2: QTest::keyPress(&view, kKeys[below(5)]); break;
        case 3: QTest::keyRelease(&view, Qt::Key_Z); break;
        case 4: pointer.dragTo(place, 40); break;
        default: pointer.moveTo(place); pointer.press(button);
        }
    }

private:
    std::mt19937 m_random{unsigned(qEnvironmentVariableIntValue("MORRANT_MONKEY_SEED"))};
};

inline void scrub(FakePointer& pointer, const QWidget& field)
{
    pointer.press(field.rect().center());
    pointer.dragTo(pointer.position() + QPoint(30, 0));
}

inline void type(NumericField& field, const QString& text)
{
    field.setFocus(Qt::TabFocusReason);
    field.selectAll();
    QTest::keyClicks(&field, text);
}

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
        showActive(*this);
        setFocus();
        zoomAt({4, 4}, {});
        centerOn(50, 50);
        viewport()->grab();
    }

    GraphCurveWidget* addCurve(const QPolygonF& places, bool bezier)
    {
        auto* const made = new GraphCurveWidget;
        made->setLimits({qInf(), -qInf(), qInf(), qInf()});
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
    /// In one step. @param distance scene units
    void moveBy(QPointF distance) { pointer.moveTo(pointer.position() + (distance * 4).toPoint()); }
    /// The button stays down. @param held from the press on
    void dragBy(const QGraphicsItem* item, QPointF distance, Qt::KeyboardModifiers held = {})
    {
        pointer.press(at(item));
        pointer.hold(held);
        moveBy(distance);
    }
    void click(const QGraphicsItem* item, Qt::KeyboardModifiers held = {})
    {
        pointer.hold(held);
        pointer.click(at(item));
        pointer.hold({});
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

// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"
#include "MorrantUI/graph/ChangeBatch.h"

using ui::Graph::Interpolation;
using ui::test::GraphDesk;

class GraphGesturesTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragIsToldOnceAStep()
    {
        GraphDesk graph({{20, 20}, {60, 20}}, true);
        graph.select({0, 1});
        int seen = 0; // how far the other point was when the first one told
        connect(graph.point(0), &GraphPointWidget::pointDataChange, this, [&] {
            seen = static_cast<int>(graph.point(1)->x());
        });
        graph.dragBy(graph.point(0), {10, 5});
        QVERIFY(graph.point(0)->pos() == QPointF(30, 25) && seen == 70);
        QCOMPARE(graph.pointChanges, 2);
        graph.moveBy({1, 0});
        QCOMPARE(graph.pointChanges, 4);
        graph.pointer.release();
        QCOMPARE(graph.edits.join(u' '), u"start changed"_qs);
        {
            const ui::ChangeBatch step(&graph); // of a tool, which may move a point twice
            graph.point(0)->setPos(40, 20);
            graph.point(0)->setPos(50, 20);
        }
        QCOMPARE(graph.pointChanges, 5);
    }
    void anotherButtonIsNotTheDragsAndAQuickPressBeginsOne()
    {
        GraphDesk graph({{20, 20}, {60, 20}});
        graph.dragBy(graph.point(0), {10, 5});
        graph.pointer.press(Qt::RightButton);
        graph.pointer.release(Qt::RightButton);
        graph.moveBy({1, 0});
        QCOMPARE(graph.point(0)->pos(), QPointF(31, 25));
        QTest::keyClick(&graph, Qt::Key_Escape);
        QCOMPARE(graph.point(0)->pos(), QPointF(20, 20));
        graph.pointer.release();
        const auto send = [&](QEvent::Type type, QPoint place, Qt::MouseButtons held) {
            QMouseEvent event(type, place, graph.mapToGlobal(place), Qt::LeftButton, held, {});
            QCoreApplication::sendEvent(graph.viewport(), &event);
        };
        const QPoint place = graph.at(graph.point(1));
        send(QEvent::MouseButtonDblClick, place, Qt::LeftButton);
        send(QEvent::MouseMove, place + QPoint(20, 0), Qt::LeftButton);
        send(QEvent::MouseButtonRelease, place + QPoint(20, 0), {});
        QCOMPARE(graph.point(1)->pos(), QPointF(65, 20));
        QCOMPARE(graph.edits.join(u' '), u"start same start changed"_qs);
    }
    void shiftLocksTheAxisAndTheGridSnaps()
    {
        GraphDesk graph({{20, 20}, {60, 22}});
        graph.dragBy(graph.point(1), {10, 4}, Qt::ShiftModifier);
        QCOMPARE(graph.point(1)->pos(), QPointF(70, 22));
        graph.pointer.press(Qt::RightButton); // which unlocks nothing
        graph.pointer.release(Qt::RightButton);
        graph.moveBy({0, 1});
        QCOMPARE(graph.point(1)->pos(), QPointF(70, 22));
        graph.pointer.hold({});
        graph.moveBy({1, -1});
        QCOMPARE(graph.point(1)->pos(), QPointF(71, 26));
        graph.pointer.release();
        graph.setGridSnapping(true);
        graph.dragBy(graph.point(0), {3, 2});
        QCOMPARE(graph.point(0)->pos(), QPointF(25, 20));
        graph.pointer.release();
    }
    void escapeTakesADragBack()
    {
        GraphDesk graph({{20.5, 20}, {60, 20}}, true);
        graph.setGridSnapping(true);
        graph.dragBy(graph.point(0), {20, 20});
        QVERIFY(graph.point(0)->pos() == QPointF(40, 40));
        QTest::keyClick(&graph, Qt::Key_Escape);
        QCOMPARE(graph.point(0)->pos(), QPointF(20.5, 20)); // which is not on the grid
        graph.moveBy({-10, -10});
        graph.pointer.release();
        QCOMPARE(graph.point(0)->pos(), QPointF(20.5, 20));
        QCOMPARE(graph.edits.join(u' '), u"start same"_qs);
        QCOMPARE(graph.pointChanges, 2);
        graph.dragBy(graph.left(1), {-10, 20});
        QTest::keyClick(&graph, Qt::Key_Escape);
        graph.pointer.release();
        QVERIFY(graph.left(1)->pos() == QPointF(-5, 0) && graph.right(1)->pos() == QPointF(5, 0));
    }
    void handlesAreMirroredFreeFlatOrSliding()
    {
        GraphDesk graph({{20, 60}, {60, 60}, {90, 20}}, true);
        const auto dragTo = [&](QPointF distance, Qt::KeyboardModifiers held, QPointF left) {
            graph.dragBy(graph.left(1), distance, held);
            graph.pointer.release();
            graph.pointer.hold({});
            QCOMPARE(graph.left(1)->pos(), left);
        };
        dragTo({-5, 10}, {}, {-10, 10});
        QCOMPARE(graph.right(1)->pos(), QPointF(10, -10));
        QCOMPARE(graph.handleChanges, 1);
        dragTo({-10, 3}, Qt::ShiftModifier | Qt::AltModifier, {-20, 20});
        QCOMPARE(graph.right(1)->pos(), QPointF(10, -10));
        graph.point(1)->setSelected(true); // and stays where it is all the same
        dragTo({0, -3}, Qt::ControlModifier, {-20, 17});
        dragTo({0, -3}, Qt::ShiftModifier, {-20, 0});
        graph.click(graph.left(1), Qt::AltModifier);
        QVERIFY(!graph.point(1)->hasLockedBeziers());
        const QPointF right = graph.right(1)->pos();
        dragTo({30, -6}, {}, {10, -6});
        QCOMPARE(graph.right(1)->pos(), right);
        graph.click(graph.right(1), Qt::AltModifier);
        QCOMPARE(graph.left(1)->pos(), -right);
        QCOMPARE(graph.point(1)->pos(), QPointF(60, 60));
    }
    void zTakesHandlesAway()
    {
        GraphDesk graph({{20, 60}, {60, 60}, {90, 20}}, true);
        QTest::keyPress(&graph, Qt::Key_Z);
        graph.dragBy(graph.left(1), {9, 9});
        graph.pointer.release();
        const GraphPointWidget* const point = graph.point(1);
        QCOMPARE(point->pos(), QPointF(60, 60)); // which goes nowhere with the mouse
        QVERIFY(!graph.left(1)->isVisible() && graph.right(1)->isVisible());
        QVERIFY(point->isSelected() && !point->hasLockedBeziers());
        graph.click(graph.right(1));
        QCOMPARE(point->getInterpolation(), Interpolation::Linear);
        QCOMPARE(graph.handleChanges, 2);
        graph.hide();
        QVERIFY(!graph.isZHeld());
    }
    void altClickTogglesAllThatAreSelected()
    {
        GraphDesk graph({{10, 20}, {40, 20}, {60, 20}, {90, 20}});
        graph.select({0, 1, 2});
        graph.click(graph.point(3), Qt::AltModifier);
        for (GraphPointWidget* const point : graph.curve->points()) {
            QCOMPARE(point->getInterpolation(), Interpolation::Bezier);
            QCOMPARE(point->getRightBezier()->pos(), QPointF(5, 0));
        }
        graph.click(graph.point(3), Qt::AltModifier);
        QCOMPARE(graph.point(3)->getInterpolation(), Interpolation::Linear);
        QCOMPARE(graph.point(0)->getInterpolation(), Interpolation::Bezier);
        QCOMPARE(graph.edits.join(u' '), u"start changed start changed"_qs);
    }
    void aRubberBandPrefersPoints()
    {
        GraphDesk graph({{20, 20}, {60, 20}, {90, 60}}, true);
        graph.curve->setFlag(QGraphicsItem::ItemIsSelectable);
        graph.click(graph.point(2)); // which lies behind the curve
        QVERIFY(graph.point(2)->isSelected());
        const auto band = [&] {
            graph.pointer.press(graph.mapFromScene(10, 5));
            graph.pointer.dragTo(graph.mapFromScene(70, 40));
        };
        band();
        QCOMPARE(graph.desk->selectedItems().size(), 2);
        QVERIFY(graph.point(0)->isSelected() && graph.point(1)->isSelected());
        QTest::keyClick(&graph, Qt::Key_Escape);
        graph.pointer.moveTo({5, 5});
        graph.pointer.release();
        QCOMPARE(graph.desk->selectedItems(), QList<QGraphicsItem*>({graph.point(2)}));
        band();
        graph.zoomAt({0.9, 0.9}, {}); // in which Qt itself selects again
        graph.pointer.release();
        QCOMPARE(graph.desk->selectedItems().size(), 2);
    }
    void aDragScrollsAtTheEdgeAndEndsWithTheFocus()
    {
        GraphDesk graph({{20, 20}, {90, 60}});
        graph.zoomAt({4, 4}, {});
        graph.centerOn(90, 60);
        graph.dragBy(graph.point(1), {});
        graph.pointer.moveTo({580, 610}); // below it, and a little to the left
        QTRY_VERIFY(graph.getVisibleRect().bottom() > 82 && graph.point(1)->y() > 82);
        graph.clearFocus();
        QCOMPARE(graph.edits.join(u' '), u"start changed"_qs);
    }
    void arrowsNudge()
    {
        GraphDesk graph({{20, 20}, {60, 20}}, true);
        graph.point(0)->setSelected(true);
        QTest::keyClick(&graph, Qt::Key_Up);
        QTest::keyClick(&graph, Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(graph.point(0)->pos(), QPointF(30, 19));
        QCOMPARE(graph.accessibleDescription(), u"Point at time 30, value -19"_qs);
        QCOMPARE(graph.edits.join(u' '), u"start changed start changed"_qs);
        graph.desk->clearSelection();
        graph.right(0)->setSelected(true);
        graph.pointer.hold(Qt::ShiftModifier); // which would hold a drag level
        QTest::keyClick(&graph, Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(graph.right(0)->pos(), QPointF(5, 10));
    }
    void scalingStretchesAndRipples()
    {
        GraphDesk graph({{10, 0}, {20, 0}, {30, 0}, {50, 0}, {80, 0}});
        const auto scaleTo = [&](int frame, Qt::KeyboardModifiers held, const QString& frames) {
            graph.pointer.hold(held);
            graph.scaleKeys({frame, 0});
            QStringList found;
            for (const GraphPointWidget* const point : graph.curve->points()) {
                found << QString::number(point->x());
            }
            QCOMPARE(found.join(u' '), frames);
        };
        graph.select({1, 2, 3});
        graph.setScaleRange({20, 50});
        graph.setupKeyScaling({50, 0}, true);
        scaleTo(60, {}, u"10 20 33 60 80"_qs);
        scaleTo(90, Qt::AltModifier, u"10 20 43 90 120"_qs);
        scaleTo(20, {}, u"10 20 20 20 80"_qs);
        graph.cancelKeyScaling();
        scaleTo(0, {}, u"10 20 30 50 80"_qs);
        graph.setupKeyScaling({20, 0}, false);
        scaleTo(5, Qt::AltModifier, u"-5 5 20 50 80"_qs);
        graph.endKeyScaling();
        graph.desk->clearSelection();
        graph.point(3)->setSelected(true);
        graph.setupKeyScaling({50, 0}, false); // a selection without length
        scaleTo(60, {}, u"-5 5 20 50 80"_qs);
        graph.endKeyScaling();
        graph.utils()->scaleKeys(0, 9, {{0, nullptr}}, {{0, nullptr}}, true);
        QCOMPARE(graph.edits.join(u' '), u"start same start changed start same"_qs);
    }
    void theToolFollowsTheSelection()
    {
        GraphDesk graph({{20, 20}, {60, 40}});
        graph.setShowTransformTool(true);
        graph.select({0, 1});
        graph.pointer.press(graph.mapFromScene(40, 30));
        graph.pointer.dragTo(graph.pointer.position() + QPoint(40, 40), 3);
        QCOMPARE(graph.point(0)->pos(), QPointF(30, 20));
        QTest::keyClick(&graph, Qt::Key_Escape);
        graph.pointer.release();
        QCOMPARE(graph.point(0)->pos(), QPointF(20, 20));
        QCOMPARE(graph.edits.join(u' '), u"start same"_qs);
        QVERIFY(graph.getScaleRange() == std::pair(18, 61));
        QVERIFY(graph.transformTool()->hoverZone() != 0);
        graph.desk->clearSelection();
        QVERIFY(!graph.transformTool()->isVisible() && graph.transformTool()->hoverZone() == 0);
        QCOMPARE(graph.moveSelectedPoints(5), 0);
        QGraphicsScene other;
        graph.setScene(&other);
        other.addItem(graph.curve);
        graph.select({0, 1});
        graph.updateTransformTool();
        QCOMPARE(graph.transformTool()->scene(), &other);
        graph.setScene(graph.desk);
    }
    void zoomingKeepsThePlaceUnderThePointer()
    {
        GraphDesk graph({{20, 20}, {60, 40}});
        const QPointF place(200, 150);
        const auto under = [&] { return graph.viewportTransform().inverted().map(place); };
        const QPointF before = under();
        graph.zoomAt({2, 3}, place);
        QVERIFY(QLineF(before, under()).length() < 0.2);
        QCOMPARE(graph.transform(), QTransform::fromScale(8, 12));
        for (const double bad : {0.0, -1.0, std::nan(""), 1e300}) {
            graph.zoomAt({bad, 1}, place);
            QVERIFY(graph.transform().m11() >= 8.0 && graph.transform().m11() < 1e7);
        }
        graph.select({0});
        graph.fitPoints(false); // a single point has no length to fit
        graph.fitPoints(true);
        QVERIFY(graph.getVisibleRect().contains({20, 20, 40, 20}) && graph.transform().m11() < 20);
        graph.point(0)->setInterpolation(Interpolation::Bezier, true);
        graph.right(0)->placeSilently({10, -90}); // with which the curve leaves its points
        graph.fitPoints(true);
        QVERIFY(graph.getVisibleRect().top() < -5.0);
    }
    void aMonkeyLeavesNothingBehind()
    {
        const int steps = qEnvironmentVariableIntValue("MORRANT_MONKEY_STEPS");
        GraphDesk graph({{20, 20}, {60, 20}, {90, 80}, {60, 50}}, true);
        graph.setShowTransformTool(true);
        ui::test::Monkey monkey;
        const auto upTo = [&](int most) { return monkey.below(most); };
        bool pushed = false; // by the host itself, which has to keep it then
        graph.told = [&](QObject* item) { delete (!pushed && upTo(40) == 0 ? item : nullptr); };
        for (int step = 0; step < std::max(steps, 500); ++step) {
            const std::size_t points = graph.curve->pointCount();
            switch (upTo(16)) {
            case 0: graph.zoomAt({upTo(3) + 0.4, upTo(3) + 0.4}, {300, 300}); break;
            case 1: graph.fitPoints(true); break;
            case 2: graph.setGridSnapping(upTo(2) == 0); break;
            case 3: delete (points > 1 ? graph.point(std::size_t(upTo(2))) : nullptr); break;
            case 4: graph.addPoint(graph.curve, QPointF(upTo(100), upTo(100)), upTo(2)); break;
            case 5:
                if (points > 0 && graph.left(0)) {
                    const QScopedValueRollback keeping(pushed, true);
                    graph.left(0)->setPos(-std::pow(10, upTo(308)), std::pow(10, upTo(308)));
                    graph.viewport()->grab();
                }
                break;
            default: {
                const auto items = graph.desk->items(graph.getVisibleRect());
                const int any = upTo(static_cast<int>(items.size()) + 1);
                const QPoint elsewhere(upTo(600), upTo(600));
                const QPoint place = any < items.size() ? graph.at(items.at(any)) : elsewhere;
                monkey.act(graph, graph.pointer, place);
            }
            }
        }
        graph.pointer.release(Qt::MiddleButton);
        graph.pointer.release();
        QTest::keyClick(&graph, Qt::Key_Escape);
        graph.viewport()->grab();
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(graph.edits.count(u"start"_qs) * 2, graph.edits.size());
    }
};

const ui::test::Registration<GraphGesturesTest> kRegistration;

#include "tst_graphgestures.moc"

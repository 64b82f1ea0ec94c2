// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"
#include "menus/answers.h"
#include <MorrantUI/graph/FixedGraphView.h>

using ui::Graph::Interpolation;

namespace {

/// A view with an owner that applies all it is told, as the guide for hosts has it.
struct Owner
{
    explicit Owner(std::initializer_list<num2<double>> keys)
    {
        for (const num2<double>& key : keys) {
            data.add(key.x, key.y);
        }
        using View = FixedGraphView;
        connect(&View::pointAdded, [this](QPointF, GraphPointWidget* point) {
            const GraphCurveKey key = view->shownKey(point);
            point->setIndex(data.add(key.time, key.value, key.interpolation));
        });
        connect(&View::pointMoved, [this](auto* point) { data.replace(view->shownKey(point)); });
        connect(&View::pointRemoved, [this](auto index) { data.remove(static_cast<int>(index)); });
        connect(&View::interpolationChanged, [this](short type) {
            for (GraphPointWidget* const point : view->utils()->pointItems(true)) {
                point->setInterpolation(static_cast<Interpolation>(type), false);
            }
        });
        view->resize(424, 424); // forty pixels a unit, which is a tenth of the range
        view->show();
        view->fillGraph(true);
        (void)QTest::qWaitForWindowExposed(view);
    }
    ~Owner() { delete view; }
    template <typename Signal, typename Slot>
    void connect(Signal signal, Slot&& slot)
    {
        QObject::connect(view, signal, view, std::forward<Slot>(slot));
    }
    GraphPointWidget* point(int index) const
    {
        const auto points = view->utils()->pointItems(false);
        const auto found = std::ranges::find(points, index, &GraphPointWidget::index);
        return found != points.end() ? *found : nullptr;
    }
    void select(std::initializer_list<int> indices) const
    {
        for (const int index : indices) {
            point(index)->setSelected(true);
        }
    }
    QPoint at(double time, double value) const
    {
        return view->mapFromScene(10 * time, 10 - 10 * value);
    }
    void drag(QPoint from, QPoint to, int step = 5)
    {
        pointer.press(from);
        pointer.dragTo(to, step);
    }
    /// "50,25 100,100": the data in hundredths.
    QString told() const
    {
        QStringList texts;
        for (const GraphCurveKey& key : data.keys()) {
            texts << u"%1,%2"_qs.arg(qRound(key.time * 100)).arg(qRound(key.value * 100));
        }
        return texts.join(u' ');
    }
    /// @return whether the menu has the row
    bool choose(QPoint place, const QString& text) const
    {
        return ui::test::chooseInMenu(view->viewport(), place, text);
    }

    GraphCurveData data;
    QPointer<FixedGraphView> view{new FixedGraphView(&data)};
    ui::test::FakePointer pointer{view->viewport()};
    QSignalSpy begun{view, &FixedGraphView::gestureStarted};
    QSignalSpy steps{view, &FixedGraphView::gestureEnded};
};

} // namespace

class FixedGraphTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keysLieInASquareWithTheValueUpward()
    {
        Owner owner({{0.1, 1}, {1, 0}});
        owner.data.setHandles(0, {}, {0.4, -0.7});
        owner.data.setInterpolation(0, morrant::KeyInterpolationType::Bezier);
        owner.view->fillGraph(false); // as many keys: nothing is refreshed
        QCOMPARE(owner.point(0)->getInterpolation(), Interpolation::Linear);
        owner.select({1});
        owner.view->fillGraph(true);
        QVERIFY(owner.point(1)->isSelected() && !owner.point(0)->isSelected());
        QVERIFY(owner.point(0)->pos() == QPointF(1, 0) && owner.point(1)->pos() == QPointF(10, 10));
        GraphBezierHandleItem* const right = owner.point(0)->getRightBezier();
        QVERIFY(right->isVisible() && right->opposite()->isVisible()); // which leads away from all
        QVERIFY(right->pos() == QPointF(4, 7) && right->opposite()->pos() == -right->pos());
        right->setPos(5, -2);
        const GraphCurveKey key = *owner.data.find(0); // what was not moved keeps its last digit
        QVERIFY(key.time == 0.1 && key.value == 1.0 && key.rightHandle == num2(0.5, 0.2));
        owner.view->setRangeRect(QRect(2, 2, 5, 5));
        owner.view->fitToRect(QRectF(0, 0, qInf(), 1)); // ignored
        owner.view->resize(300, 500);
        QVERIFY(std::abs(owner.view->getVisibleRect().width() - 5) < 0.2);
        owner.data.remove(1);
        owner.view->fillGraph(false);
        QVERIFY(!owner.point(1) && !owner.point(0)->getRightBezier()->isVisible());
    }

    void pointsStopAtTheBorderAndComeBack()
    {
        Owner owner({{0, 0}, {0.5, 0.5}, {1, 1}});
        owner.drag(owner.at(0.5, 0.5), owner.at(0.75, 0.5) - QPoint(0, 400));
        QCOMPARE(owner.told(), u"0,0 75,100 100,100"_qs);
        owner.pointer.drop(owner.at(0.6, 0.4));
        QTest::keyClick(owner.view, Qt::Key_Right); // a hundredth
        QCOMPARE(owner.told(), u"0,0 61,40 100,100"_qs);
        QCOMPARE(owner.steps.count(), 2);
        const auto* const spoken = QAccessible::queryAccessibleInterface(owner.view);
        QCOMPARE(spoken->text(QAccessible::Description), u"Time 0.61, value 0.4"_qs);
        const auto* const point = spoken->child(0)->child(1);
        QCOMPARE(point->text(QAccessible::Name), u"Keyframe 2: Time 0.61, value 0.4"_qs);
        QVERIFY(point->state().selected && point->parent()->parent() == spoken);
    }

    void theMenuDeletesDownToTheLeastNumberAddsAndTellsTheType()
    {
        Owner owner({{0, 0}, {0.5, 0.5}, {1, 1}});
        owner.select({0, 1});
        // Neither press of a double click by another button changes the selection.
        QTest::mouseDClick(owner.view->viewport(), Qt::MiddleButton, {}, {60, 60});
        owner.select({2});
        QVERIFY(owner.choose({90, 90}, u"Delete Points"_qs));
        QCOMPARE(owner.told(), u"100,100"_qs);
        owner.select({2});
        QTest::keyClick(owner.view, Qt::Key_Delete);
        QVERIFY(!owner.choose({90, 90}, u"Delete Point"_qs));
        QVERIFY(owner.choose(owner.at(-0.02, 0.25), u"Add Point"_qs));
        owner.point(3)->setSelected(true);
        QCOMPARE(owner.told(), u"0,25 100,100"_qs);
        QVERIFY(owner.choose({90, 90}, u"Bézier"_qs));
        QVERIFY(owner.data.find(3)->rightHandle == num2(0.3, 0.0));
        QCOMPARE(owner.steps.count(), 3);
    }

    void theToolMovesAndScalesInTime()
    {
        Owner owner({{0.2, 0.2}, {0.4, 0.5}, {0.9, 0.9}});
        owner.view->setShowTransformTool(true);
        owner.select({0, 1});
        const auto* const tool = owner.view->transformTool();
        const QPoint body = owner.at(0.3, 0.8);
        const QPoint unit(40, 0);
        const auto edge = [&](double x) { return owner.view->mapFromScene(x, 1); };
        const auto right = [&] { return edge(tool->rect().right()) - QPoint(2, 0); };
        const auto left = [&] { return edge(tool->rect().left()) + QPoint(2, 0); };
        owner.drag(body, body - unit * 6, 1); // both are held at the border for a while
        QCOMPARE(owner.told(), u"0,20 0,50 90,90"_qs);
        owner.pointer.drop(body + unit, 1);
        QCOMPARE(owner.told(), u"30,20 50,50 90,90"_qs);
        owner.drag(right(), right() + unit * 2);
        QVERIFY(tool->isScaling() && tool->cursor().shape() == Qt::SizeHorCursor);
        QCOMPARE(owner.told(), u"30,20 70,50 90,90"_qs);
        QTest::keyClick(owner.view, Qt::Key_Escape);
        QCOMPARE(owner.told(), u"30,20 50,50 90,90"_qs);
        owner.pointer.release();
        owner.drag(left(), left() - unit * 2);
        owner.pointer.release();
        QCOMPARE(owner.told(), u"10,20 50,50 90,90"_qs);
        QVERIFY(owner.steps.count() == 3 && !owner.steps.at(1).at(0).toBool());
        QCOMPARE(owner.view->utils()->pointItems(true).size(), 2U);
    }

    void aGraphUnderManyHandsStaysWhole()
    {
        ui::test::Monkey monkey;
        const auto below = [&](int limit) { return monkey.below(limit); };
        const int rounds = std::max(20, qEnvironmentVariableIntValue("MORRANT_MONKEY_ROUNDS"));
        for (int round = 0; round < rounds; ++round) {
            Owner owner({{0, 0}, {0.3, 0.8}, {1, 1}});
            owner.view->setShowTransformTool(true);
            const std::function<void()> acts[] = {
                [&] { delete owner.view; },
                [&] { owner.view->setData(nullptr); },
                [&] { owner.view->scene()->clear(); },
                [&] { owner.view->fillGraph(true); }};
            const auto act = [&] { below(40) == 0 ? acts[below(4)]() : void(); };
            owner.connect(&FixedGraphView::gestureStarted, act);
            owner.connect(&FixedGraphView::pointMoved, act);
            owner.connect(&FixedGraphView::pointAdded, act);
            owner.connect(&FixedGraphView::pointRemoved, act);
            const auto place = [&] {
                const GraphPointWidget* const point = owner.point(below(8));
                const QPoint empty = owner.at(0.1 * below(12), 0.1 * below(12));
                return point ? owner.view->mapFromScene(point->pos()) : empty;
            };
            const QString rows[] = {u"Add Point"_qs, u"Delete Points"_qs, u"Bézier"_qs};
            for (int step = 0; step < 60 && owner.view; ++step) {
                switch (below(7)) {
                case 0: owner.choose(place(), rows[below(3)]); break;
                case 1: owner.view->setData(&owner.data); break;
                default: monkey.act(*owner.view, owner.pointer, place()); break;
                }
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY(owner.data.count() >= 1);
            }
            owner.pointer.release();
            QVERIFY(!owner.view || owner.begun.count() == owner.steps.count());
        }
    }
};

const ui::test::Registration<FixedGraphTest> kRegistration;

#include "tst_fixedgraph.moc"

// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"

namespace {

using ui::Graph::Interpolation;

/// Three keys, and what a host hears of them: frames and values, with a star for what is selected.
struct ValueDesk : ValueGraphView
{
    ValueDesk()
        : pointer(viewport())
    {
        curve->setKeys(
            {{0, 0, {}, {10, 0}, Interpolation::Bezier}, {40, 100}, {60, -20, {}, {}, {}, true}});
        resize(600, 400);
        ui::test::showActive(*this);
        setFocus();
        QCoreApplication::processEvents();
        connect(this, &ValueGraphView::gestureStarted, this, [this] { told << u"start"_qs; });
        connect(this, &ValueGraphView::keysChanging, this, [this] { told << shown(); });
        connect(this, &ValueGraphView::gestureEnded, this, [this](bool changed) {
            told << (changed ? u"changed"_qs : u"same"_qs);
        });
    }
    void drag(QPointF from, QPointF to)
    {
        pointer.press(mapFromScene(from.x(), -from.y()));
        pointer.moveTo(mapFromScene(to.x(), -to.y()));
    }
    QString takeTold() { return std::exchange(told, {}).join(u','); }
    QString shown() const
    {
        QStringList texts;
        for (const ValueGraphKey& key : curve->keys()) {
            const auto* const point = curve->point(std::size_t(texts.size()));
            const QString star = point->isSelected() ? u"*"_qs : QString();
            texts << u"%1:%2"_qs.arg(key.time).arg(std::round(key.value)) + star;
        }
        return texts.join(u' ');
    }
    bool sees(double frame, double value) const { return getVisibleRect().contains(frame, -value); }

    QPointer<ValueGraphCurve> curve = addCurve(u"Opacity"_qs, u"Red"_qs);
    ui::test::FakePointer pointer;
    QStringList told;
};

} // namespace

/// Curves in values' own units, and a host that pushes its document back.
class ValueGraphTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aDragGoesByWholeFramesAndIsOneStep()
    {
        ValueDesk view;
        view.drag({40, 100}, {45.4, 80.2});
        QCOMPARE(view.takeTold(), u"start,0:0 45:80* 60:-20"_qs);
        ui::test::turnWheel(
            *view.viewport(),
            view.pointer.position() + QPoint(100, 0),
            {0, 120},
            Qt::ControlModifier);
        const QString zoomed = view.takeTold(); // Qt has repeated the movement
        QVERIFY(zoomed == view.shown() && !zoomed.contains(u" 45:"));
        QTest::keyClick(&view, Qt::Key_Escape);
        view.pointer.release();
        QCOMPARE(view.takeTold(), u"0:0 40:100* 60:-20,same"_qs);
        QTest::keyClick(&view, Qt::Key_Right);
        QCOMPARE(view.takeTold(), u"start,0:0 41:100* 60:-20,changed"_qs);
        view.setSnapsToFrames(false);
        view.drag({41, 100}, {45.4, 80.2});
        QVERIFY(view.curve->keys().at(1).time > 45.2);
    }
    void whatTheHostPushesBackIsShownAndKeepsItsSelection()
    {
        ValueDesk view;
        const auto keys = view.curve->keys();
        QVERIFY(keys.at(0) == (ValueGraphKey{0, 0, {}, {10, 0}, Interpolation::Bezier}));
        QVERIFY(keys.at(2).hold && view.curve->valueAtFrame(99) == -20);
        connect(&view, &ValueGraphView::keysChanging, this, [&] {
            auto now = view.curve->keys();
            for (ValueGraphKey& key : now) {
                key.value = std::min(key.value, 50.0);
            }
            std::sort(now.begin(), now.end(), [](auto& a, auto& b) { return a.time < b.time; });
            view.curve->setKeys(now);
        });
        view.drag({40, 100}, {50, 90});
        QCOMPARE(view.shown(), u"0:0 50:50* 60:-20"_qs);
        view.pointer.moveTo(view.mapFromScene(70, -90)); // past another, in the host's order too
        QCOMPARE(view.shown(), u"0:0 60:-20 70:50*"_qs);
        view.pointer.release();
        QCoreApplication::processEvents();
        QVERIFY(view.sees(70, 50)); // fitted again, at the end

        view.curve->setKeys({{60, -20}, {70, 50}}); // one has gone, and the selected one stays
        QCOMPARE(view.shown(), u"60:-20 70:50*"_qs);
        const QSignalSpy told(view.scene(), &QGraphicsScene::selectionChanged);
        view.curve->setKeys({{60, -20}});
        QCOMPARE(told.count(), 1);
        view.curve->setKeys({{std::nan(""), 3}, {5, 5}});
        QCOMPARE(view.shown(), u"0:3 5:5"_qs);
        view.curve->setKeys({{-1e308, 1e308, {}, {9e307, -9e307}}, {1e308, -1e308}});
        QCoreApplication::processEvents();
        QVERIFY(!view.grab().isNull());
    }
    void allCurvesStayFittedUntilTheUserZooms()
    {
        ValueDesk view;
        QVERIFY(view.sees(0, -20) && view.sees(60, 100) && !view.sees(99, 0));
        view.addCurve()->setKeys({{0, 900}, {400, 0}});
        QCoreApplication::processEvents();
        view.resize(300, 200);
        QVERIFY(view.sees(0, -20) && view.sees(400, 900));
        delete view.curves().back();
        QCoreApplication::processEvents();
        QVERIFY(view.sees(60, 100) && !view.sees(99, 0));
        QTest::keyClicks(&view, u"++"_qs);
        view.curve->setKeys({{0, 0}, {900, 9}});
        QCoreApplication::processEvents();
        QVERIFY(!view.sees(60, 5));
        QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier); // the window's
        QVERIFY(!view.sees(60, 5));
        QTest::keyClick(&view, Qt::Key_A);
        QVERIFY(view.sees(0, 0) && view.sees(900, 9));
        const QSignalSpy tapped(&view, &ValueGraphView::spaceTapped);
        QTest::keyClick(&view, Qt::Key_Space);
        QTest::keyPress(&view, Qt::Key_Space);
        view.drag({900, 5}, {100, 5}); // pans
        QTest::keyRelease(&view, Qt::Key_Space);
        QVERIFY(tapped.count() == 1 && !view.sees(0, 0) && view.told.isEmpty());

        view.pointer.release();
        view.pointer.press({200, 100}, Qt::MiddleButton);
        view.pointer.press(); // does not concern the pan
        view.pointer.release();
        const QRectF seen = view.getVisibleRect();
        view.pointer.moveTo({100, 100});
        QVERIFY(view.getVisibleRect().left() > seen.left() && view.rubberBandRect().isNull());
        view.pointer.release(Qt::MiddleButton);

        view.curve->setKeys({{5, 5}});
        QCOMPARE(view.pointBounds(true), std::optional(QRectF(5, -5, 0, 0)));
        view.addCurve()->setKeys({{7, 9}});
        QCOMPARE(view.pointBounds(true), std::optional(QRectF(5, -9, 2, 4)));
    }
    void theSecondOfTwoQuickPressesIsOneLikeAnyOther()
    {
        ValueDesk view;
        const auto send = [&](QEvent::Type type, QPointF at) {
            const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent event(type, at, view.mapToGlobal(at), Qt::LeftButton, held, {});
            QCoreApplication::sendEvent(view.viewport(), &event);
        };
        const auto doubleDrag = [&] {
            view.pointer.click({2, 2});
            send(QEvent::MouseButtonDblClick, {2, 2});
            send(QEvent::MouseMove, {590, 390});
            send(QEvent::MouseButtonRelease, {590, 390});
        };
        doubleDrag();
        QCOMPARE(view.shown(), u"0:0* 40:100* 60:-20*"_qs);
        QTest::keyPress(&view, Qt::Key_Space);
        doubleDrag();
        QVERIFY(!view.sees(40, 100) && view.shown().count(u'*') == 3);
    }
    void whatFieldsBesideTheGraphSayIsAGesture()
    {
        ValueDesk view;
        view.curve->setKeys({{0, 0}, {40.5, 100}, {60, -20}});
        const QSignalSpy selections(view.scene(), &QGraphicsScene::selectionChanged);
        view.selectKeys({{view.curve, 1}, {view.curve, 7}, {nullptr, 0}});
        view.selectKeys({{view.curve, 1}});
        QCOMPARE(selections.count(), 1);
        QVERIFY(view.selectedFrame() == 40.5 && view.selectedValue() == 100.0);
        view.beginGesture();
        view.placeSelectedKeys(70.2, {});
        view.placeSelectedKeys({}, 7.0);
        view.placeSelectedKeys(qQNaN(), {});
        QCOMPARE(view.takeTold(), u"start,0:0 70:100* 60:-20,0:0 70:7* 60:-20"_qs);
        view.endGesture(false);
        view.endGesture(true);
        QCOMPARE(view.takeTold(), u"0:0 40.5:100* 60:-20,same"_qs);
        view.selectKeys({{view.curve, 0}, {view.curve, 1}});
        QVERIFY(!view.selectedFrame() && !view.selectedValue());
        view.placeSelectedKeys(8, {});
        const QString now = u"8:0* 8:100* 60:-20"_qs;
        QCOMPARE(view.takeTold(), u"start,%1,%1,changed"_qs.arg(now));
        view.beginGesture();
        view.selectKeys({{view.curve, 2}}); // which is none of this gesture's
        view.placeSelectedKeys(9, {});
        QTest::keyClick(&view, Qt::Key_Right);
        const QString placed = u"9:0 9:100 60:-20*"_qs;
        QCOMPARE(
            view.takeTold(), u"start,%1,%1,changed,start,9:0 9:100 61:-20*,changed"_qs.arg(placed));
        view.beginGesture();
        view.drag({61, -20}, {70, -20});
        QVERIFY(view.takeTold().startsWith(u"start,9:0 9:100 61:-20*,same,start,"_qs));
        view.pointer.release();
        view.takeTold();
        view.curve->setEnabled(false);
        view.placeSelectedKeys(11, {});
        QVERIFY(view.shown().startsWith(u"9:0"_qs) && view.told.isEmpty());
    }
    void aPaneTiesListAndFieldsToItsView()
    {
        const ui::test::FakePointerSystem system(morrant::native::PointerSystem::Drive::Moves);
        ValueGraphPane pane;
        ui::test::showActive(pane);
        pane.setEmptyHint(u"Empty"_qs);
        QCOMPARE(pane.view().hint(), u"Empty"_qs);
        using Places = std::vector<std::size_t>;
        pane.setProperties({{u"A"_qs, {}, false}, {u"B"_qs}, {u"C"_qs}}, {0, 9});
        QVERIFY(pane.chosenProperties() == Places{1} && pane.view().hint() != u"Empty");
        const QSignalSpy chosen(&pane, &ValueGraphPane::propertiesChosen);
        pane.chooseProperties({0, 2});
        QVERIFY(pane.chosenProperties() == Places{2} && chosen.isEmpty());
        QTest::keyClick(&pane.list(), Qt::Key_Up);
        QVERIFY(pane.chosenProperties() == Places{1} && chosen.count() == 1);

        ValueGraphCurve* const curve = pane.view().addCurve();
        curve->setKeys({{0, 0}, {40, 100}});
        const QSignalSpy steps(&pane.view(), &ValueGraphView::gestureEnded);
        const QSignalSpy deletions(&pane, &ValueGraphPane::deleteWanted);
        NumericField& value = pane.fields().value();
        QVERIFY(!value.isEnabled());
        pane.view().selectKeys({{curve, 1}});
        QVERIFY(value.value() == 100 && pane.fields().frame().value() == 40);
        pane.list().setFocus(); // whose keys are its own
        QTest::keyClick(&pane.list(), Qt::Key_Delete);
        ui::test::type(value, u"25"_qs);
        pane.view().selectKeys({{curve, 0}}); // for which that was not meant
        pane.finishEditing();
        QVERIFY(curve->keys().at(0).value == 0 && steps.isEmpty());
        pane.view().selectKeys({{curve, 1}});
        ui::test::FakePointer pointer(&value);
        ui::test::scrub(pointer, value);
        pane.view().finishGesture();
        pointer.dragTo(pointer.position() + QPoint(30, 0));
        pointer.release();
        QCOMPARE(steps.count(), 1);
        ui::test::type(value, u"25"_qs);
        pane.command(ValueGraphPane::Command::Delete)->trigger(); // of what is complete
        QVERIFY(curve->keys().at(1).value == 25 && steps.count() == 2 && deletions.count() == 1);
        curve->setKeys({{0, 0}, {40, 3}});
        QCoreApplication::processEvents();
        QCOMPARE(value.value(), 3.0);
        curve->setKeys({{0, 0}});
        QVERIFY(!pane.command(ValueGraphPane::Command::Delete)->isEnabled());
    }
    void aCurveThatGoesIsNotMetAgain()
    {
        ValueDesk view;
        view.setHint(u"None"_qs);
        view.curve->point(1)->setSelected(true);
        view.setHint(u"Nothing"_qs);
        QCOMPARE(view.accessibleDescription(), u"Frame 40, value 100"_qs);
        QStringList told;
        connect(view.scene(), &QGraphicsScene::selectionChanged, &view, [&] {
            told << QString::number(view.curves().size()) + view.accessibleDescription();
        });
        delete view.curve;
        QCOMPARE(told, QStringList(u"0Nothing"_qs));
    }
    void aHostMayDeleteWhateverItLikesInMidDrag()
    {
        for (const int what : {0, 1, 2}) {
            auto* const view = new ValueDesk;
            const QPointer<ValueDesk> alive(view);
            connect(view, &ValueGraphView::keysChanging, view, [&] {
                view->disconnect();
                what == 0 ? delete view : what == 1 ? delete view->curve : view->curve->setKeys({});
            });
            view->drag({40, 100}, {50, 90});
            QVERIFY(!alive == (what == 0));
            QVERIFY(!alive || view->utils()->pointItems(false).empty());
            delete alive.data();
        }
    }
};

const ui::test::Registration<ValueGraphTest> kRegistration;

#include "tst_valuegraph.moc"

// SPDX-License-Identifier: Apache-2.0
#include "GraphDesk.h"

namespace {

using ui::Graph::Interpolation;

/// Frames and values, with a sign for keys that are selected.
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
        viewport()->grab();
        QCoreApplication::processEvents();
    }

    QPoint at(double frame, double value) const { return mapFromScene(frame, -value); }
    QString shown() const
    {
        QStringList texts;
        std::size_t i = 0;
        for (const ValueGraphKey& key : curve->keys()) {
            const bool selected = curve->point(i++)->isSelected();
            texts << u"%1:%2%3"_qs.arg(key.time)
                         .arg(std::round(key.value))
                         .arg(selected ? u"*" : u"");
        }
        return texts.join(u' ');
    }

    QPointer<ValueGraphCurve> curve = addCurve(u"Opacity"_qs, u"Red"_qs);
    ui::test::FakePointer pointer;
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
        QStringList told;
        connect(&view, &ValueGraphView::gestureStarted, this, [&] { told << u"start"_qs; });
        connect(&view, &ValueGraphView::keysChanging, this, [&] { told << view.shown(); });
        connect(&view, &ValueGraphView::gestureEnded, this, [&](bool changed) {
            told << (changed ? u"changed"_qs : u"same"_qs);
        });
        view.pointer.press(view.at(40, 100));
        view.pointer.moveTo(view.at(45.4, 80.2));
        QCOMPARE(told.join(u','), u"start,0:0 45:80* 60:-20"_qs);
        QTest::keyClick(&view, Qt::Key_Escape);
        view.pointer.release();
        QCOMPARE(told.mid(2).join(u','), u"0:0 40:100* 60:-20,same"_qs);
        told.clear();
        QTest::keyClick(&view, Qt::Key_Right);
        QCOMPARE(told.join(u','), u"start,0:0 41:100* 60:-20,changed"_qs);
        view.setSnapsToFrames(false);
        view.pointer.press(view.at(41, 100));
        view.pointer.moveTo(view.at(45.4, 80.2));
        view.pointer.release();
        QVERIFY(view.curve->keys().at(1).time > 45.2);
    }
    void whatTheHostPushesBackIsShownAndKeepsItsSelection()
    {
        ValueDesk view;
        QVERIFY(
            view.curve->keys().at(0) == (ValueGraphKey{0, 0, {}, {10, 0}, Interpolation::Bezier}));
        QVERIFY(view.curve->keys().at(2).hold && view.curve->valueAtFrame(99) == -20);
        const auto limited = connect(&view, &ValueGraphView::keysChanging, this, [&] {
            auto keys = view.curve->keys();
            for (ValueGraphKey& key : keys) {
                key.value = std::min(key.value, 50.0);
            }
            std::sort(keys.begin(), keys.end(), [](auto& a, auto& b) { return a.time < b.time; });
            view.curve->setKeys(keys);
        });
        view.pointer.press(view.at(40, 100));
        view.pointer.moveTo(view.at(50, 90));
        QCOMPARE(view.shown(), u"0:0 50:50* 60:-20"_qs);
        view.pointer.moveTo(view.at(70, 90)); // past another, in the host's order too
        QCOMPARE(view.shown(), u"0:0 60:-20 70:50*"_qs);
        view.pointer.release();
        disconnect(limited);

        view.curve->setKeys({{60, -20}, {70, 50}}); // one has gone, and the selected one stays
        QCOMPARE(view.shown(), u"60:-20 70:50*"_qs);
        const QSignalSpy told(view.scene(), &QGraphicsScene::selectionChanged);
        view.curve->setKeys({{60, -20}});
        QCOMPARE(told.count(), 1);
        view.curve->setKeys({{std::nan(""), 3}, {5, 5}});
        QCOMPARE(view.shown(), u"0:3 5:5"_qs);
    }
    void allCurvesStayFittedUntilTheUserZooms()
    {
        ValueDesk view;
        const auto isWhole = [&] {
            return view.getVisibleRect().contains(QRectF(0, -100, 60, 120));
        };
        QVERIFY(isWhole());
        view.addCurve()->setKeys({{0, 900}, {400, 0}});
        QCoreApplication::processEvents();
        QVERIFY(isWhole() && view.getVisibleRect().contains(QPointF(400, -900)));
        view.resize(300, 200);
        QVERIFY(view.getVisibleRect().contains(QPointF(400, -900)));
        delete view.curves().back();
        QCoreApplication::processEvents();
        QVERIFY(isWhole() && view.getVisibleRect().width() < 100);
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, Qt::Key_Plus);
        const QRectF zoomed = view.getVisibleRect();
        QVERIFY(!isWhole());
        view.curve->setKeys({{0, 0}, {9, 9}});
        QCoreApplication::processEvents();
        QCOMPARE(view.getVisibleRect().width(), zoomed.width());
        QTest::keyClick(&view, Qt::Key_A);
        QVERIFY(view.getVisibleRect().width() < 20);
        const QSignalSpy tapped(&view, &ValueGraphView::spaceTapped);
        QTest::keyClick(&view, Qt::Key_Space);
        QTest::keyPress(&view, Qt::Key_Space);
        view.pointer.press({150, 100});
        view.pointer.moveTo({50, 100});
        view.pointer.release();
        QTest::keyRelease(&view, Qt::Key_Space);
        QVERIFY(tapped.count() == 1 && !view.getVisibleRect().contains(QPointF(0, 0)));
    }
    void aHostMayDeleteWhateverItLikesInMidDrag()
    {
        for (const int what : {0, 1, 2}) {
            auto* const view = new ValueDesk;
            const QPointer<ValueDesk> alive(view);
            connect(
                view,
                &ValueGraphView::keysChanging,
                view,
                [view, what] {
                    what == 0   ? delete view
                    : what == 1 ? delete view->curve
                                : view->curve->setKeys({});
                },
                Qt::SingleShotConnection);
            view->pointer.press(view->at(40, 100));
            view->pointer.moveTo(view->at(50, 90));
            QVERIFY(!alive == (what == 0));
            if (alive) {
                view->pointer.release();
                QVERIFY(view->utils()->pointItems(false).empty());
                delete view;
            }
        }
    }
};

const ui::test::Registration<ValueGraphTest> kRegistration;

#include "tst_valuegraph.moc"

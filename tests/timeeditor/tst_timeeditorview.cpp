// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include "controls/PaintCounter.h"

using ui::test::Editor;
using ui::test::PaintCounter;

class TimeEditorViewTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void zoomHoldsAtItsMinimumAndStaysFinite()
    {
        Editor editor({{40}});
        QSignalSpy scaled(editor.view, &TimeEditorView::scaleChanged);
        editor.view->setScale(0.0);
        QCOMPARE(editor.view->getScale(), editor.view->getMinScale());
        editor.view->setPlaybackRange(7, 7);
        QCOMPARE(editor.view->getMinScale(), 1044 * 0.02);
        editor.view->setScale(std::nan(""));
        QCOMPARE(scaled.count(), 1);
        editor.view->setScale(1e300);
        QVERIFY(editor.view->transform().m11() > 0.0);
        editor.view->setPlaybackRange(0, 100);
        editor.view->setScale(0.4);
        QCOMPARE(editor.key(0, 0)->rect().width() * editor.view->transform().m11(), 10.0);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            editor.view->setLayoutDirection(direction);
            editor.view->setScale(0.5);
            editor.view->setScaleAt(0.3, 700);
            const double frame = editor.view->mapToScene(700, 0).x();
            editor.view->setScaleAt(0.35, 700);
            QVERIFY(std::abs(editor.view->mapToScene(700, 0).x() - frame) < 0.1);
        }
    }

    void framingFollowsSelectionAndShift()
    {
        Editor editor({{20, 40}});
        QSignalSpy rescaled(editor.view, &TimeEditorView::rescale);
        const auto framed = [&] { return rescaled.takeLast().at(0).toRectF(); };
        QTest::keyClick(editor.view, Qt::Key_F);
        QCOMPARE(framed().left(), 9.0); // the playback range with a frame of room
        editor.key(0, 0)->setSelected(true);
        editor.key(0, 1)->setSelected(true);
        QTest::keyClick(editor.view, Qt::Key_F);
        const QRectF keys = framed();
        QVERIFY(keys.left() > 18.0 && keys.left() < 20.0 && keys.right() < 42.0);
        editor.hold(Qt::ShiftModifier);
        QTest::keyClick(editor.view, Qt::Key_F, Qt::ShiftModifier);
        QCOMPARE(framed().left(), -2.0); // the frame range, two percent
    }

    void theWheelScrollsAtFortyPercentAndNeverZooms()
    {
        Editor editor({{20}});
        editor.view->setScale(0.3);
        QScrollBar* const bar = editor.view->horizontalScrollBar();
        const QTransform before = editor.view->transform();
        for (const int turn : {250, 1}) { // a wheel of notches, and a fine one
            bar->setValue(bar->minimum());
            for (int i = 0; i < 250; i += turn) {
                ui::test::turnWheel(*editor.view->viewport(), {300, 20}, {-turn, 0});
            }
            QVERIFY(std::abs(bar->value() - bar->minimum() - 2.5 * bar->singleStep()) <= 1.0);
        }
        QCOMPARE(editor.view->transform(), before);
    }

    void spacePansEvenFromAKey()
    {
        Editor editor({{30}});
        editor.view->setScale(0.3);
        editor.key(0, 0)->setSelected(true);
        QTest::keyPress(editor.view, Qt::Key_Space);
        QVERIFY(editor.view->isSpaceHeld());
        editor.view->centerOn(30, 0);
        const int start = editor.view->horizontalScrollBar()->value();
        const QPoint place = editor.at(editor.key(0, 0));
        editor.drag(place, place - QPoint(60, 0));
        QCOMPARE(editor.view->horizontalScrollBar()->value(), start + 60);
        QCOMPARE(editor.frames(0), u"30"_qs);
        QCOMPARE(editor.selection(), u"30"_qs);
        QTest::keyRelease(editor.view, Qt::Key_Space);
        QCOMPARE(editor.view->dragMode(), QGraphicsView::RubberBandDrag);
        QTest::keyPress(editor.view, Qt::Key_Space);
        editor.press(place);
        QTest::keyRelease(editor.view, Qt::Key_Space); // before the button
        editor.pointer.release();
        const QPoint key = editor.at(editor.key(0, 0));
        editor.drag(key, key + QPoint(100, 0));
        QVERIFY(editor.frames(0) != u"30"_qs);
    }

    void theOverrideCursorNeverOutlivesItsGesture()
    {
        auto editor = std::make_unique<Editor>(std::initializer_list<std::vector<int>>{{30}});
        const auto send = [&](auto&& event) { QCoreApplication::sendEvent(editor->view, &event); };
        const std::vector<std::function<void()>> doors = {
            [&] { send(QEvent(QEvent::Leave)); },
            [&] { send(QFocusEvent(QEvent::FocusOut)); },
            [&] { editor->view->setEnabled(false); },
            [&] { editor->view->hide(); },
            [&] { editor.reset(); },
        };
        QTest::keyPress(editor->view, Qt::Key_Shift);
        doors[0]();
        editor->view->setDragMode(QGraphicsView::NoDrag);
        doors[1](); // though the pointer had left before
        QVERIFY(!editor->view->getSnapping());
        QCOMPARE(editor->view->dragMode(), QGraphicsView::NoDrag);
        for (const auto& door : doors) {
            editor->view->setEnabled(true);
            QTest::keyPress(editor->view, Qt::Key_Space);
            editor->press({300, 100});
            send(QKeyEvent(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QString(), true));
            QVERIFY(editor->view->isSpaceHeld()); // a repeated release is none
            QVERIFY(QGuiApplication::overrideCursor() != nullptr);
            door();
            QCOMPARE(QGuiApplication::overrideCursor(), nullptr);
            QVERIFY(!editor || (!editor->view->isSpaceHeld() && editor->view->isInteractive()));
        }
    }

    void shortcutsReachTheHostOnce()
    {
        Editor editor({{10, 20, 30}});
        editor.hold(Qt::ControlModifier);
        for (const Qt::Key key : {Qt::Key_C, Qt::Key_X, Qt::Key_V}) {
            QTest::keyClick(editor.view, key, Qt::ControlModifier);
        }
        QCOMPARE(editor.utils.calls.join(u','), u"copy,cut,paste"_qs);
        editor.hold(Qt::NoModifier); // the keyboard knows better than the event
        QTest::keyClick(editor.view, Qt::Key_C, Qt::ControlModifier);
        editor.key(0, 1)->setSelected(true);
        QTest::keyClick(editor.view, Qt::Key_Delete);
        QCOMPARE(editor.utils.calls.last(), u"delete 1"_qs);
        QCOMPARE(editor.utils.calls.size(), 4);
        QCOMPARE(editor.frames(0), u"10 30"_qs);
    }

    void theBandCatchesByKindFromInsideARow()
    {
        Editor editor({{10, 20, 30}, {15, 25}});
        TimeEditorClipItem* const clip = editor.addClip({{12, 22}});
        const VisClip* const area = clip->getClipAreas()[0];
        editor.view->setupViewAndScene(0, 100, 66);
        const auto band = [&](TimeEditorView::SelectionMode mode,
                              Qt::KeyboardModifiers modifiers = {}) {
            editor.view->clearSelection();
            editor.view->setMarqueeSelectionMode(mode);
            editor.hold(modifiers);
            editor.drag(editor.at(35, 3), editor.at(12.5, 60)); // starts inside the first row
            const bool anyCurve = editor.curves[0]->isSelected() || editor.curves[1]->isSelected();
            return editor.selection() + (anyCurve ? u" curves"_qs : QString())
                   + (clip->isSelected() ? u" clip"_qs : QString())
                   + (area->isSelected() ? u" area"_qs : QString());
        };
        using View = TimeEditorView;
        QCOMPARE(band(View::None), u"15 20 25 30 curves clip area"_qs);
        QCOMPARE(band(View::PreferKeyframes), u"15 20 25 30"_qs);
        QCOMPARE(band(View::CurvesOnly), u" curves"_qs);
        QCOMPARE(band(View::ClipsOnly), u" clip area"_qs);
        QCOMPARE(band(View::PreferKeyframes, Qt::AltModifier), u" clip area"_qs);
        // The first mode leaves a curve where no key was caught.
        editor.hold({});
        editor.view->setMarqueeSelectionMode(View::PreferKeyframes);
        editor.drag(editor.at(13, 2), editor.at(17, 14));
        QVERIFY(editor.curves[0]->isSelected());
        QCOMPARE(editor.selection(), QString());
        editor.selectRow(1);
        editor.press(editor.at(35, 3));
        editor.pointer.dragTo(editor.at(12.5, 60));
        QTest::keyClick(editor.view, Qt::Key_Escape);
        editor.pointer.drop(editor.at(28, 60));
        QCOMPARE(editor.selection(), u"15 25"_qs);
    }

    void shiftSelectsFromTheAnchorInOneCurve()
    {
        Editor editor({{10, 20, 30, 40}, {15}});
        QSignalSpy changed(editor.scene, &QGraphicsScene::selectionChanged);
        editor.click(editor.at(editor.key(0, 0)));
        editor.hold(Qt::ShiftModifier);
        changed.clear();
        editor.click(editor.at(editor.key(0, 2)));
        QCOMPARE(editor.selection(), u"10 20 30"_qs);
        QCOMPARE(changed.count(), 1);
        editor.click(editor.at(editor.key(0, 3))); // the anchor has moved along
        QCOMPARE(editor.selection(), u"30 40"_qs);
        editor.click(editor.at(editor.key(1, 0))); // another curve: it becomes the anchor
        QCOMPARE(editor.selection(), u"15"_qs);
        QCOMPARE(editor.frames(0), u"10 20 30 40"_qs);
        editor.pointer.click(editor.at(editor.key(0, 1)), Qt::RightButton); // selects nothing
        QCOMPARE(editor.selection(), u"15"_qs);
    }

    void arrowsWalkAmongTheKeys()
    {
        Editor editor({{12, 20, 30, 40}, {}, {16, 33}});
        editor.curves[2]->setText(u"Scale"_qs);
        editor.view->setCurrentFrame(22);
        QSignalSpy changed(editor.scene, &QGraphicsScene::selectionChanged);
        using Step = std::tuple<Qt::Key, Qt::KeyboardModifiers, const char16_t*>;
        for (const auto& [key, modifiers, selected] : {
                 Step{Qt::Key_Right, {}, u"20"}, // nearest to the playhead
                 Step{Qt::Key_Right, {}, u"30"},
                 Step{Qt::Key_Right, Qt::ShiftModifier, u"30 40"},
                 Step{Qt::Key_Right, Qt::ShiftModifier, u"30 40"}, // the end
                 Step{Qt::Key_Home, Qt::ShiftModifier, u"12 20 30"},
                 Step{Qt::Key_End, Qt::ControlModifier, u"12 20 30"},
                 Step{Qt::Key_Return, Qt::ControlModifier, u"12 20 30 40"},
                 Step{Qt::Key_Down, {}, u"33"}, // over an empty row
                 Step{Qt::Key_Left, {}, u"16"},
             })
        {
            QTest::keyClick(editor.view, key, modifiers);
            QCOMPARE(editor.selection(), QString::fromUtf16(selected));
        }
        QVERIFY(changed.count() <= 9);
        QCOMPARE(editor.view->accessibleDescription(), u"Scale, key at frame 16, selected"_qs);
        editor.view->nudgeSelectedKeys(-5);
        QCOMPARE(editor.frames(2), u"11 33"_qs);
        QCOMPARE(editor.told, QList<int>{1});
        QTest::keyClick(editor.view, Qt::Key_Up);
        QCOMPARE(editor.selection(), u"12"_qs);
    }

    void assistiveToolsFindKeysInTheirRows()
    {
        Editor editor{{5}, {12, 30, 20}};
        QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(editor.view);
        QAccessibleInterface* const row = seen->child(1);
        QAccessibleInterface* const key = row->child(1);
        QVERIFY(
            row->childCount() == 3 && row->indexOfChild(key) == 1 && seen->indexOfChild(row) == 1);
        QVERIFY(key->parent() == row && row->parent() == seen);
        QCOMPARE(key->text(QAccessible::Name), u"Keyframe 2: frame 20"_qs);
        const QRect screen(
            editor.view->viewport()->mapToGlobal(QPoint()), editor.view->viewport()->size());
        QVERIFY(screen.contains(key->rect()) && !key->state().offscreen);
        key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(editor.selection(), u"20"_qs);
        QVERIFY(key->state().selected && !row->child(0)->state().selected);
    }

    void rowsStackAndComeAgainAfterClearing()
    {
        Editor editor;
        for (int i = 0; i < 70; ++i) { // more than a block
            editor.addRow({i});
        }
        QCoreApplication::processEvents();
        const auto rowsLieRight = [&] {
            double y = -22;
            return std::all_of(editor.curves.begin(), editor.curves.end(), [&](const auto* row) {
                return row->scenePos() == QPointF(0, y += 22);
            });
        };
        QVERIFY(rowsLieRight());
        QCOMPARE(editor.scene->layoutContainer()->linearLayout()->count(), 70);
        delete std::exchange(editor.curves[3], nullptr);
        editor.curves.erase(editor.curves.begin() + 3);
        QCoreApplication::processEvents();
        QVERIFY(rowsLieRight());
        auto* const hidden = new QGraphicsRectItem(0, 0, 5, 5);
        hidden->setVisible(false);
        auto* const behind = new QGraphicsRectItem(0, 0, 5, 5, editor.curves[0]);
        behind->setFlag(QGraphicsItem::ItemStacksBehindParent);
        editor.scene->addItem(hidden);
        editor.scene->clearScene();
        editor.curves.clear();
        QCOMPARE(editor.scene->items().size(), 2); // tool and stack
        editor.addRow({5});
        QCOMPARE(editor.curves[0]->scenePos(), QPointF(0, 0));
        editor.click(editor.at(editor.key(0, 0)));
        QCOMPARE(editor.selection(), u"5"_qs);
    }

    void aTickPaintsOnceAndIdleNever()
    {
        Editor editor({{10, 20}});
        PaintCounter paints(editor.view->viewport());
        paints.take();
        QCOMPARE(paints.take(), 0);
        for (int frame = 0; frame < 100; ++frame) {
            editor.view->setCurrentFrame(frame);
        }
        QCOMPARE(editor.view->frameNumber(), 99);
        QCOMPARE(paints.take(), 1);
        QCOMPARE(paints.take(), 0);
    }

    void stripesKeepTheirParityWhenPaintedInParts()
    {
        const Editor editor({{10}});
        editor.view->setScale(0.5); // 20 pixels a frame, fewer than 75 in sight
        editor.view->setBackgroundRegion(
            std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        QCoreApplication::processEvents();
        const QImage whole = editor.view->viewport()->grab().toImage();
        const QRect part(403, 60, 57, 40);
        const QImage piece = editor.view->viewport()->grab(part).toImage();
        const double ratio = whole.devicePixelRatio();
        const QRect device(part.topLeft() * ratio, part.size() * ratio);
        QCOMPARE(
            piece.convertToFormat(QImage::Format_RGB32),
            whole.copy(device).convertToFormat(QImage::Format_RGB32));
        QVERIFY(editor.colorAt(30.5, 100) != editor.colorAt(31.5, 100));
        QCOMPARE(editor.colorAt(31.5, 100), ui::colorQt(u"Base"_qs));
    }

    void theTimeHandleCommitsWholeFrames()
    {
        struct Host : TimeEditorView
        {
            void frameChangeCommitted() override
            {
                frames << frameNumber();
                setCurrentFrame(std::min(frameNumber(), 30)); // as a host that limits does
            }
            QList<int> frames;
        } view;
        view.resize(1044, 100);
        auto* const scene = new TimeEditorScene(&view, QRect(0, 0, 100, 44), true);
        view.setup(scene);
        view.setupViewAndScene(0, 100, 44);
        view.setCurrentFrame(10);
        auto* const row = new TimeEditorCurveItem(&view);
        scene->addLayoutItem(row);
        row->addKeyframe(70)->setSelected(true);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        TimeHandle* const handle = scene->getTimeHandle();
        QVERIFY(handle->rect() == QRectF(0, 0, 2, 44) && handle->pos() == QPointF(10, 0));
        QVERIFY(view.frames.isEmpty());
        ui::test::FakePointer pointer(view.viewport());
        pointer.press(view.mapFromScene(11.0, 10.0));
        pointer.dragTo(view.mapFromScene(13.4, 30.0));
        QCOMPARE(view.frames.last(), 12);
        pointer.dragTo(view.mapFromScene(60, 30.0), 100);
        QVERIFY(view.frameNumber() == 30 && handle->x() == 30.0);
        QTest::keyClick(&view, Qt::Key_Escape);
        pointer.drop(view.mapFromScene(20, 30.0));
        QVERIFY(view.frames.last() == 10 && handle->x() == 10.0);
        QCOMPARE(row->keyframes()[0]->x(), 70.0); // which stays behind
        handle->setPos(40.4, 7.0);                // not by the user
        QVERIFY(view.frameNumber() == 10 && handle->pos() == QPointF(40, 0));
        scene->clearScene();
        QCOMPARE(scene->getTimeHandle(), handle);
    }

    void connectionsReachTheItemBelow()
    {
        struct Target : TimeEditorCurveItem
        {
            using TimeEditorCurveItem::TimeEditorCurveItem;
            void onConnectionEnter(ConnectionInstance*) override { log += u"enter "_qs; }
            void onConnectionLeave(ConnectionInstance*) override { log += u"leave "_qs; }
            void onConnectionDrop(ConnectionInstance*) override { log += u"drop "_qs; }
            QString log;
        };
        Editor editor;
        auto* const target = new Target(editor.view);
        target->addKeyframe(10);
        target->addKeyframe(50);
        editor.scene->addLayoutItem(target);
        QPointer<ConnectionInstance> connection = ConnectionInstance::start(editor.view, {5, 150});
        const auto moveTo = [&](double frame, double y) {
            connection->moveTo(editor.view->viewport()->mapToGlobal(editor.at(frame, y)));
        };
        moveTo(30, 11);
        QCOMPARE(connection->drawStyle(), ConnectionStyle::Line);
        editor.view->onConnectionMove(nullptr); // is none
        connection->drop();
        QCOMPARE(target->log, u"enter leave drop "_qs);
    }
};

const ui::test::Registration<TimeEditorViewTest> kRegistration;

#include "tst_timeeditorview.moc"

// SPDX-License-Identifier: Apache-2.0
#include "Editor.h"
#include <MorrantUI/theme/colors.h>

using ui::test::areasOf;
using ui::test::Editor;

class TimeEditorDragsTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void manySmallStepsComeToTheSameAsALargeOne()
    {
        for (const int step : {1, 500}) {
            Editor editor({{3, 10, 11}, {3, 40}});
            editor.selectRow(0);
            const QPoint place = editor.at(editor.key(0, 1));
            editor.drag(place, place + QPoint(185, 60), step);
            QCOMPARE(editor.frames(0), u"22 29 30"_qs); // 18.5 frames
            QCOMPARE(editor.frames(1), u"3 40"_qs);
            QCOMPARE(editor.key(0, 0)->y(), editor.curves[0]->keyY());
            QCOMPARE(editor.selection(), u"22 29 30"_qs);
        }
        Editor editor({{10, 20, 30}}); // keys of one row pass and meet each other without a loss
        const QPoint place = editor.at(editor.key(0, 0));
        editor.drag(place, place + QPoint(200, 0));
        QCOMPARE(editor.frames(0), u"20 30 30"_qs);
    }

    void aDragIsToldOnceAndAClickNever()
    {
        Editor editor({{10, 20}});
        QSignalSpy steps(editor.view, &TimeEditorView::keysMoving);
        editor.click(editor.at(editor.key(0, 0)));
        QVERIFY(editor.told.isEmpty() && steps.isEmpty());
        const QPoint place = editor.at(editor.key(0, 0));
        editor.drag(place, place + QPoint(30, 0), 1);
        QCOMPARE(editor.told, QList<int>{1});
        QCOMPARE(steps.count(), 3);                                // a step a frame, not a pixel
        QCOMPARE(editor.view->getScaleRange(), std::pair(12, 13)); // five pixels to either side

        editor.view->setFrameRange(0, 10000); // ten frames a pixel
        editor.view->setScale(1.0);
        TimeEditorClipItem* const clip = editor.addClip({{2000, 4000}});
        QCoreApplication::processEvents();
        editor.selectRow(0);
        editor.drag(editor.at(13, 10), editor.at(13, 10) + QPoint(2, 2)); // a hand that trembles
        QCOMPARE(editor.view->selectedKeyframes().size(), 1U);
        editor.drag(editor.at(3000, 30), editor.at(3000, 30) - QPoint(2, 0));
        editor.pointer.press(editor.at(13, 10), Qt::MiddleButton); // which drags nothing
        editor.pointer.dragTo({500, 10});
        QCOMPARE(editor.frames(0), u"13 20"_qs);
        QCOMPARE(areasOf(*clip), u"2000-4000"_qs);
    }

    void escapeAndHidingEndADrag()
    {
        Editor editor({{10, 20}});
        editor.key(0, 0)->forceMove({10.25, editor.curves[0]->keyY()});
        editor.press(editor.at(editor.key(0, 0)));
        editor.pointer.dragTo({500, 30});
        QVERIFY(editor.frames(0) != u"10.25 20"_qs);
        QTest::keyClick(editor.view, Qt::Key_Escape);
        QCOMPARE(editor.frames(0), u"10.25 20"_qs);
        editor.pointer.drop({700, 30});
        QCOMPARE(editor.frames(0), u"10.25 20"_qs);
        QVERIFY(editor.told.isEmpty());

        editor.press(editor.at(editor.key(0, 1)));
        editor.pointer.dragTo(editor.at(editor.key(0, 1)) + QPoint(50, 0));
        editor.view->hide(); // as by a release
        QCOMPARE(editor.told, QList<int>{1});
        QCOMPARE(editor.frames(0), u"10.25 25"_qs);
        QCOMPARE(editor.scene->mouseGrabberItem(), nullptr);
    }

    void snappingPassesOverItsOwnRowAndLeavesNoOffset()
    {
        Editor editor({{10, 30, 40}, {60, 70}});
        editor.addClip({{82, 90}});
        editor.view->setBackgroundRegion(-500, 500);
        editor.view->setCurrentFrame(-300);
        editor.key(1, 1)->setSelected(true);
        editor.hold(Qt::ControlModifier); // keeps the other selected
        editor.press(editor.at(editor.key(0, 0)));
        editor.hold(Qt::ShiftModifier);
        const auto dragTo = [&](double frame) {
            editor.pointer.moveTo(editor.at(frame, 10));
            return editor.key(0, 0)->x();
        };
        dragTo(31.0); // towards a key of its own row
        QCOMPARE(editor.frames(0), u"30 31 40"_qs);
        dragTo(57.0);
        QCOMPARE(editor.frames(0), u"30 40 60"_qs);
        QCOMPARE(editor.frames(1), u"60 120"_qs); // by the same distance
        dragTo(68.0);                             // the other selected key is none to snap to
        QCOMPARE(editor.frames(0), u"30 40 68"_qs);
        dragTo(85.0);
        QCOMPARE(editor.frames(0), u"30 40 82"_qs);
        editor.hold({});
        dragTo(50.0);
        QCOMPARE(editor.frames(0), u"30 40 50"_qs);
        editor.pointer.release();
        QCOMPARE(editor.told, QList<int>{2});
    }

    void aCurveSelectedWithItsKeysLeavesThemFree()
    {
        Editor editor({{10, 20}});
        editor.curves[0]->setSelected(true);
        editor.key(0, 0)->setSelected(true);
        const QPoint place = editor.at(editor.key(0, 0));
        editor.drag(place, place + QPoint(300, 40));
        QCOMPARE(editor.curves[0]->pos(), QPointF(0, 0));
        QCOMPARE(editor.frames(0), u"20 40"_qs);
    }

    void theToolMovesByTheSumOfItsSteps()
    {
        Editor editor({{30, 40}, {35}});
        editor.view->setShowTransformTool(true);
        editor.view->setScale(0.5); // twenty pixels a frame: a pixel is less than half a frame
        editor.view->centerOn(40, 0);
        editor.selectRow(0);
        const QPoint place = editor.at(33, 18); // within the row, also below the keys
        editor.press(place);
        editor.pointer.dragTo(place + QPoint(100, 0), 1);
        QCOMPARE(editor.frames(0), u"35 45"_qs);
        editor.pointer.drop(place + QPoint(60, 0), 1);
        QCOMPARE(editor.frames(0), u"33 43"_qs);
        QCOMPARE(editor.told, QList<int>{2});
        QCOMPARE(editor.selection(), u"33 43"_qs);

        for (int frame = 0; frame < 600; ++frame) { // many are shown together
            editor.curves[1]->addKeyframe(frame)->setSelected(true);
        }
        QCoreApplication::processEvents();
        for (const QGraphicsItem* const item : editor.scene->items()) {
            const auto* const tool = dynamic_cast<const TranslateScaleTool*>(item);
            QVERIFY(!tool || tool->rect().right() == 599);
        }
    }

    void theToolScalesAboutTheOppositeEndAndRipplesWithAlt()
    {
        Editor editor({{10, 20, 23, 40, 60}});
        editor.view->setShowTransformTool(true);
        for (const std::size_t index : {1U, 2U, 3U}) {
            editor.key(0, index)->setSelected(true);
        }
        editor.click(editor.at(30, 12));
        QCOMPARE(editor.selection(), u"20 23 40"_qs); // which a click on the tool leaves alone
        const QString before = editor.frames(0);
        QPoint edge;
        const auto dragTo = [&](int pixels, Qt::KeyboardModifiers held, const QString& frames) {
            editor.hold(held);
            editor.pointer.dragTo(edge + QPoint(pixels, 0));
            QCOMPARE(editor.frames(0), frames);
        };
        for (const bool right : {false, true}) {
            edge = toolEdge(editor, right);
            editor.press(edge);
            const int out = right ? 1 : -1;
            dragTo(out * 100, {}, right ? u"10 20 25 50 60"_qs : u"10 10 15 40 60"_qs);
            dragTo(out * -200, {}, right ? u"10 20 20 20 60"_qs : u"10 40 40 40 60"_qs);
            dragTo(out * 40, Qt::AltModifier, right ? u"10 20 24 44 64"_qs : u"6 16 20 40 60"_qs);
            dragTo(0, {}, before); // through the end, and from a ripple
            editor.pointer.dragTo(edge + QPoint(77, 0));
            QTest::keyClick(editor.view, Qt::Key_Escape);
            editor.pointer.release();
            QCOMPARE(editor.frames(0), before);
            QVERIFY(editor.told.isEmpty() && !editor.view->getDoneRippleEdit());
        }
        editor.drag(edge, edge + QPoint(100, 0));
        QCOMPARE(editor.told, QList<int>{2});
    }

    void clipsTrimMoveAndSlip()
    {
        Editor editor;
        TimeEditorClipItem* const clip = editor.addClip({{10, 20}, {30, 50}});
        QList<ClipEdit> edits;
        connect(clip, &TimeEditorClipItem::clipChanged, this, [&](const ClipEdit& edit) {
            edits << edit;
        });
        editor.drag(editor.at(49.8, 10), editor.at(59.8, 10));
        QCOMPARE(areasOf(*clip), u"10-20 30-60"_qs);
        QCOMPARE(edits.size(), 1);
        QVERIFY(edits[0].index == 1 && edits[0].endFrom == 50 && edits[0].endTo == 60);
        editor.drag(editor.at(40, 10), editor.at(20, 10)); // up to its neighbour
        QCOMPARE(areasOf(*clip), u"10-20 20-50"_qs);
        editor.view->setCurrentFrame(7);
        editor.press(editor.at(10.2, 10));
        editor.hold(Qt::ShiftModifier);
        editor.pointer.drop(editor.at(8.3, 10)); // to the playhead
        editor.hold({});
        QCOMPARE(areasOf(*clip), u"7-20 20-50"_qs);
        QTest::keyPress(editor.view, Qt::Key_Alt);
        QVERIFY(clip->isAltHeld() && editor.view->getEndPointSnapping());
        editor.drag(editor.at(30, 10), editor.at(34, 10));
        QTest::keyRelease(editor.view, Qt::Key_Alt);
        QCOMPARE(areasOf(*clip), u"7-20 20-50"_qs);
        QCOMPARE(clip->getClipAreas()[1]->slip(), 4);
        QCOMPARE(edits.size(), 4);
        editor.pointer.moveTo(editor.at(20.2, 10));
        QCOMPARE(clip->getEndPointHoverArea(), EndPointHover::Start);
        connect(clip, &TimeEditorClipItem::clipChanged, this, [&] { delete editor.scene; });
        editor.drag(editor.at(49.8, 10), editor.at(59.8, 10)); // a host closes its document
        QVERIFY(!editor.view->getEditorScene());
    }

    void selectedAreasGoAlongEachAsFarAsItCan()
    {
        Editor editor;
        TimeEditorClipItem* const a = editor.addClip({{10, 30}, {50, 60}});
        TimeEditorClipItem* const b = editor.addClip({{10, 30}, {36, 60}});
        TimeEditorClipItem* const c = editor.addClip({{10, 30}});
        QCoreApplication::processEvents();
        QList<std::size_t> told;
        connect(editor.view, &TimeEditorView::clipsChanged, this, [&](const ClipMoves& moves) {
            told << moves.size();
        });
        const auto areas = [&] {
            return areasOf(*a) + u"|"_qs + areasOf(*b) + u"|"_qs + areasOf(*c);
        };
        editor.click(editor.at(20, 10));
        editor.hold(Qt::ShiftModifier);
        editor.click(editor.at(20, 30)); // both clips with all their areas
        editor.hold({});
        a->getClipAreas()[1]->setSelected(false);
        b->getClipAreas()[1]->setSelected(false);
        editor.drag(editor.at(29.8, 10), editor.at(39.8, 10)); // the ends, one up to its neighbour
        QCOMPARE(areas(), u"10-40 50-60|10-36 36-60|10-30"_qs);
        editor.drag(editor.at(20, 10), editor.at(25, 10)); // bodies stop together
        editor.drag(editor.at(20, 10), editor.at(17, 10));
        QCOMPARE(areas(), u"7-37 50-60|7-33 36-60|10-30"_qs);
        editor.press(editor.at(20, 10));
        editor.pointer.dragTo(editor.at(5, 10));
        QTest::keyClick(editor.view, Qt::Key_Escape);
        editor.pointer.release();
        QCOMPARE(areas(), u"7-37 50-60|7-33 36-60|10-30"_qs);
        QCOMPARE(told, (QList<std::size_t>{2, 2}));
    }

    void beyondTheEdgeTheViewScrollsAndTheDragFollows()
    {
        Editor editor({{30, 40}});
        ui::test::FakeClock clock(editor.view);
        editor.view->setScale(0.3);
        editor.view->centerOn(30, 0);
        const QScrollBar* const bar = editor.view->horizontalScrollBar();
        const int start = bar->value();
        const int edge = editor.view->viewport()->width();
        const TimeEditorKeyframeItem* const key = editor.key(0, 0);
        editor.press(editor.at(key));
        editor.pointer.moveTo({edge - 20, 10});
        clock.advanceAnimations(90);
        QCOMPARE(bar->value(), start);
        editor.pointer.moveTo({edge + 80, 10});
        const double frame = key->x();
        clock.advanceAnimations(90);
        QVERIFY(bar->value() > start + 60 && key->x() > frame);
        for (int i = 0; i < 100; ++i) {
            clock.advanceAnimations(90);
        }
        QCOMPARE(bar->value(), bar->maximum()); // and no farther than the scene
        editor.pointer.release();
        editor.view->centerOn(30, 0);
        editor.press({300, 150}); // a rubber band
        editor.pointer.dragTo({-40, 150}, 100);
        clock.advanceAnimations(90);
        const int reached = bar->value();
        QVERIFY(reached < start);
        editor.pointer.release();
        clock.advanceAnimations(90);
        QCOMPARE(bar->value(), reached);
        editor.addClip({{0, 60}});
        QCoreApplication::processEvents();
        editor.press({edge - 2, 32});
        editor.pointer.moveTo({edge - 1, 32}); // a click that trembles
        clock.advanceAnimations(90);
        QCOMPARE(bar->value(), reached);
        editor.pointer.moveTo({edge + 2, 32});
        clock.advanceAnimations(90);
        QVERIFY(bar->value() > reached);
        editor.pointer.release();
    }

    void aDragShowsWhereItHasSnapped()
    {
        Editor editor({{10}, {60}});
        const QColor guide = ui::colorQt(u"Accent4"_qs);
        const QImage before = editor.view->viewport()->grab().toImage();
        editor.press(editor.at(editor.key(0, 0)));
        editor.pointer.moveTo(editor.at(40, 100));
        QVERIFY(editor.colorAt(60, 150) != guide);
        const QPoint readout = editor.at(40, 100) + QPoint(18, -12);
        const QColor ground = editor.view->palette().color(QPalette::ToolTipBase);
        const auto shown = [&] { return editor.view->viewport()->grab().toImage(); };
        QVERIFY(ui::test::closeTo(ui::test::pixelAt(shown(), readout), ground, 25));
        editor.hold(Qt::ShiftModifier);
        editor.pointer.moveTo(editor.at(57, 100));
        QVERIFY(ui::test::closeTo(editor.colorAt(60, 150), guide, 90)); // a line of a pixel
        QTest::keyClick(editor.view, Qt::Key_Escape);
        editor.pointer.release();
        editor.view->clearSelection();
        QCOMPARE(shown(), before);
    }

    void clipAreasAreDeselectedAsTheClipSays()
    {
        Editor editor;
        std::vector<TimeEditorClipItem*> clips;
        for (int i = 0; i < 3; ++i) {
            clips.push_back(editor.addClip({{10, 20}, {30, 50}}));
        }
        const auto selected = [&] {
            QString text;
            for (const TimeEditorClipItem* const clip : clips) {
                for (const VisClip* const area : clip->getClipAreas()) {
                    text += area->isSelected() ? u'x' : u'-';
                }
            }
            return text;
        };
        QCoreApplication::processEvents();
        editor.click(editor.at(15, 10));
        QCOMPARE(selected(), u"x-----"_qs);
        editor.hold(Qt::ShiftModifier);
        editor.click(editor.at(40, 32)); // up to the second clip
        QCOMPARE(selected(), u"xxxx--"_qs);
        editor.hold({});
        editor.press(editor.at(40, 32)); // of a selection: all stay until the release
        QCOMPARE(selected(), u"xxxx--"_qs);
        editor.pointer.release();
        QCOMPARE(selected(), u"--xx--"_qs);
        editor.click(editor.at(80, 60));
        QCOMPARE(selected(), u"------"_qs);
        editor.view->setMarqueeSelectionMode(TimeEditorView::ClipsOnly);
        editor.drag(editor.at(60, 50), editor.at(45, 10));
        QCOMPARE(selected(), u"-x-x-x"_qs);
    }

private:
    static QPoint toolEdge(const Editor& editor, bool right, double inset = 2.0)
    {
        const QRectF rect = editor.view->getTranslateToolRect();
        return editor.at(right ? rect.right() : rect.left(), rect.top() + 1)
               + QPoint(static_cast<int>(right ? -inset : inset), 0);
    }
};

const ui::test::Registration<TimeEditorDragsTest> kRegistration;

#include "tst_timeeditordrags.moc"

// SPDX-License-Identifier: Apache-2.0
#include "controls/PaintCounter.h"
#include "controls/StyledApplication.h"
#include "menus/answers.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

/// A ruler of 100 frames, played from 20 to 60, and what it reports.
struct Ruler
{
    Ruler()
        : pointer(view.viewport())
    {
        view.resize(1000, view.sizeHint().height());
        scene->setPlaybackRange(20, 60);
        showActive(view);
        view.setFocus();
        QObject::connect(&view, &TimelineView::frameChanged, &view, [this](int frame) {
            told << QString::number(frame);
        });
        QObject::connect(&view, &TimelineView::scrubbingChanged, &view, [this](bool on) {
            told << (on ? u"scrub"_qs : u"rest"_qs);
        });
        QObject::connect(&view, &TimelineView::playbackRangeEdited, &view, [this](auto a, auto b) {
            told << rangeText(a) + u" to "_qs + rangeText(b);
        });
        QObject::connect(&view, &TimelineView::markerEdited, &view, [this](const MarkerEdit& edit) {
            const auto text = [](const std::optional<TimelineMarker>& marker) {
                return marker ? marker->name + u'@' + QString::number(marker->frame) : u"-"_qs;
            };
            told << text(edit.before) + u" to "_qs + text(edit.after);
        });
    }

    /// In the labels, the playback range or the markers: a share of the height.
    QPoint at(int frame, double share) const
    {
        return {view.mapFromScene(frame, 0.0).x(), static_cast<int>(share * view.height())};
    }
    void drag(QPoint from, QPoint to)
    {
        pointer.press(from);
        pointer.dragTo(to, 7);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(&view, key, held);
    }
    void doubleClick(QPoint place)
    {
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    static QString rangeText(std::pair<int, int> range)
    {
        return u"%1-%2"_qs.arg(range.first).arg(range.second);
    }
    QString playback() const
    {
        return rangeText({scene->getPlaybackStartFrame(), scene->getPlaybackEndFrame()});
    }
    QString takeTold() { return std::exchange(told, {}).join(u", "); }

    static constexpr double kLabels = 0.1;
    static constexpr double kRange = 0.6;
    static constexpr double kMarkers = 0.8;
    TimelineView view;
    TimelineScene* scene = view.getTimelineScene();
    FakePointer pointer;
    QStringList told;
};

} // namespace

class TimelineViewTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theThumbMovesByWholeFramesAndDoesNotEcho()
    {
        QGraphicsScene scene;
        auto* const thumb = new TimeThumb(true);
        scene.addItem(thumb);
        QSignalSpy told(thumb, &TimeThumb::timeChangedSignal);
        thumb->setCurrentFrame(10);
        thumb->setPos(10.5, 7.0);
        QCOMPARE(thumb->pos(), QPointF(10.0, 0.0));
        QVERIFY(told.isEmpty());
        thumb->setPos(10.6, 0.0);
        thumb->setPos(-2.5, 0.0);
        QCOMPARE(told, (QList<QVariantList>{{11}, {-3}}));
        for (const double time : {12.5, 13.0, qQNaN(), qInf()}) {
            thumb->externalTimeChangeSlot(time);
            thumb->setPos(qQNaN(), 0.0);
            QCOMPARE(thumb->x(), 13.0);
        }
        QCOMPARE(told.size(), 2);
        connect(thumb, &TimeThumb::timeChangedSignal, thumb, [thumb](int frame) {
            thumb->setCurrentFrame(std::min(frame, 20)); // a host that limits it
        });
        thumb->setX(25.0);
        QCOMPARE(thumb->x(), 20.0);
        thumb->fitTo(20.0, 1.0);
        QCOMPARE(thumb->shape().boundingRect(), QRectF(-0.35, 12.0, 0.7, 9.0));
        QCOMPARE(thumb->boundingRect(), QRectF(-25.35, -13.0, 50.7, 59.0));
    }

    void aBookendWritesItsFrameAndReportsIt()
    {
        TimelineScene scene;
        PlaybackBookend start(&scene, true, true);
        scene.setFrameRange(0, 100);
        scene.setPlaybackRange(10, 50);
        QSignalSpy told(&start, &PlaybackBookend::changedTime);
        start.setFrame(10);
        start.setFrame(50);
        start.setFrame(50);
        scene.setPlaybackRange(5, 50); // by the host, so that 49 is not its frame any more
        start.setFrame(49);
        QCOMPARE(told, (QList<QVariantList>{{49}, {49}}));
        QCOMPARE(scene.getPlaybackStartFrame(), 49);
        QSignalSpy repaints(&scene, &QGraphicsScene::changed);
        start.setHoverState(false);
        QCoreApplication::processEvents();
        repaints.clear();
        start.setHoverState(true);
        start.setHoverState(true);
        QTRY_COMPARE(repaints.size(), 1);
    }

    void theRulerIsInStepWithTheEditorToThePixel()
    {
        TimeEditorView editor;
        editor.setup(new TimeEditorScene(&editor, QRect(0, 0, 1000, 440)));
        editor.setFrameRange(-40, 1000);
        editor.setPlaybackRange(0, 100'000);
        editor.resize(700, 150);
        editor.show();
        Ruler ruler;
        ruler.view.setEditor(&editor);
        const auto isInStep = [&] {
            for (const int frame : {-40, 0, 1, 333, 1000}) {
                if (editor.mapFromScene(frame, 0).x() != ruler.view.mapFromScene(frame, 0).x()) {
                    return false;
                }
            }
            return true;
        };
        for (double scale = 1.5; scale > 1e-5; scale *= 0.61) {
            editor.setScale(scale);
            QVERIFY(isInStep());
            editor.setCurrentFrame(777);
            editor.horizontalScrollBar()->setValue(editor.horizontalScrollBar()->value() / 3 + 1);
            QVERIFY(isInStep());
        }
        editor.fitTimelineInView();
        QVERIFY(isInStep());
        editor.fitRect({0.0, 0.0, 5000.0, 1.0}); // wider than the scene, and without a signal
        editor.resize(500, 150);
        QTRY_VERIFY(isInStep());
        editor.fitRect({300.0, 0.0, 60.0, 1.0});
        QTRY_VERIFY(isInStep());
        const double before = ruler.view.pixelsPerFrame();
        const double frame = ruler.view.mapToScene(200, 0).x();
        editor.verticalScrollBar()->setValue(90);
        for (int i = 0; i < 9; ++i) {
            ruler.view.zoomAt(1.2, 200);
            QVERIFY(isInStep());
        }
        QVERIFY(std::abs(ruler.view.pixelsPerFrame() / before - std::pow(1.2, 9)) < 1e-6);
        QVERIFY(std::abs(ruler.view.mapFromScene(frame, 0.0).x() - 200) <= 1);
        QCOMPARE(editor.verticalScrollBar()->value(), 90); // the rows stay
        ruler.view.fitFrameRange();
        QCOMPARE(editor.verticalScrollBar()->value(), 90);
    }

    void theWheelZoomsAboutThePointerAndScrolls()
    {
        Ruler ruler;
        const auto wheel = [&](int x, QPoint angle, Qt::KeyboardModifiers held) {
            turnWheel(*ruler.view.viewport(), {x, 5}, angle, held);
        };
        QVERIFY(ruler.at(0, 0.0).x() > 0 && ruler.at(100, 0.0).x() < 1000); // all in sight
        const double before = ruler.view.pixelsPerFrame();
        const double frame = ruler.view.mapToScene(700, 0).x();
        for (int i = 0; i < 8; ++i) {
            wheel(700, {0, 120}, Qt::ControlModifier);
        }
        QVERIFY(ruler.view.pixelsPerFrame() > 4.0 * before);
        QCOMPARE(ruler.view.mapFromScene(frame, 0.0).x(), 700);
        wheel(10, {0, -120}, Qt::NoModifier);
        QCOMPARE(ruler.view.mapFromScene(frame, 0.0).x(), 652);
        for (int i = 0; i < 120; ++i) {
            wheel(10, {0, 1}, Qt::NoModifier); // a fine one gets as far
        }
        QCOMPARE(ruler.view.mapFromScene(frame, 0.0).x(), 700);
        for (const double factor : {0.0, -1.0, qQNaN(), qInf(), 1e300, 1e300, 1e-300}) {
            ruler.view.zoomAt(factor, 0);
            QVERIFY(ruler.view.pixelsPerFrame() > 0.3 && ruler.view.pixelsPerFrame() <= 1e6);
        }
    }

    void aPressSeeksAndADragScrubs()
    {
        Ruler ruler;
        ruler.drag(ruler.at(30, ruler.kLabels), ruler.at(31, ruler.kLabels));
        QVERIFY(ruler.view.isScrubbing());
        ruler.pointer.release();
        QCOMPARE(ruler.takeTold(), u"scrub, 30, 31, rest"_qs);
        const QPoint thumb = ruler.at(31, 0.42);
        ruler.drag(thumb + QPoint(4, 0), thumb + QPoint(5, 0)); // held beside its middle
        ruler.pointer.drop(ruler.at(33, ruler.kLabels) + QPoint(4, 0), 100);
        QCOMPARE(ruler.takeTold(), u"scrub, 33, rest"_qs);
        ruler.drag(ruler.at(90, ruler.kLabels), ruler.at(120, ruler.kLabels));
        QCOMPARE(ruler.view.currentFrame(), 100);
        ruler.key(Qt::Key_Escape);
        QCOMPARE(ruler.view.currentFrame(), 33);
        QVERIFY(ruler.takeTold().endsWith(u"100, 33, rest"_qs));
        ruler.pointer.drop(ruler.at(50, ruler.kLabels));
        QVERIFY(ruler.takeTold().isEmpty());
        ruler.view.zoomAt(1.2, 0);
        ruler.drag(ruler.at(2, ruler.kLabels), QPoint(999, 5)); // a screen's edge has no beyond
        QCOMPARE(FakeClock(&ruler.view).fireTimers(30), 1);
        ruler.key(Qt::Key_Escape);
        QCOMPARE(FakeClock(&ruler.view).fireTimers(30), 0);
        ruler.pointer.release();
        ruler.drag(ruler.at(2, ruler.kLabels), QPoint(999, 5));
        QTRY_COMPARE(ruler.view.currentFrame(), 100);
        ruler.pointer.release();
        ruler.takeTold();
        ruler.view.setCurrentFrame(70);
        QVERIFY(ruler.takeTold().isEmpty());
    }

    void theTimeLineScrollsUntilItIsTakenBack()
    {
        TimeEditorView view;
        view.setup(new TimeEditorScene(&view, QRect(0, 0, 1000, 44), true));
        view.setTransform(QTransform::fromScale(4.0, 1.0));
        view.resize(400, 100);
        showActive(view);
        FakePointer pointer(view.viewport());
        pointer.press(view.mapFromScene(0.5, 10.0));
        pointer.dragTo({view.width() + 40, 20}, 20);
        for (const bool scrolls : {true, false}) {
            const int before = view.horizontalScrollBar()->value();
            FakeClock(&view).advanceAnimations(200);
            QCOMPARE(view.horizontalScrollBar()->value() != before, scrolls);
            QTest::keyClick(&view, Qt::Key_Escape);
        }
    }

    void bookendsAndTheirRangeAreDragged()
    {
        Ruler ruler;
        const double y = ruler.kRange;
        const auto drag = [&](int from, int to) {
            ruler.drag(ruler.at(from, y), ruler.at(to, y));
            ruler.pointer.release();
        };
        drag(20, 30);
        QCOMPARE(ruler.takeTold(), u"20-60 to 30-60"_qs);
        drag(60, 5);
        QCOMPARE(ruler.takeTold(), u"30-60 to 30-31"_qs);
        drag(31, 70);
        drag(50, 75);
        QCOMPARE(ruler.playback(), u"55-95"_qs);
        drag(75, 22);
        QCOMPARE(ruler.playback(), u"2-42"_qs);
        ruler.takeTold();
        ruler.drag(ruler.at(20, y), ruler.at(70, y));
        QCOMPARE(ruler.playback(), u"52-92"_qs);
        ruler.key(Qt::Key_Escape);
        ruler.pointer.release();
        QCOMPARE(ruler.playback(), u"2-42"_qs);
        ruler.drag(ruler.at(42, y), ruler.at(42, y) + QPoint(3, 0)); // a click that trembles
        ruler.pointer.release();
        QVERIFY(ruler.takeTold().isEmpty());
        ruler.doubleClick(ruler.at(20, y));
        QCOMPARE(ruler.takeTold(), u"2-42 to 0-100"_qs);
    }

    void markersAreMadeNamedMovedAndRemoved()
    {
        Ruler ruler;
        const auto edit = [&] { return ruler.view.findChild<QLineEdit*>(); };
        ruler.doubleClick(ruler.at(40, ruler.kMarkers));
        QVERIFY(ruler.view.isRenaming() && std::abs(edit()->x() - ruler.at(40, 0.0).x()) < 10);
        QTest::keyClicks(edit(), u"Jump"_qs);
        QTest::keyClick(edit(), Qt::Key_Return);
        QVERIFY(!ruler.view.isRenaming() && ruler.view.hasFocus());
        QCOMPARE(ruler.takeTold(), u"- to @40, @40 to Jump@40"_qs);
        QTRY_VERIFY(!edit());
        ruler.key(Qt::Key_F2);
        QTest::keyClicks(edit(), u"Fall"_qs);
        QTest::keyClick(edit(), Qt::Key_F2); // the ruler's, but not now
        QTest::keyClick(edit(), Qt::Key_Escape);
        QVERIFY(!ruler.view.isRenaming());
        ruler.drag(ruler.at(40, ruler.kMarkers), ruler.at(70, ruler.kMarkers));
        ruler.pointer.release();
        QCOMPARE(ruler.takeTold(), u"Jump@40 to Jump@70"_qs);
        ruler.drag(ruler.at(70, ruler.kMarkers), ruler.at(10, ruler.kMarkers));
        QCOMPARE(ruler.scene->markers().front().frame, 10);
        ruler.key(Qt::Key_Escape);
        ruler.pointer.release();
        ruler.key(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
        QCOMPARE(ruler.takeTold(), u"Jump@70 to Jump@60"_qs);
        ruler.view.setCurrentFrame(5);
        ruler.key(Qt::Key_M);
        ruler.key(Qt::Key_M); // there is one already
        ruler.key(Qt::Key_Right, Qt::ControlModifier);
        ruler.key(Qt::Key_Delete);
        QCOMPARE(ruler.takeTold(), u"- to @5, 60, Jump@60 to -"_qs);
        const int left = ruler.scene->markers().front().id;
        ruler.view.renameMarker(left);
        QTest::keyClicks(QApplication::focusWidget(), u"Run"_qs);
        ruler.view.renameMarker(left); // what was typed counts
        QCOMPARE(ruler.takeTold(), u"@5 to Run@5"_qs);
        ruler.scene->setMarkers({{left, 5, 0, u" two\nlines "_qs, {}}}); // by the host, meanwhile
        ruler.view.renameMarker(left);
        ruler.view.finishGesture(); // nothing was typed
        QVERIFY(ruler.takeTold().isEmpty());
        ruler.view.renameMarker(left);
        ruler.scene->setMarkers({});
        QVERIFY(!ruler.view.isRenaming());
        ruler.scene->setMarkers({{3, 7, 0, {}, {}}, {3, 1, 0, {}, {}}, {kMost, 9, 0, {}, {}}});
        QCOMPARE(ruler.scene->addMarker(4), 2);
    }

    void theMenuIsAboutWhatIsUnderThePointer()
    {
        Ruler ruler;
        const int id = ruler.scene->addMarker(40, u"Jump"_qs);
        const auto choose = [&](QPoint place, const QString& text) {
            return chooseInMenu(ruler.view.viewport(), place, text);
        };
        const QPoint marker = ruler.at(40, ruler.kMarkers);
        QVERIFY(choose(marker, u"Green"_qs));
        QCOMPARE(ruler.scene->marker(id)->color, ui::colorQt(u"Green"_qs));
        QVERIFY(choose(ruler.at(70, ruler.kLabels), u"End Playback Here"_qs));
        QCOMPARE(ruler.playback(), u"20-70"_qs);
        QVERIFY(!choose(ruler.at(70, ruler.kLabels), u"Remove Marker"_qs)); // not offered there
        QVERIFY(choose(marker, u"Remove Marker"_qs) && !ruler.scene->marker(id));
        QVERIFY(choose(marker, u"Show Time Code"_qs));
        QCOMPARE(ruler.scene->frameText(31), u"00:00:01:01"_qs);
        QTRY_VERIFY(!ruler.view.findChild<ContextMenu*>());
    }

    void keysStepJumpAndSetTheRange()
    {
        Ruler ruler;
        ruler.view.setCurrentFrame(98);
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_I, Qt::Key_Home, Qt::Key_O, Qt::Key_End}) {
            ruler.key(key);
        }
        ruler.key(Qt::Key_Right, Qt::ShiftModifier);
        ruler.key(Qt::Key_M, Qt::ControlModifier); // somebody else's
        ruler.key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(ruler.takeTold(), u"99, 20-60 to 59-60, 59, 60, 70, 0"_qs);
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(&ruler.view, &escape);
        QVERIFY(!escape.isAccepted());
    }

    void shiftSnapsToWhatIsNear()
    {
        Ruler ruler;
        TimeEditorView editor;
        editor.setup(new TimeEditorScene(&editor, QRect(0, 0, 100, 44)));
        editor.resize(1000, 100);
        editor.setFrameRange(0, 100);
        editor.setPlaybackRange(0, 100);
        auto* const row = new TimeEditorCurveItem(&editor);
        row->addKeyframe(80);
        editor.getEditorScene()->addLayoutItem(row);
        editor.setScale(1.0);
        ruler.view.setEditor(&editor);
        ruler.scene->addMarker(40);
        ruler.pointer.setModifiers(Qt::ShiftModifier);
        ruler.drag(ruler.at(37, ruler.kLabels), ruler.at(83, ruler.kLabels));
        QVERIFY(ruler.told.contains(u"40"_qs) && !ruler.told.contains(u"41"_qs));
        QCOMPARE(ruler.view.currentFrame(), 80); // a key of the editor's
        ruler.pointer.dragTo(ruler.at(71, ruler.kLabels));
        QCOMPARE(ruler.view.currentFrame(), 71); // away from all
        ruler.pointer.release();
        ruler.drag(ruler.at(30, ruler.kRange), ruler.at(39, ruler.kRange));
        QCOMPARE(ruler.playback(), u"31-71"_qs); // its nearer end at the playhead
        ruler.pointer.release();
    }

    void whateverTakesTheMouseAwayEndsTheDrag()
    {
        const std::function<void(Ruler&)> doors[] = {
            [](Ruler& ruler) { ruler.view.hide(); },
            [](Ruler& ruler) { ruler.view.setEnabled(false); },
            [](Ruler& ruler) { ruler.view.clearFocus(); },
            [](Ruler& ruler) { ruler.view.finishGesture(); },
            [](Ruler& ruler) {
                const QPointF at(5, 5); // released elsewhere
                QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, {}, {});
                QCoreApplication::sendEvent(ruler.view.viewport(), &move);
            }};
        for (const auto& open : doors) {
            Ruler ruler;
            ruler.drag(ruler.at(20, ruler.kRange), ruler.at(30, ruler.kRange));
            QVERIFY(QGuiApplication::overrideCursor());
            open(ruler);
            QVERIFY(!QGuiApplication::overrideCursor());
            QVERIFY(!ruler.view.getLeftBookend()->isHovered());
            QCOMPARE(ruler.takeTold(), u"20-60 to 30-60"_qs);
        }
        Ruler ruler;
        for (const int door : {1, 0}) { // nor does the light stay where nothing is dragged
            ruler.view.setEnabled(true);
            ruler.pointer.moveTo(ruler.at(20, ruler.kRange) + QPoint(door, 0));
            QVERIFY(ruler.view.getLeftBookend()->isHovered());
            doors[door](ruler);
            QVERIFY(!ruler.view.getLeftBookend()->isHovered());
        }
    }

    void slotsMayEndADragOrDeleteTheRuler()
    {
        Ruler ruler;
        ruler.view.zoomAt(2.0, 0);
        connect(&ruler.view, &TimelineView::viewRectChanged, &ruler.view, [&ruler] {
            ruler.view.finishGesture();
        });
        ruler.drag(ruler.at(2, ruler.kLabels), QPoint(1060, 5)); // beyond the edge
        QTRY_VERIFY(!ruler.view.isScrubbing());
        const std::pair<Qt::Key, Qt::KeyboardModifier> keys[] = {
            {Qt::Key_Right, Qt::NoModifier},
            {Qt::Key_Right, Qt::ControlModifier},
            {Qt::Key_Right, Qt::AltModifier},
            {Qt::Key_M, Qt::NoModifier},
            {Qt::Key_Delete, Qt::NoModifier},
            {Qt::Key_I, Qt::NoModifier}};
        int deleted = 0;
        for (const auto& [key, modifiers] : keys) {
            for (int signal = 0; signal < 5; ++signal) {
                const QPointer<TimelineView> view(new TimelineView);
                TimelineScene* const scene = view->getTimelineScene();
                scene->setPlaybackRange(20, 60);
                scene->addMarker(20);
                scene->setSelectedMarker(scene->addMarker(40));
                const auto close = [view] { delete view.data(); };
                switch (signal) {
                case 0: connect(view, &TimelineView::frameChanged, qApp, close); break;
                case 1: connect(view, &TimelineView::markerEdited, qApp, close); break;
                case 2: connect(scene, &TimelineScene::markersChanged, qApp, close); break;
                case 3: connect(scene, &TimelineScene::selectedMarkerChanged, qApp, close); break;
                default: connect(scene, &TimelineScene::playbackRangeChanged, qApp, close); break;
                }
                QKeyEvent press(QEvent::KeyPress, key, modifiers);
                QCoreApplication::sendEvent(view, &press);
                deleted += view ? 0 : 1;
                delete view.data();
            }
        }
        QCOMPARE(deleted, 12);
    }

    void slotsMayDeleteTheRulerThatScrolls()
    {
        const std::function<void(TimelineView&, TimeEditorView&)> moves[] = {
            [](auto& ruler, auto&) { ruler.zoomAt(2.0, 10); },
            [](auto& ruler, auto&) { ruler.resize(700, 50); },
            [](auto&, TimeEditorView& editor) {
                const QSignalBlocker quiet(&editor); // only its picture tells
                editor.setTransform(QTransform::fromScale(17.0, 1.0));
                editor.viewport()->grab();
            }};
        for (const auto& move : moves) {
            TimeEditorView editor;
            editor.setup(new TimeEditorScene(&editor, QRect(0, 0, 100, 44)));
            const QPointer<TimelineView> ruler(new TimelineView);
            ruler->setEditor(&editor);
            ruler->show();
            QCoreApplication::processEvents();
            connect(ruler, &TimelineView::viewRectChanged, qApp, [ruler] { delete ruler.data(); });
            move(*ruler, editor);
            QTRY_VERIFY(!ruler);
        }
        const QPointer<TimeEditorView> closing(new TimeEditorView);
        connect(closing, &TimeEditorView::scaleChanged, qApp, [closing] { delete closing.data(); });
        TimelineView left;
        left.setEditor(closing);
        left.zoomAt(2.0, 10);
        QVERIFY(!closing && left.pixelsPerFrame() > 0.0);
    }

    void aHundredTicksPaintOnceAndRestPaintsNothing()
    {
        Ruler ruler;
        PaintCounter paints(ruler.view.viewport());
        paints.take();
        for (int frame = 1; frame <= 100; ++frame) {
            ruler.view.setCurrentFrame(frame);
        }
        QCOMPARE(paints.take(), 1);
        QCOMPARE(paints.take(), 0);
    }

    void theRulerShowsItsPartsInTheThemesColours()
    {
        Ruler ruler;
        ruler.view.setCurrentFrame(50);
        const QImage picture = ruler.view.viewport()->grab().toImage();
        const auto colorAt = [&](int frame, double share) {
            const double x = ruler.view.viewportTransform().map(QPointF(frame, 0.0)).x();
            return pixelAt(
                picture, QPointF(x + (share < 0.9 ? 2 : 0), share * ruler.view.height()));
        };
        QCOMPARE(colorAt(50, 0.95), ui::colorQt(u"Accent5"_qs));
        QCOMPARE(colorAt(50, 0.4), ui::colorQt(u"Accent5"_qs)); // the thumb
        QCOMPARE(colorAt(10, 0.95), ui::colorQt(u"WindowBase"_qs));
        QCOMPARE(colorAt(20, ruler.kRange), ui::colorQt(u"Accent1"_qs));
        QVERIFY(colorAt(40, ruler.kRange) != colorAt(80, ruler.kRange));
        ruler.view.setFrameRange(-200, -100); // signs stay before their numbers
        const QImage leftToRight = ruler.view.viewport()->grab().toImage();
        ruler.view.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(ruler.view.viewport()->grab().toImage(), leftToRight);
    }

    void assistiveToolsReadAndSetTheFrame()
    {
        Ruler ruler;
        QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&ruler.view);
        QAccessibleValueInterface* const value = reader->valueInterface();
        QCOMPARE(reader->text(QAccessible::Name), u"Timeline"_qs);
        value->setCurrentValue(42.0);
        QCOMPARE(ruler.takeTold(), u"42"_qs);
        QCOMPARE(value->currentValue().toInt(), 42);
        QCOMPARE(value->maximumValue().toInt(), 100);
        ruler.scene->setShowsTimeCode(true);
        QCOMPARE(reader->text(QAccessible::Value), u"00:00:01:12"_qs);
    }

    /// Whatever ranges, rates and zooms a host has, and a user does with them.
    void nothingIsTooWild()
    {
        Ruler ruler;
        std::mt19937 random(20261122);
        const auto any = [&](int most) { return static_cast<int>(random() % unsigned(most)); };
        const int frames[] = {kLeast, kLeast + 1, -7, 0, 1, 100, 1'000'000, kMost - 1, kMost};
        const double numbers[] = {0.0, -24.0, qQNaN(), qInf(), 1e-300, 24.0, 29.97, 1e12};
        const QString endless(3'000'000, u'x');
        const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_I, Qt::Key_O, Qt::Key_M, Qt::Key_Escape};
        const auto frame = [&] { return frames[any(std::size(frames))]; };
        const auto number = [&] { return numbers[any(std::size(numbers))]; };
        const auto place = [&] { return QPoint(any(1100) - 50, any(ruler.view.height())); };
        for (int step = 0; step < 1500; ++step) {
            switch (any(12)) {
            case 0:
                ruler.view.setFrameRange(frame(), frame());
                ruler.view.fitFrameRange();
                break;
            case 1: ruler.view.setPlaybackRange(frame(), frame()); break;
            case 2: ruler.view.setCurrentFrame(frame()); break;
            case 3: ruler.scene->setFramesPerSecond(number()); break;
            case 4: ruler.scene->setShowsTimeCode(any(2) == 0); break;
            case 5: ruler.view.zoomAt(any(2) == 0 ? number() : 0.5 + any(3), any(1000)); break;
            case 6: ruler.scene->addMarker(frame(), any(9) ? u"a\nname"_qs : endless); break;
            case 7: ruler.drag(place(), place()); break;
            case 8: ruler.pointer.dragTo(place(), 400); break;
            case 9: ruler.pointer.release(); break;
            case 10: ruler.key(keys[any(std::size(keys))]); break;
            default: ruler.view.viewport()->grab(); break;
            }
            QVERIFY(std::isfinite(ruler.view.mapToScene(0, 0).x()));
            QCOMPARE(ruler.view.getTimeWidget()->x(), ruler.view.currentFrame());
        }
    }
};

const ui::test::Registration<TimelineViewTest> kRegistration;

#include "tst_timelineview.moc"

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/playbackrules.h"
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

using ui::FrameRange;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

/// A clock of ten frames a second whose time the test sets.
struct DrivenClock
{
    double now = 1000.0;
    PlaybackClock clock{[this] { return now; }};
    QList<int> shown;

    DrivenClock()
    {
        clock.setTrack(0, 99, 10);
        QObject::connect(&clock, &PlaybackClock::frameChanged, &clock, [this](int frame) {
            shown.append(frame);
        });
    }

    void passTo(double seconds)
    {
        now = 1000.0 + seconds;
        ui::test::FakeClock(&clock).fireTimers(std::numeric_limits<int>::max());
    }

    QTimer& timer() { return *clock.findChild<QTimer*>(); }
    bool timerRuns() { return timer().isActive(); }
};

void enter(QWidget& field, const QString& text)
{
    field.clearFocus();
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, Qt::Key_Return);
}

} // namespace

class PlaybackTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesFollowTimeAndLoopAndTheOutPointIsNone()
    {
        constexpr int kLeast = std::numeric_limits<int>::min();
        constexpr int kMost = std::numeric_limits<int>::max();
        const FrameRange range{0, 89};
        const std::tuple<double, ui::PlaybackRun, int> cases[] = {
            {0.999, {range, 30, 0}, 29},
            {7 / 29.97, {range, 29.97, 0}, 7}, // a millionth of a frame is rounding
            {3, {range, 30, 0}, 0},
            {1, {range, 30, 80}, 20},
            {1, {range, 30, 80, false}, 89},
            {1.7, {{-5, 4}, 10, 0}, -3},
            {1, {{kLeast, kMost}, 2, kMost}, kLeast + 1},
            {0, {range, 60, 100}, 100}, // outside comes before the first
            {0.1, {{20, 29}, 10, 5}, 20},
            {0.2, {{20, 29}, 10, 80, false}, 21},
            {365.0 * 86400, {range, 60, 1}, 1},
            {kInf, {range, 60, 0}, 0},
            {-5, {range, 60, 3}, 3},
            {std::nan(""), {range, 60, 3}, 3}};
        for (const auto& [seconds, run, expected] : cases) {
            QCOMPARE(ui::frameAfter(run, ui::framesPassed(run, seconds)), expected);
        }
        const std::tuple<ui::PlaybackRun, double, qint64, int> waits[] = {
            {{range, 10}, 0.25, 2, 50},
            {{range, 10}, 5, 2, 1}, // late
            {{range, 10}, std::nan(""), 2, 100},
            {{range, 1e-9}, 0, 0, 3600000},
            {{range, 0}, 0, 0, -1},
            {{{4, 4}, 10, 4}, 0, 0, -1}, // nothing follows
            {{{4, 4}, 10, 5}, 0, 0, 100}};
        for (const auto& [run, seconds, passed, expected] : waits) {
            QCOMPARE(ui::waitForNextFrame(run, seconds, passed).value_or(-1), expected);
        }
        QCOMPARE(ui::wholeFrames(-2.5, 89.5), FrameRange(-2, 89));
        QCOMPARE(ui::wholeFrames(2.0000001, 90.0000001), FrameRange(2, 89)); // rounding
        QCOMPARE(ui::wholeFrames(std::nan(""), 2.5), FrameRange(0, 2));
        QCOMPARE(ui::wholeFrames(3.2, 3.6), FrameRange(4, 4)); // between two frames
        QCOMPARE(ui::wholeFrames(-kInf, 1e300), FrameRange(kLeast, kMost));

        const QLocale english(QLocale::English, QLocale::UnitedStates);
        const QLocale german(QLocale::German, QLocale::Germany);
        QCOMPARE(ui::timeText(3661 * 25 + 1, 25, german), u"61:01,04"_qs);
        QCOMPARE(ui::timeText(-1, 1, english), u"-0:01.00"_qs);
        QCOMPARE(ui::timeText(-1, 0, english), u"0:00.00"_qs);
        QCOMPARE(ui::rateText(std::nan(""), english), u"0 fps"_qs);
        QCOMPARE(ui::rateText(29.9700012207031, german), u"29,97 fps"_qs);
    }

    void aLateTickDropsFramesAndKeepsTheTime()
    {
        DrivenClock driven;
        driven.clock.play();
        driven.passTo(0.11);
        driven.passTo(0.19); // within the same frame
        driven.passTo(0.2);
        QCOMPARE(driven.clock.droppedFrames(), 0);
        driven.passTo(0.75);
        QCOMPARE(driven.shown, QList<int>({1, 2, 7}));
        QCOMPARE(driven.clock.droppedFrames(), 4);
        driven.clock.setLooping(false);
        driven.clock.seek(97);
        driven.passTo(60); // there is but one between
        QCOMPARE(driven.clock.droppedFrames(), 5);
    }

    void aTimeThatLeapsPlaysOnFromTheFrameShown()
    {
        for (const double leap : {-700.0, std::nan(""), kInf}) {
            DrivenClock driven;
            driven.clock.play();
            driven.passTo(0.75);
            driven.passTo(leap);
            QCOMPARE(driven.timer().interval(), 100);
            driven.passTo(-700);
            driven.passTo(-699.9);
            QCOMPARE(driven.shown, QList<int>({7, 8}));
            driven.clock.setTime([&driven] { return driven.now * 2; });
            driven.passTo(-699.85);
            QCOMPARE(driven.clock.frame(), 9);
        }
    }

    void whatLeavesTheFrameDoesNotHoldUpPlaying()
    {
        DrivenClock driven;
        PlaybackClock& clock = driven.clock;
        clock.play();
        driven.now += 0.02;
        clock.setRate(10);
        clock.setLooping(false);
        driven.now += 0.02;
        clock.setPlaybackRange(0, 50);
        clock.setFrameRange(0, 120);
        clock.seek(0);
        QVERIFY(driven.timer().interval() <= 61);
        driven.passTo(0.15);
        clock.setRate(20); // half of a frame is left
        driven.passTo(0.18);
        QCOMPARE(driven.shown, QList<int>({1, 2}));
        clock.setRate(0);
        QVERIFY(!clock.isPlaying() && !driven.timerRuns());
    }

    void playingGoesOnFromWhereItWasSoughtAndSteppingEndsIt()
    {
        DrivenClock driven;
        PlaybackClock& clock = driven.clock;
        clock.toggle();
        clock.toggle();
        QVERIFY(!driven.timerRuns());
        clock.toggle();
        QVERIFY(driven.timerRuns());
        driven.passTo(0.5);
        clock.seek(50);
        driven.passTo(0.7);
        QVERIFY(clock.frame() == 52 && clock.isPlaying());
        clock.seek(1000); // is 99
        driven.passTo(0.8);
        QCOMPARE(clock.frame(), 0);
        clock.setFrameRange(3, 7);
        QVERIFY(clock.frame() == 3 && clock.playbackRange() == FrameRange(3, 7));
        clock.setFrameRange(3, 2);
        QCOMPARE(clock.frameRange(), FrameRange(3, 7));

        clock.setTrack(-3, 3, 25);
        QVERIFY(!clock.isPlaying() && !driven.timerRuns() && clock.frame() == -3);
        clock.play();
        clock.step(-1);
        QVERIFY(!clock.isPlaying() && clock.frame() == 3);
        clock.step(17);
        QCOMPARE(clock.frame(), -1);
        clock.setTrack(0, 99, std::nan("")); // never leaves a frame
        clock.play();
        QVERIFY(!clock.isPlaying() && !driven.timerRuns());
    }

    void aPartIsPlayedOverAndOver()
    {
        DrivenClock driven;
        PlaybackClock& clock = driven.clock;
        const QSignalSpy jumps(&clock, &PlaybackClock::jumped);
        clock.setPlaybackRange(20, 29);
        clock.seek(95);
        clock.play(); // outside: from its beginning
        driven.passTo(0.9);
        driven.passTo(1.0);
        QCOMPARE(driven.shown, (QList<int>{95, 20, 29, 20}));
        QCOMPARE(jumps.count(), 3); // not to 29
        clock.setLooping(false);
        driven.passTo(2.5);
        QVERIFY(clock.frame() == 29 && !clock.isPlaying() && !driven.timerRuns());
        clock.play(); // at the end: from the beginning
        QCOMPARE(clock.frame(), 20);
        clock.setPlaybackRange(-5, 300); // held within the track
        QCOMPARE(clock.playbackRange(), clock.frameRange());
        clock.setPlaybackRange(20, 29);
        clock.setFrameRange(40, 90); // none of it is left
        QCOMPARE(clock.playbackRange(), FrameRange(40, 90));
    }

    void aSlotHasTheLastWord()
    {
        DrivenClock driven;
        connect(&driven.clock, &PlaybackClock::playingChanged, &driven.clock, [&](bool plays) {
            driven.clock.seek(plays ? 40 : 50);
        });
        driven.clock.seek(99);
        driven.clock.setLooping(false);
        driven.clock.play();
        driven.clock.step(1);
        QCOMPARE(driven.shown, (QList<int>{99, 40, 50}));
        DrivenClock strict;
        connect(
            &strict.clock, &PlaybackClock::playbackRangeChanged, this, [&](int first, int last) {
                strict.clock.setPlaybackRange(first, qMax(first + 10, last));
            });
        connect(&strict.clock, &PlaybackClock::frameChanged, this, [&](int frame) {
            strict.clock.seek(frame + frame % 2);
        });
        DopeSheetPane pane; // is told after them
        FrameSlider slider;
        pane.setClock(&strict.clock);
        slider.setClock(&strict.clock);
        const TimelineScene& time = *pane.ruler().getTimelineScene();
        const std::pair<FrameRange, FrameRange> ranges[] = {
            {{0, 5}, {0, 10}}, {{90, 200}, {90, 99}}, {{30, 20}, {90, 99}}, {{30, 32}, {30, 40}}};
        for (const auto& [wanted, expected] : ranges) {
            pane.ruler().setPlaybackRange(wanted.first, wanted.second);
            const FrameRange shown(time.getPlaybackStartFrame(), time.getPlaybackEndFrame());
            QVERIFY(shown == expected && shown == strict.clock.playbackRange());
        }
        strict.clock.seek(7);
        QVERIFY(pane.currentFrame() == 8 && slider.value() == 8);
        slider.setValue(11);
        QVERIFY(pane.view().frameNumber() == 12 && slider.value() == 12);

        auto* const clock = new PlaybackClock;
        connect(clock, &PlaybackClock::trackChanged, clock, [clock] { delete clock; });
        clock->setTrack(5, 9, 10);
    }

    void aPressOnTheSliderSeeksAndPauses()
    {
        DrivenClock driven;
        QWidget window;
        window.setLayoutDirection(Qt::RightToLeft); // time goes on as before
        FrameSlider slider(&window);
        slider.setClock(&driven.clock);
        slider.resize(400, 30);
        TransportActions actions;
        actions.setClock(&driven.clock);
        window.addActions(actions.actions()); // which have fewer rights than the focus
        ui::test::showActive(window);
        driven.clock.seek(20);
        driven.clock.play();
        ui::test::FakePointer pointer(&slider);
        const auto at = [&](double share) { return QPoint(qRound(share * 400), 15); };
        pointer.press(at(0.5));
        QVERIFY(!driven.clock.isPlaying() && qAbs(driven.clock.frame() - 50) <= 1);
        pointer.dragTo(at(1.2), 100);
        QCOMPARE(driven.clock.frame(), 99);
        QTest::keyClick(&window, Qt::Key_Escape);
        QCOMPARE(driven.clock.frame(), 20);
        pointer.moveTo(at(0.7)); // is over
        pointer.release();
        QCOMPARE(driven.clock.frame(), 20);
        pointer.press(at(0.5));
        slider.hide(); // as is this one
        slider.show();
        pointer.release();
        pointer.moveTo(at(0.9));
        QVERIFY(!slider.isSliderDown() && driven.clock.frame() < 60);
        driven.clock.seek(30);
        const std::pair<Qt::Key, int> keys[] = {
            {Qt::Key_Right, 31}, {Qt::Key_PageUp, 41}, {Qt::Key_End, 99}, {Qt::Key_Right, 99}};
        for (const auto& [key, frame] : keys) {
            QTest::keyClick(&slider, key);
            QCOMPARE(driven.clock.frame(), frame);
        }
        pointer.press(at(0.5));
        driven.clock.setFrameRange(0, 120); // the same document goes on
        QVERIFY(slider.isSliderDown());
        driven.clock.setTrack(0, 120, 10);
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!slider.isSliderDown() && driven.clock.frame() == 0);
        pointer.release();
    }

    void theRulersTimeIsTheClocks()
    {
        DrivenClock driven;
        PlaybackClock other;
        DopeSheetPane pane;
        pane.resize(900, 200);
        pane.setClock(&other);
        QCOMPARE(pane.ruler().getTimelineScene()->getEndFrame(), 100); // there is no track yet
        other.setFrameRange(0, 0);                                     // which is one
        QCOMPARE(pane.ruler().getTimelineScene()->getEndFrame(), 0);
        other.setTrack(0, 9, 25);
        ValueGraphPane graph;
        graph.setClock(&driven.clock);
        pane.setClock(&driven.clock);
        ui::test::showActive(pane);
        TimelineView& ruler = pane.ruler();
        const TimelineScene& time = *ruler.getTimelineScene();
        const auto played = [&] {
            return FrameRange(time.getPlaybackStartFrame(), time.getPlaybackEndFrame());
        };
        QCOMPARE(FrameRange(time.getStartFrame(), time.getEndFrame()), FrameRange(0, 99));
        QCOMPARE(time.framesPerSecond(), 10.0);
        ruler.setPlaybackRange(20, 30);
        QCOMPARE(driven.clock.playbackRange(), FrameRange(20, 30));
        QCOMPARE(other.playbackRange(), FrameRange(0, 9));
        driven.clock.seek(42);
        QVERIFY(pane.currentFrame() == 42 && pane.view().frameNumber() == 42);
        Q_EMIT graph.view().spaceTapped();
        QVERIFY(graph.view().currentFrame() == 20 && driven.clock.isPlaying()); // what is played
        driven.clock.pause();
        QTest::keyClick(&pane.view(), Qt::Key_Space);
        QVERIFY(driven.clock.isPlaying());
        ui::test::FakePointer(ruler.viewport()).press({ruler.mapFromScene(70, 0).x(), 2});
        QVERIFY(!driven.clock.isPlaying() && driven.clock.frame() == 70);
        driven.clock.setTrack(5, 50, 24); // which ends the drag
        QVERIFY(!ruler.isScrubbing() && pane.view().frameNumber() == 5);
        QCOMPARE(graph.view().currentFrame(), 5);
        QCOMPARE(played(), FrameRange(5, 50));
    }

    void theBarEntersAndFollowsTheTime()
    {
        auto driven = std::make_unique<DrivenClock>();
        PlaybackClock& clock = driven->clock;
        TransportActions actions;
        actions.setClock(&clock);
        TransportBar bar;
        bar.addButtons(TransportBar::End::Left, actions.actions());
        auto& code = *bar.findChild<TimeCodeField*>();
        auto& frame = *bar.findChild<NumericField*>();
        const auto usableRows = [&bar] {
            ContextMenu menu;
            bar.fillMenu(menu);
            const auto rows = menu.actions();
            return std::count_if(
                rows.begin(), rows.end(), [](auto* row) { return row->isEnabled(); });
        };
        QVERIFY(!code.isEnabled() && usableRows() == 0);
        bar.setClock(&clock);
        bar.resize(bar.sizeHint());
        ui::test::showActive(bar);
        clock.seek(27);
        QCOMPARE(code.toPlainText(), u"00:00:02:07"_qs);
        enter(code, u"5:3"_qs);
        QCOMPARE(clock.frame(), 53);
        code.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&code, u"8"_qs);
        clock.setFrameRange(0, 98); // is no other document
        QVERIFY(code.isEdited());
        clock.setTrack(0, 99, 10);
        QVERIFY(!code.isEdited());
        clock.seek(99);
        enter(code, u"1:0:0"_qs); // beyond the end
        QCOMPARE(code.toPlainText(), u"00:00:09:09"_qs);
        enter(frame, u"7 / 99"_qs);
        QVERIFY(clock.frame() == 7 && frame.text() == u"7"_qs);

        const QAction& play = *actions.action(TransportActions::Play);
        QCOMPARE(play.toolTip(), u"Play (Space)"_qs);
        auto* const button = bar.findChild<QToolButton*>(); // the first frame
        QTest::mouseClick(button, Qt::LeftButton);          // which the next one goes back from
        const auto run = [&](TransportActions::Command command) {
            actions.action(command)->trigger();
            return clock.frame();
        };
        QCOMPARE(run(TransportActions::StepBack), 99);
        QCOMPARE(run(TransportActions::Loop), 99);
        QVERIFY(!clock.isLooping());
        QCOMPARE(run(TransportActions::Play), 0);
        QCOMPARE(play.toolTip(), u"Pause (Space)"_qs);
        driven->passTo(0.3);
        const auto texts = [&bar] {
            QStringList told;
            for (const QLabel* label : bar.findChildren<QLabel*>()) {
                const bool hasRoom = label->minimumWidth() >= label->sizeHint().width();
                told << (hasRoom ? label->text() : u"no room"_qs);
            }
            return told.join(u'|');
        };
        QCOMPARE(texts(), u"%1|2 dropped|%2"_qs.arg(ui::timeText(3, 10), ui::rateText(10)));

        bar.setShownParts(TransportBar::TimeCode | TransportBar::Rate);
        QVERIFY(!frame.isVisible() && code.isVisible() && usableRows() == 2);
        QCOMPARE(bar.shownParts(), TransportBar::TimeCode | TransportBar::Rate);
        bar.setShownParts(TransportBar::FrameNumber);
        QCOMPARE(usableRows(), 1); // there is nothing to type into
        actions.action(TransportActions::Loop)->setChecked(true);
        QVERIFY(clock.isLooping());
        driven.reset(); // leaves a bar that does nothing
        actions.action(TransportActions::Play)->trigger();
        QVERIFY(!code.isEnabled() && play.toolTip() == u"Play (Space)"_qs);

        auto* const owner = new TransportBar;
        owner->setClock(new PlaybackClock(owner));
        owner->addButtons(TransportBar::End::Right, {nullptr});
        delete owner; // the clock goes after what is in it
    }
};

const ui::test::Registration<PlaybackTest> kRegistration;

#include "tst_playback.moc"

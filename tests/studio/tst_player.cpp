// SPDX-License-Identifier: Apache-2.0
#include "Player.h"
#include "readouts.h"
#include "support/TestCase.h"

using namespace studio;

namespace {

/// A player of ten frames a second whose time the test sets.
struct DrivenPlayer
{
    double now = 1000.0;
    Player player{[this] { return now; }, nullptr};
    QList<int> shown;

    DrivenPlayer()
    {
        player.setTrack({0, 99}, 10);
        QObject::connect(
            &player, &Player::frameChanged, &player, [this](int frame) { shown.append(frame); });
    }

    void passTo(double seconds)
    {
        now = 1000.0 + seconds;
        ui::test::FakeClock(&player).fireTimers(std::numeric_limits<int>::max());
    }

    bool timerRuns() { return player.findChild<QTimer*>()->isActive(); }
};

} // namespace

class PlayerTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesFollowTimeAndLoopAndTheOutPointIsNone()
    {
        constexpr double kInf = std::numeric_limits<double>::infinity();
        const FrameRange range{0, 89};
        const std::tuple<double, double, FrameRange, int, int> cases[] = {
            {0.999, 30, range, 0, 29},
            {7 / 29.97, 29.97, range, 0, 7}, // a millionth of a frame is rounding
            {3, 30, range, 0, 0},
            {1, 30, range, 80, 20},
            {1.7, 10, {-5, 4}, 0, -3},
            {0, 60, range, 100, 89},
            {365.0 * 86400, 60, range, 1, 1},
            {kInf, 60, range, 0, 0},
            {-5, 60, range, 3, 3},
            {std::nan(""), 60, range, 3, 3}};
        for (const auto& [seconds, rate, frames, start, expected] : cases) {
            QCOMPARE(frameAt(seconds, rate, frames, start, true), expected);
        }
        QCOMPARE(frameRange(-2.5, 89.5), (FrameRange{-2, 89}));
        QCOMPARE(frameRange(0.5, 3), (FrameRange{1, 2}));
        QCOMPARE(frameRange(3.2, 3.6), (FrameRange{4, 4})); // between two frames
    }

    void aLateTickDropsFramesAndKeepsTheTime()
    {
        DrivenPlayer driven;
        driven.player.play();
        driven.passTo(0.11);
        driven.passTo(0.19); // within the same frame
        driven.passTo(0.2);
        QCOMPARE(driven.player.droppedFrames(), 0);
        driven.passTo(0.75);
        QCOMPARE(driven.shown, QList<int>({1, 2, 7}));
        QCOMPARE(driven.player.droppedFrames(), 4);
    }

    void playingGoesOnFromWhereItWasSoughtAndSteppingEndsIt()
    {
        DrivenPlayer driven;
        driven.player.toggle();
        driven.player.toggle();
        QVERIFY(!driven.timerRuns());
        driven.player.toggle();
        QVERIFY(driven.timerRuns());
        driven.passTo(0.5);
        driven.player.seek(50);
        driven.passTo(0.7);
        QCOMPARE(driven.player.frame(), 52);
        QVERIFY(driven.player.isPlaying());
        driven.player.seek(1000);
        QCOMPARE(driven.player.frame(), 99);
        driven.passTo(0.8);
        QCOMPARE(driven.player.frame(), 0);

        driven.player.setTrack({-3, 3}, 25);
        QVERIFY(!driven.player.isPlaying() && !driven.timerRuns());
        QCOMPARE(driven.player.frame(), -3);

        driven.player.play();
        driven.player.step(-1);
        QVERIFY(!driven.player.isPlaying());
        QCOMPARE(driven.player.frame(), 3);
        driven.player.step(17);
        QCOMPARE(driven.player.frame(), -1);
        driven.player.setTrack({0, 99}, std::nan("")); // never leaves a frame
        driven.player.play();
        QVERIFY(!driven.timerRuns());
    }

    void readOutsFollowTheLocale()
    {
        const QLocale english(QLocale::English, QLocale::UnitedStates);
        const QLocale german(QLocale::German, QLocale::Germany);
        QCOMPARE(timeText(3661 * 25 + 1, 25, german), u"61:01,04"_qs);
        QCOMPARE(timeText(-1, 1, english), u"-0:01.00"_qs);
        QCOMPARE(rateText(29.9700012207031, german), u"29,97 fps"_qs);
    }

    void aPartIsPlayedOverAndOver()
    {
        DrivenPlayer driven;
        Player& player = driven.player;
        player.setLoop({20, 29});
        player.seek(95);
        player.play(); // outside: from its beginning
        driven.passTo(0.9);
        driven.passTo(1.0);
        QCOMPARE(driven.shown, (QList<int>{95, 20, 29, 20}));
        player.setLooping(false);
        driven.passTo(2.5);
        QCOMPARE(player.frame(), 29);
        QVERIFY(!player.isPlaying() && !driven.timerRuns());
        player.play(); // at the end: from the beginning
        QCOMPARE(player.frame(), 20);
        player.setLoop({-5, 300}); // held within the track
        QCOMPARE(player.loop(), player.range());
    }
};

const ui::test::Registration<PlayerTest> kRegistration;

#include "tst_player.moc"

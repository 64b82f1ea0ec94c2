#include "Player.h"
#include "readouts.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"

#include <cmath>
#include <limits>

using namespace studio;

class PlayerTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesFollowTimeAndLoop_data();
    void framesFollowTimeAndLoop();
    void theOutPointIsNoFrame_data();
    void theOutPointIsNoFrame();
    void aLateTickDropsFramesAndKeepsTheTime();
    void aTickWithinTheSameFrameSaysNothing();
    void theTimerRunsOnlyWhilePlaying();
    void playingGoesOnFromWhereItWasSought();
    void steppingPausesAndLoops();
    void aNewTrackPausesAtItsFirstFrame();
    void aRateOfZeroNeverLeavesAFrame();
    void readOutsFollowTheLocale();
};

namespace {

/// A player whose time the test sets.
struct DrivenPlayer
{
    double now = 1000.0;
    Player player{[this] { return now; }, nullptr};
    QList<int> shown;

    DrivenPlayer(FrameRange range, double rate)
    {
        player.setTrack(range, rate);
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

void PlayerTest::framesFollowTimeAndLoop_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("rate");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("frame");

    QTest::newRow("start") << 0.0 << 30.0 << 0 << 89 << 12 << 12;
    QTest::newRow("just before a frame") << 0.999 << 30.0 << 0 << 89 << 0 << 29;
    QTest::newRow("a third, rounded") << 1.0 / 3.0 * 3.0 << 30.0 << 0 << 89 << 0 << 30;
    QTest::newRow("seventh of a second") << 7.0 / 29.97 << 29.97 << 0 << 89 << 0 << 7;
    QTest::newRow("loop") << 3.0 << 30.0 << 0 << 89 << 0 << 0;
    QTest::newRow("loop from the middle") << 1.0 << 30.0 << 0 << 89 << 80 << 20;
    QTest::newRow("range off zero") << 1.7 << 10.0 << -5 << 4 << 0 << -3;
    QTest::newRow("one frame") << 12.3 << 60.0 << 7 << 7 << 7 << 7;
    QTest::newRow("start out of range") << 0.0 << 60.0 << 0 << 9 << 50 << 9;
    QTest::newRow("a year") << 365.0 * 86400.0 << 60.0 << 0 << 99 << 1 << 1;
    QTest::newRow("for ever") << std::numeric_limits<double>::infinity() << 60.0 << 0 << 9 << 0
                              << 0;
    QTest::newRow("backwards") << -5.0 << 60.0 << 0 << 9 << 3 << 3;
    QTest::newRow("no time") << std::nan("") << 60.0 << 0 << 9 << 3 << 3;
}

void PlayerTest::framesFollowTimeAndLoop()
{
    QFETCH(double, seconds);
    QFETCH(double, rate);
    QFETCH(int, first);
    QFETCH(int, last);
    QFETCH(int, start);
    QTEST(frameAt(seconds, rate, {first, last}, start), "frame");
}

void PlayerTest::theOutPointIsNoFrame_data()
{
    QTest::addColumn<double>("in");
    QTest::addColumn<double>("out");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("last");

    QTest::newRow("whole") << 0.0 << 90.0 << 0 << 89;
    QTest::newRow("fractional out") << 0.0 << 89.5 << 0 << 89;
    QTest::newRow("fractional in") << 0.5 << 3.0 << 1 << 2;
    QTest::newRow("negative") << -2.5 << 1.0 << -2 << 0;
    QTest::newRow("between two frames") << 3.2 << 3.6 << 4 << 4;
    QTest::newRow("empty") << 3.0 << 3.0 << 3 << 3;
}

void PlayerTest::theOutPointIsNoFrame()
{
    QFETCH(double, in);
    QFETCH(double, out);
    const FrameRange range = frameRange(in, out);
    QTEST(range.first, "first");
    QTEST(range.last, "last");
}

void PlayerTest::aLateTickDropsFramesAndKeepsTheTime()
{
    DrivenPlayer driven({0, 99}, 10);
    driven.player.play();
    driven.passTo(0.1);
    driven.passTo(0.2);
    QCOMPARE(driven.player.droppedFrames(), 0);
    driven.passTo(0.75);
    QCOMPARE(driven.shown, QList<int>({1, 2, 7}));
    QCOMPARE(driven.player.droppedFrames(), 4);

    driven.player.pause();
    driven.player.play();
    QCOMPARE(driven.player.droppedFrames(), 0);
}

void PlayerTest::aTickWithinTheSameFrameSaysNothing()
{
    DrivenPlayer driven({0, 99}, 10);
    driven.player.play();
    driven.passTo(0.11);
    driven.passTo(0.15);
    driven.passTo(0.19);
    QCOMPARE(driven.shown, QList<int>({1}));
    QVERIFY(driven.timerRuns());
    QCOMPARE(driven.player.droppedFrames(), 0);
}

void PlayerTest::theTimerRunsOnlyWhilePlaying()
{
    DrivenPlayer driven({0, 99}, 10);
    QVERIFY(!driven.timerRuns());
    driven.player.seek(5);
    driven.player.step(1);
    QVERIFY(!driven.timerRuns());
    driven.player.toggle();
    QVERIFY(driven.timerRuns());
    driven.player.toggle();
    QVERIFY(!driven.timerRuns());
}

void PlayerTest::playingGoesOnFromWhereItWasSought()
{
    DrivenPlayer driven({0, 99}, 10);
    driven.player.play();
    driven.passTo(0.5);
    driven.player.seek(50);
    driven.passTo(0.7);
    QCOMPARE(driven.player.frame(), 52);
    QVERIFY(driven.player.isPlaying());
    driven.player.seek(1000);
    QCOMPARE(driven.player.frame(), 99);
    driven.passTo(0.8);
    QCOMPARE(driven.player.frame(), 0);
}

void PlayerTest::steppingPausesAndLoops()
{
    DrivenPlayer driven({10, 19}, 10);
    driven.player.play();
    driven.player.step(-1);
    QVERIFY(!driven.player.isPlaying());
    QCOMPARE(driven.player.frame(), 19);
    driven.player.step(1);
    QCOMPARE(driven.player.frame(), 10);
    driven.player.step(-23);
    QCOMPARE(driven.player.frame(), 17);
}

void PlayerTest::aNewTrackPausesAtItsFirstFrame()
{
    DrivenPlayer driven({0, 99}, 10);
    driven.player.seek(60);
    driven.player.play();
    driven.player.setTrack({-3, 3}, 25);
    QVERIFY(!driven.player.isPlaying());
    QCOMPARE(driven.player.frame(), -3);
}

void PlayerTest::aRateOfZeroNeverLeavesAFrame()
{
    DrivenPlayer driven({0, 99}, 0);
    driven.player.play();
    QVERIFY(!driven.timerRuns());
    driven.player.setTrack({0, 99}, std::nan(""));
    QCOMPARE(driven.player.rate(), 0.0);
}

void PlayerTest::readOutsFollowTheLocale()
{
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    const QLocale german(QLocale::German, QLocale::Germany);
    QCOMPARE(frameText(1200, 86400, english), u"1200 / 86400"_qs);
    QCOMPARE(timeText(75, 30, english), u"0:02.50"_qs);
    QCOMPARE(timeText(75, 30, german), u"0:02,50"_qs);
    QCOMPARE(timeText(3661 * 25 + 1, 25, english), u"61:01.04"_qs);
    QCOMPARE(timeText(-1, 1, english), u"-0:01.00"_qs);
    QCOMPARE(timeText(5, 0, english), u"0:00.00"_qs);
    QCOMPARE(rateText(30, english), u"30 fps"_qs);
    QCOMPARE(rateText(29.9700012207031, german), u"29,97 fps"_qs);
    QCOMPARE(zoomText(1.5, english), u"150 %"_qs);
    QCOMPARE(zoomText(0.0666, english), u"6.7 %"_qs);
}

namespace {
const ui::test::Registration<PlayerTest> kRegistration;
} // namespace

#include "tst_player.moc"

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/rulerlayout.h"
#include "MorrantUI/timeline/rulerticks.h"
#include "support/TestCase.h"

using namespace ui;

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// Ten pixels a frame, from frame 0 on, played from 10 to 40.
RulerGeometry rulerOf(FrameRange playback = {10, 40})
{
    return {rulerBands(0.0, 12.0), 10.0, 0.0, 500.0, playback, 25};
}

double tenEach(const QString& name)
{
    return 10.0 * static_cast<double>(name.size());
}

} // namespace

class RulerRulesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stepsFollowZoomAndRate()
    {
        const std::tuple<RulerScale, double, std::array<int, 3>> cases[] = {
            {{40.0, 24.0, false}, 20.0, {1, 0, 0}},
            {{10.0, 24.0, false}, 20.0, {5, 0, 1}},
            {{6.0, 24.0, false}, 40.0, {10, 5, 1}},
            {{1.0, 24.0, false}, 30.0, {50, 10, 5}},
            {{16.0, 24.0, true}, 70.0, {6, 3, 1}}, // parts of a second
            {{4.0, 29.97, true}, 70.0, {30, 10, 2}},
            {{0.25, 24.0, true}, 70.0, {360, 120, 24}},        // a quarter of a minute
            {{0.001, 24.0, true}, 70.0, {86400, 43200, 7200}}, // an hour
            {{10.0, kNan, true}, 20.0, {5, 0, 1}},
            {{10.0, -24.0, true}, 20.0, {5, 0, 1}},
            {{0.0, 24.0, false}, 20.0, {0, 0, 0}},
            {{kNan, 24.0, false}, 20.0, {0, 0, 0}}};
        for (const auto& [scale, width, expected] : cases) {
            const RulerSteps steps = rulerSteps(scale, width);
            const auto text = u"%1 %2 %3 at %4"_qs;
            QCOMPARE(
                text.arg(steps.label).arg(steps.medium).arg(steps.minor).arg(scale.pixelsPerFrame),
                text.arg(expected[0]).arg(expected[1]).arg(expected[2]).arg(scale.pixelsPerFrame));
        }
    }

    void labelsStayApartAndStepsNestAtEveryZoom()
    {
        const auto nests = [](std::int64_t part, std::int64_t whole) {
            return part == 0 || whole % part == 0;
        };
        for (const double rate : {0.0, 1.0, 23.976, 24.0, 25.0, 59.94, 97.0, 1e9}) {
            for (double zoom = 1e-9; zoom < 1e6; zoom *= 1.17) {
                const RulerSteps steps = rulerSteps({zoom, rate, rate > 0.0}, 66.0);
                const auto pixels = [zoom](std::int64_t step) {
                    return static_cast<double>(step) * zoom;
                };
                QVERIFY(pixels(steps.label) >= 66.0 + kLabelGap || steps.label > 4'294'967'296);
                QVERIFY(steps.minor == 0 || pixels(steps.minor) >= kLeastTickDistance);
                QVERIFY(nests(steps.minor, steps.label) && nests(steps.medium, steps.label));
                QVERIFY(steps.medium == 0 || nests(steps.minor, steps.medium));
                const auto ticks = rulerTicks(steps, -1e12, -1e12 + 1000.0 / zoom);
                QVERIFY(ticks.size() <= 1000 / kLeastTickDistance + 2);
            }
        }
    }

    void ticksLieOnFramesOf32Bits()
    {
        const auto ticks = rulerTicks({5, 0, 1}, -2.5, 5.0);
        QCOMPARE(ticks.size(), std::size_t(8));
        QCOMPARE(ticks.front().frame, -2);
        QCOMPARE(ticks.back().kind, TickKind::Label);
        QCOMPARE(rulerTicks({1, 0, 0}, 2147483646.0, 1e12).size(), std::size_t(2));
        QVERIFY(rulerTicks({1, 0, 0}, kNan, 5.0).empty());
        QVERIFY(rulerTicks({1, 0, 0}, -2e9, 2e9).empty()); // none that could be seen
    }

    void labelsAreWholeAndApart()
    {
        const auto start = [](double x, double distance) {
            return labelStart(x, 60.0, distance, 500.0).value_or(-1.0);
        };
        QVERIFY(start(250, 74) == 220 && start(24, 74) == 2 && start(500, 99) == 438);
        QCOMPARE(start(10, 74), -1.0); // too close to the next
        QVERIFY(start(-1, 99) == -1 && start(501, 99) == -1);
    }

    void bookendsStayInsideAndApart()
    {
        const FrameRange frames(0, 100);
        const FrameRange playback(10, 50);
        QCOMPARE(bookendFrame(true, 20, frames, playback), 20);
        QCOMPARE(bookendFrame(true, 50, frames, playback), 49);
        QCOMPARE(bookendFrame(false, 10, frames, playback), 11);
        QCOMPARE(bookendFrame(true, -5, frames, playback), 0);
        QCOMPARE(bookendFrame(true, 500, frames, playback), 49);
        QCOMPARE(bookendFrame(false, 500, frames, playback), 100);
        QCOMPARE(bookendFrame(false, 70, {90, 60}, playback), 60);
        QCOMPARE(bookendFrame(false, 0, {90, 60}, playback), 60);
        QVERIFY(bookendFrame(true, 0, {0, 0}, {0, 0}) == 0 && bookendFrame(false, 0, {}, {}) == 0);
        QCOMPARE(bookendFrame(true, 5, frames, {0, kLeast}), kLeast);
        QCOMPARE(bookendFrame(false, 5, frames, {kMost, 0}), kMost);
    }

    void aRangeMovesAsFarAsThereIsRoom()
    {
        const FrameRange frames(0, 100);
        QCOMPARE(movedRange({10, 40}, 7.4, frames), FrameRange(17, 47));
        QCOMPARE(movedRange({10, 40}, -1e300, frames), FrameRange(0, 30));
        QCOMPARE(movedRange({10, 40}, 1e300, frames), FrameRange(70, 100));
        QCOMPARE(movedRange({10, 140}, 5.0, frames), FrameRange(10, 140));
        QCOMPARE(movedRange({10, 40}, kNan, frames), FrameRange(10, 40));
        QCOMPARE(movedRange({kLeast, 0}, 1e300, {kLeast, kMost}), FrameRange(-1, kMost));
    }

    void aPressFindsWhatIsThere()
    {
        const TimelineMarkers markers{{1, 5, 0, u"abcdef"_qs, {}}, {2, 8, 0, u"x"_qs, {}}};
        const RulerGeometry ruler = rulerOf();
        const auto spots = markerSpots(markers, ruler, tenEach);
        const auto hit = [&](double x, double y, const RulerGeometry& geometry, int selected = 0) {
            return rulerHit(geometry, spots, {x, y}, 25.0, selected);
        };
        const double inTicks = ruler.bands.range - 2.0;
        const double inRange = ruler.bands.range + 2.0;
        const double inMarkers = ruler.bands.markers + 2.0;
        QCOMPARE(hit(250, inTicks, ruler).grip, RulerGrip::Thumb);
        QCOMPARE(hit(250, 2, ruler).grip, RulerGrip::Ruler); // its label is none
        QCOMPARE(hit(88, inRange, ruler).grip, RulerGrip::Start);
        QCOMPARE(hit(112, inRange, ruler).grip, RulerGrip::Start);
        QCOMPARE(hit(113, inRange, ruler).grip, RulerGrip::Range);
        QCOMPARE(hit(412, inRange, ruler).grip, RulerGrip::End);
        QCOMPARE(hit(413, inRange, ruler).grip, RulerGrip::Ruler);
        QCOMPARE(hit(106, inRange, rulerOf({10, 11})).grip, RulerGrip::Range); // its share
        QCOMPARE(hit(100, inRange, rulerOf({10, 10})).grip, RulerGrip::Start);
        QCOMPARE(hit(101, inRange, rulerOf({10, 10})).grip, RulerGrip::End);
        QCOMPARE(hit(55, inMarkers, ruler), (RulerHit{RulerGrip::Marker, 1}));
        QCOMPARE(hit(68, inMarkers, ruler).marker, 1); // on its name
        QCOMPARE(hit(75, inMarkers, ruler).marker, 2);
        QCOMPARE(hit(150, inMarkers, ruler).grip, RulerGrip::Ruler);
    }

    void markersShareNoPixelAndNamesEndBeforeTheNext()
    {
        TimelineMarkers markers;
        for (int i = 0; i < 100'000; ++i) {
            markers.push_back({i + 1, i, 0, u"a name"_qs, {}});
        }
        RulerGeometry ruler = rulerOf();
        auto spots = markerSpots(markers, ruler, tenEach);
        QCOMPARE(spots.size(), std::size_t(51)); // of 500 pixels at ten a frame
        QVERIFY(spots[3].name.isEmpty());
        ruler.scale = 30.0;
        spots = markerSpots(markers, ruler, tenEach);
        QCOMPARE(spots[2].name.right(), spots[3].x - kMarkerReach);
        ruler.scale = 0.01;
        QVERIFY(markerSpots(markers, ruler, tenEach).size() <= 507);
        ruler = rulerOf();
        ruler.offset = -105.0; // the first one's name reaches into sight
        spots = markerSpots({{1, 10, 0, u"a name"_qs, {}}}, ruler, tenEach);
        QVERIFY(spots.size() == 1 && spots[0].name.right() > 0.0);
        markers = {{1, -900, 1000, {}, {}}, {2, 90, kMost, {}, {}}, {3, 20, -4, {}, {}}};
        const auto bars = markerBars(markers, rulerOf()); // from out of sight, and out of it
        QVERIFY(bars.size() == 1 && bars[0].rect.right() == 501.0);
    }
};

const ui::test::Registration<RulerRulesTest> kRegistration;

#include "tst_rulerrules.moc"

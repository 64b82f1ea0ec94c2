// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/dragreadout.h"
#include "MorrantUI/scene/edgescroll.h"
#include "MorrantUI/scene/viewfit.h"
#include "MorrantUI/timeeditor/beatgrid.h"
#include "MorrantUI/timeeditor/clipdrag.h"
#include "MorrantUI/timeeditor/keysnapping.h"
#include "support/TestCase.h"
#include <MorrantUI/scene/framemath.h>
#include <MorrantUI/timeeditor/soundpeaks.h>

class TimeEditorRulesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void framesRoundAwayFromZeroAndHoldAtTheEndsOf32Bits()
    {
        constexpr int kLeast = std::numeric_limits<int>::min();
        constexpr int kMost = std::numeric_limits<int>::max();
        QCOMPARE(ui::nearestFrame(12.5), 13);
        QCOMPARE(ui::nearestFrame(-2.5), -3);
        QCOMPARE(ui::frameOf(12.9), 12);
        QCOMPARE(ui::frameOf(-12.9), -12);
        QCOMPARE(ui::nearestFrame(1e300), kMost);
        QCOMPARE(ui::frameOf(-HUGE_VAL), kLeast);
        QCOMPARE(ui::nearestFrame(std::nan("")), 0);
        QCOMPARE(ui::frameSpan({kLeast, kMost}), 4294967295.0);
        QCOMPARE(ui::movedFrame(kMost, 10), kMost);
    }

    void aFitNeedsWidthAndStaysWithinWhatCanBeInverted()
    {
        QCOMPARE(ui::horizontalFit({0, 0, 100, 10}, {1004, 50}), 10.0);
        QCOMPARE(ui::horizontalFit({0, 0, 0, 10}, {1004, 50}), std::nullopt);
        QCOMPARE(ui::horizontalFit({0, 0, std::nan(""), 10}, {1004, 50}), std::nullopt);
        QCOMPARE(ui::horizontalFit({0, 0, 100, 10}, {4, 50}), std::nullopt);
        QCOMPARE(ui::horizontalFit({0, 0, 100, 10}, {1004, 0}), std::nullopt);
        QVERIFY(*ui::horizontalFit({0, 0, 1e-12, 10}, {1004, 50}) <= 1e6);
        QVERIFY(*ui::horizontalFit({0, 0, 1e300, 10}, {1004, 50}) >= 1e-9);

        QCOMPARE(ui::framedRange({0, 1000}, 0.5, {5, 6, 7, 8}), QRectF(-10, 6, 1020, 8));
        QCOMPARE(ui::framedRange({20, 30}, 1.0, {}), QRectF(19, 0, 12, 0)); // at least a frame
        QCOMPARE(ui::evenBackground({3.5, 1, 10, 5}), QRectF(2, 1, 11.5, 5));
        QCOMPARE(ui::evenBackground({-0.5, 0, 10, 5}).left(), -2.0);
    }

    void keysSnapAtFiveFramesAndNotAtSix()
    {
        const std::array<int, 4> frames = {40, 10, 20, 60};
        QCOMPARE(ui::nearestSnapFrame(25.0, frames), 20);
        QCOMPARE(ui::nearestSnapFrame(25.99, frames), 20); // the rest of a frame is dropped
        QCOMPARE(ui::nearestSnapFrame(26.0, frames), std::nullopt);
        QCOMPARE(ui::nearestSnapFrame(15.0, frames), 10); // of equals the smaller
        QCOMPARE(ui::nearestSnapFrame(15.9, frames), 20);
        QCOMPARE(ui::nearestSnapFrame(5.0, {}), std::nullopt);
        QCOMPARE(ui::nearestSnapFrame(std::nan(""), frames), std::nullopt);
    }

    void beatLinesAreThoseInSightAndAPixelApart()
    {
        std::vector<QLineF> beats;
        std::vector<QLineF> bars;
        const ui::BeatGrid grid{30.0, 120.0F, 4, 7.0F}; // a beat is 15 frames
        ui::beatGridLines(grid, {0, 100}, {-10, 3, 200, 5}, 10.0, beats, bars);
        std::vector<double> xs;
        for (const QLineF& line : beats) {
            xs.push_back(line.x1());
        }
        std::sort(xs.begin(), xs.end());
        QCOMPARE(xs, (std::vector<double>{22, 37, 52, 82, 97}));

        ui::beatGridLines(grid, {0, 1000000}, {600000, 0, 100, 5}, 10.0, beats, bars);
        QVERIFY(beats.size() + bars.size() < 12);
        ui::beatGridLines(grid, {0, 100}, {0, 0, 100, 5}, 0.05, beats, bars); // 0.75 pixels a beat
        QVERIFY(beats.empty() && !bars.empty());
        ui::beatGridLines(grid, {100, 0}, {0, 0, 100, 5}, 10.0, beats, bars); // a reversed range
        QVERIFY(beats.empty());
        for (const double rate : {23.976, 24000 / 1001.0, 30.0, 59.94, 60000 / 1001.0}) {
            QCOMPARE(ui::meantRate(static_cast<float>(rate)), rate);
        }
    }

    void aBeatGridThatCannotBeDrawnHasNoLines()
    {
        std::vector<QLineF> beatLines{QLineF()};
        std::vector<QLineF> barLines{QLineF()};
        const auto hasNone = [&](float fps, float bpm, int beats, float offset) {
            ui::beatGridLines(
                {fps, bpm, beats, offset},
                {0, 1000000},
                {0, 0, 1000, 100},
                1.0,
                beatLines,
                barLines);
            return beatLines.empty() && barLines.empty();
        };
        const float inf = std::numeric_limits<float>::infinity();
        QVERIFY(hasNone(0, 60, 4, 0) && hasNone(inf, 60, 4, 0) && hasNone(30, 1e9F, 4, 0));
        QVERIFY(
            hasNone(30, std::nanf(""), 4, 0) && hasNone(30, 60, -4, 0) && hasNone(30, 60, 4, inf)
            && hasNone(30, 60, 4, 1e20F));
        QCOMPARE(ui::framesPerBeat({30.0F, 0.0F}), 1800.0); // a BPM below 1 counts as 1
    }

    void clipsStopAtTheirNeighbours()
    {
        using Part = EndPointHover;
        const std::array<ui::ClipSpan, 3> row = {{{0, 10}, {20, 40}, {50, 60}}};
        const ui::ClipLimits limits = ui::clipLimits(row, 1);
        QCOMPARE(ui::draggedClip(row[1], Part::Body, false, -30, limits), (ui::ClipSpan{10, 30}));
        QCOMPARE(ui::draggedClip(row[1], Part::Body, false, 1e9, limits), (ui::ClipSpan{30, 50}));
        QCOMPARE(ui::draggedClip(row[1], Part::Start, false, 100, limits), (ui::ClipSpan{39, 40}));
        QCOMPARE(ui::draggedClip(row[1], Part::End, false, 100, limits), (ui::ClipSpan{20, 50}));
        QCOMPARE(ui::draggedClip(row[1], Part::End, false, -100, limits), (ui::ClipSpan{20, 21}));
        QCOMPARE(ui::draggedClip(row[1], Part::Body, true, 3.6, limits), (ui::ClipSpan{20, 40, 4}));
        const ui::ClipSpan free =
            ui::draggedClip({5, 9}, Part::Body, false, -1e18, ui::clipLimits(row, 0));
        QVERIFY(free.end - free.start == 4 && free.start < 0);

        const std::array<ui::HeldClip, 2> held = {{{row[0], {-5, 20}}, {row[1], {10, 42}}}};
        QCOMPARE(ui::sharedMove(held, 100), 2.0);
        QCOMPARE(ui::sharedMove(held, -100), -5.0);
        QCOMPARE(ui::clipPart(row[1], 20.5, 10), Part::Start);
        QCOMPARE(ui::clipPart(row[1], 39.5, 10), Part::End);
        QCOMPARE(ui::clipPart(row[1], 30, 10), Part::Body);
        QCOMPARE(ui::clipPart({0, 1}, 0.5, 3), Part::Body); // three pixels have three parts
        QCOMPARE(ui::clipPart(row[1], 41, 10), Part::None);
    }

    void viewsScrollTheFasterTheFartherBeyondTheirEdge()
    {
        const auto speed = [](double place) { return ui::edgeScrollSpeed(place, 100.0); };
        QVERIFY(
            speed(2) == 0.0 && speed(50) == 0.0 && speed(98) == 0.0 && speed(std::nan("")) == 0.0);
        QVERIFY(speed(-50) < speed(0) && speed(0) < -100.0);
        QCOMPARE(speed(150), -speed(-50));
        QCOMPARE(speed(1e9), ui::kFastestEdgeScroll);
        QCOMPARE(ui::edgeScrollSpeed(1.0, 3.0), 0.0); // nothing but edge
    }

    void whatADragHasToSayStaysInSight()
    {
        QCOMPARE(ui::movedText(12, 48), u"+12  →  48"_qs);
        QCOMPARE(ui::movedText(-2.75, 0), u"−2.75  →  0"_qs);
        QCOMPARE(ui::movedText(-0.001, -7), u"0  →  −7"_qs);
        for (const QPointF pointer : {QPointF(50, 50), {-900, -900}, {900, 900}, {199, 1}}) {
            const QRectF rect = ui::readoutRect({60, 14}, pointer, {200, 100});
            QVERIFY(QRectF(0, 0, 200, 100).contains(rect) && !rect.contains(pointer));
        }
    }

    void peaksOfAnyStretchAreThoseOfItsSamples()
    {
        QRandomGenerator random(7);
        std::vector<float> samples(777);
        for (float& sample : samples) {
            sample = static_cast<float>(random.bounded(2.0) - 1.0);
        }
        samples.at(3) = std::nanf("");
        const ui::SoundPeaks peaks(samples);
        samples.at(3) = 0.0F;
        for (int i = 0; i < 2000; ++i) {
            const std::size_t first = random.bounded(777U);
            const std::size_t last = first + 1 + random.bounded(static_cast<quint32>(777U - first));
            const auto [low, high] = std::minmax_element(
                samples.begin() + static_cast<std::ptrdiff_t>(first),
                samples.begin() + static_cast<std::ptrdiff_t>(last));
            QCOMPARE(peaks.peak(first, last), (ui::SoundPeak{*low, *high}));
        }
        QCOMPARE(peaks.peak(9000, 9001), ui::SoundPeak{});
    }
};

const ui::test::Registration<TimeEditorRulesTest> kRegistration;

#include "tst_timeeditorrules.moc"

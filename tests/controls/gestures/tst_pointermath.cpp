// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/controls/gestures/pointermath.h>

#include <deque>

using ui::RawMouseRecord;

/// The arithmetic of drags without end, on numbers alone.
class PointerMathTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPointComesInAtTheOtherEdge()
    {
        const QRect usual(QPoint(100, 50), QPoint(200, 90)); // spans of 100 and 40
        const std::tuple<QRect, QPointF, QPointF> cases[] = {
            {usual, {200, 90}, {}}, // the last column and row
            {usual, {99, 60}, {100, 0}},
            {usual, {qInf(), 60}, {}},
            {usual, {200.25, 45}, {-100, 40}},
            {usual, {-250, 251}, {400, -200}}, // further than the span
            {{-300, -200, 101, 101}, {-150, -201}, {-100, 100}},
            {{10, 0, 1, 101}, {50, 150}, {0, -100}},          // a column
            {{QPoint(60, 60), QPoint(20, 20)}, {90, 0}, {}}}; // inside out
        for (const auto& [rect, point, expected] : cases) {
            QPointF offset(7, 7);
            const QPointF wrapped = wrapPoint(point, rect, &offset);
            QCOMPARE(offset, expected);
            QVERIFY(wrapped.x() == point.x() + offset.x() && wrapped.y() == point.y() + offset.y());
        }
        QVERIFY(usual.contains(wrapPoint({1e18, -1e17}, usual, nullptr).toPoint()));
    }

    void aPointerKeepsFifteenLogicalPixelsFromTheFrame()
    {
        const QRect frame(100, 200, 400, 200);
        const std::tuple<QRect, double, QRect> cases[] = {
            {frame, 1.25, frame.adjusted(18, 18, -19, -19)},
            {{-500, -400, 400, 200}, 1.5, {-477, -377, 355, 155}}, // left of the origin
            {{0, 0, 31, 31}, 1.0, {15, 15, 1, 1}},
            {{0, 0, 30, 300}, 1.0, {}}, // nothing is left
            {frame, qQNaN(), frame.adjusted(15, 15, -15, -15)},
            {frame, qInf(), {}}};
        for (const auto& [rect, ratio, expected] : cases) {
            QCOMPARE(ui::confiningRect(rect, ratio), expected);
        }
    }

    void rawRecordsAreMotionsOrNothing()
    {
        constexpr auto kAbsolute = RawMouseRecord::kAbsolute;
        constexpr auto kEverywhere = RawMouseRecord::kAbsolute | RawMouseRecord::kVirtualDesktop;
        const std::pair<RawMouseRecord, std::optional<ui::RawMotion>> steps[] = {
            {{true, 0, 0, 0, 0}, {}},                                // the echo of a warp
            {{true, 0, 0x0400, 5, 5}, {}},                           // a wheel
            {{true, 0, 0x0800, 5, 5}, ui::RawMotion{{5, 5}, false}}, // only the upright one
            {{true, 0, 0x0001, 1, 0}, ui::RawMotion{{1, 0}, false}}, // a button in motion
            {{false, 0, 0, 9, 9}, {}},                               // a keyboard
            {{true, kAbsolute, 0, 30000, 20000}, {}},                // where it is
            {{true, kAbsolute, 0, 30034, 19990}, ui::RawMotion{{34, -10}, true}},
            {{true, 0, 0, 1, 1}, ui::RawMotion{{1, 1}, false}}, // leaves the track alone
            {{true, kEverywhere, 0, 30035, 19990}, ui::RawMotion{{1, 0}, true}},
            {{true, 0, 0, INT32_MAX, 0}, ui::RawMotion{{double(INT32_MAX), 0}, false}}};
        ui::AbsoluteTrack track;
        for (const auto& [record, motion] : steps) {
            QVERIFY2(ui::decodeRawMotion(record, track) == motion, QByteArray::number(record.x));
        }
        const std::pair<int, QPoint> units[] = {
            {kAbsolute, {1920, 1080}},
            {kEverywhere, {3840, 1200}},
            {kAbsolute | RawMouseRecord::kPixels, {65535, 65535}}};
        for (const auto& [flags, pixels] : units) {
            const auto bits = static_cast<std::uint16_t>(flags);
            const QPointF unit = ui::absoluteUnit(bits, {1920, 1080}, {3840, 1200});
            QCOMPARE((unit * 65535).toPoint(), pixels);
        }
    }

    /// A model of the window system: it queues positions, and may leave out those that have others
    /// behind them. The application looks at the queue after each few motions.
    void aWarpedPathIsExactWhateverArrives()
    {
        const QRect screen(0, 0, 1600, 1000);
        const QRect rect = ui::wrappingRect(screen);
        QCOMPARE(rect, QRect(400, 250, 800, 500));
        // The share of the positions that later ones replace, how many of them have come in when
        // one is looked at, and whether the pointer warps as promised.
        const std::tuple<double, int, bool> cases[] = {
            {0.0, 1, true}, {0.5, 12, true}, {0.9, 12, true}, {1.0, 60, true}, {0.5, 2, false}};
        std::mt19937 random(7);
        std::uniform_int_distribution<int> step(-5, 25);
        for (const auto& [leftOut, queued, warps] : cases) {
            std::bernoulli_distribution isLeftOut(leftOut);
            const QPointF start(1500, 30);
            ui::WarpedPath path(start);
            QPointF pointer = start;
            std::deque<QPointF> queue;
            const auto moveBy = [&](QPointF way) { queue.push_back(pointer += way); };
            QPointF total;
            for (int i = 0; i < 6000 || !queue.empty(); ++i) {
                if (i < 6000) {
                    const QPointF motion(step(random), -step(random) / 2);
                    total += motion;
                    moveBy(motion);
                }
                bool isBusy = i < 6000 && i % queued != 0; // a warp is as much as it does at once
                while (!isBusy && !queue.empty()) {
                    const QPointF position = queue.front();
                    queue.pop_front();
                    if (!queue.empty() && isLeftOut(random)) {
                        continue;
                    }
                    path.moveTo(position, pointer);
                    QPointF offset;
                    wrapPoint(position, rect, &offset);
                    isBusy = !path.isWarping() && !offset.isNull();
                    if (isBusy) {
                        path.warp(offset);
                        moveBy(warps ? offset : QPointF());
                    }
                }
            }
            QCOMPARE(path.movement(), total);
            QCOMPARE(screen.adjusted(-800, -800, 800, 800).contains(pointer.toPoint()), warps);
        }
    }

    void anAbsolutePointerIsFoundOutByItsSecondWarp()
    {
        const QRect screen(0, 0, 1600, 1000);
        for (const bool echoes : {true, false}) { // of a warp, or the next position replaces it
            for (const QPointF step : {QPointF(7, -2), QPointF(50, 3), QPointF(-90, 0)}) {
                QPointF at(800, 500);
                ui::WarpedPath path(at);
                while (screen.contains(at.toPoint())) {
                    path.moveTo(at += step, at); // wherever it was warped to
                    QCOMPARE(path.movement(), at - QPointF(800, 500));
                    QPointF offset;
                    wrapPoint(at, ui::wrappingRect(screen), &offset);
                    if (!offset.isNull() && !path.isWarping() && !path.isAbsolute()) {
                        path.warp(offset);
                        path.moveTo(echoes ? at + offset : at, at);
                    }
                }
                QCOMPARE(path.isAbsolute(), echoes);
            }
        }
    }
};

const ui::test::Registration<PointerMathTest> kRegistration;

#include "tst_pointermath.moc"

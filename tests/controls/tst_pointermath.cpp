#include "support/TestCase.h"
#include <MorrantUI/controls/pointermath.h>

#include <deque>
#include <random>

using ui::RawMouseRecord;

/// The arithmetic of drags without end, on numbers alone.
class PointerMathTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPointComesInAtTheOtherEdge_data();
    void aPointComesInAtTheOtherEdge();
    void aPointerKeepsFifteenLogicalPixelsFromTheFrame_data();
    void aPointerKeepsFifteenLogicalPixelsFromTheFrame();
    void rawRecordsAreMotionsOrNothing();
    void unitsOfAbsoluteRecordsArePixelsOfTheRightScreen();
    void aWarpedPathIsExactWhateverArrives_data();
    void aWarpedPathIsExactWhateverArrives();
};

void PointerMathTest::aPointComesInAtTheOtherEdge_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QPointF>("offset");

    const QRect rect(QPoint(100, 50), QPoint(200, 90)); // spans of 100 and 40
    QTest::newRow("inside") << rect << QPointF(150, 60) << QPointF();
    QTest::newRow("last column and row") << rect << QPointF(200, 90) << QPointF();
    QTest::newRow("a pixel to the right") << rect << QPointF(201, 60) << QPointF(-100, 0);
    QTest::newRow("a pixel to the left") << rect << QPointF(99, 60) << QPointF(100, 0);
    QTest::newRow("not finite") << rect << QPointF(qInf(), 60) << QPointF();
    QTest::newRow("a fraction of a pixel") << rect << QPointF(200.25, 60) << QPointF(-100, 0);
    QTest::newRow("a corner") << rect << QPointF(205, 45) << QPointF(-100, 40);
    QTest::newRow("further than the span") << rect << QPointF(-250, 251) << QPointF(400, -200);
    QTest::newRow("left of the origin")
        << QRect(-300, -200, 101, 101) << QPointF(-150, -201) << QPointF(-100, 100);
    QTest::newRow("a column") << QRect(10, 0, 1, 101) << QPointF(50, 150) << QPointF(0, -100);
    QTest::newRow("nothing") << QRect() << QPointF(50, -50) << QPointF();
    QTest::newRow("inside out") << QRect(QPoint(60, 60), QPoint(20, 20)) << QPointF(90, 0)
                                << QPointF();
}

void PointerMathTest::aPointComesInAtTheOtherEdge()
{
    QFETCH(const QRect, rect);
    QFETCH(const QPointF, point);
    QPointF offset(7, 7);
    const QPointF wrapped = wrapPoint(point, rect, &offset);
    QTEST(offset, "offset");
    QVERIFY(wrapped.x() == point.x() + offset.x() && wrapped.y() == point.y() + offset.y());
    QVERIFY(wrapPoint(point, rect, nullptr).x() == wrapped.x());
    if (rect.width() > 1 && rect.height() > 1) {
        QVERIFY(rect.contains(wrapPoint({1e18, -1e17}, rect, nullptr).toPoint()));
    }
}

void PointerMathTest::aPointerKeepsFifteenLogicalPixelsFromTheFrame_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<double>("ratio");
    QTest::addColumn<QRect>("expected");

    const QRect frame(QPoint(100, 200), QPoint(499, 399));
    const auto around = [](int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
    };
    QTest::newRow("1") << frame << 1.0 << around(115, 215, 485, 385);
    QTest::newRow("1.25") << frame << 1.25 << around(118, 218, 481, 381);
    QTest::newRow("1.5") << frame << 1.5 << around(122, 222, 477, 377);
    QTest::newRow("2") << frame << 2.0 << around(130, 230, 470, 370);
    QTest::newRow("left of the origin")
        << frame.translated(-600, -600) << 1.5 << around(-477, -377, -122, -222);
    QTest::newRow("a pixel is left") << QRect(0, 0, 31, 31) << 1.0 << QRect(15, 15, 1, 1);
    QTest::newRow("nothing is left") << QRect(0, 0, 30, 300) << 1.0 << QRect();
    QTest::newRow("inside out") << QRect(0, 0, 20, 20) << 2.0 << QRect();
    QTest::newRow("not a ratio") << frame << qQNaN() << around(115, 215, 485, 385);
    QTest::newRow("endless ratio") << frame << qInf() << QRect();
}

void PointerMathTest::aPointerKeepsFifteenLogicalPixelsFromTheFrame()
{
    QFETCH(const QRect, frame);
    QFETCH(const double, ratio);
    QTEST(ui::confiningRect(frame, ratio), "expected");
}

void PointerMathTest::rawRecordsAreMotionsOrNothing()
{
    struct Step
    {
        RawMouseRecord record;
        std::optional<ui::RawMotion> motion;
    };
    constexpr auto kAbsolute = RawMouseRecord::kAbsolute;
    constexpr auto kEverywhere = RawMouseRecord::kAbsolute | RawMouseRecord::kVirtualDesktop;
    const std::vector<Step> steps = {
        {{true, 0, 0, 3, -4}, ui::RawMotion{{3, -4}, false}},
        {{true, 0, 0, 0, 0}, {}},                                // the echo of a warp
        {{true, 0, 0x0400, 5, 5}, {}},                           // a wheel
        {{true, 0, 0x0800, 5, 5}, ui::RawMotion{{5, 5}, false}}, // only the upright one
        {{true, 0, 0x0002, 0, 0}, {}},                           // a button
        {{true, 0, 0x0001, 1, 0}, ui::RawMotion{{1, 0}, false}}, // a button in motion
        {{false, 0, 0, 9, 9}, {}},                               // a keyboard
        {{true, kAbsolute, 0, 30000, 20000}, {}},                // where it is
        {{true, kAbsolute, 0, 30034, 19990}, ui::RawMotion{{34, -10}, true}},
        {{true, 0, 0, 1, 1}, ui::RawMotion{{1, 1}, false}}, // leaves the track alone
        {{true, kAbsolute, 0x0400, 40000, 40000}, {}},      // and so does a wheel
        {{true, kEverywhere, 0, 30035, 19990}, ui::RawMotion{{1, 0}, true}},
        {{true, kAbsolute, 0, 30035, 19990}, ui::RawMotion{{0, 0}, true}},
        {{true, 0, 0, INT32_MAX, INT32_MIN},
         ui::RawMotion{{double(INT32_MAX), double(INT32_MIN)}, false}},
    };
    ui::AbsoluteTrack track;
    for (const Step& step : steps) {
        QVERIFY2(
            ui::decodeRawMotion(step.record, track) == step.motion,
            qPrintable(QStringLiteral("%1, %2").arg(step.record.x).arg(step.record.y)));
    }
}

void PointerMathTest::unitsOfAbsoluteRecordsArePixelsOfTheRightScreen()
{
    const QSize primary(1920, 1080);
    const QSize desktop(3840, 1200);
    const auto pixels = [&](int flags) {
        const QPointF unit = ui::absoluteUnit(static_cast<std::uint16_t>(flags), primary, desktop);
        return (unit * 65535).toPoint();
    };
    QCOMPARE(pixels(RawMouseRecord::kAbsolute), QPoint(1920, 1080));
    QCOMPARE(
        pixels(RawMouseRecord::kAbsolute | RawMouseRecord::kVirtualDesktop), QPoint(3840, 1200));
    QCOMPARE(pixels(RawMouseRecord::kAbsolute | RawMouseRecord::kPixels), QPoint(65535, 65535));
}

void PointerMathTest::aWarpedPathIsExactWhateverArrives_data()
{
    QTest::addColumn<double>("leftOut"); // share of the positions that later ones replace
    QTest::addColumn<int>("queued");     // positions that have come in when one is looked at
    QTest::addColumn<bool>("warps");
    QTest::newRow("every position, at once") << 0.0 << 1 << true;
    QTest::newRow("every position, late") << 0.0 << 12 << true;
    QTest::newRow("half of them") << 0.5 << 12 << true;
    QTest::newRow("few of them") << 0.9 << 12 << true;
    QTest::newRow("one after a long way") << 1.0 << 60 << true;
    QTest::newRow("a promise that is not kept") << 0.5 << 2 << false;
}

/// A model of the window system: it queues positions, and may leave out those that have others
/// behind them. The application looks at the queue after each few motions.
void PointerMathTest::aWarpedPathIsExactWhateverArrives()
{
    QFETCH(const double, leftOut);
    QFETCH(const int, queued);
    QFETCH(const bool, warps);
    const QRect screen(0, 0, 1600, 1000);
    const QRect rect = ui::wrappingRect(screen);
    QCOMPARE(rect, QRect(400, 250, 800, 500));

    std::mt19937 random(7);
    std::uniform_int_distribution<int> step(-5, 25);
    std::bernoulli_distribution isLeftOut(leftOut);
    const QPointF start(1500, 30);
    ui::WarpedPath path(start);
    QPointF pointer = start;
    QPointF total;
    std::deque<QPointF> queue;
    const auto look = [&] {
        while (!queue.empty()) {
            while (queue.size() > 1 && isLeftOut(random)) {
                queue.pop_front();
            }
            const QPointF position = queue.front();
            queue.pop_front();
            path.moveTo(position, pointer);
            QPointF offset;
            wrapPoint(position, rect, &offset);
            if (!path.isWarping() && !offset.isNull()) {
                path.warp(offset);
                pointer += warps ? offset : QPointF();
                queue.push_back(pointer);
                break; // the application is busy with what it has
            }
        }
    };
    for (int i = 0; i < 6000; ++i) {
        const QPointF motion(step(random), -step(random) / 2);
        total += motion;
        pointer += motion;
        queue.push_back(pointer);
        if (i % queued == 0) {
            look();
        }
    }
    while (!queue.empty()) {
        look();
    }
    QCOMPARE(path.movement(), total);
    QCOMPARE(screen.adjusted(-800, -800, 800, 800).contains(pointer.toPoint()), warps);
}

const ui::test::Registration<PointerMathTest> kRegistration;

#include "tst_pointermath.moc"

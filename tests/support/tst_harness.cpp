// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include "support/themes.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;

namespace {

/// Remembers what reached it, and paints its left half red.
class Probe : public QWidget
{
public:
    using QWidget::QWidget;
    QList<QPoint> moves;
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseMoveEvent(QMouseEvent* event) override { moves.append(event->position().toPoint()); }
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(0, 0, width() / 2, height(), Qt::red);
    }
};

} // namespace

class HarnessTest : public TestCase
{
    Q_OBJECT
private Q_SLOTS:
    void aDragReachesTheChildThatWasPressedEvenOutsideIt()
    {
        QWidget window;
        window.resize(200, 100);
        auto* probe = new Probe(&window);
        probe->setGeometry(50, 20, 40, 40);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        FakePointer pointer(probe);
        pointer.moveTo({10, 10});
        probe->moves.clear();
        pointer.press();
        pointer.dragTo({110, 10}, 50);
        pointer.release();

        QCOMPARE(probe->presses, 1);
        QCOMPARE(probe->moves, (QList<QPoint>{{60, 10}, {110, 10}}));
    }

    void aPointerOutlivesItsWidget()
    {
        auto widget = std::make_unique<Probe>();
        widget->show();
        FakePointer pointer(widget.get());
        pointer.press();
        widget.reset();
        pointer.dragTo({5, 5});
        pointer.release();
        QCOMPARE(pointer.position(), QPoint(5, 5));
    }

    void timersAndAnimationsFollowTheFakeClock()
    {
        QObject root;
        QTimer slow(&root);
        QTimer once(&root);
        slow.setInterval(5000);
        once.setInterval(400);
        once.setSingleShot(true);
        int fired = 0;
        connect(&once, &QTimer::timeout, this, [&] { ++fired; });
        slow.start();
        once.start();

        QWidget target;
        QPropertyAnimation animation(&target, "windowOpacity", &root);
        animation.setDuration(1000);
        animation.setStartValue(0.0);
        animation.setEndValue(1.0);
        animation.start();

        FakeClock clock(&root);
        QCOMPARE(clock.fireTimers(400), 1);
        QCOMPARE(fired, 1);
        QVERIFY(!once.isActive() && slow.isActive());
        clock.advanceAnimations(600);
        QVERIFY(animation.currentTime() >= 600);
        clock.advanceAnimations(600);
        QCOMPARE(animation.state(), QAbstractAnimation::Stopped);
    }

    void aPixelIsProbedInLogicalPixels()
    {
        Probe probe;
        probe.resize(20, 10);
        for (const double ratio : {1.0, 2.0}) {
            const QImage image = renderWidget(probe, ratio);
            QCOMPARE(image.width(), static_cast<int>(20 * ratio));
            QVERIFY(closeTo(pixelAt(image, {9.6, 5}), Qt::red));
            QCOMPARE(pixelAt(image, {10.1, 5}).alpha(), 0);
            QVERIFY(!pixelAt(image, {20.5, 5}).isValid());
        }
    }

    void loggedLinesAreRecordedWordForWord()
    {
        const auto& theme = makeTheme<VisualDesignDark>(QStringLiteral("nowhere"));
        QCOMPARE(takeLog().size(), 1); // of that theme
        QVERIFY(!theme.iconExists(QStringLiteral("icons:{}.png")));
        QVERIFY(ui::getCachedIcon(QStringLiteral("icons:{}.png")).isNull());
        QCOMPARE(takeLog(), QStringList(QStringLiteral("debug: File doesn't exist: icons:{}.png")));
        QVERIFY(takeLog().isEmpty());
    }
};

const Registration<HarnessTest> kRegistration;

#include "tst_harness.moc"

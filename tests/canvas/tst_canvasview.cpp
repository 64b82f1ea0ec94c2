// SPDX-License-Identifier: Apache-2.0
#include "controls/PaintCounter.h"
#include "controls/StyledApplication.h"
#include "support/ReaderEvents.h"
#include <MorrantUI/canvas/CanvasView.h>
#include <MorrantUI/theme/colors.h>

#include <include/core/SkCanvas.h>
#include <include/core/SkPaint.h>

using namespace ui::test;

namespace {

void fill(SkCanvas& canvas, SkPaint paint, SkColor color, float side)
{
    paint.setColor(color);
    canvas.drawRect(SkRect::MakeWH(side, side), paint);
}

/// A page of 200 by 100 pixels, the left half of it red, and a mark over the view's corner.
class Sheet : public CanvasView
{
public:
    Sheet()
    {
        resize(464, 264);
        setPageSize({200, 100});
        connect(this, &CanvasView::clicked, this, [this](QPointF at) { told << at; });
        connect(this, &CanvasView::doubleClicked, this, [this](QPointF at) { told << -at; });
        connect(this, &CanvasView::spaceTapped, this, [this] { told << QPointF(); });
    }
    QList<QPointF> takeTold() { return std::exchange(told, {}); }

    QList<QPointF> told; ///< clicks, double clicks with their signs turned, and taps
    int abandoned = 0;

protected:
    void abandonGesture() override
    {
        CanvasView::abandonGesture();
        ++abandoned;
    }
    void paintPage(SkCanvas& canvas, const SkPaint& paint) override
    {
        fill(canvas, paint, SK_ColorRED, 100);
    }
    void paintOverlay(SkCanvas& canvas, const SkPaint& paint, const ui::CanvasMapping&) override
    {
        fill(canvas, paint, SK_ColorGREEN, 36);
    }
};

} // namespace

class CanvasViewTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void zoomingKeepsThePointBelowThePointerAndNumbersStayNumbers()
    {
        const ui::CanvasMapping before{2.0, {30, -40}};
        const QPointF anchor(123, 45);
        for (const double scale : {3.0, 0.5, 1e9, 0.0, qQNaN()}) {
            const ui::CanvasMapping after = ui::zoomedOnCanvas(before, anchor, scale);
            QCOMPARE(after.scale, qIsNaN(scale) ? 0.01 : qBound(0.01, scale, 64.0));
            QVERIFY((after.toView(before.toPage(anchor)) - anchor).manhattanLength() < 1e-9);
        }
        Sheet sheet;
        sheet.zoomBy(-1);
        sheet.zoomAt({qInf(), 0}, 2);
        sheet.setScale(qInf());
        sheet.setMapping({qQNaN(), {}});
        sheet.setZoomLimits({3, 2});
        QVERIFY(sheet.mapping() == ui::fittedOnCanvas({464, 264}, {200, 100}) && sheet.isFitted());
        sheet.setZoomLimits({0.5, 1.5});
        QCOMPARE(sheet.mapping().scale, 1.5);
        sheet.setPageSize({1, qQNaN()});
        QVERIFY(!sheet.hasPage());
    }

    void thePageCoversItsRectangleAndOnlyChangesRepaint()
    {
        Sheet sheet;
        sheet.setBackdrop(CanvasBackdrop::Dark);
        sheet.panBy({0.2, 0.2}); // edges stay on whole pixels
        QCOMPARE(sheet.shownMapping().toView(QRectF(0, 0, 200, 100)), QRectF(32, 32, 400, 200));
        const QImage image = sheet.grab().toImage();
        const double pixel = 1 / image.devicePixelRatio();
        const std::tuple<double, double, QColor> places[] = {
            {35.5, 35.5, Qt::green},
            {36.5, 36.5, Qt::red},
            {231.5, 231.5, Qt::red},
            {232.5, 100.5, Qt::black},
            {32 - pixel / 2, 100, ui::colorQt(u"Grey"_qs)}, // the border's one device pixel
            {432 + pixel * 1.5, 100, ui::colorQt(u"AppBackground"_qs)}};
        for (const auto& [x, y, color] : places) {
            QCOMPARE(pixelAt(image, {x, y}), color);
        }
        sheet.setMapping({1.003, {32, 32}}); // the far edges are on whole pixels as well
        const double edge = std::round(232.6 / pixel) * pixel;
        const QImage scaled = sheet.grab().toImage();
        QCOMPARE(pixelAt(scaled, {edge + pixel / 2, 50}), ui::colorQt(u"Grey"_qs));
        sheet.setMapping({2, {32, 32}});
        sheet.setBackdrop(CanvasBackdrop::Chequer);
        for (const double x : {300.5, 308.5}) { // black and white are seen on both squares
            const int grey = qGray(pixelAt(sheet.grab().toImage(), {x, 100.5}).rgb());
            QVERIFY(grey > 90 && grey < 130);
        }
        showActive(sheet);
        for (const auto reason : {Qt::TabFocusReason, Qt::MouseFocusReason}) {
            sheet.clearFocus();
            sheet.setFocus(reason);
            const QColor ring = pixelAt(sheet.grab().toImage(), {200, 263});
            QCOMPARE(ring == ui::colorQt(u"Accent1"_qs), reason == Qt::TabFocusReason);
        }
        PaintCounter paints(&sheet);
        paints.take();
        const std::pair<std::function<void()>, int> changes[] = {
            {[&] { sheet.setBackdrop(CanvasBackdrop::Chequer); }, 0},
            {[&] { sheet.setBackdrop(CanvasBackdrop::Light); }, 1},
            {[&] { sheet.panBy({}); }, 0},
            {[&] { sheet.zoomBy(2); }, 1},
            {[&] { sheet.setPageSize({}); }, 1}};
        for (const auto& [change, repaints] : changes) {
            change();
            QCOMPARE(paints.take(), repaints);
        }
    }

    void aPlaceFromBeforeTheFirstShowIsKept()
    {
        const ui::CanvasMapping saved{3, {-50.5, 7}};
        Sheet sheet;
        sheet.setMapping(saved);
        sheet.resize(700, 500);
        showActive(sheet);
        QVERIFY(sheet.mapping() == saved);
    }

    void aFittedPageStaysFittedUntilItIsMoved()
    {
        Sheet sheet;
        const QSignalSpy fitted(&sheet, &CanvasView::fittedChanged);
        showActive(sheet);
        QVERIFY(!turnWheel(sheet, {50, 50}, {120, 0})); // aside
        QVERIFY(!turnWheel(sheet, {50, 50}, {}, Qt::ShiftModifier));
        sheet.resize(864, 364);
        QTRY_COMPARE(sheet.mapping().scale, 3.0);

        FakePointer pointer(&sheet);
        const auto origin = [&sheet] { return sheet.mapping().origin; };
        const QPointF panned = origin() + QPointF(30, -10);
        pointer.press({100, 100});
        pointer.press(Qt::MiddleButton);
        pointer.drop({130, 90});
        QCOMPARE(origin(), panned);
        pointer.release(Qt::MiddleButton);
        pointer.press(Qt::MiddleButton);
        sheet.setPageSize({200, 100}); // which it has
        QVERIFY(sheet.isPanning() && fitted.size() == 1 && !fitted[0][0].toBool());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ClosedHandCursor);
        sheet.clearFocus();
        pointer.moveTo({20, 20});
        QCOMPARE(origin(), panned);
        QVERIFY(!QGuiApplication::overrideCursor());
        pointer.release(Qt::MiddleButton);
        sheet.resize(464, 264);
        QTRY_COMPARE(origin(), panned - QPointF(200, 50));
        sheet.setPageSize({});
        sheet.resize(864, 364);
        QTRY_COMPARE(origin(), panned);
    }

    void wheelsTouchpadsAndKeysZoomAndPan()
    {
        Sheet sheet;
        showActive(sheet);
        const QPoint at(132, 132);
        const auto* pad = QPointingDevice::primaryPointingDevice();
        struct
        {
            int key;      ///< or else
            QPoint wheel; ///< or else a pinch
            Qt::KeyboardModifiers held;
            double scale; ///< of 2 before
            QPointF origin;
        } const acts[] = {
            {0, {0, 120}, {}, 2.4, {12, 12}},
            {0, {0, 120}, Qt::ControlModifier, 2.4, {12, 12}},
            {0, {0, 120}, Qt::ShiftModifier, 2, {80, 32}},
            {0, {}, {}, 2.4, {12, 12}},
            {Qt::Key_Plus, {}, Qt::ShiftModifier, 2.5, {-18, 7}},
            {Qt::Key_Minus, {}, {}, 1.6, {72, 52}},
            {Qt::Key_Left, {}, {}, 2, {64, 32}},
            {Qt::Key_Up, {}, Qt::ShiftModifier, 2, {32, 32 + 264 * 0.8}},
            {Qt::Key_1, {}, Qt::ShiftModifier, 1, {132, 82}},
            {Qt::Key_Home, {}, {}, 2, {32, 32}}};
        for (const auto& [key, wheel, held, scale, origin] : acts) {
            sheet.setMapping({2, {32, 32}});
            const QPointF on = sheet.mapToGlobal(QPointF(at));
            QNativeGestureEvent pinch(Qt::ZoomNativeGesture, pad, 2, {}, {}, on, 0.2, {});
            if (key != 0) {
                QTest::keyClick(&sheet, Qt::Key(key), held);
            } else if (wheel.isNull()) {
                QCoreApplication::sendEvent(&sheet, &pinch);
            } else {
                turnWheel(sheet, at, wheel, held);
            }
            QCOMPARE(sheet.mapping().scale, scale);
            QCOMPARE(sheet.mapping().origin, origin);
        }
        for (int i = 0; i < 12; ++i) { // a fine wheel gets as far as a coarse one
            turnWheel(sheet, at, {0, 10});
        }
        QCOMPARE(sheet.mapping().scale, 2.4);
        sheet.setWheelZooms(false);
        turnWheel(sheet, at, {30, 120});
        turnWheel(sheet, at, {0, 120}, Qt::ShiftModifier);
        QCOMPARE(sheet.mapping().origin, QPointF(12 + 12 + 48, 12 + 48));
        for (const double scale : {2.0, 1.0}) {
            QNativeGestureEvent taps(Qt::SmartZoomNativeGesture, pad, 2, {}, {}, {}, 0, {});
            QCoreApplication::sendEvent(&sheet, &taps);
            QCOMPARE(sheet.scale(), scale);
        }
    }

    void clicksAreToldInThePagesPixelsAndSpaceLendsTheHand()
    {
        Sheet sheet;
        showActive(sheet);
        FakePointer pointer(&sheet);
        pointer.click({132, 132});
        QTest::mouseDClick(&sheet, Qt::LeftButton, {}, {22, 32});
        QTest::mouseRelease(&sheet, Qt::LeftButton, {}, {22, 32});
        QCOMPARE(sheet.takeTold(), (QList<QPointF>{{50, 50}, {5, 0}}));

        sheet.setHand(false);
        const QPointF before = sheet.mapping().origin;
        pointer.press({132, 132});
        pointer.drop({182, 132}); // the host's
        QTest::keyClick(&sheet, Qt::Key_Space);
        QCOMPARE(sheet.mapping().origin, before);
        QCOMPARE(sheet.takeTold(), QList{QPointF()});
        QTest::keyPress(&sheet, Qt::Key_Space);
        pointer.press({132, 132});
        pointer.drop({142, 132});
        QTest::keyRelease(&sheet, Qt::Key_Space);
        QCOMPARE(sheet.mapping().origin, before + QPointF(10, 0));
        QTest::keyPress(&sheet, Qt::Key_Space);
        turnWheel(sheet, {132, 132}, {0, 120});
        QTest::keyRelease(&sheet, Qt::Key_Space);
        QVERIFY(sheet.takeTold().isEmpty() && !QGuiApplication::overrideCursor());
    }

    void aToolsDragIsAbandonedByEveryDoor()
    {
        QEvent blocked(QEvent::WindowBlocked);
        const std::function<void(Sheet&)> doors[] = {
            &QWidget::clearFocus, &QWidget::hide, [&](Sheet& sheet) {
                QCoreApplication::sendEvent(sheet.windowHandle(), &blocked);
            }};
        for (const auto& leave : doors) {
            Sheet sheet;
            sheet.setHand(false);
            showActive(sheet);
            FakePointer pointer(&sheet);
            pointer.press({132, 132});
            pointer.dragTo({182, 132});
            QTest::keyClick(&sheet, Qt::Key_Space); // no tap meanwhile
            sheet.abandoned = 0;
            leave(sheet);
            pointer.release();
            QVERIFY(sheet.abandoned == 1 && sheet.takeTold().isEmpty());
        }
    }

    void assistiveToolsFindACanvasAndHowLargeItIsShown()
    {
        Sheet sheet;
        const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&sheet);
        QCOMPARE(seen->role(), QAccessible::Canvas);
        const QString text = seen->text(QAccessible::Description);
        QCOMPARE(text, u"200 by 100 pixels, shown at 200 %"_qs);
        ReaderEvents events;
        sheet.panBy({1, 1});
        sheet.zoomBy(2);
        QCOMPARE(events.takeOf(&sheet).size(), ReaderEvents::heard(1));
    }
};

const ui::test::Registration<CanvasViewTest> kRegistration;

#include "tst_canvasview.moc"

// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/MorrantUI.h>

class DopeSheetPaneTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void itsPartsGoTogether()
    {
        DopeSheetPane pane;
        DopeSheetView& view = pane.view();
        for (int i = 0; i < 30; ++i) {
            pane.scene().addLayoutItem(new TimeEditorCurveItem(&view));
        }
        const QPointer corner = new QPushButton;
        pane.setCorner(corner);
        pane.setCorner(corner); // again
        connect(corner, &QPushButton::clicked, &pane, [&pane] { pane.setCorner(nullptr); });
        pane.setFrameRange(0, 100);
        pane.setPlaybackRange(20, 60);
        pane.setRate(25);
        pane.resize(900, 300);
        ui::test::showActive(pane);
        const auto isWhole = [&] {
            const QRectF seen = view.getVisibleRect();
            return seen.left() <= 0 && seen.right() >= 100 && seen.width() < 110;
        };
        QVERIFY(isWhole() && !pane.zoomedFrames());
        QFont large = pane.ruler().font();
        large.setPixelSize(30);
        pane.ruler().setFont(large);
        pane.resize(500, 200);
        QCoreApplication::processEvents();
        QVERIFY(isWhole());
        QCOMPARE(view.sceneRect().height(), 30.0 * view.trackHeight());
        QCOMPARE(pane.scene().getBackgroundRegion(), std::pair(20, 60));
        QVERIFY(corner && corner->height() == pane.ruler().height());
        QCOMPARE(pane.header().mapTo(&pane, QPoint()).y(), view.mapTo(&pane, QPoint()).y());
        pane.ruler().seek(42);
        QVERIFY(view.frameNumber() == 42 && pane.currentFrame() == 42);

        view.setFocus();
        QTest::keyClicks(&view, u"++"_qs);
        const auto zoomed = pane.zoomedFrames();
        QVERIFY(zoomed && zoomed->second - zoomed->first < 80);
        QCOMPARE(pane.ruler().pixelsPerFrame(), view.transform().m11());
        pane.setFrameRange(0, 200); // stays
        QCOMPARE(pane.ruler().pixelsPerFrame(), view.transform().m11());
        QVERIFY(!isWhole());
        pane.setCurrentFrame(190); // is followed
        QVERIFY(view.getVisibleRect().right() > 190);
        pane.setFollowsFrame(false);
        pane.setCurrentFrame(0);
        QVERIFY(view.getVisibleRect().left() > 0);

        view.verticalScrollBar()->setValue(40);
        const double left = view.getVisibleRect().left();
        ui::test::turnWheel(*view.viewport(), {9, 9}, {0, 240}, Qt::ShiftModifier); // sideways
        QVERIFY(view.getVisibleRect().left() < left);
        pane.ruler().zoomAt(1e-9, 300);
        QTest::keyClick(&view, Qt::Key_F);
        QVERIFY(std::abs(pane.zoomedFrames()->second - 204) < 2);
        QCOMPARE(view.verticalScrollBar()->value(), 40);

        pane.setFrameRange(0, 100);
        pane.ruler().fitFrameRange();
        QVERIFY(isWhole() && !pane.zoomedFrames());
        const auto pixelsOff = [](DopeSheetPane& of, std::pair<double, double> frames) {
            const QRectF seen = of.view().getVisibleRect();
            const double off =
                std::abs(seen.left() - frames.first) + std::abs(seen.right() - frames.second);
            return off * of.ruler().pixelsPerFrame();
        };
        pane.setZoomedFrames(std::pair(10.0, 30.0));
        QVERIFY(pixelsOff(pane, {10, 30}) <= 1.001);
        const auto kept = *pane.zoomedFrames();
        for (const auto& none : {std::pair(30.0, 10.0), {5, 5}, {std::nan(""), 1}}) {
            pane.setZoomedFrames(none);
        }
        QVERIFY(pixelsOff(pane, kept) < 1e-6);
        pane.setZoomedFrames({});
        QVERIFY(isWhole());
        pane.setZoomedFrames(kept); // comes back
        QVERIFY(pixelsOff(pane, kept) < 1e-6);
        QCOMPARE(view.verticalScrollBar()->value(), 40);
        pane.hide();
        pane.setZoomedFrames(kept);
        QVERIFY(pane.zoomedFrames() == kept);
        pane.resize(700, 300);
        ui::test::showActive(pane);
        QVERIFY(pixelsOff(pane, kept) <= 1.001);
        corner->click(); // from within, its own end
        QVERIFY(corner && corner->isHidden());
        QTRY_VERIFY(!corner);
    }
    void aRowKeepsItsItemsAsTheHostPushesItsKeysBack()
    {
        DopeSheetPane pane;
        auto* const row = new DopeSheetRow(&pane.view());
        row->setKeys({{10, KeyEasing::Hold}, {40}, {60}, {std::nan("")}});
        QCOMPARE(row->keys().back().frame, 0.0);
        pane.scene().addLayoutItem(row);
        pane.setFrameRange(0, 100);
        pane.resize(900, 300);
        ui::test::showActive(pane);
        connect(&pane.view(), &TimeEditorView::keysMoving, this, [row] {
            auto keys = row->keys();
            std::sort(keys.begin(), keys.end(), [](auto& a, auto& b) { return a.frame < b.frame; });
            row->setKeys(keys);
        });
        const TimeEditorKeyframeItem* const held = row->item(1);
        const auto at = [&](double frame) { return pane.view().mapFromScene(frame, 11); };
        ui::test::FakePointer pointer(pane.view().viewport());
        const QSignalSpy ended(&pane.view(), &DopeSheetView::gestureEnded);
        pointer.press(at(40));
        pointer.dragTo(at(60));
        pointer.press(Qt::RightButton); // beside the drag
        pointer.release(Qt::RightButton);
        QCOMPARE(ended.size(), 0);
        pointer.drop(at(70), 5);
        QCOMPARE(ended.size(), 1);
        QCOMPARE(row->keys(), (std::vector<DopeSheetKey>{{0}, {10, KeyEasing::Hold}, {60}, {70}}));
        QVERIFY(held == row->item(3) && held->isSelected());
        pointer.press(at(30));
        ui::test::FakePointer(pane.view().viewport()).moveTo(at(32)); // the release got lost
        QCOMPARE(ended.size(), 2);
        pointer.release();
        pane.view().finishGesture(); // there is none
        QCOMPARE(ended.size(), 2);
        row->setKeys({{10}, {70}}); // two have gone
        QVERIFY(held == row->item(1) && row->keyframes().size() == 2);
    }
};

const ui::test::Registration<DopeSheetPaneTest> kRegistration;

#include "tst_dopesheetpane.moc"

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
        pane.setCorner(new QWidget);
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
        pane.resize(500, 200);
        QCoreApplication::processEvents();
        QVERIFY(isWhole());
        QCOMPARE(view.sceneRect().height(), 30.0 * view.trackHeight());
        QCOMPARE(pane.scene().getBackgroundRegion(), std::pair(20, 60));
        QCOMPARE(pane.header().mapTo(&pane, QPoint()).y(), view.mapTo(&pane, QPoint()).y());
        pane.ruler().seek(42);
        QVERIFY(view.frameNumber() == 42 && pane.currentFrame() == 42);

        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Plus);
        QTest::keyClick(&view, Qt::Key_Plus);
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

        pane.setFrameRange(0, 100);
        pane.setZoomedFrames({});
        QVERIFY(isWhole());
        pane.setZoomedFrames(std::pair(10.0, 30.0));
        QVERIFY(view.getVisibleRect().width() < 30 && pane.zoomedFrames());
    }
};

const ui::test::Registration<DopeSheetPaneTest> kRegistration;

#include "tst_dopesheetpane.moc"

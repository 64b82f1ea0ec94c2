// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"

using namespace ui::test;

namespace {

/// A group of four segments.
struct Row : Bench<SegmentedButton>
{
    explicit Row(bool exclusive = true)
        : Bench({160, 24})
    {
        group.setExclusive(exclusive);
        for (const char* text : {"A", "B", "C", "D"}) {
            group.addSegment(QLatin1String(text));
        }
        QTest::qWait(0); // for the layout
    }

    /// The segment that has the focus after each word, -1 for none.
    QList<int> focusedBy(const char* script)
    {
        QList<int> places;
        for (const QByteArray& word : QByteArray(script).split(' ')) {
            play(word);
            places << int(group.findChildren<QAbstractButton*>().indexOf(qApp->focusWidget()));
        }
        return places;
    }

    SegmentedButton& group = *control;
};

} // namespace

class SegmentedButtonTest : public StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void oneSegmentOfAnExclusiveGroupIsOnAndAnyOfIndependentOnes()
    {
        Row row;
        QSignalSpy changed(&row.group, &SegmentedButton::changed);
        QCOMPARE(row.group.currentIndex(), -1);
        row.follow({{"#2 click click #0 click", "=2=0"}}); // a second click changes nothing
        QVERIFY(row.group.isChecked(0) && !row.group.isChecked(2));
        for (const int index : {1, -1, 2, 3, 7, -5}) {
            row.group.setCurrentIndex(index);
        }
        QCOMPARE(row.group.currentIndex(), 3);
        row.play("#3 click");
        row.group.setChecked(3, false);
        row.group.setChecked(9, true);
        QVERIFY(row.group.currentIndex() == -1 && !row.group.segment(4));
        QVERIFY2(row.said().isEmpty(), "what the host sets it knows");
        row.follow({{"#0 click", "=0"}});
        QCOMPARE(changed.size(), 8); // those of the host, too

        Row independent(false);
        independent.follow({{"#1 click #3 click #1 click", "+1+3-1"}});
        QCOMPARE(independent.group.currentIndex(), 3);
        independent.group.setChecked(1, true);
        independent.group.setExclusive(true);
        QVERIFY(independent.group.isChecked(1) && !independent.group.isChecked(3));
        QVERIFY(independent.said().isEmpty());
    }

    void tabReachesOneSegmentAndArrowsRoamFromThere()
    {
        Row row(false);
        QCOMPARE(
            row.focusedBy("^Tab Right Down Left End Right Up Home Right Tab ^Shift+Backtab"),
            QList<int>({0, 1, 2, 1, 3, 0, 3, 0, 1, -1, 1}));
        row.follow({{"", ""}, {"Space Return", "+1-1"}});

        Row exclusive; // where the choice follows
        exclusive.group.setCurrentIndex(1);
        QCOMPARE(exclusive.focusedBy("^Tab"), QList<int>{1});
        exclusive.follow({{"Right Home", "=2=0"}});
        exclusive.play("out #2 click");
        QVERIFY2(exclusive.other->hasFocus(), "a field being edited stays so");
        QCOMPARE(exclusive.focusedBy("^Tab #3 click"), QList<int>({2, 2, 3}));
    }

    void disabledSegmentsArePassedOverInAnyDirection()
    {
        Row row(false);
        row.group.segment(1)->setEnabled(false);
        row.group.segment(3)->setEnabled(false);
        QCOMPARE(row.focusedBy("^Tab Right Right End"), QList<int>({0, 2, 0, 2}));
        row.group.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(row.group.segment(0)->x() > row.group.segment(3)->x());
        row.group.segment(1)->setEnabled(true);
        QCOMPARE(row.focusedBy("Right"), QList<int>({1}));
        row.group.setExclusive(true);
        row.group.setCurrentIndex(0);
        row.group.segment(0)->setEnabled(false); // no Tab stop any more
        QCOMPARE(row.focusedBy("out ^Tab"), QList<int>({-1, 1}));
        for (const bool enabled : {false, true}) {
            row.group.setEnabled(enabled);
            QCOMPARE(row.focusedBy("out ^Tab"), QList<int>({-1, enabled ? 1 : -1}));
        }
    }

    void clearingInASlotLeavesAnEmptyGroup()
    {
        Row row;
        row.record.onSignal = [&row] { row.group.clear(); };
        row.play("#1 click");
        QVERIFY(row.group.count() == 0 && row.group.currentIndex() == -1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(row.group.findChildren<QAbstractButton*>().isEmpty());
        QCOMPARE(row.group.addSegment(u"E"_qs), 0);
        row.group.setCurrentIndex(0);
        QVERIFY(row.group.isChecked(0));
    }
};

const Registration<SegmentedButtonTest> kRegistration;

#include "tst_segmentedbutton.moc"

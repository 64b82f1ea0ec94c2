// SPDX-License-Identifier: Apache-2.0
#include "controls/ControlBench.h"
#include <MorrantUI/controls/buttons/SegmentedButton.h>

namespace {

/// A group of four segments.
struct Row : ui::test::Bench<SegmentedButton>
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

    int focused() const
    {
        for (int i = 0; i < group.count(); ++i) {
            if (group.segment(i)->hasFocus()) {
                return i;
            }
        }
        return -1;
    }
    void enter()
    {
        other->setFocus();
        QTest::keyClick(other, Qt::Key_Tab);
    }
    void pick(int index) const { QTest::mouseClick(group.segment(index), Qt::LeftButton); }
    /// The segment that has the focus after each key, -1 for none.
    QList<int> focusedBy(const char* keys)
    {
        QList<int> places;
        for (const QByteArray& key : QByteArray(keys).split(' ')) {
            play(key);
            places << focused();
        }
        return places;
    }

    SegmentedButton& group = *control;
};

} // namespace

class SegmentedButtonTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void oneSegmentOfAnExclusiveGroupIsOnAndAnyOfIndependentOnes()
    {
        Row row;
        QSignalSpy changed(&row.group, &SegmentedButton::changed);
        QCOMPARE(row.group.currentIndex(), -1);
        for (const int index : {2, 2, 0}) { // a second click changes nothing
            row.pick(index);
        }
        QCOMPARE(row.said(), QByteArray("=2=0"));
        QVERIFY(row.group.isChecked(0) && !row.group.isChecked(2));
        for (const int index : {1, -1, 2, 3, 7, -5}) {
            row.group.setCurrentIndex(index);
        }
        QCOMPARE(row.group.currentIndex(), 3);
        row.pick(3);
        row.group.setChecked(3, false);
        row.group.setChecked(9, true);
        QVERIFY(row.group.currentIndex() == -1 && !row.group.segment(4));
        QVERIFY2(row.said().isEmpty(), "what the host sets it knows");
        row.pick(0);
        QCOMPARE(row.said(), QByteArray("=0"));
        QCOMPARE(changed.size(), 8); // those of the host, too

        Row independent(false);
        for (const int index : {1, 3, 1}) {
            independent.pick(index);
        }
        QCOMPARE(independent.said(), QByteArray("+1+3-1"));
        QCOMPARE(independent.group.currentIndex(), 3);
        independent.group.setChecked(1, true);
        independent.group.setExclusive(true);
        QVERIFY(independent.group.isChecked(1) && !independent.group.isChecked(3));
        QVERIFY(independent.said().isEmpty());
    }

    void tabReachesOneSegmentAndArrowsRoamFromThere()
    {
        Row row(false);
        row.enter();
        QCOMPARE(row.focused(), 0);
        QCOMPARE(
            row.focusedBy("Right Down Left End Right Up Home Right"),
            QList<int>({1, 2, 1, 3, 0, 3, 0, 1}));
        row.play("Tab");
        QVERIFY(row.other->hasFocus());
        QTest::keyClick(row.other, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(row.focused(), 1);
        QVERIFY(row.said().isEmpty());
        QCOMPARE(row.after("Space Return"), QByteArray("+1-1"));

        Row exclusive; // where the choice follows
        exclusive.group.setCurrentIndex(1);
        exclusive.enter();
        QCOMPARE(exclusive.focused(), 1);
        QCOMPARE(exclusive.after("Right Home"), QByteArray("=2=0"));
        exclusive.play("out");
        exclusive.pick(2);
        QVERIFY2(exclusive.other->hasFocus(), "a field being edited stays so");
        exclusive.enter();
        QCOMPARE(exclusive.focused(), 2);
        exclusive.pick(3);
        QCOMPARE(exclusive.focused(), 3);
    }

    void disabledSegmentsArePassedOverInAnyDirection()
    {
        Row row(false);
        row.group.segment(1)->setEnabled(false);
        row.group.segment(3)->setEnabled(false);
        row.enter();
        QCOMPARE(row.focusedBy("Right Right End"), QList<int>({2, 0, 2}));
        row.group.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(row.group.segment(0)->x() > row.group.segment(3)->x());
        row.group.segment(1)->setEnabled(true);
        QCOMPARE(row.focusedBy("Right"), QList<int>({1}));
        row.group.setExclusive(true);
        row.group.setCurrentIndex(0);
        row.group.segment(0)->setEnabled(false); // no Tab stop any more
        row.enter();
        QCOMPARE(row.focused(), 1);
        for (const bool enabled : {false, true}) {
            row.group.setEnabled(enabled);
            row.enter();
            QCOMPARE(row.focused(), enabled ? 1 : -1);
        }
    }

    void clearingInASlotLeavesAnEmptyGroup()
    {
        Row row;
        row.record.onSignal = [&row] { row.group.clear(); };
        row.pick(1);
        QVERIFY(row.group.count() == 0 && row.group.currentIndex() == -1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(row.group.findChildren<QAbstractButton*>().isEmpty());
        QCOMPARE(row.group.addSegment(u"E"_qs), 0);
        row.group.setCurrentIndex(0);
        QVERIFY(row.group.isChecked(0));
    }
};

const ui::test::Registration<SegmentedButtonTest> kRegistration;

#include "tst_segmentedbutton.moc"

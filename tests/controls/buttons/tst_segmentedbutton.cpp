#include "controls/StyledApplication.h"
#include <MorrantUI/controls/buttons/SegmentedButton.h>
#include <MorrantUI/controls/buttons/segmentgeometry.h>

#include <QtWidgets>

#include <climits>

namespace {

/// A shown group of four segments beside two line edits, with its signals as lines.
struct Row
{
    explicit Row(bool exclusive = true)
        : layout(&window)
    {
        layout.addWidget(&before);
        layout.addWidget(&group);
        layout.addWidget(&after);
        group.setExclusive(exclusive);
        for (const char* text : {"A", "B", "C", "D"}) {
            group.addSegment(QLatin1String(text));
        }
        QObject::connect(&group, &SegmentedButton::currentIndexChanged, &group, [this](int index) {
            said << u"=%1"_qs.arg(index);
        });
        QObject::connect(
            &group, &SegmentedButton::segmentToggled, &group, [this](int index, bool checked) {
                said << u"%1%2"_qs.arg(QLatin1Char(checked ? '+' : '-')).arg(index);
            });
        window.show();
        QApplication::setActiveWindow(&window);
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

    void key(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    void enter() // by Tab
    {
        before.setFocus();
        key(Qt::Key_Tab);
    }
    void click(int index) const { QTest::mouseClick(group.segment(index), Qt::LeftButton); }
    QString taken() { return std::exchange(said, {}).join(u' '); }

    QWidget window;
    QLineEdit before;
    SegmentedButton group;
    QLineEdit after;
    QHBoxLayout layout;
    QStringList said;
};

} // namespace

class SegmentedButtonTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void segmentsFillTheRowWithoutGapsInAnyWidth();
    void cornersAreRoundOnlyWhereTheRowEnds();
    void oneSegmentOfAnExclusiveGroupIsOnAndAnyOfIndependentOnes();
    void tabReachesOneSegmentAndArrowsRoamFromThere();
    void theChoiceFollowsTheArrowsInAnExclusiveGroupOnly();
    void disabledSegmentsArePassedOverInAnyDirection();
    void theFocusFollowsAClickOnlyWhenTheGroupHasIt();
    void clearingInASlotLeavesAnEmptyGroup();
    void assistiveToolsSeeRadioButtonsOrCheckBoxes();
};

void SegmentedButtonTest::segmentsFillTheRowWithoutGapsInAnyWidth()
{
    for (const std::vector<int>& wishes :
         {std::vector{30}, {30, 30, 30}, {10, 47, 3}, {0, -5, 20}, {INT_MAX, INT_MAX, 7}, {}})
    {
        for (const int width : {0, 1, 2, 97, 300}) {
            const QRect row(5, 3, width, 22);
            const auto rects = ui::segmentRects(row, wishes, Qt::LeftToRight);
            const auto mirrored = ui::segmentRects(row, wishes, Qt::RightToLeft);
            QCOMPARE(rects.size(), wishes.size());
            int x = row.left();
            for (std::size_t i = 0; i < rects.size(); ++i) {
                QCOMPARE(rects[i], QRect(x, 3, std::max(0, rects[i].width()), 22));
                x += rects[i].width();
                QCOMPARE(mirrored[i], QRect(10 + width - x, 3, rects[i].width(), 22));
            }
            QCOMPARE(x, wishes.empty() ? row.left() : row.left() + width);
        }
    }
    const auto shared = ui::segmentRects({0, 0, 120, 20}, {10, 20, 30}, Qt::LeftToRight);
    QCOMPARE(shared[1], QRect(20, 0, 40, 20));
}

void SegmentedButtonTest::cornersAreRoundOnlyWhereTheRowEnds()
{
    for (const int count : {1, 2, 3}) {
        for (int drawn = 0; drawn < count; ++drawn) { // from left to right
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                const int index = direction == Qt::LeftToRight ? drawn : count - 1 - drawn;
                const QPainterPath shape =
                    ui::segmentShape({0, 0, 20, 10}, ui::segmentEnds(index, count, direction), 4.0);
                for (const double y : {0.2, 9.8}) {
                    QCOMPARE(shape.contains(QPointF(0.2, y)), drawn > 0);
                    QCOMPARE(shape.contains(QPointF(19.8, y)), drawn < count - 1);
                    QVERIFY(shape.contains(QPointF(10, y)));
                }
            }
        }
    }
}

void SegmentedButtonTest::oneSegmentOfAnExclusiveGroupIsOnAndAnyOfIndependentOnes()
{
    Row row;
    QCOMPARE(row.group.currentIndex(), -1);
    for (const int index : {2, 2, 0}) { // a second click changes nothing
        row.click(index);
    }
    QCOMPARE(row.taken(), u"=2 =0"_qs);
    QVERIFY(row.group.isChecked(0) && !row.group.isChecked(2));
    for (const int index : {1, -1, 2, 3, 7, -5}) {
        row.group.setCurrentIndex(index);
    }
    QCOMPARE(row.group.currentIndex(), 3);
    row.click(3);
    row.group.setChecked(3, false);
    row.group.setChecked(9, true);
    QVERIFY(row.group.currentIndex() == -1 && !row.group.segment(4) && !row.group.isChecked(-1));
    QVERIFY2(row.taken().isEmpty(), "what the host sets it knows");
    row.click(0);
    QCOMPARE(row.taken(), u"=0"_qs);

    Row independent(false);
    for (const int index : {1, 3, 1}) {
        independent.click(index);
    }
    QCOMPARE(independent.taken(), u"+1 +3 -1"_qs);
    QCOMPARE(independent.group.currentIndex(), 3);
    independent.group.setChecked(1, true);
    independent.group.setExclusive(true);
    QVERIFY(independent.group.isChecked(1) && !independent.group.isChecked(3));
    QVERIFY(independent.taken().isEmpty());
}

void SegmentedButtonTest::tabReachesOneSegmentAndArrowsRoamFromThere()
{
    Row row(false);
    row.enter();
    QCOMPARE(row.focused(), 0);
    for (const auto& [key, expected] : std::initializer_list<std::pair<Qt::Key, int>>{
             {Qt::Key_Right, 1},
             {Qt::Key_Down, 2},
             {Qt::Key_Left, 1},
             {Qt::Key_End, 3},
             {Qt::Key_Right, 0},
             {Qt::Key_Up, 3},
             {Qt::Key_Home, 0},
             {Qt::Key_Right, 1}})
    {
        row.key(key);
        QCOMPARE(row.focused(), expected);
    }
    row.key(Qt::Key_Tab);
    QVERIFY(row.after.hasFocus());
    QTest::keyClick(&row.after, Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(row.focused(), 1);
    QVERIFY(row.taken().isEmpty());
}

void SegmentedButtonTest::theChoiceFollowsTheArrowsInAnExclusiveGroupOnly()
{
    Row exclusive;
    exclusive.group.setCurrentIndex(1);
    exclusive.enter();
    QCOMPARE(exclusive.focused(), 1);
    exclusive.key(Qt::Key_Right);
    exclusive.key(Qt::Key_Home);
    QCOMPARE(exclusive.taken(), u"=2 =0"_qs);

    Row independent(false);
    independent.enter();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Space, Qt::Key_Return}) {
        independent.key(key);
    }
    QCOMPARE(independent.taken(), u"+1 -1"_qs);
}

void SegmentedButtonTest::disabledSegmentsArePassedOverInAnyDirection()
{
    Row row(false);
    row.group.segment(1)->setEnabled(false);
    row.group.segment(3)->setEnabled(false);
    row.enter();
    for (const auto& [key, expected] : std::initializer_list<std::pair<Qt::Key, int>>{
             {Qt::Key_Right, 2}, {Qt::Key_Right, 0}, {Qt::Key_End, 2}})
    {
        row.key(key);
        QCOMPARE(row.focused(), expected);
    }
    row.group.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(row.group.segment(0)->x() > row.group.segment(3)->x());
    row.group.segment(1)->setEnabled(true);
    row.key(Qt::Key_Right);
    QCOMPARE(row.focused(), 1);

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

void SegmentedButtonTest::theFocusFollowsAClickOnlyWhenTheGroupHasIt()
{
    Row row;
    row.before.setFocus();
    row.click(2);
    QVERIFY2(row.before.hasFocus(), "a field being edited stays so");
    row.key(Qt::Key_Tab);
    QCOMPARE(row.focused(), 2);
    row.click(3);
    QCOMPARE(row.focused(), 3);
}

void SegmentedButtonTest::clearingInASlotLeavesAnEmptyGroup()
{
    Row row;
    connect(&row.group, &SegmentedButton::currentIndexChanged, &row.group, &SegmentedButton::clear);
    row.click(1);
    QVERIFY(row.group.count() == 0 && row.group.currentIndex() == -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(row.group.findChildren<QAbstractButton*>().isEmpty());
    QCOMPARE(row.group.addSegment(u"E"_qs), 0);
    row.group.setCurrentIndex(0);
    QVERIFY(row.group.isChecked(0));

    const QPointer<SegmentedButton> doomed(new SegmentedButton);
    doomed->addSegment(u"A"_qs);
    connect(doomed, &SegmentedButton::currentIndexChanged, this, [doomed] { delete doomed; });
    doomed->segment(0)->click();
    QVERIFY(!doomed);
}

void SegmentedButtonTest::assistiveToolsSeeRadioButtonsOrCheckBoxes()
{
    Row row;
    row.group.setToolTip(u"Easing"_qs);
    QAccessibleInterface* const group = QAccessible::queryAccessibleInterface(&row.group);
    QCOMPARE(group->role(), QAccessible::Grouping);
    QCOMPARE(group->text(QAccessible::Name), u"Easing"_qs);
    QCOMPARE(group->childCount(), 4);
    QAccessibleInterface* const second = group->child(1);
    QCOMPARE(second->text(QAccessible::Name), u"B"_qs);
    QCOMPARE(second->role(), QAccessible::RadioButton);
    second->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(row.group.currentIndex(), 1);
    QCOMPARE(row.taken(), u"=1"_qs);

    row.group.setExclusive(false);
    QCOMPARE(second->role(), QAccessible::CheckBox);
}

const ui::test::Registration<SegmentedButtonTest> kRegistration;

#include "tst_segmentedbutton.moc"

#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/SegmentedButton.h>
#include <MorrantUI/controls/segmentgeometry.h>
#include <MorrantUI/theme/colors.h>

#include <QtWidgets>

#include <climits>

using ui::test::FakePointer;

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
            said << QStringLiteral("=%1").arg(index);
        });
        QObject::connect(
            &group, &SegmentedButton::segmentToggled, &group, [this](int index, bool checked) {
                said << QStringLiteral("%1%2").arg(QLatin1Char(checked ? '+' : '-')).arg(index);
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

class SegmentedButtonTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void segmentsFillTheRowWithoutGapsInAnyWidth();
    void cornersAreRoundOnlyWhereTheRowEnds();
    void exactlyOneSegmentOfAnExclusiveGroupIsOn();
    void independentSegmentsSwitchByThemselves();
    void tabReachesOneSegmentAndArrowsRoamFromThere();
    void theChoiceFollowsTheArrowsInAnExclusiveGroupOnly();
    void arrowsPassOverDisabledSegmentsAndAreMirrored();
    void aDisabledSegmentIsNoTabStop();
    void theFocusFollowsAClickOnlyWhenTheGroupHasIt();
    void clearingInASlotLeavesAnEmptyGroup();
    void aCheckedSegmentIsDrawnOnTheQuietHighlight();
    void assistiveToolsSeeRadioButtonsOrCheckBoxes();

private:
    ui::test::StyledApplication m_application;
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

void SegmentedButtonTest::exactlyOneSegmentOfAnExclusiveGroupIsOn()
{
    Row row;
    QCOMPARE(row.group.currentIndex(), -1);
    row.click(2);
    row.click(2); // a second click changes nothing
    row.click(0);
    QCOMPARE(row.taken(), QStringLiteral("=2 =0"));
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
    QCOMPARE(row.taken(), QStringLiteral("=0"));
}

void SegmentedButtonTest::independentSegmentsSwitchByThemselves()
{
    Row row(false);
    row.click(1);
    row.click(3);
    row.click(1);
    QCOMPARE(row.taken(), QStringLiteral("+1 +3 -1"));
    QCOMPARE(row.group.currentIndex(), 3);

    row.group.setChecked(1, true);
    row.group.setExclusive(true);
    QVERIFY(row.group.isChecked(1) && !row.group.isChecked(3));
    QVERIFY(row.taken().isEmpty());
}

void SegmentedButtonTest::tabReachesOneSegmentAndArrowsRoamFromThere()
{
    Row row(false);
    row.before.setFocus();
    row.key(Qt::Key_Tab);
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
    exclusive.before.setFocus();
    exclusive.key(Qt::Key_Tab);
    QCOMPARE(exclusive.focused(), 1);
    exclusive.key(Qt::Key_Right);
    exclusive.key(Qt::Key_Home);
    QCOMPARE(exclusive.taken(), QStringLiteral("=2 =0"));

    Row independent(false);
    independent.before.setFocus();
    independent.key(Qt::Key_Tab);
    independent.key(Qt::Key_Right);
    QVERIFY(independent.taken().isEmpty());
    independent.key(Qt::Key_Space);
    independent.key(Qt::Key_Return);
    QCOMPARE(independent.taken(), QStringLiteral("+1 -1"));
}

void SegmentedButtonTest::arrowsPassOverDisabledSegmentsAndAreMirrored()
{
    Row row(false);
    row.group.segment(1)->setEnabled(false);
    row.group.segment(3)->setEnabled(false);
    row.before.setFocus();
    row.key(Qt::Key_Tab);
    row.key(Qt::Key_Right);
    QCOMPARE(row.focused(), 2);
    row.key(Qt::Key_Right);
    QCOMPARE(row.focused(), 0);
    row.key(Qt::Key_End);
    QCOMPARE(row.focused(), 2);

    row.group.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(row.group.segment(0)->x() > row.group.segment(3)->x());
    row.group.segment(1)->setEnabled(true);
    row.key(Qt::Key_Right);
    QCOMPARE(row.focused(), 1);
}

void SegmentedButtonTest::aDisabledSegmentIsNoTabStop()
{
    Row row;
    row.group.setCurrentIndex(0);
    row.group.segment(0)->setEnabled(false);
    row.before.setFocus();
    row.key(Qt::Key_Tab);
    QCOMPARE(row.focused(), 1);

    row.before.setFocus();
    row.group.setEnabled(false);
    row.key(Qt::Key_Tab);
    QVERIFY(row.after.hasFocus());
    row.group.setEnabled(true);
    row.before.setFocus();
    row.key(Qt::Key_Tab);
    QCOMPARE(row.focused(), 1);
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
    QCOMPARE(row.group.count(), 0);
    QCOMPARE(row.group.currentIndex(), -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(row.group.findChildren<QAbstractButton*>().isEmpty());
    QCOMPARE(row.group.addSegment(QStringLiteral("E")), 0);
    row.group.setCurrentIndex(0);
    QVERIFY(row.group.isChecked(0));

    auto* const doomed = new SegmentedButton;
    doomed->addSegment(QStringLiteral("A"));
    connect(doomed, &SegmentedButton::currentIndexChanged, doomed, [doomed] { delete doomed; });
    const QPointer<SegmentedButton> guard(doomed);
    doomed->segment(0)->click();
    QVERIFY(!guard);
}

void SegmentedButtonTest::aCheckedSegmentIsDrawnOnTheQuietHighlight()
{
    Row row;
    row.group.setCurrentIndex(1);
    const auto groundOf = [&](int index) {
        const QRect place = row.group.segment(index)->geometry();
        return ui::test::pixelAt(
            ui::test::renderWidget(row.group), place.topLeft() + QPointF(4, 4));
    };
    QVERIFY(ui::test::closeTo(groundOf(0), ui::colorQt(QStringLiteral("Button"))));
    QVERIFY(ui::test::closeTo(groundOf(1), ui::colorQt(QStringLiteral("RowHighlight2"))));
}

void SegmentedButtonTest::assistiveToolsSeeRadioButtonsOrCheckBoxes()
{
    Row row;
    row.group.setToolTip(QStringLiteral("Easing"));
    QAccessibleInterface* const group = QAccessible::queryAccessibleInterface(&row.group);
    QCOMPARE(group->role(), QAccessible::Grouping);
    QCOMPARE(group->text(QAccessible::Name), QStringLiteral("Easing"));
    QCOMPARE(group->childCount(), 4);
    QAccessibleInterface* const second = group->child(1);
    QCOMPARE(second->text(QAccessible::Name), QStringLiteral("B"));
    QCOMPARE(second->role(), QAccessible::RadioButton);
    second->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(row.group.currentIndex(), 1);
    QCOMPARE(row.taken(), QStringLiteral("=1"));

    row.group.setExclusive(false);
    QCOMPARE(second->role(), QAccessible::CheckBox);
}

const ui::test::Registration<SegmentedButtonTest> kRegistration;

#include "tst_segmentedbutton.moc"

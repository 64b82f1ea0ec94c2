// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DockableToolBarHeader.h>

using namespace ui::test;
using Area = DockableArea;

namespace {

/// A content that does something once, when it is shown or hidden.
class Restless : public QWidget
{
public:
    std::function<void()> whenShown;
    std::function<void()> whenHidden;

protected:
    void showEvent(QShowEvent* /*event*/) override { run(whenShown); }
    void hideEvent(QHideEvent* /*event*/) override { run(whenHidden); }

private:
    static void run(std::function<void()>& action)
    {
        if (const auto once = std::exchange(action, nullptr)) {
            once();
        }
    }
};

} // namespace

/// Groups with tabs; what docking makes of them is in DockableGroupTest.
class DockableTabGroupTest : public ui::test::TestCase
{
    Q_OBJECT

private:
    const QString kTabs = u"H(a=200 T(b c d)=300 e=100)"_qs;

private Q_SLOTS:
    void theActiveTabSurvivesWhatHappensBesideIt()
    {
        QString told;
        DockTree tree(kTabs);
        DockableTabGroup& tabs = *tree.tabs("^b");
        const auto active = [&] {
            const QString heard = std::exchange(told, {});
            return QString::number(tabs.activeIndex()) + tabs.activeChild()->getText()
                   + (heard.isEmpty() ? QString() : u" told "_qs + heard);
        };
        connect(&tabs, &DockableTabGroup::activeIndexChanged, this, [&told](int index) {
            told += QString::number(index);
        });
        const QSignalSpy layouts(&tree.root(), &DockableGroup::layoutChanged);
        for (const int index : {1, -1, 3, 1}) {
            tabs.setActiveIndex(index);
        }
        QCOMPARE(active(), u"1c told 1"_qs);
        QCOMPARE(layouts.count(), 1);
        tree["d"]->show(); // a host brings it forward so, too
        QTRY_COMPARE(tabs.activeIndex(), 2);
        QVERIFY(!tree["c"]->isVisible() && tree["d"]->isVisible());
        const std::pair<QString, QString> steps[] = {
            {u"select c"_qs, u"1c told 21"_qs},
            {u"insert x ^b 0"_qs, u"2c told 2"_qs},
            {u"delete x, settle"_qs, u"1c told 1"_qs},
            {u"dock y ^b center"_qs, u"3y told 3"_qs},
            {u"select c, undock y"_qs, u"0b told 10"_qs},      // the first whenever one is taken
            {u"select d, dock z d right"_qs, u"2 told 22"_qs}, // split, it stays in front
            {u"undock d"_qs, u"2z told 2"_qs},
            {u"undock b"_qs, u"0c told 0"_qs},
            {u"undock c, settle"_qs, QString()}};
        for (const auto& [operations, expected] : steps) {
            tree.play(operations);
            if (!expected.isEmpty()) {
                QCOMPARE(operations + u": "_qs + active(), operations + u": "_qs + expected);
            }
        }
    }

    void aChildMayBeTakenWithoutTakeChild()
    {
        DockTree tree(kTabs);
        DockableTabGroup& tabs = *tree.tabs("^b");
        tree.play(u"select d, delete d"_qs);
        QCOMPARE(tabs.activeIndex(), 0);
        DockableWindow* neverSeen = DockTree::panel(u"n"_qs);
        tabs.appendChild(neverSeen);
        for (DockableWindow* stolen : {tree["c"], neverSeen}) {
            stolen->setParent(nullptr);
            const bool headerHidden = stolen->header()->isHidden();
            const QSizePolicy policy = stolen->sizePolicy();
            stolen->setParent(&tree.root(), Qt::Window);
            QVERIFY(!headerHidden && policy == tree["b"]->sizePolicy());
        }
        QVERIFY(tabs.childCount() == 1 && !tabs.tabAt(1) && tabs.tabAt(0)->text() == u"b");
    }

    void onlyTheActiveChildHasASay()
    {
        DockTree tree(kTabs);
        DockableTabGroup& tabs = *tree.tabs("^b");
        const QSizePolicy ignored(QSizePolicy::Ignored, QSizePolicy::Ignored);
        const QSizePolicy own(QSizePolicy::Expanding, QSizePolicy::Minimum);
        DockableWindow* wide = DockTree::panel(u"w"_qs);
        wide->content()->setMinimumWidth(380);
        wide->setSizePolicy(own);
        tabs.appendChild(wide);
        QCOMPARE(wide->sizePolicy(), ignored);
        settle();
        QCOMPARE(tabs.width(), 300);
        tabs.setActiveIndex(3);
        settle();
        QVERIFY(tabs.width() >= 380);
        QCOMPARE(wide->sizePolicy(), own);
        const QSizePolicy changed(QSizePolicy::Fixed, QSizePolicy::Expanding);
        wide->setSizePolicy(changed); // by the host, meanwhile
        tabs.setActiveIndex(0);
        QCOMPARE(wide->sizePolicy(), ignored);
        wide->undock(true);
        QCOMPARE(wide->sizePolicy(), changed);
    }

    void tabsCarryTheTitlesOfTheirWindows()
    {
        DockTree tree(kTabs);
        DockableTabGroup& tabs = *tree.tabs("^b");
        DockableTabWidget& tab = *tabs.tabAt(0);
        tabs.setTabTextForChild(tree["b"], u"Fish & chips"_qs);
        QCOMPARE(tab.text(), u"Fish & chips"_qs);
        tabs.setTabTextForChild(tree["Fish & chips"], QString()); // the tab's alone
        QCOMPARE(tab.text() + tree["Fish & chips"]->getText(), u"Fish & chips"_qs);
        tree["Fish & chips"]->setText(u"b"_qs);
        // A group has no title of its own: it goes by the first panel in it.
        for (const auto& [operations, title] :
             {std::pair("rename b Graph", "Graph"),
              {"dock first Graph left", "first"},
              {"rename first renamed", "renamed"},
              {"undock renamed", "Graph"}})
        {
            tree.play(QString::fromLatin1(operations));
            QCOMPARE(tabs.tabAt(0)->text(), QString::fromLatin1(title));
            QCOMPARE(tabs.tabAt(0)->accessibleName(), QString::fromLatin1(title));
        }
    }

    void aFloatingGroupGoesByItsFirstPanelThatIsSeen()
    {
        DockTree tree(u"H(a) H(T(b c) V(d e) f)"_qs);
        DockableGroup* group = tree.group("^f");
        for (const auto& [step, title] :
             {std::pair("settle", "b"),
              {"select c", "c"},
              {"rename c x", "x"},
              {"delete x, settle", "b"},
              {"delete b, settle", "d"},
              {"dock b ^f left", "b"},
              {"shut b, settle", "d"},
              {"rename ^f own, delete d, settle", "own"}})
        {
            tree.play(QString::fromLatin1(step));
            QCOMPARE(group->windowTitle(), QString::fromLatin1(title));
        }
    }

    void aWindowThatLeavesIsAsItCame()
    {
        DockTree tree(kTabs);
        DockableWindow& panel = *tree["c"];
        panel.setHeader(new DockableToolBarHeader(DockableToolBarHeader::Direction::Horizontal));
        tree.play(u"select c"_qs);
        QVERIFY(!panel.header()->isVisible());
        tree.play(u"undock c, settle"_qs);
        QVERIFY(panel.isFloating() && panel.header()->isVisible());
        tree.play(u"dock x c center, settle"_qs);
        DockableWindow& tabs = *tree["^x"];
        tabs.undock(true);
        const QPoint place = onScreen(tabs).topLeft();
        tree.play(u"undock x, settle"_qs);
        QCOMPARE(onScreen(panel).topLeft(), place); // a header instead of the strip
    }

    /// What slots may do is the fuzzer's.
    void pagesMayActAsTheyShowAndHide()
    {
        DockTree tree(kTabs);
        auto* content = new Restless;
        auto* panel = new DockableWindow(content);
        panel->setText(u"r"_qs);
        tree.play(u"dock r ^b center, settle"_qs);
        for (const QString& operation : {u"select b"_qs, u"undock r"_qs}) { // which it does itself
            content->whenHidden = [panel] { panel->undock(true); };
            tree.play(operation + u", settle"_qs);
            QCOMPARE(tree.text(), u"H(a T(b c d) e) r"_qs);
            tree.play(u"dock r ^b center, settle"_qs);
        }
        tree.play(u"select b"_qs);
        content->whenShown = [&tree] { tree.play(u"insert n ^b -1"_qs); };
        tree.play(u"select r"_qs);
        QVERIFY(tree["n"]->updatesEnabled() && tree["n"]->content()->updatesEnabled());
        tree.play(u"select c"_qs);
        content->whenShown = [&tree] { tree.play(u"select b"_qs); };
        tree.play(u"select r, settle"_qs);
        QCOMPARE(tree.tabs("^b")->activeIndex(), 0);
        QCOMPARE(tree.text(), u"H(a T(b c d r n) e)"_qs);
        tree.play(u"undock r, undock c, settle"_qs);
        content->whenHidden = [&tree] { tree["c"]->undock(true); }; // as it comes to it
        tree.play(u"dock r c center, settle"_qs);
        QCOMPARE(tree.text(), u"H(a T(b d n) e) c r"_qs);
        QVERIFY(panel->isVisible());
    }

    void keysWalkBetweenTabs()
    {
        DockTree tree(kTabs);
        DockableTabGroup* tabs = tree.tabs("^b");
        tree.root().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&tree.root()));
        tabs->tabAt(0)->setFocus(Qt::TabFocusReason);
        for (const auto& [key, index] :
             {std::pair(Qt::Key_Left, 0),
              {Qt::Key_End, 2},
              {Qt::Key_Right, 2},
              {Qt::Key_Left, 1},
              {Qt::Key_Home, 0}})
        {
            QTest::keyClick(QApplication::focusWidget(), key);
            QCOMPARE(tabs->activeIndex(), index);
            QCOMPARE(QApplication::focusWidget(), tabs->tabAt(index));
        }
        QTest::mouseClick(tabs->tabAt(1), Qt::LeftButton); // the focus goes along
        QCOMPARE(QApplication::focusWidget(), tabs->tabAt(1));
        connect(tabs, &DockableTabGroup::activeIndexChanged, &tree.root(), [tabs] { delete tabs; });
        QTest::keyClick(tabs->tabAt(1), Qt::Key_Right);
        settle();
        QCOMPARE(tree.text(), u"H(a e)"_qs);
    }

    void aDragThatRestsOnATabBringsItForward()
    {
        const QString file = u"text/uri-list"_qs;
        const struct
        {
            QString format;
            int tab;
            bool leaves, switches;
        } rows[] = {
            {file, 1, false, true},
            {file, 1, true, false},
            {u"application/tab-reorder"_qs, 1, false, false},
            {file, 0, false, false}}; // the active one
        for (const auto& [format, tab, leaves, switches] : rows) {
            DockTree tree(kTabs);
            DockableTabWidget* target = tree.tabs("^b")->tabAt(tab);
            QMimeData data;
            data.setData(format, "1");
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(target, &enter);
            QCOMPARE(enter.isAccepted(), switches || leaves);
            if (leaves) {
                QDragLeaveEvent leave;
                QApplication::sendEvent(target, &leave);
            }
            FakeClock clock(target);
            QCOMPARE(clock.fireTimers(399), 0);
            QCOMPARE(clock.fireTimers(400), switches ? 1 : 0);
            QCOMPARE(tree.tabs("^b")->activeIndex(), switches ? tab : 0);
        }
    }

    void anOverfullStripScrolls()
    {
        DockTree tree(kTabs);
        DockableTabGroup& tabs = *tree.tabs("^b");
        for (int i = 0; i < 20; ++i) {
            tabs.appendChild(DockTree::panel(u"Panel number %1"_qs.arg(i)));
        }
        settle();
        QCOMPARE(tabs.width(), 300); // tabs do not make it any wider
        const auto isSeen = [&](int index) {
            return onScreen(tabs).contains(onScreen(*tabs.tabAt(index)));
        };
        QVERIFY(isSeen(2) && !isSeen(22));
        tabs.setActiveIndex(22);
        QVERIFY(isSeen(22) && !isSeen(0));
        QWidget* strip = tabs.tabAt(0)->parentWidget()->parentWidget();
        for (int notch = 0; notch < 60; ++notch) {
            turnWheel(*strip, {5, 5}, {0, 120});
        }
        QVERIFY(isSeen(0) && !isSeen(22));
    }

    void aToolBarsGripTakesItsWindowAlong()
    {
        using Direction = DockableToolBarHeader::Direction;
        for (const auto direction : {Direction::Horizontal, Direction::Vertical}) {
            DockTree tree(u"H() Tools=200x200"_qs);
            DockableWindow& panel = *tree["Tools"];
            auto* header = new DockableToolBarHeader(direction);
            panel.setHeader(header);
            const bool beside = direction == Direction::Vertical;
            panel.setHeaderDirection(beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
            settle();
            QCOMPARE(header->accessibleName(), u"Tools"_qs);
            const QPoint place = panel.pos();
            tree.hand.press(*header, {5, 5});
            tree.hand.moveTo(header->mapToGlobal(QPoint(5, 5)) + QPoint(40, 50), 4);
            QCOMPARE(panel.pos(), place + QPoint(40, 50));
        }
    }
};

const ui::test::Registration<DockableTabGroupTest> kRegistration;
#include "tst_dockabletabgroup.moc"

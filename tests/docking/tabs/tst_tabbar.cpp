#include "controls/StyledApplication.h"
#include "docking/tabs/TabBench.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/tabnavigation.h>

#include <QtWidgets>

#include <functional>
#include <random>

using Bench = ui::test::TabBench;

class TabBarTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void selectingTellsOnceAndIgnoresWhatCannotBeSelected();
    void pagesMoveWithTheirTabs();
    void removingTheCurrentTabSelectsItsNeighbour();
    void tabAndPageGoTogether();
    void whateverIsDonePagesAndTabsStayInStep();
    void aSlotMayRemoveItsOwnTab();
    void clicksSelectButTakeNoFocus();
    void theAddButtonIsBesideTheLastTab();
    void longTextsAreCutAndShownInAToolTip();
    void anOverfullRowScrollsAndFadesOut();
    void keysWorkInTheHeader();
    void arrowKeysOfAnotherWidgetSwitchTabs();
    void assistiveToolsSeeTabs();

private:
    ui::test::StyledApplication m_application;
};

void TabBarTest::selectingTellsOnceAndIgnoresWhatCannotBeSelected()
{
    Bench bench;
    QCOMPARE(bench.bar.activeTab(), -1);
    bench.add();
    QCOMPARE(bench.told(), u"0:0"_qs);
    bench.add(2);
    bench.bar.setTab(2);
    bench.bar.setTab(2);
    QCOMPARE(bench.told(), u"2:2"_qs);
    bench.bar.getTab(1)->setEnabled(false);
    for (const int index : {1, -1, 3, INT_MIN, INT_MAX}) {
        bench.bar.setTab(index);
    }
    QCOMPARE(bench.told(), QString());
    QCOMPARE(bench.fault(), QString());
    QCOMPARE(bench.bar.getPage(3), nullptr);
    QCOMPARE(bench.bar.getTab(-1), nullptr);
    bench.bar.setEnabled(false); // and every tab with it
    bench.bar.setTab(0);
    QCOMPARE(bench.told(), QString());
    bench.bar.removeTab(2); // one must take its place all the same
    QCOMPARE(bench.told(), u"0:0"_qs);
}

void TabBarTest::pagesMoveWithTheirTabs()
{
    struct Move
    {
        int current, from, to;
        QLatin1String outcome; // what was told, and the order
    };
    const Move moves[] = {
        {0, 0, 2, QLatin1String("2:0 0>2:0, 1 2 0 3")},
        {3, 0, 1, QLatin1String("1:0 0>1:0, 1 0 2 3")},
        {0, 2, 0, QLatin1String("0:2 2>0:2, 2 0 1 3")},
        {1, 2, 2, QLatin1String(", 0 1 2 3")},
        {1, 9, 0, QLatin1String(", 0 1 2 3")},
        {1, 0, -1, QLatin1String(", 0 1 2 3")},
        {1, 0, 4, QLatin1String(", 0 1 2 3")},
    };
    for (const Move& move : moves) {
        Bench bench(4);
        bench.bar.setTab(move.current);
        bench.told();
        QSignalSpy anotherIndex(&bench.header, &TabBarHeader::indexChanged);
        bench.header.moveTab(move.from, move.to);
        QCOMPARE(anotherIndex.count(), bench.bar.activeTab() == move.current ? 0 : 1);
        QCOMPARE(bench.told() + u", "_qs + bench.texts(), move.outcome);
        QCOMPARE(bench.fault(), QString());
    }
}

void TabBarTest::removingTheCurrentTabSelectsItsNeighbour()
{
    Bench bench(5);
    bench.bar.getTab(3)->setEnabled(false);
    bench.bar.setTab(2);
    bench.told();
    const auto removing = [&bench](int index) {
        bench.bar.removeTab(index);
        return bench.told();
    };
    QCOMPARE(removing(0), u"1:2"_qs); // before it: the same tab has another index
    QCOMPARE(removing(1), u"2:4"_qs); // the disabled one behind it is passed over
    QCOMPARE(removing(2), u"0:1"_qs); // none behind it
    QCOMPARE(removing(0), u"-1:"_qs); // only the disabled one is left
    QCOMPARE(removing(7), QString());
    bench.add(3);
    QCOMPARE(bench.told(), u"1:5"_qs);
    bench.bar.getTab(2)->hide(); // passed over too
    QCOMPARE(removing(1), u"2:7"_qs);
    bench.bar.clear();
    QCOMPARE(bench.told(), u"-1:"_qs);
    QCOMPARE(removing(0), QString());

    bench.add(); // of a host that is never without a tab
    connect(&bench.header, &TabBarHeader::tabRemoved, &bench, [&bench] { bench.add(); });
    bench.bar.removeTab(0);
    QCOMPARE(bench.pageName(), u"9"_qs);
    QCOMPARE(bench.fault(), QString());
}

void TabBarTest::tabAndPageGoTogether()
{
    Bench bench(4);
    const QPointer<QWidget> removed = bench.bar.getPage(0);
    bench.bar.removeTab(0);
    QVERIFY(!removed->isVisible());
    Bench::processDeletions();
    QVERIFY(removed.isNull());
    delete bench.bar.getPage(0);
    QCOMPARE(bench.texts(), u"2 3"_qs);
    delete bench.bar.getTab(1); // and its page with it, later
    Bench::processDeletions();
    QCOMPARE(bench.texts(), u"2"_qs);
    QCOMPARE(bench.bar.findChild<QStackedWidget*>()->count(), 2); // that page and the blank one

    // A page that has found another parent is no longer ours to delete.
    const QPointer<QWidget> taken = bench.bar.getPage(0);
    QWidget elsewhere;
    taken->setParent(&elsewhere);
    QCOMPARE(bench.bar.count(), 0);
    Bench::processDeletions();
    bench.bar.addPage(u"Back"_qs, taken);
    bench.bar.removeTab(0);
    Bench other;
    other.bar.addPage(u"Moved"_qs, taken);
    Bench::processDeletions();
    QCOMPARE(other.bar.currentPage(), taken);
    other.bar.addPage(u"Again"_qs, taken);
    other.bar.addPage(u"Itself"_qs, &other.bar);
    other.bar.addPage(other.bar.getTab(0), new QWidget(&elsewhere));
    QCOMPARE(other.bar.count(), 1);
    other.bar.addPage(u"Empty"_qs, nullptr);
    QVERIFY(other.bar.getPage(1) != nullptr);

    TabItem* const given = other.bar.getTab(1); // away: it can be another header's
    given->setParent(&elsewhere);
    QCOMPARE(other.bar.count(), 1);
    TabBarHeader header;
    header.insertTab(0, given);
    QCOMPARE(header.currentTab(), given);
}

void TabBarTest::whateverIsDonePagesAndTabsStayInStep()
{
    for (unsigned int seed = 1; seed <= 60; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&random](int count) {
            return static_cast<int>(random() % static_cast<unsigned int>(count));
        };
        Bench bench(4);
        int depth = 0;
        const std::function<void()> step = [&] {
            const QScopedValueRollback<int> deeper(depth, depth + 1);
            const int index = any(bench.bar.count() + 2) - 1;
            const int other = any(bench.bar.count() + 2) - 1;
            TabItem* const tab = bench.bar.getTab(index);
            switch (any(9)) {
            case 0: bench.bar.removeTab(index); break;
            case 1: bench.header.moveTab(index, other); break;
            case 2: bench.bar.setTab(index); break;
            case 3: bench.header.closeTabs({index, other, index}); break;
            case 4: delete bench.bar.getPage(index); break;
            case 5: delete tab; break;
            case 6:
                if (tab != nullptr) {
                    tab->setEnabled(!tab->isEnabled());
                    connect(tab, &TabItem::closed, &bench, step);
                }
                break;
            case 7: Bench::processDeletions(); break;
            default: bench.add(2);
            }
        };
        const auto inSlot = [&] { // now and then, and not for ever
            if (depth < 3 && any(4) == 0) {
                step();
            }
        };
        connect(&bench.bar, &TabBar::tabChanged, &bench, inSlot);
        connect(&bench.header, &TabBarHeader::tabMoved, &bench, inSlot);
        connect(&bench.header, &TabBarHeader::tabRemoved, &bench, inSlot);
        for (int i = 0; i < 120; ++i) {
            step();
            QCOMPARE(u"seed %1"_qs.arg(seed) + bench.fault(), u"seed %1"_qs.arg(seed));
        }
    }
}

void TabBarTest::aSlotMayRemoveItsOwnTab()
{
    Bench bench(3);
    bench.show();
    TabItem* const tab = bench.bar.getTab(1);
    tab->addCloseButton();
    connect(tab, &TabItem::closed, &bench, [&] { bench.bar.removeTab(tab->index()); });
    Bench::layOut();
    auto* const button = tab->childAt(tab->width() - 10, tab->height() / 2);
    QVERIFY(qobject_cast<QAbstractButton*>(button));
    tab->setCloseButtonVisibility(false);
    QTest::mouseClick(tab, Qt::MiddleButton); // nothing to close it with
    QCOMPARE(bench.bar.count(), 3);
    tab->setCloseButtonVisibility(true);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(bench.texts(), u"0 2"_qs);

    TabItem* const last = bench.bar.getTab(1);
    last->addCloseButton();
    connect(last, &TabItem::closed, &bench, [last] { delete last; }); // at once, even
    QTest::mouseClick(last, Qt::MiddleButton);
    QCOMPARE(bench.texts(), u"0"_qs);
    connect(bench.bar.getTab(0), &TabItem::clicked, &bench, [&] { bench.bar.clear(); });
    QTest::mouseClick(bench.bar.getTab(0), Qt::LeftButton);
    QCOMPARE(bench.bar.count(), 0);
}

void TabBarTest::clicksSelectButTakeNoFocus()
{
    Bench bench(3);
    auto* field = new QLineEdit;
    bench.bar.addPage(u"Field"_qs, field);
    bench.show();
    bench.bar.setTab(3);
    field->setFocus();
    bench.told();
    ui::test::FakePointer pointer(&bench.header);
    pointer.moveTo(bench.place(1).center());
    pointer.press(Qt::RightButton);
    pointer.release(Qt::RightButton);
    bench.bar.getTab(2)->setEnabled(false);
    for (const int index : {2, 3, 0}) {
        QVERIFY(field->hasFocus());
        pointer.moveTo(bench.place(index).center());
        pointer.press();
        QCOMPARE(bench.told(), QString()); // it may become a drag
        pointer.release();
    }
    QCOMPARE(bench.told(), u"0:0"_qs);
}

void TabBarTest::theAddButtonIsBesideTheLastTab()
{
    QCOMPARE(Bench().bar.addButton(), nullptr);
    Bench bench(2, true);
    bench.show();
    GroupButton* const button = bench.bar.addButton();
    QCOMPARE(button->toolTip(), u"Add Tab"_qs);
    QCOMPARE(button->size(), QSize(20, 20));
    QCOMPARE(button->iconSize(), QSize(18, 18));
    const int end = bench.place(1).right();
    QVERIFY(button->x() > end && button->x() < end + 8);
    bench.add(30);
    Bench::layOut();
    QVERIFY(button->geometry().right() < bench.bar.width()); // still there when the row is full
}

void TabBarTest::longTextsAreCutAndShownInAToolTip()
{
    Bench bench(1);
    bench.show();
    TabItem* const tab = bench.bar.getTab(0);
    const QString name = u"R&D <b>"_qs + QString(200, u'x');
    const auto askForToolTip = [tab] {
        QHelpEvent request(QEvent::ToolTip, {5, 5}, tab->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(tab, &request);
    };
    bench.bar.renameTab(0, name);
    Bench::layOut();
    QCOMPARE(tab->text(), name);
    QVERIFY(tab->width() > 100 && tab->width() < 300);
    askForToolTip();
    QVERIFY(QToolTip::text().contains(name.toHtmlEscaped()));
    QToolTip::hideText();
    bench.bar.renameTab(0, u"R&D"_qs);
    QCOMPARE(tab->text(), u"R&D"_qs);
    QCOMPARE(tab->findChild<QAbstractButton*>()->text(), u"R&&D"_qs); // no mnemonic
}

void TabBarTest::anOverfullRowScrollsAndFadesOut()
{
    const QColor ground = m_application.theme().getColor(u"WindowBase"_qs);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        Bench bench(60);
        bench.bar.setLayoutDirection(direction);
        bench.show();
        TabBarHeader& header = bench.header;
        const auto isInSight = [&](int index) {
            return header.rect().contains(bench.place(index));
        };
        const auto wheel = [&header](QPoint angle, QPoint pixels = {}) {
            const QPoint at(20, 5);
            QWheelEvent event(at, header.mapToGlobal(at), pixels, angle, {}, {}, {}, false);
            QCoreApplication::sendEvent(&header, &event);
            return event.isAccepted();
        };
        const auto fades = [&](double x) {
            const QImage image = ui::test::renderWidget(header, 1.5);
            const QPointF at(x, header.height() - 4.0);
            return ui::test::closeTo(ui::test::pixelAt(image, at), ground, 3);
        };
        const double left = 0.5;
        const double right = header.width() - 0.5;
        const double leading = direction == Qt::LeftToRight ? left : right;
        QVERIFY(isInSight(0) && !isInSight(20));
        QVERIFY(!fades(leading) && fades(left + right - leading));
        for (const int index : {30, 59, 0, 31}) {
            bench.bar.setTab(index);
            QVERIFY(isInSight(index));
        }
        header.setScrollOffset(INT_MAX);
        QVERIFY(isInSight(59) && !isInSight(31)); // the current one may be out of sight
        QVERIFY(fades(leading) && !fades(left + right - leading));
        const int end = header.scrollOffset();
        QVERIFY(wheel({0, -120})); // at the end, and still not the page's to scroll
        for (int i = 0; i < 40; ++i) {
            wheel({0, 3}); // a pixel and a half each
        }
        const int notch = end - header.scrollOffset();
        QVERIFY(notch > 20);
        wheel({0, -120});
        QCOMPARE(header.scrollOffset(), end);
        wheel({0, 0}, {0, 7}); // a touchpad knows pixels
        QCOMPARE(header.scrollOffset(), end - 7);
        wheel({direction == Qt::LeftToRight ? 120 : -120, 0});
        QCOMPARE(header.scrollOffset(), end - 7 - notch);

        bench.bar.removeTab(31);
        QVERIFY(isInSight(bench.bar.activeTab())); // another is current
        bench.bar.clear();
        Bench::layOut();
        QCOMPARE(header.scrollOffset(), 0);
        QVERIFY(!wheel({0, -120})); // everything in sight: the wheel is others'
    }
}

void TabBarTest::keysWorkInTheHeader()
{
    struct Press
    {
        int key;
        Qt::KeyboardModifiers held;
        Qt::LayoutDirection direction;
        QLatin1String outcome; // the order, and the current tab
    };
    constexpr auto kMoving = Qt::ControlModifier | Qt::ShiftModifier;
    const Press presses[] = {
        {Qt::Key_Right, {}, Qt::LeftToRight, QLatin1String("0 1 2 3 4: 4")}, // 3 is disabled
        {Qt::Key_Left, {}, Qt::LeftToRight, QLatin1String("0 1 2 3 4: 1")},
        {Qt::Key_Right, {}, Qt::RightToLeft, QLatin1String("0 1 2 3 4: 1")},
        {Qt::Key_Home, {}, Qt::LeftToRight, QLatin1String("0 1 2 3 4: 0")},
        {Qt::Key_End, {}, Qt::RightToLeft, QLatin1String("0 1 2 3 4: 4")},
        {Qt::Key_Right, kMoving, Qt::LeftToRight, QLatin1String("0 1 3 2 4: 2")},
        {Qt::Key_Left, kMoving, Qt::RightToLeft, QLatin1String("0 1 3 2 4: 2")},
        {Qt::Key_Right, Qt::ControlModifier, Qt::LeftToRight, QLatin1String("0 1 2 3 4: 2")},
    };
    for (const Press& press : presses) {
        Bench bench(5);
        bench.bar.setLayoutDirection(press.direction);
        bench.bar.getTab(3)->setEnabled(false);
        bench.bar.setTab(2);
        bench.show();
        bench.header.setFocus(Qt::TabFocusReason);
        QShortcut frameStep(QKeySequence(Qt::Key_Right), &bench.bar);
        QSignalSpy stolen(&frameStep, &QShortcut::activated);
        QTest::keyClick(&bench.header, Qt::Key(press.key), press.held);
        QCOMPARE(bench.texts() + u": "_qs + bench.pageName(), press.outcome);
        QCOMPARE(stolen.count(), 0);
    }
}

void TabBarTest::arrowKeysOfAnotherWidgetSwitchTabs()
{
    QWidget window;
    QVBoxLayout column(&window);
    auto* const bench = new Bench(3);
    auto* const area = new QWidget;
    auto* const field = new QLineEdit(u"text"_qs, area);
    column.addWidget(area);
    area->setFocusPolicy(Qt::StrongFocus);
    ui::addTabArrowNavigation(area, &bench->bar);
    ui::addTabArrowNavigation(nullptr, &bench->bar);
    ui::addTabArrowNavigation(area, nullptr);
    window.show();
    QApplication::setActiveWindow(&window);
    QShortcut frameStep(QKeySequence(Qt::Key_Right), &window);
    QSignalSpy stolen(&frameStep, &QShortcut::activated);
    area->setFocus();
    QTest::keyClick(area, Qt::Key_Right);
    QTest::keyClick(area, Qt::Key_Right, Qt::KeypadModifier);
    QCOMPARE(bench->bar.activeTab(), 2);
    QTest::keyClick(area, Qt::Key_Right); // no further, and no shortcut instead
    QTest::keyClick(area, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(area, Qt::Key_Down);
    QTest::keyClick(field, Qt::Key_Left); // which has a use for it
    QCOMPARE(bench->bar.activeTab(), 2);
    bench->bar.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(area, Qt::Key_Right);
    QCOMPARE(bench->bar.activeTab(), 1);
    QCOMPARE(stolen.count(), 0);
    bench->bar.setEnabled(false);
    QTest::keyClick(area, Qt::Key_Right);
    QCOMPARE(bench->bar.activeTab(), 1);
    delete bench;
    QTest::keyClick(area, Qt::Key_Right);
    QCOMPARE(stolen.count(), 2);
}

void TabBarTest::assistiveToolsSeeTabs()
{
    Bench bench(3);
    bench.show();
    auto* const list = QAccessible::queryAccessibleInterface(&bench.header);
    QCOMPARE(list->role(), QAccessible::PageTabList);
    QCOMPARE(list->text(QAccessible::Name), u"Documents"_qs);
    bench.bar.setTab(2);
    QCOMPARE(list->childCount(), 3); // no overlays
    QAccessibleInterface* const first = list->child(0);
    QAccessibleInterface* const last = list->child(2);
    QCOMPARE(first->role(), QAccessible::PageTab);
    QCOMPARE(first->text(QAccessible::Name), u"0"_qs);
    QCOMPARE(first->parent(), list);
    QCOMPARE(list->indexOfChild(last), 2);
    QVERIFY(last->state().selected && !first->state().selected);
    bench.header.setFocus();
    QCOMPARE(list->focusChild(), last);
    QVERIFY(last->state().focused);
    QCOMPARE(list->childAt(first->rect().center().x(), first->rect().center().y()), first);
    bench.bar.getTab(0)->addCloseButton();
    QCOMPARE(first->child(0)->text(QAccessible::Name), u"Close Tab"_qs);
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(bench.bar.activeTab(), 0);
    bench.bar.getTab(1)->setEnabled(false);
    QVERIFY(list->child(1)->actionInterface()->actionNames().isEmpty());
}

const ui::test::Registration<TabBarTest> kRegistration;

#include "tst_tabbar.moc"

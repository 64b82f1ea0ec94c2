// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include "docking/tabs/TabBench.h"
#include <MorrantUI/controls/buttons/GroupButton.h>
#include <MorrantUI/docking/tabs/tabnavigation.h>

using Bench = ui::test::TabBench;

class TabBarTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void stepsLeadToTabsAndTellOfThem_data()
    {
        QTest::addColumn<int>("tabs");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("order");
        const auto row = [](int tabs, const char* steps, const char* told, const char* order) {
            QTest::newRow(steps) << tabs << QString::fromLatin1(told) << QString::fromLatin1(order);
        };
        row(0, "add 3", "0:0@", "0 1 2");
        row(3, "disable 1, set 2, set 2, set 1, set -1, set 3", "2:2@", "0 1 2");
        // Moved tabs take their pages along. Another one at the same index is told, too.
        row(4, "move 0 2", "2:0@ 0>2:0", "1 2 0 3");
        row(4, "set 3, move 0 1", "3:3@ 1:0@ 0>1:0", "1 0 2 3");
        row(4, "move 2 0", "0:2 2>0:2", "2 0 1 3");
        row(4, "move 2 2, move 9 0, move 0 -1, move 0 4", "", "0 1 2 3");
        // In place of a removed one comes the next behind it that can be selected, or before it.
        row(5, "disable 3, set 2, remove 0, remove 1", "2:2@ 1:2@ 2:4@", "1 3 4");
        row(4, "disable 1, set 3, remove 3, remove 2, remove 7", "3:3@ 2:2@ 0:0@", "0 1");
        row(2, "disable 1, remove 0, add 3, hide 2, remove 1", "-1:@ 1:2@ 2:4@", "1 3 4");
        row(2, "clear, remove 0", "-1:@", "");
        // Keys; 3 is disabled.
        row(5, "disable 3, set 2, key Right", "2:2@ 4:4@", "0 1 2 3 4");
        row(5, "disable 3, set 2, key Left", "2:2@ 1:1@", "0 1 2 3 4");
        row(5, "mirror, disable 3, set 2, key Left", "2:2@ 4:4@", "0 1 2 3 4");
        row(5, "disable 0, set 2, key Home", "2:2@ 1:1@", "0 1 2 3 4");
        row(5, "disable 4, key End", "3:3@", "0 1 2 3 4");
        row(5, "disable 3, set 2, key Ctrl+Shift+Right", "2:2@ 3:2@ 2>3:2", "0 1 3 2 4");
        row(5, "set 2, key Ctrl+Shift+Left", "2:2@ 1:2@ 2>1:2", "0 2 1 3 4");
        // Drops.
        for (const char* const direction : {"", "mirror, "}) {
            const auto drop = [&](const char* steps, const char* told, const char* order) {
                row(4, (QByteArray(direction) + steps).constData(), told, order);
            };
            drop("drop 0 2 5", "2:0@ 0>2:0", "1 2 0 3");
            drop("drop 0 2 -5", "1:0@ 0>1:0", "1 0 2 3");
            drop("drop 3 0 -5", "0:3 3>0:3", "3 0 1 2");
            drop("drop 3 0 5", "1:3@ 3>1:3", "0 3 1 2");
            drop("drop 1 3 500", "3:1@ 1>3:1", "0 2 3 1");
            drop("drop 1 1 5, drop 1 2 -5", "", "0 1 2 3"); // onto and beside itself
        }
    }

    void stepsLeadToTabsAndTellOfThem()
    {
        QFETCH(int, tabs);
        Bench bench(tabs);
        bench.show();
        bench.play(QString::fromLatin1(QTest::currentDataTag()));
        QTEST(bench.told(), "told");
        QTEST(bench.texts(), "order");
    }

    void aTabBarThatIsDisabledKeepsItsPage()
    {
        Bench bench(3);
        bench.bar.setEnabled(false); // and every tab with it
        bench.play(u"set 2"_qs);
        QCOMPARE(bench.told(), QString());
        bench.play(u"remove 0"_qs); // one must take its place all the same
        QCOMPARE(bench.told(), u"0:1@"_qs);
        QVERIFY(!bench.bar.getPage(3) && !bench.bar.getTab(-1));
        // A host that is never without a tab.
        connect(&bench.header, &TabBarHeader::tabRemoved, &bench, [&bench] { bench.add(); });
        bench.play(u"clear"_qs);
        QCOMPARE(bench.pageName(), u"3"_qs);
    }

    void pagesAndTabsMoveToOtherParents()
    {
        Bench bench(1);
        // A page that has found another parent is no longer ours to delete.
        const QPointer<QWidget> taken = bench.bar.getPage(0);
        QWidget elsewhere;
        taken->setParent(&elsewhere);
        QCOMPARE(bench.bar.count(), 0);
        bench.bar.addPage(u"Back"_qs, taken);
        bench.bar.removeTab(0);
        TabBar other(u"Other"_qs, false);
        other.addPage(u"Moved"_qs, taken);
        Bench::processDeletions();
        QCOMPARE(other.currentPage(), taken);
        other.addPage(u"Again"_qs, taken);
        other.addPage(u"Itself"_qs, &other);
        other.addPage(other.getTab(0), new QWidget(&elsewhere));
        QCOMPARE(other.count(), 1);
        other.addPage(u"Empty"_qs, nullptr);
        QVERIFY(other.getPage(1) != nullptr);
        TabItem* const given = other.getTab(1); // away: it can be another header's
        given->setParent(&elsewhere);
        QCOMPARE(other.count(), 1);
        TabBarHeader header;
        header.insertTab(0, given);
        QCOMPARE(header.currentTab(), given);
    }

    /// Also when slots act, up to three deep.
    void whateverIsDonePagesAndTabsStayInStep()
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

    void theCrossAndTheMiddleButtonClose()
    {
        Bench bench(3);
        bench.show();
        TabItem* const tab = bench.bar.getTab(1);
        tab->addCloseButton();
        connect(tab, &TabItem::closed, &bench, [&] { bench.bar.removeTab(tab->index()); });
        Bench::layOut();
        QWidget* const button = tab->childAt(tab->width() - 10, tab->height() / 2);
        QVERIFY(qobject_cast<QAbstractButton*>(button));
        tab->setCloseButtonVisibility(false);
        QTest::mouseClick(tab, Qt::MiddleButton); // nothing to close it with
        QCOMPARE(bench.bar.count(), 3);
        tab->setCloseButtonVisibility(true);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(bench.texts(), u"0 2"_qs);
    }

    void clicksSelectButTakeNoFocus()
    {
        Bench bench(3);
        auto* field = new QLineEdit;
        bench.bar.addPage(u"Field"_qs, field);
        bench.show();
        bench.bar.setTab(3);
        field->setFocus();
        bench.told();
        bench.bar.getTab(2)->setEnabled(false);
        ui::test::FakePointer pointer(&bench.header);
        for (const auto& [index, button] :
             {std::pair(1, Qt::RightButton),
              {2, Qt::LeftButton},
              {3, Qt::LeftButton},
              {0, Qt::LeftButton}})
        {
            QVERIFY(field->hasFocus());
            pointer.press(ui::test::middleOf(bench.header, index), button);
            QCOMPARE(bench.told(), QString()); // it may become a drag
            pointer.release(button);
        }
        QCOMPARE(bench.told(), u"0:0@"_qs);
    }

    void theAddButtonIsBesideTheLastTab()
    {
        QCOMPARE(Bench().bar.addButton(), nullptr);
        Bench bench(2, true);
        bench.show();
        const GroupButton& button = *bench.bar.addButton();
        QCOMPARE(button.toolTip(), u"Add Tab"_qs);
        const int end = bench.bar.getTab(1)->geometry().right();
        QVERIFY(button.x() > end && button.x() < end + 8);
        bench.add(30);
        Bench::layOut();
        QVERIFY(button.geometry().right() < bench.bar.width()); // still there when the row is full
    }

    void longTextsAreCutAndShownInAToolTip()
    {
        Bench bench(1);
        bench.show();
        TabItem& tab = *bench.bar.getTab(0);
        const QString name = u"R&D <b>"_qs + QString(200, u'x');
        bench.bar.renameTab(0, name);
        Bench::layOut();
        QCOMPARE(tab.text(), name);
        QVERIFY(tab.width() > 100 && tab.width() < 300);
        QHelpEvent request(QEvent::ToolTip, {5, 5}, tab.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&tab, &request);
        QVERIFY(QToolTip::text().contains(name.toHtmlEscaped()));
        QToolTip::hideText();
        bench.bar.renameTab(0, u"R&D"_qs);
        QCOMPARE(tab.findChild<QAbstractButton*>()->text(), u"R&&D"_qs); // no mnemonic
    }

    void anOverfullRowScrollsAndFadesOut()
    {
        const QColor ground = theme().getColor(u"WindowBase"_qs);
        for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            Bench bench(60);
            bench.bar.setLayoutDirection(direction);
            bench.show();
            TabBarHeader& header = bench.header;
            const auto isInSight = [&](int index) {
                const QRect tab(
                    header.tab(index)->mapTo(&header, QPoint()), header.tab(index)->size());
                return header.rect().contains(tab);
            };
            const auto wheel = [&header](QPoint angle, QPoint pixels = {}) {
                return ui::test::turnWheel(header, {20, 5}, angle, {}, pixels);
            };
            const auto fading = [&] { // "<" at the leading edge, ">" at the other
                const QImage image = ui::test::renderWidget(header, 1.5);
                QString edges;
                for (const bool leading : {true, false}) {
                    const bool left = leading == (direction == Qt::LeftToRight);
                    const QPointF at(left ? 0.5 : header.width() - 0.5, header.height() - 4.0);
                    const bool fades = ui::test::closeTo(ui::test::pixelAt(image, at), ground, 3);
                    edges += fades ? (leading ? u"<" : u">") : u"";
                }
                return edges;
            };
            QVERIFY(isInSight(0) && !isInSight(20));
            QCOMPARE(fading(), u">"_qs);
            for (const int index : {30, 59, 0, 31}) {
                bench.bar.setTab(index);
                QVERIFY(isInSight(index));
            }
            QCOMPARE(fading(), u"<>"_qs);
            header.setScrollOffset(INT_MAX);
            QVERIFY(isInSight(59) && !isInSight(31)); // the current one may be out of sight
            QCOMPARE(fading(), u"<"_qs);
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

    void theHeadersKeysAreNoShortcuts()
    {
        Bench bench(3);
        bench.show();
        bench.header.setFocus(Qt::TabFocusReason);
        QShortcut frameStep(QKeySequence(Qt::Key_Right), &bench.bar);
        const QSignalSpy stolen(&frameStep, &QShortcut::activated);
        bench.play(u"key Right"_qs);
        QCOMPARE(bench.told(), u"1:1@"_qs);
        QCOMPARE(stolen.count(), 0);
    }

    void arrowKeysOfAnotherWidgetSwitchTabs()
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
        const QSignalSpy stolen(&frameStep, &QShortcut::activated);
        area->setFocus();
        for (const auto& [target, key, held, current] :
             {std::tuple(area, Qt::Key_Right, Qt::NoModifier, 1),
              {area, Qt::Key_Right, Qt::KeypadModifier, 2},
              {area, Qt::Key_Right, Qt::NoModifier, 2}, // no further, and no shortcut instead
              {area, Qt::Key_Left, Qt::ShiftModifier, 2},
              {field, Qt::Key_Left, Qt::NoModifier, 2}}) // which has a use for it
        {
            QTest::keyClick(target, key, held);
            QCOMPARE(bench->bar.activeTab(), current);
        }
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

    void assistiveToolsSeeTabs()
    {
        Bench bench(3);
        bench.show();
        auto& list = *QAccessible::queryAccessibleInterface(&bench.header);
        QCOMPARE(list.role(), QAccessible::PageTabList);
        QCOMPARE(list.text(QAccessible::Name), u"Documents"_qs);
        bench.bar.setTab(2);
        bench.header.setFocus();
        QCOMPARE(list.childCount(), 3); // no overlays
        for (int i = 0; i < 3; ++i) {
            QAccessibleInterface& tab = *list.child(i);
            QCOMPARE(tab.role(), QAccessible::PageTab);
            QCOMPARE(tab.text(QAccessible::Name), QString::number(i));
            QCOMPARE(tab.parent(), &list);
            QCOMPARE(list.indexOfChild(&tab), i);
            QCOMPARE(list.childAt(tab.rect().center().x(), tab.rect().center().y()), &tab);
            QCOMPARE(bool(tab.state().selected), i == 2);
            QCOMPARE(bool(tab.state().focused), i == 2);
        }
        QCOMPARE(list.focusChild(), list.child(2));
        bench.bar.getTab(0)->addCloseButton();
        QAccessibleInterface& first = *list.child(0);
        QCOMPARE(first.child(0)->text(QAccessible::Name), u"Close Tab"_qs);
        first.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(bench.bar.activeTab(), 0);
        bench.bar.getTab(1)->setEnabled(false);
        QVERIFY(list.child(1)->actionInterface()->actionNames().isEmpty());
    }
};

const ui::test::Registration<TabBarTest> kRegistration;
#include "tst_tabbar.moc"

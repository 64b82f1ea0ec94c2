// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include "docking/tabs/TabBench.h"
#include "menus/answers.h"

using ui::test::answerDialog;

namespace {

/// A bench whose tabs have menus.
class Bench : public ui::test::TabBench
{
public:
    explicit Bench(int tabs, int type = TabItem::Closable)
        : TabBench(tabs)
    {
        for (int i = 0; i < tabs; ++i) {
            bar.getTab(i)->setMenuKind(TabItem::ContextMenu);
            bar.getTab(i)->setMenuType(type);
        }
        bar.show();
    }

    /// Opens the menu of a tab, or of the current one by key for -1; null if none opens.
    QPointer<QMenu> open(int index)
    {
        QWidget* const asked = index < 0 ? static_cast<QWidget*>(&header) : bar.getTab(index);
        const auto reason = index < 0 ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse;
        QContextMenuEvent event(reason, {4, 4}, asked->mapToGlobal(QPoint(4, 4)));
        QCoreApplication::sendEvent(asked, &event);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }

    /// "Close*", a star for what can be chosen.
    QString entries(int index)
    {
        const QPointer<QMenu> menu = open(index);
        QStringList all;
        for (const QAction* action : menu ? menu->actions() : QList<QAction*>()) {
            const QString text = action->isSeparator() ? u"-"_qs : action->text();
            all << text + QLatin1String(action->isEnabled() && !action->isSeparator() ? "*" : "");
        }
        if (menu) {
            menu->close();
        }
        processDeletions();
        return menu ? u"the menu stays"_qs : all.join(u',');
    }

    void choose(int index, const QString& entry)
    {
        QMenu* const menu = open(index);
        for (QAction* action : menu->actions()) {
            if (action->text() == entry) {
                menu->setActiveAction(action);
            }
        }
        QTest::keyClick(menu, Qt::Key_Return);
        processDeletions();
    }
};

} // namespace

class TabMenusTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theEntriesFollowTypeAndPlace()
    {
        const auto closable = [](const char* close, const char* left, const char* right) {
            return u"Close%1,-,Close Others%1,Close Tabs to the Left%2,Close Tabs to the Right%3"_qs
                .arg(QLatin1String(close), QLatin1String(left), QLatin1String(right));
        };
        QCOMPARE(Bench(1).entries(0), closable("", "", ""));
        Bench three(3);
        QCOMPARE(three.entries(0), closable("*", "", "*"));
        QCOMPARE(three.entries(1), closable("*", "*", "*"));
        QCOMPARE(three.entries(2), closable("*", "*", ""));
        QCOMPARE(Bench(1, TabItem::Renamable).entries(0), u"Rename...*,Delete"_qs);
        QCOMPARE(Bench(2, TabItem::Renamable).entries(0), u"Rename...*,Delete*"_qs);
        QCOMPARE(Bench(2, 3).entries(0), QString());
        for (const int kind : {0, 2, -1}) {
            three.bar.getTab(1)->setMenuKind(kind);
            QCOMPARE(three.open(1), nullptr);
        }
        // The host's entries come behind ours, and make a menu where there would be none.
        TabItem* const tab = three.bar.getTab(2);
        tab->setMenuType(0);
        connect(tab, &TabItem::menuAboutToShow, tab, [](QMenu* menu) {
            menu->addAction(u"Close Composition"_qs);
        });
        three.bar.setTab(2);
        for (const int index : {2, -1}) { // the menu key opens that of the current tab
            QCOMPARE(three.entries(index), u"Close Composition*"_qs);
        }
        tab->setEnabled(false);
        QCOMPARE(three.entries(-1), QString());
    }

    void closingSeveralKeepsTheChosenOne()
    {
        const struct
        {
            int index;
            const char *entry, *left, *told;
        } choices[] = {
            {2, "Close Others", "2", "2:2@ closed 0 closed 1 closed 3 closed 4 0:2@"},
            {3, "Close Tabs to the Left", "3 4", "3:3@ closed 0 closed 1 closed 2 0:3@"},
            {1, "Close Tabs to the Right", "0 1", "1:1@ closed 2 closed 3 closed 4"}};
        for (const bool hostRemoves : {false, true}) { // as hosts do: one change for all, even so
            for (const auto& [index, entry, left, told] : choices) {
                Bench bench(5);
                bench.bar.setTab(4);
                bench.told();
                for (int i = 0; hostRemoves && i < 5; ++i) {
                    TabItem* const tab = bench.bar.getTab(i);
                    connect(tab, &TabItem::closed, tab, [&bench, tab] {
                        QCOMPARE(bench.fault(), QString()); // it may ask in a dialog, say
                        bench.bar.removeTab(tab->index());
                    });
                }
                bench.choose(index, QString::fromLatin1(entry));
                QCOMPARE(bench.told(), QString::fromLatin1(told));
                QCOMPARE(bench.texts(), QString::fromLatin1(left));
                const int blank = 1;
                const auto pages = bench.bar.findChild<QStackedWidget*>()->count();
                QCOMPARE(pages, bench.bar.count() + blank);
            }
        }
    }

    void slotsMayDeleteWhoeverTellsThem()
    {
        Bench chain(5); // the first takes its neighbour along, at once
        connect(chain.bar.getTab(0), &TabItem::closed, &chain, [&] { delete chain.bar.getTab(1); });
        chain.choose(3, u"Close Others"_qs);
        QCOMPARE(chain.told(), u"3:3@ closed 0 closed 2 closed 4 0:3@"_qs);
        Bench gone(4);
        connect(gone.bar.getTab(1), &TabItem::closed, &gone, [&] { delete gone.alive.data(); });
        gone.header.closeTabs({0, 1, 2, 7, -1});
        QCOMPARE(gone.told(), u"closed 0 closed 1"_qs);

        Bench bench(3);
        TabItem* tab = bench.bar.getTab(0);
        const QPointer<QMenu> menu = bench.open(0);
        connect(tab, &TabItem::closed, &bench, [&] {
            delete tab;
            QVERIFY(menu); // it is handling the key
        });
        menu->setActiveAction(menu->actions().constFirst());
        QTest::keyClick(menu, Qt::Key_Return);
        bench.processDeletions();
        QVERIFY(menu.isNull());
        tab = bench.bar.getTab(0);
        connect(tab, &TabItem::menuAboutToShow, &bench, [tab] { delete tab; });
        QCOMPARE(bench.entries(0), QString());
        QCOMPARE(bench.texts(), u"2"_qs);
    }

    void aConfirmedNameIsShownAndTold()
    {
        Bench bench(2, TabItem::Renamable);
        QString asked;
        answerDialog([&asked](QDialog& dialog) {
            auto* const field = dialog.findChild<QLineEdit*>();
            const auto* const label = qobject_cast<QLabel*>(field->parentWidget()->childAt(2, 2));
            asked = dialog.windowTitle() + u'|' + (label ? label->text() : QString()) + u'|'
                    + field->selectedText();
            QTest::keyClicks(field, u"rig & roll"_qs);
            QTest::keyClick(field, Qt::Key_Return);
        });
        bench.choose(1, u"Rename..."_qs);
        QCOMPARE(asked, u"Rename Tab|New Name:|1"_qs);
        bench.bar.setTab(1);
        QCOMPARE(bench.told(), u"renamed rig & roll 1:1@"_qs);
        answerDialog([](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(u"dropped"_qs);
            dialog.reject();
        });
        bench.play(u"key F2, disable 1"_qs);
        answerDialog([](QDialog&) { QFAIL("a disabled tab asks"); });
        bench.play(u"key F2"_qs);
        QCoreApplication::processEvents(); // nothing to answer
        QCOMPARE(bench.texts(), u"0 rig & roll"_qs);
        QCOMPARE(bench.told(), QString());
    }

    void onlyYesTellsOfADeletion()
    {
        using Box = QDialogButtonBox;
        Bench bench(2, TabItem::Renamable);
        for (const auto answer : {Box::No, Box::NoButton, Box::Yes}) { // none is Escape
            QStringList asked;
            answerDialog([&asked, answer](QDialog& dialog) {
                for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                    asked << label->text();
                }
                auto* const box = dialog.findChild<Box*>();
                QCOMPARE(box->standardButtons(), Box::Yes | Box::No);
                QVERIFY(box->button(Box::No)->isDefault());
                if (answer == Box::NoButton) {
                    QTest::keyClick(&dialog, Qt::Key_Escape);
                } else {
                    box->button(answer)->click();
                }
            });
            bench.choose(1, u"Delete"_qs);
            QCOMPARE(asked.mid(0, 2).join(u'|'), u"Delete Script Tab?|This is not undoable."_qs);
            QCOMPARE(bench.told(), answer == Box::Yes ? u"deleted 1"_qs : QString());
        }
        QCOMPARE(bench.texts(), u"0 1"_qs); // the owner's to remove
    }

    void aDoubleClickRenamesAfterItsRelease()
    {
        const auto doubleClick = [](TabItem* tab) {
            for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
                const QPointF at(8, 8);
                QMouseEvent event(type, at, tab->mapToGlobal(at), Qt::LeftButton, {}, {});
                QCoreApplication::sendEvent(tab, &event);
            }
        };
        constexpr int kDelay = 100; // milliseconds
        Bench bench(2, TabItem::Renamable);
        ui::test::FakeClock clock(&bench.bar);
        TabItem* const tab = bench.bar.getTab(1);
        doubleClick(tab);
        QCOMPARE(bench.told(), u"1:1@"_qs);
        QTest::mousePress(tab, Qt::LeftButton); // there is more to come
        QCOMPARE(clock.fireTimers(kDelay), 0);
        QTest::mouseRelease(tab, Qt::LeftButton);
        doubleClick(tab);
        bench.bar.hide();
        QCOMPARE(clock.fireTimers(kDelay), 0);
        bench.bar.show();
        doubleClick(tab);
        answerDialog([](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(u"new"_qs);
            dialog.accept();
        });
        QCOMPARE(clock.fireTimers(kDelay), 1);
        QCOMPARE(bench.told(), u"renamed new"_qs);
        tab->setMenuType(TabItem::Closable);
        doubleClick(tab);
        QCOMPARE(clock.fireTimers(kDelay), 0);
    }

    void theTabMayDieWhileItAsks()
    {
        for (const auto ask : {&TabItem::askForName, &TabItem::askToDelete}) {
            Bench bench(2, TabItem::Renamable);
            TabItem* const tab = bench.bar.getTab(0);
            answerDialog([tab](QDialog&) { delete tab; }); // the dialog's parent
            (tab->*ask)();
            QCOMPARE(bench.told() + bench.texts(), u"0:1@1"_qs);
        }
    }
};

const ui::test::Registration<TabMenusTest> kRegistration;
#include "tst_tabmenus.moc"

#include "controls/StyledApplication.h"
#include "docking/tabs/TabBench.h"
#include "menus/answers.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"

#include <QtWidgets>

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

class TabMenusTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theEntriesFollowTypeAndPlace();
    void onlyATabOfKindOneHasAMenu();
    void closingSeveralKeepsTheChosenOne();
    void slotsMayRemoveTabsWhileSeveralClose();
    void slotsMayDeleteTheTabWhoseMenuItIs();
    void aConfirmedNameIsShownAndTold();
    void onlyYesTellsOfADeletion();
    void aDoubleClickRenamesAfterItsRelease();
    void theTabMayDieWhileItAsks();

private:
    ui::test::StyledApplication m_application;
};

void TabMenusTest::theEntriesFollowTypeAndPlace()
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
}

void TabMenusTest::onlyATabOfKindOneHasAMenu()
{
    Bench bench(3);
    for (const int kind : {0, 2, -1}) {
        bench.bar.getTab(1)->setMenuKind(kind);
        QCOMPARE(bench.open(1), nullptr);
    }
    // The host's entries come behind ours, and make a menu where there would be none.
    TabItem* const tab = bench.bar.getTab(2);
    tab->setMenuType(0);
    connect(tab, &TabItem::menuAboutToShow, &bench, [](QMenu* menu) {
        menu->addAction(u"Close Composition"_qs);
    });
    QCOMPARE(bench.entries(2), u"Close Composition*"_qs);

    bench.bar.setTab(2); // The menu key opens that of the current tab.
    QCOMPARE(bench.entries(-1), u"Close Composition*"_qs);
    tab->setEnabled(false);
    QCOMPARE(bench.entries(-1), QString());
}

void TabMenusTest::closingSeveralKeepsTheChosenOne()
{
    struct Choice
    {
        int index;
        QLatin1String entry, left, told;
    };
    const Choice choices[] = {
        {2,
         QLatin1String("Close Others"),
         QLatin1String("2"),
         QLatin1String("2:2 closed 0 closed 1 closed 3 closed 4 0:2")},
        {3,
         QLatin1String("Close Tabs to the Left"),
         QLatin1String("3 4"),
         QLatin1String("3:3 closed 0 closed 1 closed 2 0:3")},
        {1,
         QLatin1String("Close Tabs to the Right"),
         QLatin1String("0 1"),
         QLatin1String("1:1 closed 2 closed 3 closed 4")},
        {1, QLatin1String("Close"), QLatin1String("0 1 2 3 4"), QLatin1String("closed 1")},
    };
    for (const Choice& choice : choices) {
        Bench bench(5);
        bench.bar.setTab(4);
        bench.told();
        bench.choose(choice.index, choice.entry);
        QCOMPARE(bench.told(), choice.told);
        QCOMPARE(bench.texts(), choice.left);
        QCOMPARE(bench.fault(), QString());
        const int blank = 1;
        QCOMPARE(bench.bar.findChild<QStackedWidget*>()->count(), bench.bar.count() + blank);
    }
}

void TabMenusTest::slotsMayRemoveTabsWhileSeveralClose()
{
    Bench own(5); // as hosts do: whatever is closed is removed
    for (int i = 0; i < 5; ++i) {
        TabItem* const tab = own.bar.getTab(i);
        connect(tab, &TabItem::closed, &own, [&own, tab] { own.bar.removeTab(tab->index()); });
    }
    own.choose(4, u"Close Tabs to the Left"_qs);
    QCOMPARE(own.told(), u"4:4 closed 0 closed 1 closed 2 closed 3 0:4"_qs); // one change for all
    QCOMPARE(own.texts(), u"4"_qs);

    Bench chain(5); // the first takes its neighbour along, at once
    connect(chain.bar.getTab(0), &TabItem::closed, &chain, [&] { delete chain.bar.getTab(1); });
    chain.choose(3, u"Close Others"_qs);
    QCOMPARE(chain.texts(), u"3"_qs);
    QCOMPARE(chain.told(), u"3:3 closed 0 closed 2 closed 4 0:3"_qs);

    Bench asking(3); // with a dialog, say: the page in front is already another
    connect(asking.bar.getTab(1), &TabItem::closed, &asking, [&] {
        QCOMPARE(asking.fault(), QString());
    });
    asking.header.closeTabs({0, 1});
    QCOMPARE(asking.told(), u"closed 0 closed 1 0:2"_qs);

    Bench gone(4);
    connect(gone.bar.getTab(1), &TabItem::closed, &gone, [&] { delete gone.alive.data(); });
    gone.header.closeTabs({0, 1, 2, 7, -1});
    QVERIFY(gone.alive.isNull());
    QCOMPARE(gone.told(), u"closed 0 closed 1"_qs);
}

void TabMenusTest::slotsMayDeleteTheTabWhoseMenuItIs()
{
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
    QCOMPARE(bench.texts(), u"1 2"_qs);

    tab = bench.bar.getTab(0);
    connect(tab, &TabItem::menuAboutToShow, &bench, [tab] { delete tab; });
    QCOMPARE(bench.entries(0), QString());
    QCOMPARE(bench.texts(), u"2"_qs);
}

void TabMenusTest::aConfirmedNameIsShownAndTold()
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
    QCOMPARE(bench.texts(), u"0 rig & roll"_qs);
    QCOMPARE(bench.told(), u"renamed rig & roll"_qs);

    bench.bar.setTab(1);
    bench.told();
    answerDialog([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(u"dropped"_qs);
        dialog.reject();
    });
    QTest::keyClick(&bench.header, Qt::Key_F2);
    bench.bar.getTab(1)->setEnabled(false);
    answerDialog([](QDialog&) { QFAIL("a disabled tab asks"); });
    QTest::keyClick(&bench.header, Qt::Key_F2);
    QCoreApplication::processEvents(); // nothing to answer
    QCOMPARE(bench.texts(), u"0 rig & roll"_qs);
    QCOMPARE(bench.told(), QString());
}

void TabMenusTest::onlyYesTellsOfADeletion()
{
    using Box = QDialogButtonBox;
    Bench bench(2, TabItem::Renamable);
    QStringList asked;
    const auto pressing = [&asked](Box::StandardButton button) {
        return [&asked, button](QDialog& dialog) {
            for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                asked << label->text();
            }
            auto* const box = dialog.findChild<Box*>();
            QCOMPARE(box->standardButtons(), Box::Yes | Box::No);
            QVERIFY(box->button(Box::No)->isDefault());
            box->button(button)->click();
        };
    };
    answerDialog(pressing(Box::No));
    bench.choose(1, u"Delete"_qs);
    answerDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    bench.choose(1, u"Delete"_qs);
    QCOMPARE(bench.told(), QString());
    answerDialog(pressing(Box::Yes));
    bench.choose(1, u"Delete"_qs);
    QCOMPARE(bench.told(), u"deleted 1"_qs);
    QCOMPARE(bench.texts(), u"0 1"_qs); // the owner's to remove
    QCOMPARE(asked.mid(0, 2).join(u'|'), u"Delete Script Tab?|This is not undoable."_qs);
}

void TabMenusTest::aDoubleClickRenamesAfterItsRelease()
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
    QCOMPARE(bench.told(), u"1:1"_qs);
    QTest::mousePress(tab, Qt::LeftButton); // there is more to come
    QCOMPARE(clock.fireTimers(kDelay), 0);
    QTest::mouseRelease(tab, Qt::LeftButton);
    QCOMPARE(clock.fireTimers(kDelay), 0);
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

void TabMenusTest::theTabMayDieWhileItAsks()
{
    for (const auto ask : {&TabItem::askForName, &TabItem::askToDelete}) {
        Bench bench(2, TabItem::Renamable);
        TabItem* const tab = bench.bar.getTab(0);
        answerDialog([tab](QDialog&) { delete tab; }); // the dialog's parent
        (tab->*ask)();
        QCOMPARE(bench.texts(), u"1"_qs);
        QCOMPARE(bench.told(), u"0:1"_qs);
    }
}

const ui::test::Registration<TabMenusTest> kRegistration;

#include "tst_tabmenus.moc"

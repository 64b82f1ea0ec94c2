#include "controls/StyledApplication.h"
#include "menus/answers.h"
#include "support/FakeClock.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/TabBar.h>
#include <MorrantUI/docking/TabBarHeader.h>
#include <MorrantUI/docking/TabItem.h>

#include <QtWidgets>

using ui::test::answerDialog;

namespace {

/// A bar of tabs with menus, and what they have told: "closed 1" for the tab of that name.
class Bench : public QObject
{
public:
    explicit Bench(int tabs, int type = TabItem::Closable)
        : bar(new TabBar(QStringLiteral("Scripts"), false))
    {
        for (int i = 0; i < tabs; ++i) {
            bar->addPage(QString::number(i), new QWidget);
            TabItem* const tab = bar->getTab(i);
            tab->setMenuKind(TabItem::ContextMenu);
            tab->setMenuType(type);
            note(tab, &TabItem::closed, "closed ");
            note(tab, &TabItem::renamed, "renamed ");
            note(tab, &TabItem::deleted, "deleted ");
        }
        bar->show();
    }
    ~Bench() override { delete bar.data(); }

    void note(TabItem* tab, void (TabItem::*signal)(), const char* what)
    {
        connect(
            tab, signal, this, [this, tab, what] { told << QLatin1String(what) + tab->text(); });
    }

    /// Opens the menu of a tab; null if none opens.
    QMenu* open(int index)
    {
        TabItem* const tab = bar->getTab(index);
        const QPoint at(4, 4);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, tab->mapToGlobal(at));
        QCoreApplication::sendEvent(tab, &event);
        auto* const menu = tab->findChild<QMenu*>();
        return menu != nullptr && menu->isVisible() ? menu : nullptr;
    }

    /// "Close*", a star for what can be chosen.
    QStringList entries(int index)
    {
        QMenu* const menu = open(index);
        QStringList all;
        for (const QAction* action : menu != nullptr ? menu->actions() : QList<QAction*>()) {
            const QString text = action->isSeparator() ? QStringLiteral("-") : action->text();
            all << text + QLatin1String(action->isEnabled() && !action->isSeparator() ? "*" : "");
        }
        if (menu != nullptr) {
            menu->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return all;
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
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QString texts()
    {
        QStringList all;
        for (int i = 0; bar != nullptr && i < bar->count(); ++i) {
            all << bar->getTab(i)->text();
        }
        return all.join(QLatin1Char(' '));
    }

    QPointer<TabBar> bar;
    QStringList told;
};

} // namespace

class TabMenusTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theEntriesFollowTypeAndPlace_data();
    void theEntriesFollowTypeAndPlace();
    void onlyATabOfKindOneHasAMenu();
    void closingSeveralKeepsTheChosenOne_data();
    void closingSeveralKeepsTheChosenOne();
    void slotsMayRemoveTabsWhileSeveralClose();
    void aConfirmedNameIsShownAndTold();
    void onlyYesTellsOfADeletion();
    void aDoubleClickRenamesAfterItsRelease();
    void theTabMayDieWhileItAsks();

private:
    ui::test::StyledApplication m_application;
};

void TabMenusTest::theEntriesFollowTypeAndPlace_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("entries");
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("alone") << 1 << 1 << 0
                 << "Close,-,Close Others,Close Tabs to the Left,Close Tabs to the Right";
    row("first") << 1 << 3 << 0
                 << "Close*,-,Close Others*,Close Tabs to the Left,Close Tabs to the Right*";
    row("middle") << 1 << 3 << 1
                  << "Close*,-,Close Others*,Close Tabs to the Left*,Close Tabs to the Right*";
    row("last") << 1 << 3 << 2
                << "Close*,-,Close Others*,Close Tabs to the Left*,Close Tabs to the Right";
    row("script alone") << 2 << 1 << 0 << "Rename...*,Delete";
    row("script") << 2 << 2 << 0 << "Rename...*,Delete*";
    row("no type") << 3 << 2 << 0 << "";
}

void TabMenusTest::theEntriesFollowTypeAndPlace()
{
    QFETCH(int, type);
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(QString, entries);
    Bench bench(count, type);
    QCOMPARE(bench.entries(index).join(QLatin1Char(',')), entries);
    QVERIFY(bench.bar->findChildren<QMenu*>().isEmpty()); // closed ones do not pile up
}

void TabMenusTest::onlyATabOfKindOneHasAMenu()
{
    Bench bench(3);
    for (const int kind : {0, 2, -1}) {
        bench.bar->getTab(1)->setMenuKind(kind);
        QCOMPARE(bench.open(1), nullptr);
    }
    // The host's entries come behind ours, and make a menu where there would be none.
    TabItem* const tab = bench.bar->getTab(2);
    tab->setMenuType(0);
    connect(tab, &TabItem::menuAboutToShow, &bench, [](QMenu* menu) {
        menu->addAction(QStringLiteral("Close Composition"));
    });
    QCOMPARE(bench.entries(2), QStringList{QStringLiteral("Close Composition*")});

    // The menu key opens that of the current tab.
    TabBarHeader* const header = bench.bar->getHeader();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {0, 0}, header->mapToGlobal(QPoint()));
    QCoreApplication::sendEvent(header, &byKey);
    auto* const menu = bench.bar->getTab(0)->findChild<QMenu*>();
    QVERIFY(menu && menu->isVisible());
    menu->close();
}

void TabMenusTest::closingSeveralKeepsTheChosenOne_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("changes"); // of the current tab's index
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("others") << 2 << "Close Others"
                  << "2"
                  << "closed 0,closed 1,closed 3,closed 4"
                  << "2,0";
    row("left") << 3 << "Close Tabs to the Left"
                << "3 4"
                << "closed 0,closed 1,closed 2"
                << "3,0";
    row("only asked for") << 1 << "Close"
                          << "0 1 2 3 4"
                          << "closed 1"
                          << "";
    row("right") << 1 << "Close Tabs to the Right"
                 << "0 1"
                 << "closed 2,closed 3,closed 4"
                 << "1";
}

void TabMenusTest::closingSeveralKeepsTheChosenOne()
{
    QFETCH(int, index);
    QFETCH(QString, entry);
    QFETCH(QString, left);
    QFETCH(QString, told);
    QFETCH(QString, changes);
    Bench bench(5);
    bench.bar->setTab(4);
    TabItem* const chosen = bench.bar->getTab(index);
    const QPointer<QWidget> page = chosen->page();
    QList<QPointer<QWidget>> pages;
    for (int i = 0; i < 5; ++i) {
        pages << bench.bar->getPage(i);
    }
    QStringList changed;
    connect(bench.bar, &TabBar::tabChanged, &bench, [&](int current) {
        changed << QString::number(current);
        QCOMPARE(bench.bar->currentPage(), page);
    });
    bench.choose(index, entry);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the tabs' pages
    QCOMPARE(bench.texts(), left);
    QCOMPARE(bench.told.join(QLatin1Char(',')), told);
    QCOMPARE(changed.join(QLatin1Char(',')), changes);
    QCOMPARE(bench.bar->currentPage() == page, !changes.isEmpty());
    const auto living = std::count_if(pages.begin(), pages.end(), [](const auto& p) { return p; });
    QCOMPARE(static_cast<int>(living), bench.bar->count());
}

void TabMenusTest::slotsMayRemoveTabsWhileSeveralClose()
{
    Bench own(5); // as hosts do: whatever is closed is removed
    for (int i = 0; i < 5; ++i) {
        TabItem* const tab = own.bar->getTab(i);
        connect(tab, &TabItem::closed, &own, [&own, tab] { own.bar->removeTab(tab->index()); });
    }
    QList<int> changed;
    connect(own.bar, &TabBar::tabChanged, &own, [&changed](int index) { changed << index; });
    own.choose(4, QStringLiteral("Close Tabs to the Left"));
    QCOMPARE(changed, QList<int>({4, 0})); // chosen, and once for all that closed
    QCOMPARE(own.texts(), QStringLiteral("4"));
    QCOMPARE(own.bar->activeTab(), 0);

    Bench chain(5); // the first takes its neighbour along, at once
    connect(chain.bar->getTab(0), &TabItem::closed, &chain, [&] { delete chain.bar->getTab(1); });
    chain.choose(3, QStringLiteral("Close Others"));
    QCOMPARE(chain.texts(), QStringLiteral("3"));
    QCOMPARE(chain.told.join(QLatin1Char(',')), QStringLiteral("closed 0,closed 2,closed 4"));

    Bench gone(4);
    connect(gone.bar->getTab(1), &TabItem::closed, &gone, [&] { delete gone.bar.data(); });
    QMenu* const menu = gone.open(3);
    QVERIFY(menu);
    menu->close();
    gone.bar->getHeader()->closeTabs({0, 1, 2, 7, -1});
    QVERIFY(gone.bar.isNull());
    QCOMPARE(gone.told.join(QLatin1Char(',')), QStringLiteral("closed 0,closed 1"));
}

void TabMenusTest::aConfirmedNameIsShownAndTold()
{
    Bench bench(2, TabItem::Renamable);
    QString asked;
    answerDialog([&asked](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>();
        const auto* const label = qobject_cast<QLabel*>(field->parentWidget()->childAt(2, 2));
        asked =
            QStringLiteral("%1|%2|%3")
                .arg(
                    dialog.windowTitle(), label ? label->text() : QString(), field->selectedText());
        QTest::keyClicks(field, QStringLiteral("rig & roll"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    bench.choose(1, QStringLiteral("Rename..."));
    QCOMPARE(asked, QStringLiteral("Rename Tab|New Name:|1"));
    QCOMPARE(bench.texts(), QStringLiteral("0 rig & roll"));
    QCOMPARE(bench.told, QStringList{QStringLiteral("renamed rig & roll")});

    answerDialog([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("dropped"));
        dialog.reject();
    });
    bench.bar->getHeader()->setCurrentIndex(1);
    QTest::keyClick(bench.bar->getHeader(), Qt::Key_F2);
    QCOMPARE(bench.texts(), QStringLiteral("0 rig & roll"));
    QCOMPARE(bench.told.size(), 1);
}

void TabMenusTest::onlyYesTellsOfADeletion()
{
    Bench bench(2, TabItem::Renamable);
    QStringList asked;
    const auto pressing = [&asked](QDialogButtonBox::StandardButton button) {
        return [&asked, button](QDialog& dialog) {
            for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                asked << label->text();
            }
            auto* const buttons = dialog.findChild<QDialogButtonBox*>();
            if (buttons->button(QDialogButtonBox::No)->isDefault()
                && buttons->buttons().size() == 2) {
                buttons->button(button)->click();
            }
        };
    };
    answerDialog(pressing(QDialogButtonBox::No));
    bench.choose(1, QStringLiteral("Delete"));
    answerDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    bench.choose(1, QStringLiteral("Delete"));
    QVERIFY(bench.told.isEmpty());
    answerDialog(pressing(QDialogButtonBox::Yes));
    bench.choose(1, QStringLiteral("Delete"));
    QCOMPARE(bench.told, QStringList{QStringLiteral("deleted 1")});
    QCOMPARE(bench.texts(), QStringLiteral("0 1")); // the owner's to remove
    QCOMPARE(
        asked.mid(0, 2),
        QStringList(
            {QStringLiteral("Delete Script Tab?"), QStringLiteral("This is not undoable.")}));
}

void TabMenusTest::aDoubleClickRenamesAfterItsRelease()
{
    const auto doubleClick = [](TabItem* tab) {
        for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
            const QPointF at(8, 8);
            QMouseEvent event(
                type, at, tab->mapToGlobal(at), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(tab, &event);
        }
    };
    constexpr int kDelay = 100; // milliseconds
    Bench bench(2, TabItem::Renamable);
    ui::test::FakeClock clock(bench.bar);
    TabItem* const tab = bench.bar->getTab(1);
    doubleClick(tab);
    QCOMPARE(bench.bar->activeTab(), 1);
    QTest::mousePress(tab, Qt::LeftButton); // there is more to come
    QCOMPARE(clock.fireTimers(kDelay), 0);
    QTest::mouseRelease(tab, Qt::LeftButton);
    QCOMPARE(clock.fireTimers(kDelay), 0);
    doubleClick(tab);
    bench.bar->hide();
    QCOMPARE(clock.fireTimers(kDelay), 0);
    bench.bar->show();
    doubleClick(tab);
    answerDialog([](QDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("new"));
        dialog.accept();
    });
    QCOMPARE(clock.fireTimers(kDelay), 1);
    QCOMPARE(bench.told, QStringList{QStringLiteral("renamed new")});
    tab->setMenuType(TabItem::Closable);
    doubleClick(tab);
    QCOMPARE(clock.fireTimers(kDelay), 0);
}

void TabMenusTest::theTabMayDieWhileItAsks()
{
    for (const QString& entry : {QStringLiteral("Rename..."), QStringLiteral("Delete")}) {
        Bench bench(2, TabItem::Renamable);
        TabItem* const tab = bench.bar->getTab(0);
        answerDialog([tab](QDialog&) { delete tab; }); // the dialog's parent
        if (entry == QStringLiteral("Delete")) {
            tab->askToDelete();
        } else {
            tab->askForName();
        }
        QCOMPARE(bench.texts(), QStringLiteral("1"));
        QVERIFY(bench.told.isEmpty());
    }
}

const ui::test::Registration<TabMenusTest> kRegistration;

#include "tst_tabmenus.moc"

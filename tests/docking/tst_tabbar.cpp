#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/controls/GroupButton.h>
#include <MorrantUI/docking/TabBar.h>
#include <MorrantUI/docking/TabBarHeader.h>
#include <MorrantUI/docking/TabItem.h>
#include <MorrantUI/docking/tabnavigation.h>

#include <QtWidgets>

#include <random>

using ui::test::FakePointer;

namespace {

QString numbered(int number)
{
    return QStringLiteral("Tab %1").arg(number);
}

/// A tab bar whose pages are named as their tabs were, and what it has told.
class Bench : public QObject
{
public:
    explicit Bench(int tabs = 0, bool withAddButton = false)
        : bar(QStringLiteral("Documents"), withAddButton)
    {
        connect(&bar, &TabBar::tabChanged, this, [this](int index) {
            told << QStringLiteral("changed %1 %2").arg(index).arg(currentPageName());
        });
        connect(bar.getHeader(), &TabBarHeader::tabMoved, this, [this](int from, int to) {
            told << QStringLiteral("moved %1 %2 %3").arg(from).arg(to).arg(currentPageName());
        });
        for (int i = 0; i < tabs; ++i) {
            add();
        }
        told.clear();
    }

    void add()
    {
        auto* page = new QLabel;
        page->setObjectName(numbered(m_next));
        bar.addPage(numbered(m_next++), page);
    }

    void show(QSize size = {500, 200})
    {
        bar.resize(size);
        bar.show();
        QApplication::setActiveWindow(&bar);
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        layOut();
    }

    static void layOut()
    {
        for (int i = 0; i < 3; ++i) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        }
    }

    QString currentPageName()
    {
        return bar.currentPage() != nullptr ? bar.currentPage()->objectName() : QString();
    }

    QString texts()
    {
        QStringList all;
        for (int i = 0; i < bar.count(); ++i) {
            all << bar.getTab(i)->text().mid(4);
        }
        return all.join(QLatin1Char(' '));
    }

    QStringList takeTold() { return std::exchange(told, {}); }

    /// Everything that must hold whatever was done; empty, or what does not.
    QString fault()
    {
        int active = 0;
        for (int i = 0; i < bar.count(); ++i) {
            const TabItem* const tab = bar.getTab(i);
            active += tab->isActive() ? 1 : 0;
            if (tab->index() != i) {
                return QStringLiteral("tab %1 says %2").arg(i).arg(tab->index());
            }
            if (bar.getPage(i) == nullptr || bar.getPage(i)->objectName() != tab->text()) {
                return QStringLiteral("wrong page at %1").arg(i);
            }
            if (tab->isActive() != (i == bar.activeTab())) {
                return QStringLiteral("tab %1 has the wrong look").arg(i);
            }
        }
        if (active != (bar.activeTab() < 0 ? 0 : 1)) {
            return QStringLiteral("%1 active tabs").arg(active);
        }
        const QWidget* const front = bar.findChild<QStackedWidget*>()->currentWidget();
        if (bar.activeTab() >= 0 && front != bar.currentPage()) {
            return QStringLiteral("another page is in front");
        }
        return {};
    }

    TabBar bar;
    QStringList told;

private:
    int m_next = 0;
};

} // namespace

class TabBarTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void selectingTellsOnceAndIgnoresWhatCannotBeSelected();
    void pagesMoveWithTheirTabs_data();
    void pagesMoveWithTheirTabs();
    void removingTheCurrentTabSelectsItsNeighbour();
    void tabAndPageGoTogether();
    void whateverIsDonePagesAndTabsStayInStep();
    void aSlotMayRemoveItsOwnTab();
    void clicksSelectButTakeNoFocus();
    void theAddButtonIsBesideTheLastTab();
    void longTextsAreCutAndShownInAToolTip();
    void anOverfullRowScrolls_data();
    void anOverfullRowScrolls();
    void edgesFadeWhereTheRowGoesOn();
    void keysWorkInTheHeader_data();
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
    QCOMPARE(bench.bar.currentPage(), nullptr);
    bench.add();
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 0 Tab 0")});
    bench.add();
    bench.add();
    bench.bar.setTab(2);
    bench.bar.setTab(2);
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 2 Tab 2")});
    bench.bar.getTab(1)->setEnabled(false);
    for (const int index : {1, -1, 3, INT_MIN, INT_MAX}) {
        bench.bar.setTab(index);
    }
    QCOMPARE(bench.bar.activeTab(), 2);
    QVERIFY(bench.takeTold().isEmpty());
    QCOMPARE(bench.fault(), QString());
    QCOMPARE(bench.bar.getPage(3), nullptr);
    QCOMPARE(bench.bar.getTab(-1), nullptr);
    bench.bar.setEnabled(false); // as a whole: the host may still choose
    bench.bar.setTab(0);
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 0 Tab 0")});
}

void TabBarTest::pagesMoveWithTheirTabs_data()
{
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("told");
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("the current one") << 0 << 0 << 2 << "1 2 0 3"
                           << "changed 2 Tab 0, moved 0 2 Tab 0";
    row("another to the back") << 3 << 0 << 1 << "1 0 2 3"
                               << "changed 1 Tab 0, moved 0 1 Tab 0";
    row("to the current place") << 0 << 2 << 0 << "2 0 1 3"
                                << "changed 0 Tab 2, moved 2 0 Tab 2";
    row("to its own place") << 1 << 2 << 2 << "0 1 2 3"
                            << "";
    row("from nowhere") << 1 << 9 << 0 << "0 1 2 3"
                        << "";
    row("to nowhere") << 1 << 0 << 4 << "0 1 2 3"
                      << "";
}

void TabBarTest::pagesMoveWithTheirTabs()
{
    QFETCH(int, current);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, order);
    QFETCH(QString, told);
    Bench bench(4);
    bench.bar.setTab(current);
    bench.takeTold();
    bench.bar.getHeader()->moveTab(from, to);
    QCOMPARE(bench.texts(), order);
    QStringList record = bench.takeTold();
    record.sort(); // the page is right in whichever comes first
    QCOMPARE(record.join(QStringLiteral(", ")), told);
    QCOMPARE(bench.fault(), QString());
}

void TabBarTest::removingTheCurrentTabSelectsItsNeighbour()
{
    Bench bench(5);
    bench.bar.getTab(3)->setEnabled(false);
    bench.bar.setTab(2);
    bench.takeTold();
    bench.bar.removeTab(0); // before it: the same tab has another index
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 1 Tab 2")});
    bench.bar.removeTab(1); // the disabled one behind it is passed over
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 2 Tab 4")});
    bench.bar.removeTab(2);
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 0 Tab 1")});
    bench.bar.removeTab(0);
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed -1 ")}); // only a disabled one
    QCOMPARE(bench.bar.count(), 1);
    bench.add();
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 1 Tab 5")});
    bench.bar.clear();
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed -1 ")});
    QCOMPARE(bench.bar.count(), 0);
    bench.bar.clear();
    bench.bar.removeTab(0);
    QVERIFY(bench.takeTold().isEmpty());
}

void TabBarTest::tabAndPageGoTogether()
{
    Bench bench(4);
    const auto settle = [] { // the tab, then its page
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    const QPointer<QWidget> removed = bench.bar.getPage(0);
    bench.bar.removeTab(0);
    QVERIFY(!removed->isVisible());
    settle();
    QVERIFY(removed.isNull());

    delete bench.bar.getPage(0);
    QCOMPARE(bench.texts(), QStringLiteral("2 3"));
    delete bench.bar.getTab(1); // and its page with it, later
    settle();
    QCOMPARE(bench.texts(), QStringLiteral("2"));
    QCOMPARE(bench.bar.findChild<QStackedWidget*>()->count(), 2); // that page and the blank one

    // A page that has found another parent is no longer ours to delete.
    const QPointer<QWidget> taken = bench.bar.getPage(0);
    QWidget elsewhere;
    taken->setParent(&elsewhere);
    settle();
    QCOMPARE(bench.bar.count(), 0);
    QVERIFY(!taken.isNull());
    bench.bar.addPage(QStringLiteral("Back"), taken);
    bench.bar.removeTab(0);
    Bench other;
    other.bar.addPage(QStringLiteral("Moved"), taken);
    settle();
    QVERIFY(!taken.isNull());
    QCOMPARE(other.bar.currentPage(), taken);
    other.bar.addPage(QStringLiteral("Again"), taken);
    other.bar.addPage(QStringLiteral("Itself"), &other.bar);
    other.bar.addPage(other.bar.getTab(0), new QLabel(&elsewhere));
    QCOMPARE(other.bar.count(), 1);
    other.bar.addPage(QStringLiteral("Empty"), nullptr);
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
    for (unsigned int seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto any = [&random](int count) {
            return static_cast<int>(random() % static_cast<unsigned int>(count));
        };
        Bench bench(4);
        QString fault;
        // In every slot as well as between the steps.
        connect(&bench.bar, &TabBar::tabChanged, &bench, [&] {
            fault = fault.isEmpty() ? bench.fault() : fault;
        });
        for (int step = 0; step < 120 && fault.isEmpty(); ++step) {
            const int index = any(bench.bar.count() + 2) - 1;
            const int other = any(bench.bar.count() + 2) - 1;
            TabItem* const tab = bench.bar.getTab(index);
            switch (any(9)) {
            case 0: bench.bar.removeTab(index); break;
            case 1: bench.bar.getHeader()->moveTab(index, other); break;
            case 2: bench.bar.setTab(index); break;
            case 3: bench.bar.getHeader()->closeTabs({index, other, index}); break;
            case 4: delete bench.bar.getPage(index); break;
            case 5: delete tab; break;
            case 6:
                if (tab != nullptr) {
                    tab->setEnabled(!tab->isEnabled());
                }
                break;
            case 7: QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); break;
            default: bench.add(); bench.add();
            }
            fault = fault.isEmpty() ? bench.fault() : fault;
        }
        QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(fault)));
    }
}

void TabBarTest::aSlotMayRemoveItsOwnTab()
{
    Bench bench(3);
    bench.show();
    TabItem* const tab = bench.bar.getTab(1);
    tab->addCloseButton();
    tab->addCloseButton();
    connect(tab, &TabItem::closed, &bench.bar, [&] { bench.bar.removeTab(tab->index()); });
    Bench::layOut();
    auto* const button = tab->childAt(tab->width() - 10, tab->height() / 2);
    QVERIFY(qobject_cast<QAbstractButton*>(button));
    tab->setCloseButtonVisibility(false);
    QTest::mouseClick(tab, Qt::MiddleButton); // nothing to close it with
    QCOMPARE(bench.bar.count(), 3);
    tab->setCloseButtonVisibility(true);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(bench.texts(), QStringLiteral("0 2"));

    TabItem* const last = bench.bar.getTab(1);
    last->addCloseButton();
    connect(last, &TabItem::closed, &bench.bar, [&] { delete last; }); // at once, even
    QTest::mouseClick(last, Qt::MiddleButton);
    QCOMPARE(bench.texts(), QStringLiteral("0"));
    connect(bench.bar.getTab(0), &TabItem::clicked, &bench.bar, [&] { bench.bar.clear(); });
    QTest::mouseClick(bench.bar.getTab(0), Qt::LeftButton);
    QCOMPARE(bench.bar.count(), 0);
}

void TabBarTest::clicksSelectButTakeNoFocus()
{
    Bench bench(3);
    auto* field = new QLineEdit;
    bench.bar.addPage(QStringLiteral("Field"), field);
    bench.show();
    bench.bar.setTab(3);
    field->setFocus();
    bench.takeTold();
    FakePointer pointer(&bench.bar);
    const auto middleOf = [&](int index) {
        TabItem* const tab = bench.bar.getTab(index);
        return tab->mapTo(&bench.bar, tab->rect().center());
    };
    pointer.moveTo(middleOf(1));
    pointer.press(Qt::RightButton);
    pointer.release(Qt::RightButton);
    bench.bar.getTab(2)->setEnabled(false);
    for (const int index : {2, 3, 0}) {
        QVERIFY(bench.takeTold().isEmpty());
        QVERIFY(field->hasFocus());
        pointer.moveTo(middleOf(index));
        pointer.press();
        QVERIFY(bench.takeTold().isEmpty()); // it may become a drag
        pointer.release();
    }
    QCOMPARE(bench.takeTold(), QStringList{QStringLiteral("changed 0 Tab 0")});
}

void TabBarTest::theAddButtonIsBesideTheLastTab()
{
    QCOMPARE(Bench().bar.addButton(), nullptr);
    Bench bench(2, true);
    bench.show();
    GroupButton* const button = bench.bar.addButton();
    QCOMPARE(button->toolTip(), QStringLiteral("Add Tab"));
    QCOMPARE(button->size(), QSize(20, 20));
    QCOMPARE(button->iconSize(), QSize(18, 18));
    const auto endOf = [&bench](int index) {
        TabItem* const tab = bench.bar.getTab(index);
        return tab->mapTo(&bench.bar, QPoint(tab->width(), 0)).x();
    };
    QVERIFY(button->x() >= endOf(1) && button->x() < endOf(1) + 8);
    const int before = button->x();
    connect(button, &GroupButton::clicked, &bench, [&bench] { bench.add(); });
    button->click();
    Bench::layOut();
    QVERIFY(button->x() > before);
    for (int i = 0; i < 30; ++i) {
        bench.add();
    }
    Bench::layOut();
    QVERIFY(button->geometry().right() < bench.bar.width()); // still there when the row is full
    bench.bar.setLayoutDirection(Qt::RightToLeft);
    Bench::layOut();
    QVERIFY(button->x() < 8);
}

void TabBarTest::longTextsAreCutAndShownInAToolTip()
{
    Bench bench(1);
    bench.show();
    TabItem* const tab = bench.bar.getTab(0);
    const int shortWidth = tab->width();
    const QString name = QStringLiteral("R&D <b>") + QString(200, QLatin1Char('x'));
    const auto toolTip = [tab] {
        QToolTip::hideText();
        const bool hidden = QTest::qWaitFor([] { return !QToolTip::isVisible(); });
        Q_UNUSED(hidden)
        QHelpEvent request(QEvent::ToolTip, {5, 5}, tab->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(tab, &request);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    QCOMPARE(toolTip(), QString());
    bench.bar.renameTab(0, name);
    Bench::layOut();
    QCOMPARE(tab->text(), name);
    QVERIFY(tab->width() > shortWidth && tab->width() < 300);
    QVERIFY(toolTip().contains(name.toHtmlEscaped()));
    bench.bar.renameTab(0, QStringLiteral("R&D"));
    bench.bar.renameTab(1, QStringLiteral("nobody"));
    QCOMPARE(tab->text(), QStringLiteral("R&D"));
    QCOMPARE(tab->findChild<QAbstractButton*>()->text(), QStringLiteral("R&&D")); // no mnemonic
}

void TabBarTest::anOverfullRowScrolls_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void TabBarTest::anOverfullRowScrolls()
{
    QFETCH(Qt::LayoutDirection, direction);
    Bench bench(60);
    bench.bar.setLayoutDirection(direction);
    bench.show();
    TabBarHeader* const header = bench.bar.getHeader();
    const auto isWholeInSight = [&](int index) {
        TabItem* const tab = bench.bar.getTab(index);
        return header->rect().contains(QRect(tab->mapTo(header, QPoint(0, 0)), tab->size()));
    };
    const auto wheel = [header](QPoint angle, QPoint pixels = {}) {
        const QPoint at(20, 5);
        QWheelEvent event(
            at,
            header->mapToGlobal(at),
            pixels,
            angle,
            Qt::NoButton,
            Qt::NoModifier,
            Qt::NoScrollPhase,
            false);
        QCoreApplication::sendEvent(header, &event);
        return event.isAccepted();
    };
    QVERIFY(isWholeInSight(0) && !isWholeInSight(20));
    for (const int index : {30, 59, 0, 31}) {
        bench.bar.setTab(index);
        QVERIFY(isWholeInSight(index));
    }
    header->setScrollOffset(INT_MAX);
    QVERIFY(isWholeInSight(59) && !isWholeInSight(31)); // the current one may be out of sight
    const int end = header->scrollOffset();
    QVERIFY(wheel({0, -120})); // at the end, and still not the page's to scroll
    QCOMPARE(header->scrollOffset(), end);
    for (int i = 0; i < 40; ++i) {
        wheel({0, 3}); // a pixel and a half each
    }
    const int notch = end - header->scrollOffset();
    QVERIFY(notch > 20);
    wheel({0, -120});
    QCOMPARE(header->scrollOffset(), end);
    wheel({0, 0}, {0, 7}); // a touchpad knows pixels
    QCOMPARE(header->scrollOffset(), end - 7);
    wheel({direction == Qt::LeftToRight ? 120 : -120, 0});
    QCOMPARE(header->scrollOffset(), end - 7 - notch);

    bench.bar.removeTab(59);
    bench.bar.removeTab(58);
    Bench::layOut();
    header->setScrollOffset(INT_MAX);
    QVERIFY(isWholeInSight(57)); // no empty space behind
    while (bench.bar.count() > 2) {
        bench.bar.removeTab(2);
    }
    Bench::layOut();
    QCOMPARE(header->scrollOffset(), 0);
    QVERIFY(!wheel({0, -120})); // everything in sight: the wheel is others'
}

void TabBarTest::edgesFadeWhereTheRowGoesOn()
{
    Bench bench(30);
    bench.show();
    TabBarHeader* const header = bench.bar.getHeader();
    const QColor ground = m_application.theme().getColor(QStringLiteral("WindowBase"));
    const auto isGround = [&](double x) {
        const QImage image = ui::test::renderWidget(*header, 1.5);
        return ui::test::closeTo(ui::test::pixelAt(image, {x, header->height() - 4.0}), ground, 3);
    };
    const double right = header->width() - 0.5;
    header->setScrollOffset(0);
    QVERIFY(!isGround(0.5));
    QVERIFY(isGround(right));
    header->setScrollOffset(INT_MAX);
    QVERIFY(isGround(0.5));
    QVERIFY(!isGround(right));
}

void TabBarTest::keysWorkInTheHeader_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<bool>("mirrored");
    QTest::addColumn<QString>("expected"); // the order, and the current tab
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const Qt::KeyboardModifiers moving = Qt::ControlModifier | Qt::ShiftModifier;
    const auto row = [](const char* name) -> QTestData& { return QTest::newRow(name); };
    row("right, over a disabled one") << int(Qt::Key_Right) << none << false << "0 1 2 3 4: 4";
    row("left") << int(Qt::Key_Left) << none << false << "0 1 2 3 4: 1";
    row("right, mirrored") << int(Qt::Key_Right) << none << true << "0 1 2 3 4: 1";
    row("home") << int(Qt::Key_Home) << none << false << "0 1 2 3 4: 0";
    row("end, mirrored") << int(Qt::Key_End) << none << true << "0 1 2 3 4: 4";
    row("move right") << int(Qt::Key_Right) << moving << false << "0 1 3 2 4: 2";
    row("move left, mirrored") << int(Qt::Key_Left) << moving << true << "0 1 3 2 4: 2";
    row("anything else") << int(Qt::Key_Right) << Qt::KeyboardModifiers(Qt::ControlModifier)
                         << false << "0 1 2 3 4: 2";
}

void TabBarTest::keysWorkInTheHeader()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(bool, mirrored);
    QFETCH(QString, expected);
    Bench bench(5);
    bench.bar.setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    bench.bar.getTab(3)->setEnabled(false);
    bench.bar.setTab(2);
    bench.show();
    bench.bar.getHeader()->setFocus(Qt::TabFocusReason);
    QShortcut frameStep(QKeySequence(Qt::Key_Right), &bench.bar);
    QSignalSpy stolen(&frameStep, &QShortcut::activated);
    QTest::keyClick(bench.bar.getHeader(), Qt::Key(key), modifiers);
    QCOMPARE(bench.texts() + QStringLiteral(": ") + bench.currentPageName().mid(4), expected);
    QCOMPARE(stolen.count(), 0);
    for (int i = 0; i < 9; ++i) { // to the end and no further
        QTest::keyClick(bench.bar.getHeader(), Qt::Key(key), modifiers);
    }
    QCOMPARE(bench.fault(), QString());
}

void TabBarTest::arrowKeysOfAnotherWidgetSwitchTabs()
{
    QWidget window;
    QVBoxLayout column(&window);
    auto* const bench = new Bench(3);
    auto* const area = new QWidget;
    auto* const field = new QLineEdit(QStringLiteral("text"), area);
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
    QCOMPARE(stolen.count(), 0);
    QTest::keyClick(area, Qt::Key_Right); // no further, and no shortcut instead
    QTest::keyClick(area, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(area, Qt::Key_Down);
    QCOMPARE(bench->bar.activeTab(), 2);
    bench->bar.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(area, Qt::Key_Right);
    QCOMPARE(bench->bar.activeTab(), 1);
    QTest::keyClick(field, Qt::Key_Left); // which has a use for it
    QCOMPARE(bench->bar.activeTab(), 1);
    QCOMPARE(stolen.count(), 0);
    delete bench;
    QTest::keyClick(area, Qt::Key_Right);
    QCOMPARE(stolen.count(), 1);
}

void TabBarTest::assistiveToolsSeeTabs()
{
    Bench bench(3);
    bench.show();
    auto* const list = QAccessible::queryAccessibleInterface(bench.bar.getHeader());
    QCOMPARE(list->role(), QAccessible::PageTabList);
    QCOMPARE(list->text(QAccessible::Name), QStringLiteral("Documents"));
    bench.bar.getHeader()->moveTab(0, 2);
    bench.bar.getHeader()->clearFocus();
    QCOMPARE(list->childCount(), 3); // no overlays
    QAccessibleInterface* const first = list->child(0);
    QCOMPARE(first->role(), QAccessible::PageTab);
    QCOMPARE(first->text(QAccessible::Name), QStringLiteral("Tab 1"));
    QCOMPARE(first->parent(), list);
    QCOMPARE(list->indexOfChild(list->child(2)), 2);
    QVERIFY(list->child(2)->state().selected && !first->state().selected);
    QVERIFY(!list->child(2)->state().focused);
    bench.bar.getHeader()->setFocus();
    QCOMPARE(list->focusChild(), list->child(2));
    QVERIFY(list->child(2)->state().focused);
    QCOMPARE(list->childAt(first->rect().center().x(), first->rect().center().y()), first);
    QCOMPARE(first->childCount(), 0);
    bench.bar.getTab(0)->addCloseButton();
    QCOMPARE(first->childCount(), 1);
    QCOMPARE(first->child(0)->text(QAccessible::Name), QStringLiteral("Close Tab"));
    first->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(bench.bar.activeTab(), 0);
    QVERIFY(first->state().selected);
    bench.bar.getTab(1)->setEnabled(false);
    QVERIFY(list->child(1)->actionInterface()->actionNames().isEmpty());
}

const ui::test::Registration<TabBarTest> kRegistration;

#include "tst_tabbar.moc"

#include "docking/DockTree.h"
#include "docking/Hand.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>

#include <QApplication>
#include <QPaintEvent>
#include <QRegion>

#include <array>

using ui::test::DockTree;
using ui::test::Hand;
using ui::test::settle;
using Area = DockableArea;

namespace {

/// Counts what all widgets of the application do while it lives.
class Counter : public QObject
{
public:
    Counter() { qApp->installEventFilter(this); }

    int indicators = 0;       ///< paints of drop zones
    int paints = 0;           ///< of anything
    QRegion painted;          ///< on screen, but for the window to leave out
    QList<QWidget*> appeared; ///< top-level windows, as often as shown
    QWidget* leftOut = nullptr;
    DockableWindow* tornOut = nullptr;
    int parents = 0; ///< given to what is torn out
    int headers = 0; ///< shown of it

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        parents += widget && widget == tornOut && event->type() == QEvent::ParentChange;
        headers += tornOut && watched == tornOut->header() && event->type() == QEvent::ShowToParent;
        if (widget && event->type() == QEvent::Show && widget->isWindow()) {
            appeared << widget;
        }
        if (widget && event->type() == QEvent::Paint && widget->window() != leftOut) {
            ++paints;
            indicators += qobject_cast<DropIndicatorMain*>(widget) ? 1 : 0;
            const QRegion& region = static_cast<QPaintEvent*>(event)->region();
            painted |= region.translated(widget->mapToGlobal(QPoint()));
        }
        return false;
    }
};

QRect onScreen(DockableWindow& window)
{
    return {window.mapToGlobal(QPoint()), window.size()};
}

/// Where to point at to dock at an area.
QPoint zoneOf(DockableWindow& window, Area area)
{
    const QRect rect = onScreen(window);
    switch (area) {
    case Area::Left: return {rect.left() + 6, rect.center().y()};
    case Area::Right: return {rect.right() - 6, rect.center().y()};
    case Area::Top: return {rect.center().x(), rect.top() + 32};
    case Area::Bottom: return {rect.center().x(), rect.bottom() - 6};
    case Area::Center: return {rect.center().x(), rect.top() + 8};
    default: return rect.center();
    }
}

} // namespace

/// What a drag over a large tree may cost at most, counted and not timed.
class DockCountersTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aHoverStepPaintsTheZonesOnceAndNothingElse();
    void aDropShowsNoWindowButTheDraggedOne_data();
    void aDropShowsNoWindowButTheDraggedOne();
    void aTornOutTabIsTheOnlyWindowThatAppears();

private:
    /// Five columns of ten panels in an area of 700 by 460, and one that floats beside.
    void fill(DockTree& tree);

    QList<DockableWindow*> m_panels;
    DockableWindow* m_floating = nullptr;
};

void DockCountersTest::fill(DockTree& tree)
{
    m_panels.clear();
    tree.root().move(10, 10);
    for (int column = 0; column < 5; ++column) {
        DockableWindow* top = DockTree::panelIn(tree.root(), Area::Right);
        m_panels << top;
        for (int row = 1; row < 10; ++row) {
            m_panels << DockTree::panelIn(*m_panels.last(), Area::Bottom);
        }
    }
    tree.show();
    m_floating = DockTree::panel(QStringLiteral("floating"), {80, 60});
    m_floating->move(tree.root().geometry().bottomLeft() + QPoint(0, 40));
    m_floating->show();
    settle();
}

void DockCountersTest::aHoverStepPaintsTheZonesOnceAndNothingElse()
{
    DockTree tree(QSize(700, 700));
    fill(tree);
    Hand hand;
    hand.press(*m_floating->header(), {10, 8});
    hand.moveTo(QCursor::pos() + QPoint(20, 0), 2);
    DockableWindow* before = nullptr;
    for (DockableWindow* panel : {m_panels[3], m_panels[4], m_panels[25], m_panels[49]}) {
        QRegion allowed = onScreen(*panel);
        allowed |= before ? onScreen(*before) : QRect();
        for (int step = 0; step < 20; ++step) {
            Counter counter;
            counter.leftOut = m_floating;
            hand.moveTo(onScreen(*panel).center() + QPoint(step - 10, step % 3));
            QCoreApplication::sendPostedEvents();
            // A fresh target's once more, for what lay below it.
            QVERIFY(counter.indicators == 1 || (step == 0 && before && counter.indicators == 2));
            QVERIFY((counter.painted - allowed).isEmpty());
            QVERIFY(counter.appeared.isEmpty());
            allowed = onScreen(*panel);
        }
        before = panel;
    }
    hand.pressKey(Qt::Key_Escape);
    hand.release();
    settle();
    Counter counter;
    settle();
    QCOMPARE(counter.paints, 0); // at rest
}

void DockCountersTest::aDropShowsNoWindowButTheDraggedOne_data()
{
    QTest::addColumn<Area>("area");
    QTest::addColumn<bool>("docked");
    const std::array areas{"right", "top", "left", "bottom", "center"};
    for (std::size_t i = 0; i < areas.size(); ++i) {
        const auto area = static_cast<Area>(i + 1);
        QTest::addRow("a floating panel, %s", areas[i]) << area << false;
        QTest::addRow("a docked panel, %s", areas[i]) << area << true;
    }
}

void DockCountersTest::aDropShowsNoWindowButTheDraggedOne()
{
    QFETCH(Area, area);
    QFETCH(bool, docked);
    DockTree tree(QSize(700, 460));
    tree.root().move(10, 10);
    tree.showRow({160, 160, 160, 160});
    auto* target = tree.root().getChild(2);
    DockableWindow* dragged = tree.root().getChild(0);
    if (!docked) {
        dragged = DockTree::panel(QStringLiteral("x"), {80, 60});
        dragged->move(tree.root().geometry().bottomLeft() + QPoint(0, 40));
        dragged->show();
        settle();
    }
    Counter counter;
    Hand hand;
    hand.press(*dragged->header(), {10, 8});
    hand.moveTo(tree.root().geometry().bottomLeft() + QPoint(60, 60), 2); // away from the window
    hand.moveTo(onScreen(*target).center());
    hand.moveTo(zoneOf(*target, area));
    hand.moveTo(zoneOf(*target, area));
    hand.release();
    settle();
    QVERIFY(!dragged->isFloating());
    QCOMPARE(counter.appeared, docked ? QList<QWidget*>{dragged} : QList<QWidget*>());
    QCOMPARE(ui::test::brokenInvariants().join(u'\n'), QString());
}

void DockCountersTest::aTornOutTabIsTheOnlyWindowThatAppears()
{
    DockTree tree(QSize(400, 300));
    tree.root().move(10, 10);
    tree.showRow({180, 180});
    DockableWindow* a = tree.root().getChild(0);
    auto* tabs = qobject_cast<DockableTabGroup*>(
        a->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Center));
    DockTree::panelIn(*tabs, Area::Center, QStringLiteral("y"));
    settle();
    DockableWindow* dragged = tabs->getChild(1);
    Counter counter;
    counter.tornOut = dragged;
    Hand hand;
    hand.press(*tabs->tabAt(1), {10, 8});
    hand.moveTo(tree.root().geometry().bottomLeft() + QPoint(60, 60), 3);
    QVERIFY(dragged->isFloating());
    hand.release();
    settle();
    QCOMPARE(counter.appeared, QList<QWidget*>{dragged});
    QCOMPARE(counter.parents, 2); // none, then the main window
    QCOMPARE(counter.headers, 1);
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(T(a y) b)"));
}

const ui::test::Registration<DockCountersTest> kRegistration;
#include "tst_dockcounters.moc"

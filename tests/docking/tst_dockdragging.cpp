#include "docking/DockTree.h"
#include "docking/Hand.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/docking/dropzones.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

#include <functional>

using ui::docking::dropZones;
using ui::docking::hitTest;
using ui::test::brokenInvariants;
using ui::test::closeTo;
using ui::test::DockTree;
using ui::test::Hand;
using ui::test::pixelAt;
using ui::test::settle;
using Area = DockableArea;

class DockDraggingTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void zonesAreHitWhereTheyArePainted_data();
    void zonesAreHitWhereTheyArePainted();
    void disabledZonesAreNeverHit();
    void aClickOnAHeaderMovesNothing();
    void aPanelIsTornOutWhenThePointerLeavesItsWindow();
    void insideItsOwnWindowAPanelDocksWithoutBeingTornOut();
    void aFloatingPanelDocksWhereItIsDropped();
    void theFirstMoveOverATargetHighlightsNothing();
    void theDraggedWindowDecidesWhichZonesThereAre();
    void escapePutsTheWindowBack();
    void aLostReleaseEndsTheDragAtTheNextMove();
    void whoeverDiesInADragTheNextOneWorks_data();
    void whoeverDiesInADragTheNextOneWorks();
    void aLockedPanelStays();
    void whatCannotBeSeenIsNoTarget();
    void aDropWhereItAlreadyIsChangesNothing();
    void aSlotOfTheDropMayWaitForClicks();
    void theHeadersMenuActsOnTheWindow();

private:
    /// Where to grab a panel.
    static QPoint grip() { return {12, 8}; }
    static QPoint inLeftZone(DockableWindow& window)
    {
        return window.mapToGlobal(QPoint(8, window.height() / 2));
    }
    static QPoint inMiddle(DockableWindow& window)
    {
        return window.mapToGlobal(window.rect().center());
    }
};

void DockDraggingTest::zonesAreHitWhereTheyArePainted_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("header");
    QTest::newRow("usual") << QSize(200, 160) << 24.0;
    QTest::newRow("without a header") << QSize(200, 160) << 0.0;
    QTest::newRow("narrow") << QSize(30, 160) << 24.0;
    QTest::newRow("flat") << QSize(200, 60) << 20.0;
}

void DockDraggingTest::zonesAreHitWhereTheyArePainted()
{
    QFETCH(QSize, size);
    QFETCH(double, header);
    const auto zones = dropZones({QSizeF(size), header});
    const double w = size.width();
    const double h = size.height();
    const double m = std::min({20.0, w / 2, h / 2});
    QCOMPARE(zones.inset, m);
    QCOMPARE(zones.inner, QRectF(m, header + m, w - 2 * m, h - header - 2 * m));
    QCOMPARE(hitTest(zones, {m / 2, (h + header) / 2}), Area::Left);
    QCOMPARE(hitTest(zones, {w - m / 2, (h + header) / 2}), Area::Right);
    QCOMPARE(hitTest(zones, {w / 2, header + m / 2 - 1}), Area::Top);
    QCOMPARE(hitTest(zones, {w / 2, h - m / 2 + 1}), Area::Bottom);
    QCOMPARE(hitTest(zones, {w / 2, header / 2}), header > 0 ? Area::Center : Area::Top);
    QCOMPARE(hitTest(zones, {m / 4, header + m / 2}), Area::Left); // below the diagonal
    QCOMPARE(hitTest(zones, {m / 2, header + m / 4}), Area::Top);  // above it
    QCOMPARE(hitTest(zones, {-1, h / 2}), Area::None);
    if (zones.inner.isValid() && zones.inner.width() > 2) {
        QCOMPARE(hitTest(zones, zones.inner.center()), Area::None);
    }
}

void DockDraggingTest::disabledZonesAreNeverHit()
{
    const auto hits = [](bool sides, bool topBottom) {
        const auto zones = dropZones({{200, 160}, 24.0, 20.0, sides, topBottom});
        QByteArray found;
        for (const QPointF point :
             {QPointF(5, 80), {195, 80}, {100, 30}, {100, 155}, {100, 10}, {100, 80}}) {
            found += QByteArray::number(static_cast<int>(hitTest(zones, point)));
        }
        return found;
    };
    QCOMPARE(hits(false, false), QByteArray("312450"));
    QCOMPARE(hits(true, false), QByteArray("002400"));
    QCOMPARE(hits(false, true), QByteArray("310000"));
    QCOMPARE(hits(true, true), QByteArray("000000"));
    QCOMPARE(hitTest({}, {0, 0}), Area::None); // never built
}

void DockDraggingTest::aClickOnAHeaderMovesNothing()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(60, 60);
    tree.showRow({140, 154});
    DockableWindow* a = tree.root().getChild(0);
    Hand hand;
    for (const int distance : {1, 10, 30}) {
        QApplication::setStartDragDistance(distance);
        hand.press(*a->header(), grip());
        hand.moveTo(a->header()->mapToGlobal(grip() + QPoint(distance - 1, 0)));
        QCOMPARE(a->windowOpacity(), 1.0);
        hand.moveTo(a->header()->mapToGlobal(grip()));
        hand.release();
    }
    QApplication::setStartDragDistance(10);
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(a b)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::aPanelIsTornOutWhenThePointerLeavesItsWindow()
{
    DockTree tree(QSize(212, 200));
    tree.root().move(20, 20);
    tree.showRow({97, 97});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(inMiddle(*root.getChild(1)), 3); // still inside
    QVERIFY(!a->isFloating());
    const QPoint outside = root.mapToGlobal(QPoint(root.width() + 60, 40));
    hand.moveTo(outside, 3);
    QVERIFY(a->isFloating() && a->isVisible());
    QVERIFY(qAbs(a->windowOpacity() - 0.5) < 0.01);
    QCOMPARE(root.childCount(), 1);
    for (int i = 1; i <= 20; ++i) { // the drag goes on after its widget has changed windows
        hand.moveTo(outside + QPoint(2 * i, i));
        const QPoint off = a->header()->mapToGlobal(grip()) - QCursor::pos();
        QVERIFY2(off.manhattanLength() <= 2, qPrintable(QStringLiteral("step %1").arg(i)));
    }
    hand.release();
    settle();
    QVERIFY(a->isFloating());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
    const QPoint place = a->pos();
    hand.moveTo(outside); // it has let go
    QCOMPARE(a->pos(), place);
}

void DockDraggingTest::insideItsOwnWindowAPanelDocksWithoutBeingTornOut()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(20, 20);
    tree.showRow({100, 100, 100});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* c = root.getChild(2);
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(inMiddle(*c));
    hand.moveTo(inLeftZone(*c));
    hand.moveTo(inLeftZone(*c) + QPoint(1, 0));
    QCOMPARE(c->dropArea(), Area::Left);
    QVERIFY(c->findChild<DropIndicatorMain*>()->isVisible());
    hand.release();
    settle();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(b H(a c))"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());

    hand.press(*a->header(), grip()); // and on its own zones nothing happens
    hand.moveTo(inMiddle(*a));
    hand.moveTo(inLeftZone(*a));
    hand.moveTo(inLeftZone(*a) + QPoint(1, 0));
    hand.release();
    settle();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(b H(a c))"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::aFloatingPanelDocksWhereItIsDropped()
{
    DockTree tree(QSize(250, 150));
    tree.root().move(20, 20);
    tree.showRow({140, 92});
    DockableGroup& root = tree.root();
    DockableWindow* b = root.getChild(1);
    DockableWindow* f = DockTree::panel(QStringLiteral("f"), {190, 70});
    f->move(60, 250);
    f->show();
    settle();
    Hand hand;
    hand.press(*f->header(), grip());
    hand.moveTo(inLeftZone(*b), 3);
    hand.moveTo(inLeftZone(*b) + QPoint(1, 0));
    hand.release();
    settle();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a H(f b))"));
    QVERIFY(!f->isWindow());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());

    // The next press is that of whoever is under the pointer, and the next drag a drag.
    hand.press(*b->header(), grip());
    hand.moveTo(root.mapToGlobal(QPoint(100, 260)), 2);
    QVERIFY(b->isFloating());
    hand.release();
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::theFirstMoveOverATargetHighlightsNothing()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(20, 20);
    tree.showRow({120, 120});
    DockableWindow* a = tree.root().getChild(0);
    DockableWindow* b = tree.root().getChild(1);
    auto* indicator = b->findChild<DropIndicatorMain*>();
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(inLeftZone(*b));
    QVERIFY(indicator->isVisible());
    QCOMPARE(b->dropArea(), Area::None);
    hand.moveTo(inLeftZone(*b) + QPoint(1, 0));
    QCOMPARE(b->dropArea(), Area::Left);
    const QImage image = ui::test::renderWidget(*indicator);
    const int y = b->height() / 2;
    QVERIFY(!closeTo(pixelAt(image, QPointF(10, y)), pixelAt(image, QPointF(b->width() - 10, y))));
    QCOMPARE(pixelAt(image, b->rect().center()).alpha(), 0);
    b->resize(b->size() + QSize(10, 10)); // the overlay follows its window
    QCOMPARE(indicator->size(), b->size());
    hand.moveTo(inMiddle(*a));
    QVERIFY(!indicator->isVisible());
    hand.release();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::theDraggedWindowDecidesWhichZonesThereAre()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(20, 20);
    tree.showRow({120, 120});
    DockableWindow* a = tree.root().getChild(0);
    DockableWindow* b = tree.root().getChild(1);
    a->sideDockingDisabled = true;
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(inMiddle(*b));
    hand.moveTo(inLeftZone(*b));
    QCOMPARE(b->dropArea(), Area::None);
    hand.moveTo(b->mapToGlobal(QPoint(b->width() / 2, b->height() - 8)));
    QCOMPARE(b->dropArea(), Area::Bottom);
    hand.release();
    settle();
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(V(b a))"));
}

void DockDraggingTest::escapePutsTheWindowBack()
{
    DockTree tree(QSize(350, 150));
    tree.root().move(20, 20);
    tree.showRow({90, 120, 116});
    DockableGroup& root = tree.root();
    const QList<int> sizes = root.sizes();
    DockableWindow* b = root.getChild(1);
    DockableWindow* c = root.getChild(2);
    const QPoint outside = root.mapToGlobal(QPoint(100, 260));
    const auto dragAndEscape = [&](QWidget& grabbed) {
        Hand hand;
        hand.press(grabbed, grip());
        hand.moveTo(outside);
        hand.moveTo(inLeftZone(*c));
        hand.moveTo(inLeftZone(*c) + QPoint(1, 0));
        QTest::keyClick(&root, Qt::Key_Escape);
        settle();
        QCOMPARE(brokenInvariants().join(u'\n'), QString());
        hand.moveTo(inLeftZone(*c) + QPoint(2, 0));
    };
    dragAndEscape(*b->header());
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a b c)"));
    QCOMPARE(root.sizes(), sizes);
    DockableWindow* x = DockTree::panel(QStringLiteral("x"), {190, 70});
    auto* tabs = qobject_cast<DockableTabGroup*>(b->dockInArea(x, Area::Center));
    settle();
    dragAndEscape(*tabs->tabAt(0));
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a T(b x) c)"));
    QCOMPARE(tabs->activeIndex(), 0);
    QCOMPARE(root.sizes(), sizes);
    x->undock(true);
    QCOMPARE(root.sizes(), sizes);
    x->move(60, 300); // one that floats
    settle();
    const QPoint place = x->pos();
    dragAndEscape(*x->header());
    QCOMPARE(x->pos(), place);
    QVERIFY(x->isFloating() && root.sizes() == sizes);
}

void DockDraggingTest::aLostReleaseEndsTheDragAtTheNextMove()
{
    DockTree tree(QSize(300, 200));
    tree.root().move(20, 20);
    tree.showRow({120, 120});
    DockableWindow* a = tree.root().getChild(0);
    DockableWindow* b = tree.root().getChild(1);
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(inMiddle(*b));
    hand.moveTo(inLeftZone(*b));
    hand.loseRelease();
    hand.moveTo(inLeftZone(*b) + QPoint(1, 0));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
    hand.press(*a->header(), grip()); // and works again
    hand.moveTo(inMiddle(*b));
    QVERIFY(b->findChild<DropIndicatorMain*>()->isVisible());
    hand.release();
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(a b)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::whoeverDiesInADragTheNextOneWorks_data()
{
    QTest::addColumn<int>("victim");
    const char* names[] = {"dragged", "hovered", "old group", "header", "main window", "closed"};
    for (int victim = 0; victim < 6; ++victim) {
        QTest::newRow(names[victim]) << victim;
    }
}

void DockDraggingTest::whoeverDiesInADragTheNextOneWorks()
{
    QFETCH(int, victim);
    DockTree tree(QSize(400, 150));
    tree.root().move(0, 20);
    tree.showRow({100, 100, 100});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* b = root.getChild(1);
    DockableWindow* c = root.getChild(2);
    DockableWindow* x = DockTree::panel(QStringLiteral("x"), {90, 70});
    DockableWindow* group = a->dockInArea(x, Area::Bottom);
    settle();
    Hand hand;
    hand.press(*x->header(), grip());
    hand.moveTo(root.mapToGlobal(QPoint(100, 260)));
    hand.moveTo(inMiddle(*c));
    hand.moveTo(inLeftZone(*c));
    QVERIFY(x->isFloating());
    const std::function<void()> kills[] = {
        [&] { delete x; },
        [&] { delete c; },
        [&] { delete group; },
        [&] { x->setHeader(nullptr); },
        [&] { tree.destroy(); },
        [&] { x->close(); }};
    kills[victim]();
    settle();
    if (victim == 4) {
        hand.release();
        return;
    }
    hand.moveTo(inMiddle(*b));
    hand.release();
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
    QCOMPARE(ui::test::emptyShellsInSight(), 0);

    hand.press(*b->header(), grip());
    hand.moveTo(root.mapToGlobal(QPoint(100, 260)), 2);
    hand.release();
    settle();
    QVERIFY(b->isFloating());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::aLockedPanelStays()
{
    DockTree tree(QSize(250, 150));
    tree.root().move(20, 20);
    tree.showRow({116, 116});
    DockableWindow* a = tree.root().getChild(0);
    a->setDragEnabled(false);
    QVERIFY(!a->isDragEnabled());
    Hand hand;
    hand.press(*a->header(), grip());
    hand.moveTo(tree.root().mapToGlobal(QPoint(100, 260)), 2);
    QVERIFY(!a->isFloating());
    hand.release();
    a->setDragEnabled(true);
    hand.press(*a->header(), grip());
    hand.moveTo(tree.root().mapToGlobal(QPoint(100, 260)), 2);
    QVERIFY(a->isFloating());
    a->setDragEnabled(false); // in the middle
    QCOMPARE(a->windowOpacity(), 1.0);
    hand.release();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::whatCannotBeSeenIsNoTarget()
{
    DockTree tree;
    tree.show();
    DockableWindow* hidden = DockTree::panel(QStringLiteral("f"), {200, 150});
    DockableWindow* dragged = DockTree::panel(QStringLiteral("g"), {200, 150});
    hidden->move(640, 120);
    dragged->move(300, 420);
    hidden->show();
    dragged->show();
    settle();
    const QPoint zone = inLeftZone(*hidden);
    hidden->showMinimized();
    settle();
    Hand hand;
    hand.press(*dragged->header(), grip());
    hand.moveTo(zone, 4);
    hand.release();
    QVERIFY(dragged->isFloating());
    QCOMPARE(hidden->dropArea(), Area::None);
}

void DockDraggingTest::aDropWhereItAlreadyIsChangesNothing()
{
    DockTree tree(QSize(340, 200));
    tree.showRow({120, 80, 80});
    DockableWindow* a = tree.root().getChild(0);
    const QList<int> sizes = tree.root().sizes();
    QCOMPARE(tree.root().dockInArea(a, Area::Left), &tree.root());
    QCOMPARE(tree.root().sizes(), sizes);

    tree.root().getChild(1)->dockInArea(tree.root().getChild(2), Area::Center);
    auto* tabs = qobject_cast<DockableTabGroup*>(tree.root().getChild(1));
    Hand hand;
    hand.press(*tabs->tabAt(0), grip());
    hand.moveTo(tabs->tabAt(0)->mapToGlobal(grip() + QPoint(14, 0)), 4);
    hand.release();
    settle();
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(a T(b c))"));
    QCOMPARE(tabs->activeIndex(), 0);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockDraggingTest::aSlotOfTheDropMayWaitForClicks()
{
    DockTree tree(QSize(400, 300));
    tree.showRow({120, 120});
    DockableWindow* b = tree.root().getChild(1);
    int clicks = 0;
    connect(tree.root().getChild(0), &DockableWindow::docked, this, [&clicks] {
        QDialog dialog;
        auto* button = new QPushButton(&dialog);
        connect(button, &QPushButton::clicked, &dialog, [&] {
            ++clicks;
            dialog.accept();
        });
        QTimer::singleShot(0, &dialog, [button] { QTest::mouseClick(button, Qt::LeftButton); });
        QTimer::singleShot(2000, &dialog, &QDialog::reject);
        dialog.exec();
    });
    Hand hand;
    hand.press(*tree.root().getChild(0)->header(), grip());
    hand.moveTo(b->mapToGlobal(QPoint(b->width() / 2, b->height() - 8)), 3);
    hand.release();
    QCOMPARE(clicks, 1);
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(V(b a))"));
}

void DockDraggingTest::theHeadersMenuActsOnTheWindow()
{
    DockTree tree;
    tree.showRow({100, 100, 100});
    const auto choose = [](DockableWindow& window, const QString& text) {
        QStringList offered;
        QTimer::singleShot(0, qApp, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu) {
                return; // gone with its window
            }
            for (QAction* action : menu->actions()) {
                offered << action->text();
                if (action->text() == text) {
                    menu->setActiveAction(action);
                }
            }
            QTest::keyClick(menu, text.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
        });
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, grip(), window.header()->mapToGlobal(grip()));
        QCoreApplication::sendEvent(window.header(), &event);
        settle();
        return offered.join(u',');
    };
    DockableWindow* a = tree.root().getChild(0);
    const QPointer<DockableWindow> b = tree.root().getChild(1);
    QCOMPARE(choose(*a, QString()), QStringLiteral("Undock,Show,Close"));
    QVERIFY(!a->isFloating());
    choose(*a, QStringLiteral("Undock"));
    QVERIFY(a->isFloating());
    choose(*a, QStringLiteral("Close")); // spares what floats
    QVERIFY(a->isVisible());
    choose(*b, QStringLiteral("Close"));
    QVERIFY(b.isNull());
    QTimer::singleShot(0, a, [a] { delete a; }); // while its menu is open
    choose(*a, QStringLiteral("Undock"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

const ui::test::Registration<DockDraggingTest> kRegistration;
#include "tst_dockdragging.moc"

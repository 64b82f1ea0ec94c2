#include "docking/DockTree.h"
#include "support/TestCase.h"

#include <QApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>

#include <functional>

using ui::test::brokenInvariants;
using ui::test::DockTree;
using ui::test::settle;
using Area = DockableArea;
using LayoutMode = DockableGroup::LayoutMode;

class DockableGroupTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void eachAreaPutsTheNewcomerAtItsSide_data();
    void eachAreaPutsTheNewcomerAtItsSide();
    void dockingAcrossTheRootWrapsItsChildren();
    void aGroupTakesNewcomersInItsOwnDirectionItself();
    void whatCannotBeDockedChangesNothing();
    void aDockedWindowMovesToItsNewPlace();
    void undockingDissolvesAGroupOfOne();
    void aDissolvedGroupLeavesItsChildrenInItsPlace();
    void aDissolvedFloatingGroupLeavesItsChildrenWhereTheyAre();
    void aDraggedWindowsGroupStaysUntilTheDragIsOver();
    void closingUndocksFirstAndSparesFloatingWindows();
    void aGroupClosesWithItsChildrenUnlessOneRefuses();
    void deletedWindowsLeaveNoShellBehind();
    void nothingGrowsHoweverOftenWindowsComeAndGo();
    void noWindowShowsButTheOneThatMoves();
    void leftIsLeftInARightToLeftApplication();
    void aNativeContentMakesNobodyElseNative();
    void theHostHearsOnceOfEachChange();
    void aMainWindowThatIsGoneIsNone();
};

void DockableGroupTest::eachAreaPutsTheNewcomerAtItsSide_data()
{
    QTest::addColumn<Area>("area");
    QTest::addColumn<QString>("docked");
    QTest::addColumn<QString>("floating");
    QTest::newRow("right") << Area::Right << QStringLiteral("H(H(a x) b)")
                           << QStringLiteral("H(f y)");
    QTest::newRow("top") << Area::Top << QStringLiteral("H(V(x a) b)") << QStringLiteral("V(y f)");
    QTest::newRow("left") << Area::Left << QStringLiteral("H(H(x a) b)")
                          << QStringLiteral("H(y f)");
    QTest::newRow("bottom") << Area::Bottom << QStringLiteral("H(V(a x) b)")
                            << QStringLiteral("V(f y)");
}

void DockableGroupTest::eachAreaPutsTheNewcomerAtItsSide()
{
    QFETCH(Area, area);
    DockTree tree;
    tree.showRow({300, 294});
    DockableWindow* target = tree.root().getChild(0);
    DockableWindow* newcomer = DockTree::panel(QStringLiteral("x"));
    DockableWindow* holder = target->dockInArea(newcomer, area);
    QTEST(DockTree::text(tree.root()), "docked");
    QCOMPARE(holder, newcomer->findDockableParentGroup());
    QCOMPARE(newcomer->findDockableRoot(), gMainWindow);
    QVERIFY(newcomer->isVisible() && target->isVisible());

    DockableWindow* floating = DockTree::panel(QStringLiteral("f"));
    floating->move(200, 150);
    floating->show();
    const QPoint place = floating->pos();
    DockableWindow* group = floating->dockInArea(DockTree::panel(QStringLiteral("y")), area);
    QTEST(DockTree::text(*group), "floating");
    QVERIFY(group->isFloating() && group->isVisible());
    QCOMPARE(group->pos(), place);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::dockingAcrossTheRootWrapsItsChildren()
{
    DockTree tree;
    tree.showRow({200, 300, 100});
    DockableGroup& root = tree.root();
    DockableWindow* top = DockTree::panel(QStringLiteral("t"));
    QCOMPARE(root.dockInArea(top, Area::Top), &root);
    QCOMPARE(DockTree::text(root), QStringLiteral("V(t H(a b c))"));
    QCOMPARE(root.getChild(0), top);
    auto* inner = qobject_cast<DockableGroup*>(root.getChild(1));
    QCOMPARE(inner->getLayoutMode(), LayoutMode::Horizontal);
    QCOMPARE(inner->sizes(), QList({200, 300, 100}));
    QCOMPARE(top->height(), 80);

    // Center counts as horizontal: beside the others, at the end.
    root.dockInArea(DockTree::panel(QStringLiteral("m")), Area::Center);
    QCOMPARE(DockTree::text(root), QStringLiteral("H(V(t H(a b c)) m)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());

    // A root without children takes any direction.
    DockTree::panel()->close();
    while (root.childCount() > 0) {
        delete root.getChild(0);
    }
    root.dockInArea(DockTree::panel(QStringLiteral("n")), Area::Bottom);
    QCOMPARE(DockTree::text(root), QStringLiteral("V(n)"));
}

void DockableGroupTest::aGroupTakesNewcomersInItsOwnDirectionItself()
{
    DockTree tree;
    tree.showRow({200, 394});
    DockTree::panelIn(*tree.root().getChild(0), Area::Bottom, QStringLiteral("x"));
    auto* nested = qobject_cast<DockableGroup*>(tree.root().getChild(0));
    QCOMPARE(nested->dockInArea(DockTree::panel(QStringLiteral("y")), Area::Top), nested);
    QCOMPARE(nested->dockInArea(DockTree::panel(QStringLiteral("z")), Area::Bottom), nested);
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(V(y a x z) b)"));
    DockableWindow* holder = nested->dockInArea(DockTree::panel(QStringLiteral("l")), Area::Left);
    QCOMPARE(DockTree::text(*holder), QStringLiteral("H(l V(y a x z))"));
    QCOMPARE(DockTree::text(tree.root()), QStringLiteral("H(H(l V(y a x z)) b)"));

    nested->setLayoutMode(static_cast<LayoutMode>(7));
    QCOMPARE(static_cast<int>(nested->getLayoutMode()), 7);
    QCOMPARE(nested->sizes().size(), 4);
    QVERIFY(nested->getChild(1)->y() > nested->getChild(0)->y());
}

void DockableGroupTest::whatCannotBeDockedChangesNothing()
{
    DockTree tree;
    tree.showRow({300, 294});
    DockableGroup& root = tree.root();
    DockTree::panelIn(*root.getChild(0), Area::Bottom, QStringLiteral("x"));
    auto* nested = qobject_cast<DockableGroup*>(root.getChild(0));
    DockableWindow* inside = nested->getChild(0);
    DockableWindow* free = DockTree::panel(QStringLiteral("f"));
    DockableWindow* dying = DockTree::panel(QStringLiteral("d"));
    dying->close();
    QVERIFY(dying->isClosing());
    const QString before = DockTree::text(root);

    for (const auto area : {Area::Right, Area::Top, Area::Left, Area::Bottom, Area::Center}) {
        QCOMPARE(root.dockInArea(nullptr, area), nullptr);
        QCOMPARE(inside->dockInArea(inside, area), nullptr);
        QCOMPARE(inside->dockInArea(nested, area), nullptr);
        QCOMPARE(inside->dockInArea(&root, area), nullptr);
        QCOMPARE(free->dockInArea(&root, area), nullptr);
        QCOMPARE(root.dockInArea(dying, area), nullptr);
        QCOMPARE(dying->dockInArea(free, area), nullptr);
    }
    for (const auto area : {Area::None, static_cast<Area>(6), static_cast<Area>(-1)}) {
        QCOMPARE(root.dockInArea(free, area), nullptr);
    }
    for (DockableWindow* window : {static_cast<DockableWindow*>(nullptr), dying, inside}) {
        nested->insertChild(0, window == inside ? nested : window);
    }
    nested->insertChild(-1, &root);
    QCOMPARE(nested->takeChild(-1), nullptr);
    QCOMPARE(nested->takeChild(2), nullptr);
    QCOMPARE(nested->getChild(99), nullptr);
    QCOMPARE(nested->indexOfChild(free), -1);
    QCOMPARE(DockTree::text(root), before);
    QVERIFY(free->isFloating());

    free->undock(true);
    free->mouseUndock();
    free->cleanupOldParent(nullptr);
    root.undock(true);
    root.collapseGroup();
    QCOMPARE(DockTree::text(root), before);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aDockedWindowMovesToItsNewPlace()
{
    DockTree tree;
    tree.showRow({200, 200, 188});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* b = root.getChild(1);
    b->dockInArea(a, Area::Right);
    QCOMPARE(DockTree::text(root), QStringLiteral("H(H(b a) c)"));
    b->dockInArea(a, Area::Top); // again, from where it is
    QCOMPARE(DockTree::text(root), QStringLiteral("H(V(a b) c)"));
    root.dockInArea(a, Area::Left); // the old group is left with b alone
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a b c)"));
    root.insertChild(99, a); // to the end
    QCOMPARE(DockTree::text(root), QStringLiteral("H(b c a)"));

    DockableWindow* floating = b->dockInArea(a, Area::Bottom);
    floating->undock(true);
    QCOMPARE(DockTree::text(*floating), QStringLiteral("V(b a)"));
    QVERIFY(!floating->isBorderHidden());
    root.getChild(0)->dockInArea(a, Area::Left); // out of the floating one, which dissolves
    QCOMPARE(DockTree::text(root), QStringLiteral("H(H(a c))"));
    QVERIFY(b->isFloating() && b->isVisible());
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::undockingDissolvesAGroupOfOne()
{
    DockTree tree;
    tree.showRow({200, 300, 100});
    DockableGroup& root = tree.root();
    DockableWindow* b = root.getChild(1);
    const QPointer<DockableWindow> nested =
        b->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Left);
    const QPoint place = b->mapToGlobal(QPoint());
    b->undock(true);
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a x c)"));
    QCOMPARE(root.sizes(), QList({200, 300, 100}));
    QVERIFY(b->isFloating() && b->isVisible());
    QCOMPARE(b->pos(), place); // it does not jump
    QVERIFY(nested->isClosing());
    settle();
    QVERIFY(nested.isNull());

    b->dockInArea(root.getChild(1), Area::Top);
    auto* floating = b->findDockableParentGroup();
    b->undock(false);
    QCOMPARE(floating->childCount(), 1); // dissolves only when asked to
    QVERIFY(floating->isVisible());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aDissolvedGroupLeavesItsChildrenInItsPlace()
{
    DockTree tree;
    tree.showRow({200, 306, 100});
    DockableGroup& root = tree.root();
    DockableWindow* b = root.getChild(1);
    auto* nested = qobject_cast<DockableGroup*>(
        b->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Right));
    nested->setSizes({100, 200});
    QVERIFY(nested->isBorderHidden());
    nested->collapseGroup();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a b x c)"));
    QCOMPARE(root.sizes(), QList({200, 100, 200, 100}));

    DockableWindow* across = b->dockInArea(DockTree::panel(QStringLiteral("y")), Area::Top);
    qobject_cast<DockableGroup*>(across)->collapseGroup();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a y b x c)"));
    QCOMPARE(root.sizes(), QList({200, 47, 47, 200, 100}));
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aDissolvedFloatingGroupLeavesItsChildrenWhereTheyAre()
{
    DockTree tree;
    tree.show();
    DockableWindow* a = DockTree::panel(QStringLiteral("a"), {200, 150});
    a->move(300, 200);
    a->show();
    auto* group = qobject_cast<DockableGroup*>(
        a->dockInArea(DockTree::panel(QStringLiteral("b"), {120, 150}), Area::Right));
    DockableWindow* b = group->getChild(1);
    settle();
    const QPoint places[] = {a->mapToGlobal(QPoint()), b->mapToGlobal(QPoint())};
    const QSize sizes[] = {a->size(), b->size()};
    group->collapseGroup();
    QVERIFY(a->isFloating() && b->isFloating() && a->isVisible() && b->isVisible());
    QCOMPARE(a->mapToGlobal(QPoint()), places[0]);
    QCOMPARE(b->mapToGlobal(QPoint()), places[1]);
    QCOMPARE(a->size(), sizes[0]);
    QCOMPARE(b->size(), sizes[1]);
    group->collapseGroup(); // dying already
    a->dockInArea(b, Area::Left);
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aDraggedWindowsGroupStaysUntilTheDragIsOver()
{
    DockTree tree;
    tree.showRow({200, 200, 188});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* b = root.getChild(1);
    const QPointer<DockableWindow> nested = a->dockInArea(b, Area::Bottom);
    b->mouseUndock();
    QVERIFY(b->isFloating());
    QCOMPARE(DockTree::text(root), QStringLiteral("H(V(a) c)"));
    b->cleanupOldParent(nested); // dropped where it came from: not over yet
    QCOMPARE(DockTree::text(root), QStringLiteral("H(V(a) c)"));
    b->cleanupOldParent(&root);
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a c)"));
    settle();
    QVERIFY(nested.isNull());

    a->dockInArea(b, Area::Bottom);
    b->mouseUndock();
    delete b; // in the middle of the drag
    settle();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a c)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

/// Refuses to close as long as it is told to.
class StubbornPanel : public DockableWindow
{
public:
    explicit StubbornPanel(const QString& title)
        : DockableWindow(new QWidget)
    {
        setText(title);
        resize(100, 80);
    }
    bool stays = true;

protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!stays); }
};

void DockableGroupTest::closingUndocksFirstAndSparesFloatingWindows()
{
    DockTree tree;
    tree.showRow({200, 200, 188});
    DockableGroup& root = tree.root();
    const QPointer<DockableWindow> a = root.getChild(0);
    a->undockAndClose();
    QVERIFY(a->isClosing() && !a->isVisible());
    QCOMPARE(DockTree::text(root), QStringLiteral("H(b c)"));
    const QPointer<DockableWindow> b = root.getChild(0);
    b->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Top);
    b->undockAndClose();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(x c)"));
    settle();
    QVERIFY(a.isNull() && b.isNull());

    DockableWindow* floating = root.getChild(0);
    floating->undock(true);
    floating->undockAndClose();
    QVERIFY(floating->isVisible() && !floating->isClosing());

    auto* stubborn = new StubbornPanel(QStringLiteral("s"));
    root.dockInArea(stubborn, Area::Right);
    stubborn->undockAndClose();
    QVERIFY(stubborn->isFloating() && stubborn->isVisible());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aGroupClosesWithItsChildrenUnlessOneRefuses()
{
    DockTree tree;
    tree.show();
    QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
    auto* stubborn = new StubbornPanel(QStringLiteral("s"));
    stubborn->show();
    const QPointer<DockableWindow> group =
        stubborn->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Right);
    DockTree::panelIn(*stubborn, Area::Bottom, QStringLiteral("y"));
    QVERIFY(!group->close());
    QVERIFY(group->isVisible() && stubborn->isVisible());
    QVERIFY(!group->isClosing());
    stubborn->stays = false;
    QVERIFY(group->close());
    QVERIFY(!group->close() || group->isClosing()); // twice does no harm
    settle();
    QVERIFY(group.isNull());
    QCOMPARE(lastClosed.size(), 0);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::deletedWindowsLeaveNoShellBehind()
{
    DockTree tree;
    tree.showRow({300, 294});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    const QPointer<DockableWindow> nested =
        a->dockInArea(DockTree::panel(QStringLiteral("x")), Area::Bottom);
    delete a;
    QCOMPARE(DockTree::text(root), QStringLiteral("H(V(x) b)"));
    delete qobject_cast<DockableGroup*>(nested.data())->getChild(0);
    settle();
    QVERIFY(nested.isNull());
    QCOMPARE(DockTree::text(root), QStringLiteral("H(b)"));

    DockableWindow* f = DockTree::panel(QStringLiteral("f"));
    f->show();
    const QPointer<DockableWindow> floating =
        f->dockInArea(DockTree::panel(QStringLiteral("g")), Area::Left);
    delete qobject_cast<DockableGroup*>(floating.data())->getChild(0);
    delete f;
    settle();
    QVERIFY(floating.isNull());
    delete root.getChild(0);
    settle();
    QCOMPARE(root.childCount(), 0);
    QVERIFY(root.isVisible()); // never closed
    QCOMPARE(ui::test::emptyShellsInSight(), 0);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::nothingGrowsHoweverOftenWindowsComeAndGo()
{
    DockTree tree;
    tree.showRow({300, 294});
    DockableGroup& root = tree.root();
    QPointer<DockableWindow> guest = DockTree::panel(QStringLiteral("g"));
    const auto leave = [&](int how) {
        switch (how % 4) {
        case 0: guest->close(); break;
        case 1: delete guest; break;
        default: guest->undock(true); return;
        }
        settle();
        guest = DockTree::panel(QStringLiteral("g"));
    };
    const auto objects = [&] { return root.findChildren<QObject*>().size(); };
    const auto groups = [&] { return root.findChildren<DockableGroup*>().size(); };
    qsizetype after40 = 0;
    for (int i = 0; i < 400; ++i) {
        root.dockInArea(guest, static_cast<Area>(1 + i * 7 % 4));
        leave(i / 4);
        settle();
        QVERIFY2(groups() <= 2, qPrintable(DockTree::text(root)));
        if (i == 40) {
            after40 = objects();
        }
    }
    QCOMPARE(objects(), after40);
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

/// Counts the top-level windows that show, by the windows they are.
class ShowCounter : public QObject
{
public:
    ShowCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && widget && widget->isWindow()) {
            shown << widget;
        }
        return false;
    }
    QList<QWidget*> shown;
};

void DockableGroupTest::noWindowShowsButTheOneThatMoves()
{
    DockTree tree;
    tree.showRow({200, 200, 188});
    DockableGroup& root = tree.root();
    DockableWindow* a = root.getChild(0);
    DockableWindow* b = root.getChild(1);
    DockableWindow* c = root.getChild(2);
    ShowCounter counter;
    a->dockInArea(b, Area::Bottom); // b moves, a group comes
    root.dockInArea(c, Area::Top);  // across everything
    b->dockInArea(c, Area::Left);   // and away again
    root.getChild(0)->dockInArea(a, Area::Left);
    settle();
    QCOMPARE(counter.shown, QList<QWidget*>());
    a->mouseUndock();
    a->cleanupOldParent(nullptr);
    settle();
    QCOMPARE(counter.shown, QList<QWidget*>({a}));
    counter.shown.clear();
    b->undockAndClose();
    settle();
    QCOMPARE(counter.shown, QList<QWidget*>());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::leftIsLeftInARightToLeftApplication()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    {
        DockTree tree;
        tree.showRow({300, 294});
        DockableGroup& root = tree.root();
        DockableWindow* a = root.getChild(0);
        QVERIFY(a->x() < root.getChild(1)->x());
        DockableWindow* guest = DockTree::panel(QStringLiteral("x"));
        a->dockInArea(guest, Area::Left);
        QVERIFY(guest->mapToGlobal(QPoint()).x() < a->mapToGlobal(QPoint()).x());
        QCOMPARE(
            guest->content()->layoutDirection(), Qt::RightToLeft); // what is inside is not turned
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(guest->content()->layoutDirection(), Qt::LeftToRight);
        QApplication::setLayoutDirection(Qt::RightToLeft);
        guest->undock(true);
        QVERIFY(!guest->testAttribute(Qt::WA_SetLayoutDirection));
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void DockableGroupTest::aNativeContentMakesNobodyElseNative()
{
    DockTree tree;
    tree.showRow({300, 294});
    DockableGroup& root = tree.root();
    DockableWindow* native = DockTree::panel(QStringLiteral("x"));
    native->winId(); // a host asked for it while it floated
    native->show();
    for (int i = 0; i < 20; ++i) {
        root.getChild(0)->dockInArea(native, Area::Bottom);
        QCOMPARE(brokenInvariants().join(u'\n'), QString());
        native->undock(true);
        settle();
    }
    root.dockInArea(native, Area::Right);
    native->content()->winId();
    settle();
    for (int i = 0; i < 2; ++i) {
        QVERIFY(!root.getChild(i)->testAttribute(Qt::WA_NativeWindow));
    }
}

void DockableGroupTest::theHostHearsOnceOfEachChange()
{
    DockTree tree;
    tree.showRow({200, 394});
    DockableGroup& root = tree.root();
    settle();
    DockableWindow* a = root.getChild(0);
    DockableWindow* guest = DockTree::panel(QStringLiteral("x"));
    QSignalSpy changed(&root, &DockableGroup::layoutChanged);
    QSignalSpy docked(guest, &DockableWindow::docked);
    QSignalSpy undocked(guest, &DockableWindow::undocked);
    QString heard;
    connect(guest, &DockableWindow::docked, this, [&] { heard = DockTree::text(root); });
    DockableWindow* holder = a->dockInArea(guest, Area::Top);
    QCOMPARE(docked.size(), 1);
    QCOMPARE(docked[0][0].value<DockableGroup*>(), qobject_cast<DockableGroup*>(holder));
    QCOMPARE(heard, QStringLiteral("H(V(x a) b)")); // all is in place by then
    QCOMPARE(changed.size(), 1);
    guest->undock(true);
    QCOMPARE(undocked.size(), 1);
    QCOMPARE(changed.size(), 2);
    guest->undock(true);
    root.dockInArea(nullptr, Area::Top);
    settle();
    QCOMPARE(changed.size(), 2);

    // A slot may do anything, even away with the window.
    connect(guest, &DockableWindow::docked, guest, [guest] { delete guest; });
    root.dockInArea(guest, Area::Left);
    settle();
    QCOMPARE(DockTree::text(root), QStringLiteral("H(a b)"));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockableGroupTest::aMainWindowThatIsGoneIsNone()
{
    {
        DockTree tree;
        tree.showRow({200, 394});
        tree.root().getChild(0)->undock(true);
        DockableGroup* const gone = &tree.root();
        tree.destroy(); // takes the floating one along
        gMainWindow = gone;
        DockableWindow orphan(new QWidget);
        QCOMPARE(orphan.parentWidget(), nullptr);
        orphan.show();
        gMainWindow = nullptr;
        auto* second = DockTree::panel(QStringLiteral("y"));
        DockableWindow* group = orphan.dockInArea(second, Area::Right);
        QCOMPARE(DockTree::text(*group), QStringLiteral("H( y)"));
        second->undock(true);
        QVERIFY(orphan.isFloating());
        delete second;
        settle();
    }
}

const ui::test::Registration<DockableGroupTest> kRegistration;
#include "tst_dockablegroup.moc"

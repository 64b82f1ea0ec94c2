// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/theme/events.h>

#include <functional>
#include <random>

using namespace ui::test;
using Area = DockableArea;

namespace {

/// Refuses to close as long as it is told to.
class StubbornPanel : public DockableWindow
{
public:
    StubbornPanel()
        : DockableWindow(new QWidget)
    {
        setText(u"s"_qs);
        resize(100, 80);
    }
    bool stays = true;
    std::function<void()> whenAsked = [] {};

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->setAccepted(!stays);
        whenAsked();
    }
};

} // namespace

/// Operations on the tree. Where a window shows that none should, DockCountersTest tells.
class DockableGroupTest : public ui::test::TestCase
{
    Q_OBJECT

private:
    static void growTowards(Area area, QPoint offset, QSize gain)
    {
        DockTree tree(u"H() f=150x80"_qs); // no less than what Windows lets a window have
        DockableWindow* f = tree["f"];
        DockableWindow* g = DockTree::panel(u"g"_qs, {150, 80});
        auto* holder = f->dockInArea(g, gain.width() ? Area::Right : Area::Bottom);
        holder->move(150, 140);
        settle();
        const QRect before(holder->pos(), holder->size());
        const QPoint place = onScreen(*f).topLeft();
        DockableWindow* n = DockTree::panel(u"n"_qs, {70, 60});
        holder->dockInArea(n, area);
        QCOMPARE(holder->pos(), before.topLeft() + offset);
        QCOMPARE(holder->size(), before.size() + gain);
        QCOMPARE(onScreen(*f).topLeft(), place);
        n->undock(true); // and back again
        QCOMPARE(QRect(holder->pos(), holder->size()), before);
        QCOMPARE(onScreen(*f).topLeft(), place);
        const QPoint corner = holder->screen()->availableGeometry().topLeft();
        holder->move(corner + QPoint(5, 5));
        holder->dockInArea(n, area); // as far as the screen goes
        QCOMPARE(holder->pos(), corner + QPoint(offset.x() ? 0 : 5, offset.y() ? 0 : 5));
        const QPoint main = tree.root().pos();
        tree.root().dockInArea(holder, area);
        QCOMPARE(tree.root().pos(), main); // the main window does not float
    }

private Q_SLOTS:
    void operationsLeadToTrees_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("operations");
        QTest::addColumn<QString>("end"); // with sizes where it says so
        const auto row =
            [](const char* start, const QByteArray& operations, const QByteArray& end) {
                QTest::addRow("%s: %s", start, operations.constData())
                    << QString::fromLatin1(start) << QString::fromLatin1(operations)
                    << QString::fromLatin1(end);
            };
        const std::pair<const char*, const char*> areas[] = {
            {"right", "H(a x)"},
            {"top", "V(x a)"},
            {"left", "H(x a)"},
            {"bottom", "V(a x)"},
            {"center", "T(a x)"}};
        for (const auto& [area, pair] : areas) {
            const QByteArray dock = QByteArray("dock x a ") + area;
            row("H(a b)", dock, QByteArray("H(") + pair + " b)");
            row("H(b) a", dock, QByteArray("H(b) ") + pair);
        }
        // Docking across the root wraps its children; Center counts as horizontal.
        row("H(a=200 b=300 c=100)", "dock t root top", "V(t=80 H(a=200 b=300 c=100)=314)");
        row("V(t H(a b c))", "dock m root center", "H(V(t H(a b c)) m)");
        row("H()", "dock n root bottom", "V(n)"); // any direction while it is empty
        // A group takes newcomers in its own direction itself.
        row("H(V(a x) b)", "dock y ^a top, dock z ^a bottom", "H(V(y a x z) b)");
        row("H(V(a x) b)", "dock l ^a left", "H(H(l V(a x)) b)");
        // What is docked already moves.
        row("H(a b c)", "dock a b right", "H(H(b a) c)");
        row("H(H(b a) c)", "dock a b top", "H(V(a b) c)");
        row("H(V(a b) c)", "dock a root left", "H(a b c)"); // the old group is left with b alone
        row("H(a b c)", "insert a root 99", "H(b c a)");
        row("H(c) V(b a)", "dock a c left, settle", "H(H(a c)) b");
        row("H(a=120 b=80 c=80)", "dock a root left", "H(a=120 b=80 c=80)"); // where it is
        // Groups of one dissolve, if asked to, and give the room back.
        row("H(a=200 b=300 c=100)", "dock x b left, undock b", "H(a=200 x=300 c=100)");
        for (const char* const where : {"root right", "root left", "c right", "c top"}) {
            const QByteArray dock = QByteArray("dock x ") + where;
            const char* const sizes = "H(a=201 b=298 c=101)"; // which a half would not give back
            row(sizes, dock + ", undock x, " + dock + ", undock x", sizes);
        }
        row("H(a V(x b) c)", "leave b, settle", "H(a V(x) c) b");
        row("H(a H(b x) c)", "collapse ^b", "H(a b x c)");
        row("H(a=200 b=306 c=100)", "dock x b right, collapse ^b", "H(a=200 b=200 x=100 c=100)");
        row("H(a=200 b=100 c=100)",
            "dock y b top, collapse ^b",
            "H(a=200 y=47 b=47 c=100)"); // lying across they had all of it
        row("H(a) H(b c)", "collapse ^b", "H(a) b c");
        row("H(a b)", "collapse root, undock root", "H(a b)");
        row("H(a b) f", "undock f, tear f, tidy f root", "H(a b) f");
        // While a window is dragged its group stays, unless it is dropped elsewhere.
        row("H(V(a b) c)", "tear b, tidy b ^a", "H(V(a) c) b");
        row("H(V(a b) c)", "tear b, tidy b root", "H(a c) b");
        row("H(V(a b) c)", "tear b, delete b, settle", "H(a c)");
        // Closing undocks first, and spares what floats.
        row("H(a b c)", "close a, settle", "H(b c)");
        row("H(V(x b) c)", "close b, settle", "H(x c)");
        row("H(a) f", "close f, settle", "H(a) f");
        row("H(a) V(f g)", "shut ^f, settle", "H(a)");
        // What is deleted leaves no shell.
        row("H(V(a x) b)", "delete a, settle", "H(x b)");
        row("H(V(a x) b)", "delete a, delete x, settle", "H(b)");
        row("H(V(a x) b)", "delete ^a, settle", "H(b)");
        row("H(a) H(f g)", "delete f, delete g, settle", "H(a)");
        row("H(a)", "delete a, settle", "H()");
        // A newcomer takes the size it had, at most half.
        row("H(a=300 b=294) x=800x600", "dock x a right", "H(H(a=147 x=147)=300 b=294)");
        row("H(a=300 b=294) x=120x600", "dock x a right", "H(H(a=174 x=120)=300 b=294)");
        row("H(a=200 b=394) x=800x600", "dock x root left", "H(x=294 a=99 b=195)");
        // Tabs.
        row("H(a=200 b=300 e=100)",
            "dock c b center, dock d ^b center",
            "H(a=200 T(b c d)=300 e=100)");
        row("H(a T(b c)) T(f g)", "dock ^f ^b top", "H(a V(T(f g) T(b c)))");
        row("H(V(a b) c)", "dock c ^a center", "H(T(V(a b) c))");
        row("H(a T(b c))", "insert c ^b 0", "H(a T(c b))");
        row("H(a T(b c))", "dock b ^b center, dock c ^b left", "H(a H(c b))");
        row("H(a T(b c d))", "dock y c right", "H(a T(b H(c y) d))");
        row("H(a T(b H(c y) d))", "undock c", "H(a T(b y d)) c");
        row("H(a T(b c) e)", "undock c, settle", "H(a b e) c");
        row("H(a T(b c d) e)", "close b, undock d, settle", "H(a c e) d");
        row("H(a e) T(b c d)", "close b, undock d, settle", "H(a e) c d");
        row("H(a T(b c) e)", "delete c, delete b, settle", "H(a e)");
        row("H(a T(b c) e)", "delete ^b, settle", "H(a e)");
        // No room is left empty, not in another size either.
        // Bars are 30 pixels high without their headers; the root is 412, its row 400.
        const std::unique_ptr<DockableWindow> one(DockTree::panel());
        const int bar = 30 + one->header()->sizeHint().height();
        const auto settled = [&](const char* start, const QString& end) {
            row(start, "settle", end.toLatin1());
        };
        settled("V(a bar)", u"V(a=%1 bar=%2)"_qs.arg(394 - bar).arg(bar));
        settled("V(H(bar) a)", u"V(H(bar=600)=%2 a=%1)"_qs.arg(394 - bar).arg(bar));
        settled(
            "V(H(bar1 bar2) V(bar3) a)",
            u"V(H(bar1=297 bar2=297)=%2 V(bar3=%2)=%2 a=%1)"_qs.arg(388 - 2 * bar).arg(bar));
        settled("V(bar1 bar2)", u"V(bar1=%1 bar2=%2)"_qs.arg(394 - bar).arg(bar)); // nobody else
        row("V(bar1 a)", "close a, settle", "V(bar1=400)");
        row("H(a b)", "dock bar b top, undock b, settle", "H(a=494 bar=100)");
        row("H(V(bar x) b)", "hide x, settle", "H(V(bar=400 x=0)=494 b=100)");
        row("V(H(a) x)", "leave a, settle", "V(x=400)");
        row("V(H(V(a b)) x)", "delete a, delete b, settle", "V(x=400)");
        row("H(V(a b))", "delete b, delete a, settle", "H()");
        row("H(V(H(a) b) c)", "delete b, leave a, settle", "H(c=600)");
    }

    void operationsLeadToTrees()
    {
        QFETCH(QString, start);
        QFETCH(QString, operations);
        QFETCH(QString, end);
        DockTree tree(start);
        tree.play(operations);
        for (int i = 0; i < 2; ++i) { // nothing is still due
            QCOMPARE(end.contains(u'=') ? tree.sizes() : tree.text(), end);
            settle();
        }
        tree.root().resize(500, 300);
    }

    void whatCannotBeDockedChangesNothing()
    {
        DockTree tree(u"H(V(a x) b) f d"_qs);
        DockableGroup& nested = *tree.group("^a");
        DockableWindow* dying = tree["d"];
        dying->close();
        QVERIFY(dying->isClosing());
        const std::pair<DockableWindow*, DockableWindow*> pairs[] = {
            {&tree.root(), nullptr},
            {tree["a"], tree["a"]},
            {tree["a"], &nested},
            {tree["a"], &tree.root()},
            {tree["f"], &tree.root()},
            {&tree.root(), dying},
            {dying, tree["f"]}};
        for (int area = -1; area <= 6; ++area) {
            for (const auto& [target, window] : pairs) {
                QCOMPARE(target->dockInArea(window, static_cast<Area>(area)), nullptr);
            }
            const bool exists = area >= 1 && area <= 5;
            QVERIFY(exists || !tree.root().dockInArea(tree["f"], static_cast<Area>(area)));
        }
        const QList<DockableWindow*> refused{nullptr, dying, &nested, &tree.root()};
        for (DockableWindow* window : refused) {
            nested.insertChild(0, window);
        }
        QVERIFY(!nested.takeChild(-1) && !nested.takeChild(2) && !nested.getChild(99));
        QCOMPARE(nested.indexOfChild(tree["f"]), -1);
        QCOMPARE(tree.text(), u"H(V(a x) b) f"_qs);
    }

    void windowsAreWhereTheyWereWhenTheyFloat()
    {
        DockTree tree(u"H(a b c) H(f g)"_qs);
        const QPoint place = onScreen(*tree["b"]).topLeft();
        tree["b"]->undock(true);
        QCOMPARE(tree["b"]->pos(), place); // it does not jump
        const QRect rects[] = {onScreen(*tree["f"]), onScreen(*tree["g"])};
        tree.group("^f")->collapseGroup();
        QCOMPARE(onScreen(*tree["f"]), rects[0]);
        QCOMPARE(onScreen(*tree["g"]), rects[1]);
    }

    void aFloatingGroupGrowsTowardsTheNewcomer()
    {
        for (const auto& [area, offset, gain] : // offset of the group, and what it gains
             {std::tuple(Area::Left, QPoint(-70, 0), QSize(70, 0)),
              {Area::Right, {}, {76, 0}},
              {Area::Top, {0, -60}, {0, 60}},
              {Area::Bottom, {}, {0, 66}}})
        {
            growTowards(area, offset, gain);
        }
    }

    void floatingWindowsPartAsTheyMet()
    {
        const QSize sizes[] = {{260, 180}, {200, 160}};
        for (int step = 0; step < 30; ++step) { // every area, either of the two, three times
            const auto area = static_cast<Area>(1 + step % 5);
            DockTree tree(u"H() f=260x180 g=200x160"_qs);
            const QPoint place = tree["f"]->pos();
            const bool targetLeaves = step % 2 == 0;
            for (int cycle = 0; cycle < 3; ++cycle) {
                tree["f"]->dockInArea(tree["g"], area);
                settle();
                tree[targetLeaves ? "f" : "g"]->undock(true);
                settle();
            }
            QCOMPARE(tree["f"]->size(), sizes[0]);
            QCOMPARE(tree["g"]->size(), sizes[1]);
            QVERIFY(targetLeaves || tree["f"]->pos() == place);
        }
    }

    void aGroupClosesWithItsChildrenUnlessOneRefusesOrComes()
    {
        DockTree tree(u"H(a)"_qs);
        QSignalSpy lastClosed(qApp, &QGuiApplication::lastWindowClosed);
        auto* stubborn = new StubbornPanel;
        stubborn->show();
        tree.play(u"dock x s right, dock y s bottom"_qs);
        const QPointer<DockableWindow> group = tree["^x"];
        QVERIFY(!group->close() && !group->isClosing());
        QCOMPARE(tree.text(), u"H(a) H(V(s y) x)"_qs);
        tree.play(u"dock s root right, close s"_qs);
        QVERIFY(stubborn->isFloating() && stubborn->isVisible());
        tree.play(u"dock s x left"_qs);
        stubborn->stays = false;
        tree["^y"]->close();
        settle();
        QCOMPARE(tree.text(), u"H(a)"_qs);
        QVERIFY(group.isNull());
        QCOMPARE(lastClosed.size(), 0);

        stubborn = new StubbornPanel;
        stubborn->show();
        tree.play(u"dock x s right, dock y x bottom"_qs);
        stubborn->stays = false;
        stubborn->whenAsked = [&tree] { tree.play(u"undock x"_qs); }; // y takes its group's place
        tree["^s"]->close();
        settle();
        QCOMPARE(tree.text(), u"H(a) x y"_qs);
    }

    void whatTheHostKeepsLeavesAsItCloses()
    {
        for (const auto& [start, close, end] :
             {std::tuple("H(a=190 x=200 b=198)", "close x", "H(a b)"),
              {"H(a=190 x=200 b=198)", "shut x", "H(a b)"},
              {"H(a=190 V(b x)=200 c=198)", "shut x", "H(a b c)"},
              {"H(a=190 T(b x)=200 c=198)", "select x, shut x", "H(a b c)"},
              {"H(a) V(f x)", "shut ^x, settle", "H(a)"},
              {"H(a) T(x f)", "shut ^x, settle", "H(a)"},
              {"H(a=190 V(b x)=200 c=198)", "hide x, shut x", "H(a b c)"},
              {"H(a) x=200x150", "shut x", "H(a)"}})
        {
            DockTree tree(QString::fromLatin1(start));
            tree.play(u"keep x, settle"_qs);
            const std::unique_ptr<DockableWindow> kept(tree["x"]);
            const QSize size = kept->size();
            int told = 0;
            connect(&tree.root(), &DockableGroup::layoutChanged, kept.get(), [&told] { ++told; });
            tree.play(QString::fromLatin1(close));
            const bool selects = QByteArray(close).startsWith("select");
            const QSize last = selects ? kept->size() : size;
            settle();
            QCOMPARE(told, selects ? 2 : 1);
            QCOMPARE(tree.text(), QString::fromLatin1(end));
            QVERIFY(kept->isFloating() && kept->isHidden());
            kept->show();
            QCOMPARE(kept->size(), last);
            tree.play(u"dock x a right, settle"_qs);
            QVERIFY(kept->isVisible() && kept->width() > 20);
        }
    }

    void whatTheHostKeepsOutlivesGroupsAndTheMainWindow()
    {
        DockTree tree(u"H(a T(b x) V(c T(bar1 d))) z"_qs); // the bar has never been seen
        tree.play(u"keep x, keep bar1, keep z"_qs);
        const std::unique_ptr<DockableWindow> kept[] = {
            std::unique_ptr<DockableWindow>(tree["x"]),
            std::unique_ptr<DockableWindow>(tree["bar1"]),
            std::unique_ptr<DockableWindow>(tree["z"])};
        delete tree["^x"];
        QVERIFY(kept[0]->isFloating() && kept[0]->sizePolicy() == kept[2]->sizePolicy());
        tree.destroy();
        for (const auto& panel : kept) {
            QVERIFY(!panel->parentWidget() && panel->isHidden() && !panel->header()->isHidden());
        }
        QVERIFY(kept[1]->maximumHeight() < 100); // its own limits hold again
    }

    void aWindowForgetsWhatItWasLikeBeforeItDocked()
    {
        DockTree tree(u"H(a b) f=240x160"_qs);
        tree["f"]->showMinimized();
        settle();
        tree.play(u"dock f a top, undock f, settle"_qs);
        QVERIFY(!tree["f"]->isMinimized() && tree["f"]->isVisible());
        const QSize size = tree["b"]->size();
        tree.play(u"hide b, settle, undock b, settle"_qs);
        QCOMPARE(tree["b"]->size(), size);
    }

    void aDoubleClickFloatsAWindowAndDocksItBack()
    {
        for (const auto& [start, afloat] :
             {std::pair("H(a V(b x) c)", "H(a b c) x"),
              {"H(a V(x b) c)", "H(a b c) x"},
              {"H(a T(b x) c)", "H(a b c) x"},
              {"H(a T(b x d) c)", "H(a T(b d) c) x"},
              {"H(x)", "H() x"}})
        {
            DockTree tree(QString::fromLatin1(start));
            DockableWindow& x = *tree["x"];
            x.toggleFloating();
            settle();
            QCOMPARE(tree.text(), QString::fromLatin1(afloat));
            x.move(150, 200);
            x.resize(180, 140);
            x.toggleFloating();
            settle();
            QCOMPARE(tree.text(), QString::fromLatin1(start));
            x.toggleFloating(); // where it last was
            settle();
            QCOMPARE(QRect(x.pos(), x.size()), QRect(150, 200, 180, 140));
            x.toggleFloating();
            const QPoint seen = x.mapToGlobal(QPoint());
            x.undock(true); // does not go there
            QCOMPARE(x.pos(), seen);
        }
    }

    void theMainWindowAsksAllBeforeItCloses()
    {
        DockTree tree(u"H(a)"_qs);
        auto* stubborn = new StubbornPanel;
        stubborn->show();
        QVERIFY(!tree.root().close() && !tree.root().mayClose());
        tree.play(u"dock s a center, select a, settle"_qs);
        QVERIFY(!tree.root().close() && tree.root().isVisible());
        QCOMPARE(tree.text(), u"H(T(a s))"_qs); // all are still there
        stubborn->stays = false;
        QVERIFY(tree.root().mayClose() && !stubborn->isClosing() && tree.root().close());
        QCOMPARE(DockTree::text(tree.root()), u"H(T(a s))"_qs);
    }

    void aDoubleClickOnAHandleMakesItsNeighboursEqual()
    {
        DockTree tree(u"H(a=100 b=300 c=200)"_qs);
        auto* splitter = tree.root().findChild<QSplitter*>();
        QTest::mouseDClick(splitter->handle(1), Qt::LeftButton);
        QCOMPARE(tree.sizes(), u"H(a=200 b=200 c=200)"_qs);
    }

    void leftIsLeftInARightToLeftApplication()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        {
            DockTree tree(u"H(a b)"_qs);
            QVERIFY(tree["a"]->x() < tree["b"]->x());
            tree.play(u"dock x a left"_qs);
            DockableWindow& guest = *tree["x"];
            QVERIFY(onScreen(guest).x() < onScreen(*tree["a"]).x());
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                QApplication::setLayoutDirection(direction); // what is inside follows
                QCOMPARE(guest.content()->layoutDirection(), direction);
            }
            guest.undock(true);
            QVERIFY(!guest.testAttribute(Qt::WA_SetLayoutDirection));
        }
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void aNativeContentMakesNobodyElseNative()
    {
        DockTree tree(u"H(a b) x"_qs);
        DockableWindow& native = *tree["x"];
        native.winId(); // a host asked for it while it floated
        for (int i = 0; i < 5; ++i) {
            tree.play(u"dock x a bottom"_qs);
            QCOMPARE(tree.text(), u"H(V(a x) b)"_qs);
            tree.play(u"undock x, settle"_qs);
        }
        tree.play(u"dock x root right"_qs);
        native.content()->winId();
        settle();
        QVERIFY(!tree["a"]->testAttribute(Qt::WA_NativeWindow));
        QVERIFY(!tree["b"]->testAttribute(Qt::WA_NativeWindow));
    }

    void aContentThatIsAWindowGoesAlong()
    {
        if (QGuiApplication::platformName() == u"offscreen") {
            return; // knows no windows within windows
        }
        DockTree tree(u"H(a b)"_qs);
        const QPointer<QWindow> inner = new QWindow;
        auto* panel = new DockableWindow(QWidget::createWindowContainer(inner));
        panel->setText(u"x"_qs);
        panel->show();
        const QString steps =
            u"dock x a bottom, dock b x top, dock y root left, undock x, dock x a center, select "
            u"a, "
            "select x, dock c x right, undock c, undock x, dock c x left, dock ^x root bottom"_qs;
        for (const QString& step : steps.split(u", "_qs)) {
            tree.play(step + u", settle"_qs); // and nobody else becomes native
            QVERIFY2(inner, qPrintable(step));
            QCOMPARE(inner->isVisible(), panel->isVisible());
            QCOMPARE(inner->parent(), panel->window()->windowHandle());
        }
        tree.play(u"close x, settle"_qs);
        QVERIFY(!inner);
    }

    void theHostHearsOnceOfEachChange()
    {
        DockTree tree(u"H(a b) x"_qs);
        QStringList heard;
        const auto hear = [&](const QString& what) {
            heard << what + u' ' + DockTree::text(tree.root()); // all is in place by then
        };
        connect(&tree.root(), &DockableGroup::layoutChanged, this, [&] { hear(u"changed"_qs); });
        connect(tree["x"], &DockableWindow::undocked, this, [&] { hear(u"undocked"_qs); });
        connect(tree["x"], &DockableWindow::docked, this, [&](DockableGroup* group) {
            hear(u"docked in "_qs + DockTree::text(*group) + u':');
        });
        tree.play(u"dock x a top, undock x, undock x, settle"_qs);
        QCOMPARE(
            heard.join(u", "_qs),
            u"docked in V(x a): H(V(x a) b), changed H(V(x a) b), undocked H(a b), "
            "changed H(a b)"_qs);
        heard.clear();
        tree.root().dockInArea(nullptr, Area::Top);
        settle();
        QVERIFY(heard.isEmpty());
        DockableWindow* guest = tree["x"]; // a slot may do anything, even away with the window
        connect(guest, &DockableWindow::docked, guest, [guest] { delete guest; });
        tree.play(u"dock x root left, settle"_qs);
        QCOMPARE(tree.text(), u"H(a b)"_qs);
    }

    void whoeverHearsThatItIsShownMayDeleteOthers()
    {
        for (const auto& [start, target, area, dies, end] :
             {std::tuple("H(a b)", "a", Area::Bottom, "a", "H(y b)"),
              {"H(a b)", "root", Area::Top, "^a", "V(y)"}})
        {
            DockTree tree(QString::fromLatin1(start));
            DockableWindow* newcomer = DockTree::panel(u"y"_qs);
            const auto welcome = [&tree, dies = dies](QObject*, const QEvent* event) {
                delete (event->type() == QEvent::Show ? tree[dies] : nullptr);
                return false;
            };
            ui::installEventFilter(newcomer, welcome, nullptr);
            tree[target]->dockInArea(newcomer, area);
            settle();
            QCOMPARE(tree.text(), QString::fromLatin1(end));
        }
    }

    void aMainWindowThatIsGoneIsNone()
    {
        DockTree tree(u"H(a) b"_qs);
        DockableGroup* const gone = &tree.root();
        tree.destroy(); // takes the floating one along
        gMainWindow = gone;
        DockableWindow orphan(new QWidget);
        QCOMPARE(orphan.parentWidget(), nullptr);
        orphan.show();
        gMainWindow = nullptr;
        const std::unique_ptr<DockableWindow> second(DockTree::panel(u"y"_qs));
        DockableWindow* group = orphan.dockInArea(second.get(), Area::Right);
        QCOMPARE(DockTree::text(*group), u"H( y)"_qs);
        second->undock(true);
        QVERIFY(orphan.isFloating());
        settle();
    }

    void windowsAndContentsDieInAnyOrder()
    {
        for (unsigned seed = 1; seed <= 40; ++seed) {
            std::mt19937 random(seed);
            const auto pick = [&random](qsizetype count) {
                return static_cast<int>(random() % static_cast<unsigned>(count));
            };
            auto* host = new QWidget;
            auto* root = gMainWindow = new DockableGroup;
            (new QVBoxLayout(host))->addWidget(root);
            QList<QPointer<QWidget>> mortals{host};
            for (int i = 0; i < 7; ++i) {
                DockableWindow* target = root->findChildren<DockableWindow*>().value(pick(8), root);
                DockableWindow* panel = DockTree::panel(QString::number(i));
                panel->setAttribute(Qt::WA_DeleteOnClose, pick(3) > 0);
                target->dockInArea(panel, static_cast<Area>(pick(6))); // or nowhere
                panel->show();
                mortals << panel->content() << panel->header();
            }
            host->show();
            settle();
            const auto hear = [alive = mortals.first()] { QVERIFY(alive); };
            connect(root, &DockableGroup::layoutChanged, host, hear);
            for (DockableWindow* window : host->findChildren<DockableWindow*>()) {
                connect(window, &DockableWindow::undocked, host, hear);
                mortals << window;
            }
            while (!mortals.isEmpty()) {
                const QPointer<QWidget> next = mortals.takeAt(pick(mortals.size()));
                const bool closes = next && pick(5) == 0;
                mortals += QList<QPointer<QWidget>>(closes ? 1 : 0, next);
                closes ? void(next->close()) : delete next;
                pick(2) == 0 ? settle() : void();
            }
            const auto left = QApplication::allWidgets();
            QVERIFY(std::none_of(left.begin(), left.end(), [](QWidget* widget) {
                return qobject_cast<DockableWindow*>(widget);
            }));
        }
    }
};

const ui::test::Registration<DockableGroupTest> kRegistration;
#include "tst_dockablegroup.moc"

// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/MorrantUI.h>

#include <cstring>

using namespace ui::test;
using Area = DockableArea;

namespace {

/// What a user does in the tree, word by word: grab WINDOW (by its header, or its tab), to
/// WINDOW:ZONE or to WINDOW (its middle) or to "out", twice to the point, since over a new target
/// the first move only shows the zones; "first" moves once. Then drop, escape, lose (the release),
/// click WINDOW, lock and unlock WINDOW, choose WINDOW ENTRY (of its menu), and what
/// DockTree::play() knows.
class GestureTree : public DockTree
{
public:
    using DockTree::DockTree;

    QPoint out() { return root().geometry().bottomLeft() + QPoint(100, 150); }

    static QWidget& gripOf(DockableWindow& window)
    {
        auto* tabs = qobject_cast<DockableTabGroup*>(window.findDockableParentGroup());
        return tabs ? *static_cast<QWidget*>(tabs->tabAt(tabs->indexOfChild(&window)))
                    : *window.header();
    }

    void perform(const QString& steps)
    {
        for (const QString& step : steps.split(u", "_qs)) {
            performOne(step);
        }
    }

    void performOne(const QString& step)
    {
        const QStringList words = step.split(u' ');
        const QString& what = words.first();
        DockableWindow* window = words.size() > 1 ? (*this)[words.at(1)] : nullptr;
        if (what == u"grab") {
            hand.press(gripOf(*window), kGrip);
        } else if (what == u"to" || what == u"first") {
            const QPoint point = words.at(1) == u"out" ? out() : pointAt(words.at(1));
            if (what == u"to") {
                hand.moveTo(point - QPoint(1, 1));
            }
            hand.moveTo(point);
        } else if (what == u"drop") {
            hand.release();
        } else if (what == u"escape") {
            hand.pressEscape();
            QCoreApplication::processEvents(); // the way back is taken from the event loop
        } else if (what == u"lose") {
            hand.loseRelease();
        } else if (what == u"click") {
            hand.press(gripOf(*window), kGrip);
            hand.release();
        } else if (what == u"lock" || what == u"unlock") {
            window->setDragEnabled(what == u"unlock");
        } else if (what == u"choose") {
            choose(*window, words.at(2));
        } else {
            play(step);
        }
        if (hand.isReal() || (!hand.isDown() && what != u"lose")) {
            settle();
        }
    }

    /// In the menu of a window's header or tab.
    QString choose(DockableWindow& window, const QString& entry)
    {
        const auto openMenu = [&] {
            hand.press(gripOf(window), kGrip, Qt::RightButton);
            if (hand.isDown() && !hand.isReal()) {
                hand.release();
            }
        };
        return menuDuring(openMenu, entry).texts.join(u',');
    }

    static constexpr QPoint kGrip{14, 9};

private:
    QPoint pointAt(const QString& place)
    {
        const QStringList parts = place.split(u':');
        const Area area = parts.size() > 1 ? areaOf(parts.last()) : Area::None;
        return zoneOf(*(*this)[parts.first()], area);
    }
};

} // namespace

/// The gestures of a user with a mouse: one that is played, and on a display the real one.
class DockDraggingTest : public ui::test::TestCase
{
    Q_OBJECT

private:
    static void visitZones(bool real)
    {
        GestureTree tree(u"H(a=200 b=300 c=100) f=240x140"_qs);
        if (real) {
            tree.hand.takeRealPointer();
        }
        const QRect room = onScreen(*tree["b"]);
        const QString trees[] = {
            u"H(b f)"_qs, u"V(f b)"_qs, u"H(f b)"_qs, u"V(b f)"_qs, u"T(b f)"_qs};
        for (int cycle = 0; cycle < 30; ++cycle) {
            const auto area = static_cast<Area>(1 + cycle % 5);
            tree.perform(u"grab f, to b:%1, drop"_qs.arg(nameOf(area)));
            QCOMPARE(tree.text(), u"H(a %1 c)"_qs.arg(trees[cycle % 5]));
            QVERIFY(room.contains(onScreen(*tree["f"])));
            if (cycle == 0) { // what was pressed has lost its window: others hear of the pointer
                QWidget& other = *tree["c"]->content();
                int presses = 0;
                const auto count = [&presses](QObject*, QEvent* event) {
                    presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
                    return false;
                };
                const std::unique_ptr<QObject> counter(
                    ui::installEventFilter(&other, count, &other));
                tree.hand.press(other, other.rect().center());
                tree.hand.release();
                QTRY_COMPARE(presses, 1);
                QTRY_VERIFY(!real || other.underMouse());
            }
            tree.perform(u"grab f, to out, drop"_qs);
            QCOMPARE(tree.sizes(), u"H(a=200 b=300 c=100)"_qs);
        }
    }

private Q_SLOTS:
    void windowsGoWhereTheyAreDragged_data()
    {
        QTest::addColumn<bool>("real");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("steps");
        const auto row = [](const char* name, const QString& start, const char* steps) {
            QTest::addRow("%s", name) << false << start << QString::fromLatin1(steps);
            if (RealPointer::available() && !strstr(steps, "lose")) {
                QTest::addRow("%s, with the real pointer", name)
                    << true << start << QString::fromLatin1(steps);
            }
        };
        const QString abc = u"H(a=120 b=140 c=100)"_qs;
        // Steps, and what is seen after one where it is not what was seen before. So that the first
        // press is the second of a double click, it follows at once.
        row("a panel is torn out and comes back",
            abc,
            "click a, grab a, first c:left | H(a b c) c:none, to c:left | H(a b c) c:left, "
            "to c | H(a b c) c:none, to out | H(b c) a~, to b | H(b c) a~ b:none, "
            "drop | H(b c) a, grab a, to b:left | H(b c) a~ b:left, drop | H(H(a b) c), "
            "grab b, to out | H(H(a) c) b~, drop | H(a c) b");
        row("inside its own window a panel docks without being torn out",
            abc,
            "grab a, to c:left | H(a b c) c:left, drop | H(b H(a c)), grab a, "
            "to a:left | H(b H(a c)) H(b H(a c)):none, drop | H(b H(a c))");
        row("tab groups are made and broken",
            abc,
            "grab a, to b:center | H(a b c) b:center, drop | H(T(b a) c), click b, grab c, "
            "to b | H(T(b a) c) T(b a):none, to ^b:center | H(T(b a) c) T(b a):center, "
            "drop | H(T(b a c)), grab a, to ^b:center | H(T(b a c)) T(b a c):center, "
            "drop | H(T(b a c)), grab a, to out | H(T(b c)) a~, "
            "to ^b:right | H(T(b c)) a~ T(b c):right, drop | H(H(T(b c) a)), grab c, "
            "to out | H(H(T(b) a)) c~, drop | H(H(b a)) c");
        row("Escape puts a window back",
            u"H(V(a x) b c)"_qs,
            "grab a, to b:top | H(V(a x) b c) b:top, escape | H(V(a x) b c), drop, grab a, "
            "to out | H(V(x) b c) a~, to b:bottom | H(V(x) b c) a~ b:bottom, "
            "escape | H(V(a x) b c), to out, drop");
        row("only the upper of two floating windows is a target",
            u"H(a c) f=240x180"_qs,
            "play g, grab c, to g:left | H(a) c~ f g g:left, to f:left | H(a) c~ f g f:left, "
            "to f:bottom | H(a) c~ f g f:bottom, drop | H(a) V(f c) g");
        row("a locked panel stays",
            abc,
            "lock a, grab a, to out, drop, unlock a, grab a, to out | H(b c) a~, "
            "lock a | H(b c) a, drop, grab a, to b:left, drop | H(b c) a");
        row("the dragged window decides which zones there are",
            abc,
            "sideless a, grab a, to c:left | H(a b c) c:none, to c:center | H(a b c) c:none, "
            "to c:bottom | H(a b c) c:bottom, drop | H(b V(c a))");
        row("the menu comes with the right button",
            abc,
            "choose a Undock | H(b c) a, choose a Close, dock a b center | H(T(b a) c), "
            "choose b nothing, choose b Undock | H(a c) b, choose c Close | H(a) b");
        row("a lost release ends the drag at the next move",
            abc,
            "grab a, to b:left | H(a b c) b:left, lose, first b:left | H(a b c), grab a, "
            "to b:left | H(a b c) b:left, drop | H(H(a b) c)");
    }

    void windowsGoWhereTheyAreDragged()
    {
        QFETCH(bool, real);
        QFETCH(QString, start);
        QFETCH(QString, steps);
        GestureTree tree(start, {300, 200});
        tree.root().activateWindow();
        settle();
        if (real) {
            tree.hand.takeRealPointer();
        }
        QString seen = tree.text();
        for (const QString& step : steps.split(u", "_qs)) {
            const QStringList parts = step.split(u" | "_qs);
            if (parts.first() == u"play g") { // in front of f
                DockableWindow* g = DockTree::panel(u"g"_qs, {120, 80});
                g->move(tree["f"]->pos() + QPoint(60, 60));
                g->show();
                seen = tree.text();
            } else if (parts.first() == u"sideless a") {
                tree["a"]->sideDockingDisabled = true;
            } else {
                tree.performOne(parts.first());
            }
            if (parts.first() == u"lose") {
                continue; // nobody knows yet
            }
            seen = parts.value(1, seen);
            QCOMPARE(parts.first() + u": "_qs + tree.text(), parts.first() + u": "_qs + seen);
        }
    }

    void anyZoneTakesAPanelAndSizesComeBack()
    {
        visitZones(false);
        if (RealPointer::available()) {
            visitZones(true);
        }
    }

    void escapeGivesTheSizesBack()
    {
        GestureTree tree(u"H(a=90 T(b x)=120 c=116)"_qs);
        const QString before = tree.sizes();
        for (const char* const grab : {"grab a", "grab x"}) {
            for (const char* const step : {grab, "to out", "to c:left", "escape", "drop"}) {
                tree.performOne(QString::fromLatin1(step));
            }
            settle();
            QCOMPARE(tree.sizes(), before);
        }
    }

    /// From the first pixel that counts, and after its widget has changed windows.
    void aTornOutPanelFollowsThePointer()
    {
        GestureTree tree(u"H(a=97 T(b c)=97)"_qs, {212, 200});
        const int usual = QApplication::startDragDistance();
        for (const int distance : {1, 10, 30}) {
            QApplication::setStartDragDistance(distance);
            const QPoint grip = tree["a"]->header()->mapToGlobal(GestureTree::kGrip);
            tree.hand.press(*tree["a"]->header(), GestureTree::kGrip);
            tree.hand.moveTo(grip + QPoint(distance - 1, 0));
            QCOMPARE(tree.text(), u"H(a T(b c))"_qs);
            tree.hand.moveTo(grip + QPoint(distance, 0));
            QVERIFY(tree.text() != u"H(a T(b c))"); // zones show
            tree.hand.pressEscape();
            tree.hand.release();
        }
        QApplication::setStartDragDistance(usual);
        for (const char* const title : {"a", "c"}) {
            DockableWindow& panel = *tree[title];
            tree.hand.press(GestureTree::gripOf(panel), GestureTree::kGrip);
            tree.hand.moveTo(tree.out(), 3);
            QVERIFY(panel.isFloating() && panel.header()->isVisible());
            const auto placeNow = [&] { return panel.mapToGlobal(QPoint()) - QCursor::pos(); };
            const QPoint place = placeNow();
            QVERIFY(panel.header()->rect().contains(panel.header()->mapFromGlobal(QCursor::pos())));
            for (int i = 1; i <= 20; ++i) {
                tree.hand.moveTo(tree.out() + QPoint(2 * i, i));
                QCOMPARE(placeNow(), place);
            }
            tree.hand.release();
            settle();
            const QPoint rest = panel.pos();
            tree.hand.moveTo(tree.out()); // it has let go
            QCOMPARE(panel.pos(), rest);
            panel.move(600, 20);
        }
        QCOMPARE(tree.text(), u"H(b) a c"_qs);
    }

    void theZonesLieOverTheirWindow()
    {
        GestureTree tree(u"H(a=120 b=120)"_qs, {300, 200});
        DockableWindow& b = *tree["b"];
        auto* indicator = b.findChild<DropIndicatorMain*>();
        tree.perform(u"grab a, to b:left"_qs);
        const QImage image = renderWidget(*indicator);
        const int y = b.height() / 2;
        QVERIFY(
            !closeTo(pixelAt(image, QPointF(10, y)), pixelAt(image, QPointF(b.width() - 10, y))));
        QCOMPARE(pixelAt(image, b.rect().center()).alpha(), 0);
        b.resize(b.size() + QSize(10, 10));
        QCOMPARE(indicator->size(), b.size());
        tree.perform(u"to a"_qs);
        QVERIFY(!indicator->isVisible());
    }

    void whatCannotBeSeenIsNoTarget()
    {
        DockTree tree(u"H() f=200x150 g=200x150"_qs);
        DockableWindow& hidden = *tree["f"];
        hidden.move(640, 120);
        settle();
        const QPoint zone = zoneOf(hidden, Area::Left);
        hidden.showMinimized();
        settle();
        tree.hand.press(*tree["g"]->header(), GestureTree::kGrip);
        tree.hand.moveTo(zone, 4);
        tree.hand.release();
        QVERIFY(tree["g"]->isFloating() && hidden.dropArea() == Area::None);
    }

    /// Others that die or are docked by the host in a drag are the fuzzer's.
    void theMainWindowMayDieInADrag()
    {
        for (const char* const group : {"T", "V"}) {
            for (const bool tornOut : {false, true}) {
                GestureTree tree(u"H(%1(a x)=100 c=100)"_qs.arg(QLatin1String(group)), {300, 150});
                tree.perform(u"grab x"_qs + QLatin1String(tornOut ? ", to out" : ""));
                tree.perform(u"to c:left"_qs); // over which zones are shown now
                QVERIFY(tree.text() != u"H(%1(a x) c)"_qs.arg(QLatin1String(group)));
                tree.destroy();
                tree.hand.moveTo({5, 5});
                tree.hand.release();
                QVERIFY(!mouseEventsAreKept());
            }
        }
    }

    void aSlotOfTheDropMayWaitForClicks()
    {
        GestureTree tree(u"H(a=120 b=120)"_qs, {400, 300});
        int clicks = 0;
        connect(tree["a"], &DockableWindow::docked, this, [&clicks] {
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
        tree.perform(u"grab a, to b:bottom, drop"_qs);
        QCOMPARE(clicks, 1);
        QCOMPARE(tree.text(), u"H(V(b a))"_qs);
    }

    void aTabGroupIsMovedByItsStrip()
    {
        GestureTree tree(u"H(a=200 T(b c)=300)"_qs, {500, 300});
        DockableTabGroup& tabs = *tree.tabs("^b");
        QWidget& strip = *tabs.tabAt(0)->parentWidget()->parentWidget();
        const auto grab = [&] { tree.hand.press(strip, {strip.width() - 6, 8}); };
        grab();
        tree.perform(u"to out, drop"_qs);
        QCOMPARE(tree.text(), u"H(a) T(b c)"_qs);
        for (const QString& title : {u"c"_qs, u"b"_qs}) {
            tree.play(u"select "_qs + title);
            QCOMPARE(tabs.windowTitle(), title);
        }
        grab();
        tree.perform(u"to a:left, drop"_qs);
        QCOMPARE(tree.text(), u"H(H(T(b c) a))"_qs);
    }

    void aLockedLayoutStaysAsItIs()
    {
        GestureTree tree(u"H(a=200 b=300)"_qs);
        ui::setLayoutLocked(true);
        tree.perform(u"grab a, to b:left, drop"_qs);
        QCOMPARE(tree.choose(*tree["a"], u"none"_qs), u"-Undock,Show,-Close"_qs);
        auto* handle = tree.root().findChild<QSplitter*>()->handle(1);
        tree.hand.press(*handle, handle->rect().center());
        tree.hand.moveTo(QCursor::pos() + QPoint(50, 0), 2);
        tree.hand.release();
        QTest::mouseDClick(handle, Qt::LeftButton);
        ui::setLayoutLocked(false);
        QCOMPARE(tree.sizes(), u"H(a=200 b=300)"_qs);
        tree.perform(u"choose b Undock"_qs);
        QCOMPARE(tree.text(), u"H(a) b"_qs);
    }

    void showBringsAWindowToTheFrontAndFlashes()
    {
        GestureTree tree(u"H(a b) f=200x150"_qs);
        tree.root().activateWindow();
        QTRY_VERIFY(tree.root().isActiveWindow());
        for (const char* const title : {"f", "a"}) {
            DockableWindow& window = *tree[title];
            tree.choose(window, u"Show"_qs);
            QTRY_VERIFY(window.isActiveWindow());
            QVERIFY(window.focusFrameVisible());
        }
        tree["a"]->setFocusFrameVisible(true); // the host's from now on
        QTRY_VERIFY(!tree["f"]->focusFrameVisible());
        QVERIFY(tree["a"]->focusFrameVisible());
    }

    void aDropLeavesTheFloatingPlaceAlone()
    {
        GestureTree tree(u"H(a b) f=200x150"_qs);
        tree["f"]->move(150, 180);
        settle();
        const QRect place(tree["f"]->pos(), tree["f"]->size());
        for (const char* const way : {"to a:left, drop", "to out, to b:top, drop"}) {
            tree.perform(u"grab f, "_qs + QLatin1String(way));
            QVERIFY(!tree["f"]->isFloating());
        }
        tree["f"]->toggleFloating();
        QTRY_COMPARE(QRect(tree["f"]->pos(), tree["f"]->size()), place);
    }

    void aMaximizedWindowTakesItsUsualSizeUnderThePointer()
    {
        GestureTree tree(u"H(a b) f=200x150"_qs);
        DockableWindow& f = *tree["f"];
        const QPoint before = f.pos();
        f.setWindowState(Qt::WindowMaximized);
        if (!QTest::qWaitFor([&f] { return f.width() > 300; }, 1000)) {
            QVERIFY(QGuiApplication::platformName() != u"offscreen"); // nobody there to do it
            return;
        }
        const auto drag = [&] {
            tree.hand.press(*f.header(), {f.width() / 2, 9});
            tree.hand.moveTo(tree.out(), 4);
        };
        drag();
        QTRY_COMPARE(f.size(), QSize(200, 150));
        QTRY_COMPARE(f.mapFromGlobal(QCursor::pos()), QPoint(100, 9));
        tree.hand.pressEscape();
        tree.hand.release();
        settle();
        QTRY_VERIFY(f.isMaximized() && f.width() > 300);
        drag();
        tree.hand.release();
        settle();
        QTRY_VERIFY(!f.isMaximized() && f.pos() != before);
        QCOMPARE(f.size(), QSize(200, 150));
    }

    void whatIsTornOutLiesOnItsScreenWhole()
    {
        GestureTree tree(u"H(a=200 b=200)"_qs, {412, 300});
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        DockableWindow& b = *tree["b"];
        const auto isWhole = [&] { return room.contains(b.frameGeometry()); };
        tree.perform(u"grab b, to out"_qs);
        tree.hand.moveTo(room.bottomRight() - QPoint(30, 20), 3);
        QVERIFY(!isWhole());
        tree.hand.release();
        QTRY_VERIFY(isWhole());
        for (const bool menu : {true, false}) {
            tree.play(u"dock b a right"_qs);
            tree.root().move(room.width() - 300, room.height() - 200);
            settle();
            menu ? void(tree.choose(b, u"Undock"_qs)) : b.toggleFloating();
            QTRY_VERIFY(isWhole());
        }
    }

    void aDialogEndsTheDrag()
    {
        GestureTree tree(u"H(a V(b x))"_qs, {400, 300});
        tree.perform(u"grab x, to out"_qs);
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        QCOMPARE(tree["x"]->windowOpacity(), 1.0);
        tree.hand.moveTo(zoneOf(*tree["a"], Area::Left), 2);
        tree.hand.release();
        dialog.close();
        settle();
        QCOMPARE(tree.text(), u"H(a b) x"_qs);
    }

    void theMenuMayOutliveItsWindow()
    {
        GestureTree tree(u"H(a b)"_qs);
        QCOMPARE(tree.choose(*tree["a"], u"none"_qs), u"Undock,Show,Close"_qs);
        QTimer::singleShot(0, tree["a"], [&tree] { delete tree["a"]; });
        tree.menuDuring([header = tree["a"]->header()] {
            QContextMenuEvent event(
                QContextMenuEvent::Mouse, {4, 4}, header->mapToGlobal(QPoint(4, 4)));
            QCoreApplication::sendEvent(header, &event);
        });
        QCOMPARE(tree.text(), u"H(b)"_qs);
    }
};

const ui::test::Registration<DockDraggingTest> kRegistration;
#include "tst_dockdragging.moc"

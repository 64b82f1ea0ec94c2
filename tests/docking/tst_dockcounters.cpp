// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>

using namespace ui::test;
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
    int parents = 0;     ///< given to what is torn out
    int headers = 0;     ///< shown of it
    QStringList resized; ///< panels with contents that were, as often
    QWidgetList still;   ///< contents that must neither blink nor change their window
    int disturbed = 0;   ///< how often they did

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* widget = qobject_cast<QWidget*>(watched);
        parents += widget && widget == tornOut && event->type() == QEvent::ParentChange;
        headers += tornOut && watched == tornOut->header() && event->type() == QEvent::ShowToParent;
        auto* panel = widget ? qobject_cast<DockableWindow*>(widget->parentWidget()) : nullptr;
        if (panel && panel->content() == widget && event->type() == QEvent::Resize) {
            resized << panel->getText();
        }
        if (widget && event->type() == QEvent::Show && widget->isWindow()) {
            appeared << widget;
        }
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
            disturbed += static_cast<int>(still.count(widget));
        } else if (event->type() == QEvent::ParentChange) {
            for (const QWidget* one : still) {
                disturbed += one->window() == gMainWindow ? 0 : 1;
            }
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

} // namespace

/// What a drag over a large tree, or an operation, may cost at most, counted and not timed.
class DockCountersTest : public ui::test::TestCase
{
    Q_OBJECT

private:
    static void drop(const QString& dragged, Area area)
    {
        DockTree tree(u"H(a=160 b=160 c=160 T(x y z)=160) f=80x60"_qs);
        DockableWindow* window = tree[dragged];
        const QPoint away = tree.root().geometry().bottomLeft() + QPoint(160, 80);
        Counter counter;
        counter.tornOut = window;
        QWidget* tab = tree.tabs("^x")->tabAt(0);
        tree.hand.press(dragged == u"x" ? *tab : *window->header(), {10, 8});
        tree.hand.moveTo(away, 2);
        if (dragged == u"x") {
            QCOMPARE(counter.parents, 2); // none, then the main window
            QCOMPARE(counter.headers, 1);
        }
        for (int i = 0; i < 2; ++i) {
            tree.hand.moveTo(zoneOf(*tree["c"], area));
        }
        tree.hand.release();
        settle();
        QVERIFY(!window->isFloating());
        QCOMPARE(counter.appeared, dragged == u"f" ? QList<QWidget*>() : QList<QWidget*>{window});
    }

private Q_SLOTS:
    void aHoverStepPaintsTheZonesOnceAndNothingElse()
    {
        const QString column = u" V(%1a %1b %1c %1d %1e %1f %1g %1h %1i %1j)"_qs;
        QString columns;
        for (int i = 0; i < 5; ++i) {
            columns += column.arg(i);
        }
        DockTree tree(u"H("_qs + columns.mid(1) + u") floating"_qs, {700, 700});
        DockableWindow* floating = tree["floating"];
        tree.hand.press(*floating->header(), {10, 8});
        tree.hand.moveTo(QCursor::pos() + QPoint(20, 0), 2);
        DockableWindow* before = nullptr;
        for (DockableWindow* panel : {tree["0d"], tree["0e"], tree["2f"], tree["4j"]}) {
            QRegion allowed = onScreen(*panel);
            allowed |= before ? onScreen(*before) : QRect();
            for (int step = 0; step < 20; ++step) {
                Counter counter;
                counter.leftOut = floating;
                tree.hand.moveTo(onScreen(*panel).center() + QPoint(step - 10, step % 3));
                QCoreApplication::sendPostedEvents();
                // A fresh target's once more, for what lay below it.
                const bool twice = step == 0 && before && counter.indicators == 2;
                QVERIFY(counter.indicators == 1 || twice);
                QVERIFY((counter.painted - allowed).isEmpty() && counter.appeared.isEmpty());
                allowed = onScreen(*panel);
            }
            before = panel;
        }
        tree.hand.pressEscape();
        tree.hand.release();
        settle();
        const Counter counter;
        settle();
        QCOMPARE(counter.paints, 0); // at rest
    }

    void aDropShowsNoWindowButTheDraggedOne()
    {
        for (int area = 1; area <= 5; ++area) {
            for (const char* const dragged : {"a", "f", "x"}) { // docked, floating, in tabs
                drop(QString::fromLatin1(dragged), static_cast<Area>(area));
            }
        }
    }

    void bystandersStayInTheirWindow()
    {
        for (const auto& [start, operation, titles] :
             {std::tuple("H(a b c)", "dock x b top", "a b c"),
              {"H(a b c)", "dock a b bottom", "b c"},
              {"H(a b c)", "dock x root top", "a b c"},
              {"H(a V(b x) c)", "undock x", "a b c"},
              {"H(a V(b x) c)", "close x", "a b c"},
              {"H(a V(b x) c)", "dock x c center", "a b"},
              {"H(a T(b x) c)", "dock y b left, undock y", "a c"},
              {"H(a V(b x) c)", "dock x root bottom, dock x root left", "a b c"},
              {"H(a b) V(f g)", "dock f a bottom", "a b"}})
        {
            DockTree tree(QString::fromLatin1(start));
            Counter counter;
            for (const QString& title : QString::fromLatin1(titles).split(u' ')) {
                counter.still << tree[title]->content();
            }
            tree.play(QString::fromLatin1(operation) + u", settle"_qs);
            QCOMPARE(
                operation + QByteArray::number(counter.disturbed), operation + QByteArray("0"));
        }
    }

    void whoseRoomChangesIsResizedOnceAndNobodyElse()
    {
        for (const auto& [start, operation, resized] :
             {std::tuple("H(a V(b x) c)", "undock x", "b"),
              {"H(a b c) x", "dock x b bottom", "b x"},
              {"H(a b c) x", "dock x root top", "a b c x"},
              {"H(a V(b H(c x)))", "undock x", "c"}})
        {
            DockTree tree(QString::fromLatin1(start));
            Counter counter;
            tree.play(QString::fromLatin1(operation) + u", settle"_qs);
            counter.resized.sort();
            const QString claim = QString::fromLatin1(operation) + u": "_qs;
            QCOMPARE(claim + counter.resized.join(u' '), claim + QString::fromLatin1(resized));
        }
    }

    void operationsShowNoWindowButTheOneThatMoves()
    {
        DockTree tree(u"H(a b c)"_qs);
        for (const auto& [operations, appears] :
             {std::pair("dock b a bottom, dock c root top, dock c b left, dock a c left", ""),
              {"tear a, tidy a root", "a"},
              {"close b", ""}})
        {
            const Counter counter;
            tree.play(QString::fromLatin1(operations));
            settle();
            QString all;
            for (const QWidget* window : counter.appeared) {
                all += window->windowTitle();
            }
            QCOMPARE(all, QString::fromLatin1(appears));
        }
    }
};

const ui::test::Registration<DockCountersTest> kRegistration;
#include "tst_dockcounters.moc"

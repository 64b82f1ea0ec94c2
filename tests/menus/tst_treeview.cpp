#include "controls/StyledApplication.h"
#include "support/FakePointer.h"
#include "support/TestCase.h"
#include <MorrantUI/menus/ListView.h>

#include <QtWidgets>

using Reordering = TreeView::Reordering;
using ui::test::FakePointer;

namespace {

void addRows(QStandardItem& parent, const QString& notation, int& at)
{
    QStandardItem* last = nullptr;
    for (; at < notation.size() && notation[at] != u')'; ++at) {
        if (notation[at] == u'(') {
            addRows(*last, notation, ++at);
        } else {
            last = new QStandardItem(notation.mid(at, 1));
            parent.appendRow(last);
        }
    }
}

/// Rows by letters, their children in brackets behind them.
void fill(QStandardItemModel& model, const QString& notation)
{
    int at = 0;
    addRows(*model.invisibleRootItem(), notation, at);
}

QString notationOf(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    QString text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        text += index.data().toString();
        if (model.rowCount(index) > 0) {
            text += u'(' + notationOf(model, index) + u')';
        }
    }
    return text;
}

/// A tree with its model in a window, all open, and a mouse over it.
struct Garden
{
    explicit Garden(const QString& notation, Reordering reordering = Reordering::Anywhere)
    {
        fill(model, notation);
        tree.setModel(&model);
        tree.setReordering(reordering);
        tree.expandAll();
        tree.resize(200, 400);
        tree.show();
        tree.activateWindow();
        tree.setFocus();
        QApplication::processEvents();
    }

    QModelIndex row(const QString& name) const
    {
        return model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchRecursive)
            .value(0);
    }

    void select(const QString& names)
    {
        tree.clearSelection();
        for (const QChar name : names) {
            tree.selectionModel()->setCurrentIndex(row(name), QItemSelectionModel::Select);
        }
    }

    QString selected() const
    {
        QString names;
        for (const QModelIndex& index : tree.selectedRowsInOrder()) {
            names += index.data().toString();
        }
        return names;
    }

    /// A point over a row, `part` of its height from the top.
    QPoint over(const QString& name, double part) const
    {
        const QRect rect = tree.visualRect(row(name));
        return {rect.left() + 20, rect.top() + static_cast<int>(part * rect.height())};
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(tree.window()->windowHandle(), key, modifiers);
    }

    QStandardItemModel model;
    TreeView tree;
    FakePointer pointer{tree.viewport()};
};

} // namespace

class TreeViewTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void rowsGoWhereTheyAreDropped_data()
    {
        QTest::addColumn<Reordering>("reordering");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("over");
        QTest::addColumn<double>("part");
        QTest::addColumn<QString>("result");
        const auto add =
            [](Reordering reordering, const char* drop, double part, const char* result) {
                const QString text =
                    QString::fromLatin1(drop); // what is taken, then what it is over
                QTest::newRow(qPrintable(QStringLiteral("%1 at %2").arg(text).arg(part)))
                    << reordering << text.chopped(1) << text.right(1) << part
                    << QString::fromLatin1(result);
            };
        add(Reordering::Anywhere, "da", 0.1, "da(bc)efg");
        add(Reordering::Anywhere, "da", 0.5, "a(bcd)efg");
        add(Reordering::Anywhere,
            "da",
            0.9,
            "a(dbc)efg"); // behind an open row is before its children
        add(Reordering::Anywhere, "bg", 0.9, "a(c)defgb");
        add(Reordering::Anywhere, "dgb", 0.1, "a(dgbc)ef");
        add(Reordering::Anywhere, "ac", 0.1, "a(bc)defg");  // not into itself
        add(Reordering::Anywhere, "abg", 0.1, "defa(bc)g"); // b is carried by a
        add(Reordering::Anywhere, "dd", 0.1, "a(bc)defg");
        add(Reordering::Siblings, "df", 0.9, "a(bc)efdg");
        add(Reordering::Siblings, "dfe", 0.1, "a(bc)dfeg");
        add(Reordering::Siblings, "db", 0.1, "a(bc)defg");
        add(Reordering::Siblings, "bcd", 0.1, "a(bc)defg");
        add(Reordering::None, "df", 0.9, "a(bc)defg");
    }

    void rowsGoWhereTheyAreDropped()
    {
        QFETCH(QString, selected);
        QFETCH(QString, result);
        QFETCH(QString, over);
        QFETCH(double, part);
        QFETCH(Reordering, reordering);
        Garden garden(QStringLiteral("a(bc)defg"), reordering);
        QSignalSpy reordered(&garden.tree, &TreeView::rowsReordered);
        garden.select(selected);
        garden.pointer.moveTo(garden.over(selected.left(1), 0.5));
        garden.pointer.press();
        garden.pointer.dragTo(garden.over(over, part));
        garden.pointer.release();
        QCOMPARE(notationOf(garden.model), result);
        const bool moved = result != QStringLiteral("a(bc)defg");
        QCOMPARE(reordered.count(), moved ? 1 : 0);
        if (moved) {
            QVERIFY(selected.startsWith(garden.selected())); // rows within others left out
            QVERIFY(!garden.selected().isEmpty());
            QVERIFY(garden.tree.isExpanded(garden.row(QStringLiteral("a"))));
        }
    }

    void whatEndsADragLeavesTheRows()
    {
        const std::function<void(Garden&)> ends[] = {
            [](Garden& garden) { garden.key(Qt::Key_Escape); },
            [](Garden& garden) { garden.tree.hide(); },
            [](Garden& garden) { garden.tree.setEnabled(false); },
            [](Garden& garden) { garden.tree.setModel(nullptr); },
            [](Garden& garden) { garden.tree.setReordering(Reordering::None); },
        };
        for (const auto& end : ends) {
            Garden garden(QStringLiteral("abc"));
            garden.pointer.moveTo(garden.over(QStringLiteral("a"), 0.5));
            garden.pointer.press();
            garden.pointer.dragTo(garden.over(QStringLiteral("c"), 0.9));
            QVERIFY(garden.tree.isReordering());
            end(garden);
            QVERIFY(!garden.tree.isReordering());
            garden.pointer.release();
            QCOMPARE(notationOf(garden.model), QStringLiteral("abc"));
        }
    }

    void aModelMayDieUnderADrag()
    {
        TreeView tree;
        auto model = std::make_unique<QStandardItemModel>();
        fill(*model, QStringLiteral("abc"));
        tree.setModel(model.get());
        tree.setReordering(Reordering::Anywhere);
        tree.show();
        tree.activateWindow();
        QApplication::processEvents();
        FakePointer pointer(tree.viewport());
        const QPoint row = tree.visualRect(model->index(1, 0)).center();
        pointer.moveTo(row);
        pointer.press();
        pointer.dragTo(row + QPoint(0, 300)); // below the last: the tree would scroll, too
        QVERIFY(tree.isReordering());
        model.reset();
        QVERIFY(!tree.isReordering());
        pointer.dragTo(row);
        pointer.release();
    }

    void aClickOnOneOfSeveralChoosesIt()
    {
        Garden garden(QStringLiteral("abcd"));
        garden.select(QStringLiteral("abc"));
        garden.pointer.moveTo(garden.over(QStringLiteral("b"), 0.5));
        garden.pointer.press();
        QCOMPARE(garden.selected(), QStringLiteral("abc")); // they might be dragged
        garden.pointer.release();
        QCOMPARE(garden.selected(), QStringLiteral("b"));
    }

    void altAndArrowsMoveRowsAmongTheirSiblings()
    {
        Garden garden(QStringLiteral("a(bcd)e"), Reordering::Siblings);
        garden.select(QStringLiteral("bc"));
        garden.key(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(notationOf(garden.model), QStringLiteral("a(dbc)e"));
        garden.key(Qt::Key_Down, Qt::AltModifier); // they are the last
        garden.key(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(notationOf(garden.model), QStringLiteral("a(bcd)e"));
        QCOMPARE(garden.selected(), QStringLiteral("bc"));
        garden.tree.setModel(&garden.model); // the same again
        garden.tree.expandAll();
        garden.model.clear(); // which the view is still told of
        QVERIFY(!garden.tree.currentIndex().isValid());
        QStringListModel names({QStringLiteral("a"), QStringLiteral("b")}); // moves by itself
        ListView list;
        list.setModel(&names);
        list.setReordering(Reordering::Siblings);
        list.show();
        list.setCurrentIndex(names.index(0));
        QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(notationOf(names), QStringLiteral("ba"));
    }

    void aNameIsEditedInPlace_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Qt::Key>("end");
        QTest::addColumn<QString>("name");
        QTest::newRow("taken") << QStringLiteral("x") << Qt::Key_Return << QStringLiteral("x");
        QTest::newRow("trimmed") << QStringLiteral("  x ") << Qt::Key_Return << QStringLiteral("x");
        QTest::newRow("empty") << QStringLiteral("   ") << Qt::Key_Return << QStringLiteral("b");
        QTest::newRow("given up") << QStringLiteral("x") << Qt::Key_Escape << QStringLiteral("b");
        QTest::newRow("the same") << QStringLiteral("b") << Qt::Key_Return << QStringLiteral("b");
    }

    void aNameIsEditedInPlace()
    {
        QFETCH(QString, typed);
        QFETCH(Qt::Key, end);
        QFETCH(QString, name);
        Garden garden(QStringLiteral("abc"));
        QSignalSpy renamed(&garden.tree, &TreeView::renamed);
        garden.select(QStringLiteral("b"));
        garden.key(Qt::Key_F2);
        auto* const editor = garden.tree.findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, end);
        QApplication::processEvents();
        QCOMPARE(garden.model.item(1)->text(), name);
        QCOMPARE(renamed.count(), name == QStringLiteral("x") ? 1 : 0);
    }

    void whatWasOpenIsFoundAgainInAModelFilledAnew()
    {
        Garden garden(QStringLiteral("a(bc)a(de)f(g)"));
        garden.tree.collapse(garden.model.index(0, 0)); // its twin stays open
        garden.select(QStringLiteral("eg"));
        garden.model.clear();
        fill(garden.model, QStringLiteral("xa(bc)a(dye)f(g)")); // clear() resets, filling does not
        QVERIFY(!garden.tree.isExpanded(garden.model.index(2, 0)));
        QIdentityProxyModel proxy;
        garden.tree.setModel(&proxy);
        proxy.setSourceModel(&garden.model);
        garden.tree.setExpanded(proxy.index(2, 0), true);
        garden.tree.setCurrentIndex(proxy.index(2, 0, proxy.index(2, 0)));
        QStandardItemModel other;
        fill(other, QStringLiteral("a(bc)za(dye)f(g)"));
        proxy.setSourceModel(&other); // a reset
        QVERIFY(!garden.tree.isExpanded(proxy.index(0, 0)));
        QVERIFY(garden.tree.isExpanded(proxy.index(2, 0)));
        QCOMPARE(garden.tree.currentIndex().data().toString(), QStringLiteral("e"));
        QCOMPARE(garden.selected(), QStringLiteral("e"));
    }

    void lettersFindRowsBeforeTheyAreShortcuts()
    {
        Garden garden(QStringLiteral("abc"));
        int shortcuts = 0;
        for (const auto key : {Qt::Key_C, Qt::Key_Space, Qt::Key_Delete}) {
            auto* const shortcut = new QShortcut(key, &garden.tree);
            connect(shortcut, &QShortcut::activated, this, [&shortcuts] { ++shortcuts; });
        }
        garden.select(QStringLiteral("a"));
        garden.key(Qt::Key_C);
        QCOMPARE(garden.selected(), QStringLiteral("c"));
        QCOMPARE(shortcuts, 0);
        garden.key(Qt::Key_Space);
        garden.key(Qt::Key_Delete); // nobody listens
        QCOMPARE(shortcuts, 2);
        QSignalSpy removals(&garden.tree, &TreeView::removalRequested);
        garden.key(Qt::Key_Delete);
        QCOMPARE(shortcuts, 2);
        QCOMPARE(removals.count(), 1);
    }
};

const ui::test::Registration<TreeViewTest> kRegistration;

#include "tst_treeview.moc"

// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/menus/ListView.h>
#include <MorrantUI/menus/RowListModel.h>

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
        ui::test::showActive(tree);
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

    /// Presses a row in its middle.
    void press(const QString& name) { pointer.press(over(name, 0.5)); }

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
    void rowsGoWhereTheyAreDropped()
    {
        const QString before = u"a(bc)defg"_qs;
        const std::tuple<Reordering, QString, QString, double, QString> drops[] = {
            {Reordering::Anywhere, u"d"_qs, u"a"_qs, 0.1, u"da(bc)efg"_qs},
            {Reordering::Anywhere, u"d"_qs, u"a"_qs, 0.5, u"a(bcd)efg"_qs},
            {Reordering::Anywhere, u"d"_qs, u"a"_qs, 0.9, u"a(dbc)efg"_qs}, // behind an open row
            {Reordering::Anywhere, u"b"_qs, u"g"_qs, 0.9, u"a(c)defgb"_qs},
            {Reordering::Anywhere, u"dg"_qs, u"b"_qs, 0.1, u"a(dgbc)ef"_qs},
            {Reordering::Anywhere, u"a"_qs, u"c"_qs, 0.1, before},           // not into itself
            {Reordering::Anywhere, u"ab"_qs, u"g"_qs, 0.1, u"defa(bc)g"_qs}, // a carries b
            {Reordering::Anywhere, u"d"_qs, u"d"_qs, 0.1, before},
            {Reordering::Siblings, u"d"_qs, u"f"_qs, 0.9, u"a(bc)efdg"_qs},
            {Reordering::Siblings, u"df"_qs, u"e"_qs, 0.1, u"a(bc)dfeg"_qs},
            {Reordering::Siblings, u"d"_qs, u"b"_qs, 0.1, before},
            {Reordering::Siblings, u"bc"_qs, u"d"_qs, 0.1, before},
            {Reordering::None, u"d"_qs, u"f"_qs, 0.9, before}};
        for (const auto& [reordering, taken, over, part, result] : drops) {
            Garden garden(before, reordering);
            QSignalSpy reordered(&garden.tree, &TreeView::rowsReordered);
            garden.select(taken);
            garden.press(taken.left(1));
            garden.pointer.drop(garden.over(over, part));
            QCOMPARE(notationOf(garden.model), result);
            QCOMPARE(reordered.count(), result == before ? 0 : 1);
            if (result != before) {
                QVERIFY(taken.startsWith(garden.selected())); // rows within others left out
                QVERIFY(!garden.selected().isEmpty());
                QVERIFY(garden.tree.isExpanded(garden.row(u"a"_qs)));
            }
        }
    }

    void whatEndsADragLeavesTheRowsAndAClickChoosesOne()
    {
        const std::function<void(Garden&)> ends[] = {
            [](Garden& garden) { garden.key(Qt::Key_Escape); },
            [](Garden& garden) { garden.tree.hide(); },
            [](Garden& garden) { garden.tree.setEnabled(false); },
            [](Garden& garden) { garden.tree.setModel(nullptr); },
            [](Garden& garden) { garden.tree.setReordering(Reordering::None); }};
        for (const auto& end : ends) {
            Garden garden(u"abc"_qs);
            garden.press(u"a"_qs);
            garden.pointer.dragTo(garden.over(u"c"_qs, 0.9));
            QVERIFY(garden.tree.isReordering());
            end(garden);
            QVERIFY(!garden.tree.isReordering());
            garden.pointer.release();
            QCOMPARE(notationOf(garden.model), u"abc"_qs);
        }
        Garden garden(u"abcd"_qs);
        garden.select(u"abc"_qs);
        garden.press(u"b"_qs);
        QCOMPARE(garden.selected(), u"abc"_qs); // they might be dragged
        garden.pointer.release();
        QCOMPARE(garden.selected(), u"b"_qs);
    }

    void aModelMayDieUnderADrag()
    {
        TreeView tree;
        auto model = std::make_unique<QStandardItemModel>();
        fill(*model, QStringLiteral("abc"));
        tree.setModel(model.get());
        tree.setReordering(Reordering::Anywhere);
        ui::test::showActive(tree);
        QApplication::processEvents();
        FakePointer pointer(tree.viewport());
        const QPoint row = tree.visualRect(model->index(1, 0)).center();
        pointer.press(row);
        pointer.dragTo(row + QPoint(0, 300)); // below the last: the tree would scroll, too
        QVERIFY(tree.isReordering());
        model.reset();
        QVERIFY(!tree.isReordering());
        pointer.drop(row);
    }

    void altAndArrowsMoveRowsAmongTheirSiblings()
    {
        Garden garden(u"a(bcd)e"_qs, Reordering::Siblings);
        garden.select(u"bc"_qs);
        garden.key(Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(notationOf(garden.model), u"a(dbc)e"_qs);
        garden.key(Qt::Key_Down, Qt::AltModifier); // they are the last
        garden.key(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(notationOf(garden.model), u"a(bcd)e"_qs);
        QCOMPARE(garden.selected(), u"bc"_qs);
        garden.tree.setModel(&garden.model); // the same again
        garden.model.clear();                // which the view is still told of
        QVERIFY(!garden.tree.currentIndex().isValid());
        QStringListModel names({u"a"_qs, u"b"_qs}); // moves by itself
        ListView list;
        list.setModel(&names);
        list.setReordering(Reordering::Siblings);
        list.show();
        list.setCurrentIndex(names.index(0));
        QTest::keyClick(&list, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(notationOf(names), u"ba"_qs);
    }

    void aNameIsEditedInPlace()
    {
        const std::tuple<QString, Qt::Key, QString> cases[] = {
            {u"x"_qs, Qt::Key_Return, u"x"_qs},
            {u"  x "_qs, Qt::Key_Return, u"x"_qs},
            {u"   "_qs, Qt::Key_Return, u"b"_qs},
            {u"x"_qs, Qt::Key_Escape, u"b"_qs},
            {u"b"_qs, Qt::Key_Return, u"b"_qs}};
        for (const auto& [typed, end, name] : cases) {
            Garden garden(u"abc"_qs);
            QSignalSpy renamed(&garden.tree, &TreeView::renamed);
            connect(&garden.tree, &TreeView::renamed, this, [&] { // a host that fills it anew
                garden.model.clear();
                fill(garden.model, u"axc"_qs);
            });
            garden.select(u"b"_qs);
            garden.key(Qt::Key_F2);
            auto* const editor = garden.tree.findChild<QLineEdit*>();
            QVERIFY(editor);
            QTest::keyClicks(editor, typed);
            QTest::keyClick(editor, end);
            QApplication::processEvents();
            QCOMPARE(garden.model.item(1)->text(), name);
            QCOMPARE(renamed.count(), name == u"x"_qs ? 1 : 0);
        }
    }

    void whatWasOpenIsFoundAgainInAModelFilledAnew()
    {
        Garden garden(u"a(bc)a(de)f(g)"_qs);
        garden.tree.collapse(garden.model.index(0, 0)); // its twin stays open
        garden.select(u"eg"_qs);
        garden.model.clear();
        fill(garden.model, u"xa(bc)a(dye)f(g)"_qs); // clear() resets, filling does not
        QVERIFY(!garden.tree.isExpanded(garden.model.index(2, 0)));
        QApplication::processEvents();
        QVERIFY(garden.tree.isExpanded(garden.model.index(2, 0)) && garden.selected() == u"eg");
        garden.model.clear();
        fill(garden.model, u"xa(bc)a(dye)f(g)"_qs);
        garden.select(u"x"_qs); // by the host
        QApplication::processEvents();
        QVERIFY(garden.tree.isExpanded(garden.model.index(2, 0)) && garden.selected() == u"x");
        QIdentityProxyModel proxy;
        garden.tree.setModel(&proxy);
        proxy.setSourceModel(&garden.model);
        garden.tree.setExpanded(proxy.index(2, 0), true);
        garden.tree.setCurrentIndex(proxy.index(2, 0, proxy.index(2, 0)));
        QStandardItemModel other;
        fill(other, u"a(bc)za(dye)f(g)"_qs);
        proxy.setSourceModel(&other); // a reset
        QVERIFY(!garden.tree.isExpanded(proxy.index(0, 0)));
        QVERIFY(garden.tree.isExpanded(proxy.index(2, 0)));
        QCOMPARE(garden.tree.currentIndex().data().toString(), u"e"_qs);
        QCOMPARE(garden.selected(), u"e"_qs);
    }

    void lettersFindRowsBeforeTheyAreShortcuts()
    {
        Garden garden(u"ab(c)"_qs);
        QVERIFY(QTest::qWaitForWindowActive(&garden.tree)); // shortcuts are of the active window
        QString shortcuts;
        for (const auto key : {Qt::Key_C, Qt::Key_Space, Qt::Key_Delete}) {
            auto* const shortcut = new QShortcut(key, &garden.tree);
            connect(shortcut, &QShortcut::activated, this, [&, shortcut] {
                shortcuts += shortcut->key().toString() + u' ';
            });
        }
        garden.select(u"a"_qs);
        garden.key(Qt::Key_C);
        QCOMPARE(garden.selected(), u"c"_qs);
        garden.key(Qt::Key_Space);
        garden.key(Qt::Key_Delete); // nobody listens
        QSignalSpy removals(&garden.tree, &TreeView::removalRequested);
        garden.key(Qt::Key_Delete);
        QCOMPARE(shortcuts, u"Space Del "_qs);
        QCOMPARE(removals.count(), 1);
        garden.tree.clearFocus(); // and with it its ring
        const QRectF name = garden.tree.visualRect(garden.row(u"c"_qs));
        QCOMPARE( // also where the name begins
            ui::test::pixelAt(
                garden.tree.viewport()->grab().toImage(), name.topLeft() + QPointF(0.5, 9)),
            garden.tree.palette().color(QPalette::Highlight));
    }

    void aSwitchNeitherSelectsNorDrags()
    {
        Garden garden(u"abc"_qs);
        garden.tree.setSwitchColumns({1, 7}); // which it does not have
        garden.model.setColumnCount(2);       // but may get
        QSignalSpy pressed(&garden.tree, &TreeView::switchPressed);
        QWidget* const viewport = garden.tree.viewport();
        const QPoint at = garden.tree.visualRect(garden.model.index(1, 1)).center();
        QTest::mousePress(viewport, Qt::LeftButton, {}, at);
        QTest::mouseMove(viewport, at - QPoint(60, 20));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, at);
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, at);
        QTest::mousePress(viewport, Qt::RightButton, {}, at);
        QVERIFY(pressed.size() == 2 && garden.tree.columnWidth(1) == 24);
        QCOMPARE(garden.tree.columnWidth(0), viewport->width() - 24);
        QCOMPARE(notationOf(garden.model), u"abc"_qs);
    }

    void aPushedListKeepsItsRowsByTheirIdentities()
    {
        RowListModel model(QList<ListedSwitch>(2));
        QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        std::mt19937 random(7);
        std::vector<ListedRow> rows;
        QItemSelectionModel selection(&model);
        connect(&selection, &QItemSelectionModel::currentChanged, &model, [&] {
            model.setRows(rows); // as a host does that shows what is current
        });
        for (int round = 0; round < 200; ++round) {
            rows.clear();
            for (quint64 identity = 0; identity < 8; ++identity) {
                if (random() % 4 != 0) {
                    rows.push_back({.identity = identity, .name = QString::number(random() % 3)});
                }
            }
            std::shuffle(rows.begin(), rows.end(), random);
            QMap<quint64, QPersistentModelIndex> held;
            for (int row = 0; row < model.rowCount(); ++row) {
                held[model.rows()[std::size_t(row)].identity] = model.index(row, 1);
            }
            model.setRows(rows);
            QVERIFY(model.rows() == rows);
            selection.setCurrentIndex(model.index(0, 0), QItemSelectionModel::NoUpdate);
            for (std::size_t row = 0; row < rows.size(); ++row) {
                const QPersistentModelIndex at = held.take(rows[row].identity);
                QVERIFY(!at.isValid() || at == model.index(int(row), 1));
            }
            for (const QPersistentModelIndex& gone : std::as_const(held)) {
                QVERIFY(!gone.isValid());
            }
        }
        model.setRows(
            {{.identity = 1}, {.identity = 1, .isRenamable = false}}); // counts as another
        const QSignalSpy switched(&model, &RowListModel::switchWanted);
        const QSignalSpy renamed(&model, &RowListModel::renameWanted);
        model.pressSwitch(model.index(1, 0)); // no switch
        model.pressSwitch(model.index(1, 2));
        QCOMPARE(switched.size(), 1);
        QCOMPARE(switched[0], (QVariantList{1, 1, true}));
        QVERIFY(!model.setData(model.index(1, 0), u"a"_qs));
        QVERIFY(model.setData(model.index(0, 0), u"b"_qs));
        QCOMPARE(renamed.size(), 1);

        rows.clear();
        for (quint64 identity = 0; identity < 1000; ++identity) {
            rows.push_back({.identity = identity});
        }
        model.setRows(rows);
        const QSignalSpy removed(&model, &RowListModel::rowsRemoved);
        std::erase_if(rows, [](const ListedRow& row) { return row.identity % 2 == 0; });
        model.setRows(rows);
        QVERIFY(removed.size() == 1 && model.rows() == rows);
    }

    void keysMoveSwitchAndRenameTheRowsOfAPushedList()
    {
        std::vector<ListedRow> rows{
            {.identity = 1, .name = u"a"_qs}, {.identity = 2, .name = u"b"_qs}, {.identity = 3}};
        RowListModel model(QList<ListedSwitch>{{{}, {}, u"Lock"_qs}});
        model.setRows(rows);
        TreeView tree;
        tree.setModel(&model);
        tree.setReordering(Reordering::Siblings);
        tree.setSwitchColumns(model.switchColumns());
        connect(&tree, &TreeView::switchPressed, &model, &RowListModel::pressSwitch);
        connect(&model, &RowListModel::moveWanted, this, [&](const QList<int>& moved, int to) {
            QVERIFY(moved == QList({0, 1}) && to == 3);
            std::rotate(rows.begin(), rows.begin() + 2, rows.end());
            model.setRows(rows);
        });
        ui::test::showActive(tree);
        const QSignalSpy switched(&model, &RowListModel::switchWanted);
        tree.selectionModel()->select(
            QItemSelection(model.index(0, 0), model.index(1, 1)), QItemSelectionModel::Select);
        QTest::keyClick(&tree, Qt::Key_Down, Qt::AltModifier);
        const QModelIndexList places{model.index(1, 0), model.index(2, 0)};
        QVERIFY(model.rows() == rows && tree.selectedRowsInOrder() == places);
        QVERIFY(!model.moveTo({1, 0}, 3) && !model.moveTo({0, 1}, 2) && !model.moveTo({7}, 0));

        const auto press = [&tree](auto... keys) { (QTest::keyClick(&tree, keys), ...); };
        press(Qt::Key_Right, Qt::Key_Space, Qt::Key_Left, Qt::Key_Space); // the second on a name
        QVERIFY(switched == (QList<QVariantList>{{1, 0, true}}));
        press(Qt::Key_Up, Qt::Key_Right, Qt::Key_F2);
        auto* const editor = tree.findChild<QLineEdit*>();
        QTest::keyClicks(editor, u"x"_qs);
        rows[0].note = u"Solid"_qs;
        model.setRows(rows);
        QCOMPARE(editor->text(), u"x"_qs);
        QCOMPARE(model.index(0, 0).data(Qt::AccessibleDescriptionRole), u"Solid"_qs);
        QCOMPARE(model.headerData(1, Qt::Horizontal), u"Lock"_qs);
    }

    void aTreeMayOwnItsModel()
    {
        TreeView tree;
        tree.setModel(new QStandardItemModel(&tree)); // which dies after what the tree is made of
    }
};

const ui::test::Registration<TreeViewTest> kRegistration;

#include "tst_treeview.moc"

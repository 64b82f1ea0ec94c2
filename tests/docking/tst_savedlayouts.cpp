// SPDX-License-Identifier: Apache-2.0
#include "docking/DockTree.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/saving/LayoutWatch.h>
#include <MorrantUI/docking/saving/NamedLayouts.h>
#include <MorrantUI/theme/events.h>

using ui::test::DockTree;
using ui::test::settle;

namespace {

/// Panels go by their titles.
QByteArray saved()
{
    for (DockableWindow* panel : ui::allPanels()) {
        panel->setObjectName(panel->getText());
    }
    return ui::saveLayout();
}

/// A window of the layout's JSON: "a", or "h:a,b" and the like.
QByteArray node(const QByteArray& text)
{
    if (text.size() < 2 || text[1] != ':') {
        return "{'type':'panel','panel':'" + text + "'}";
    }
    QByteArrayList children;
    for (const QByteArray& child : text.mid(2).split(',')) {
        children.append(node(child));
    }
    const QByteArray kind = text[0] == 't'
                                ? "'tabGroup','active':1"
                                : QByteArray("'group','orientation':'")
                                      + (text[0] == 'v' ? "vertical" : "horizontal") + "'";
    return "{'type':" + kind + ",'children':[" + children.join(',') + "]}";
}

/// JSON with single quotes, as moc can read it, and back.
QByteArray quoted(QByteArray json)
{
    return json.replace('\'', '"');
}

QByteArray layout(const QByteArray& root, const QByteArray& more = {})
{
    return quoted("{'version':1,'root':" + root + more + '}');
}

} // namespace

class SavedLayoutsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whateverWasArrangedComesBack()
    {
        const QStringList names{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"e"_qs};
        const QStringList areas{u"left"_qs, u"right"_qs, u"top"_qs, u"bottom"_qs, u"center"_qs};
        for (quint32 seed = 1; seed <= 30; ++seed) {
            DockTree tree(u"H(a=200 b=150 T(c d)=250)"_qs);
            QRandomGenerator random(seed);
            const auto anyOf = [&random](const QStringList& list) {
                return list[random.bounded(list.size())];
            };
            const auto act = [&tree, &random, &anyOf, &names, &areas] {
                const QString name = anyOf(names);
                const QString other = anyOf(names);
                const bool both = name != other && ui::panelNamed(other);
                tree.play(
                    random.bounded(4) == 0 || !both
                        ? u"undock "_qs + name
                        : u"dock %1 %2 %3"_qs.arg(name, other, anyOf(areas)));
                saved();
            };
            tree.play(u"dock e a bottom"_qs);
            const QByteArray first = saved();
            for (int i = 0; i < 6; ++i) {
                act();
            }
            settle();
            const QString before = tree.text();
            const QByteArray layout = saved();
            for (int i = 0; i < 4; ++i) {
                act();
            }
            const QSignalSpy changes(&tree.root(), &DockableGroup::layoutChanged);
            QVERIFY(ui::restoreLayout(layout));
            QCOMPARE(changes.count(), 1);
            settle();
            QCOMPARE(u"seed %1: "_qs.arg(seed) + tree.text(), u"seed %1: "_qs.arg(seed) + before);
            // Windows that were dragged partly off the screen are whole from then on.
            const QByteArray whole = ui::saveLayout();
            QVERIFY(ui::restoreLayout(first));
            settle();
            QCOMPARE(ui::saveLayout(), first);
            QVERIFY(ui::restoreLayout(whole));
            settle();
            if (!before.contains(u'T')) { // what lies behind tabs is laid out when it comes forward
                QCOMPARE(ui::saveLayout().simplified(), whole.simplified());
            }
        }
    }

    void whatCanBeHadIsHad()
    {
        const struct
        {
            QByteArray json;
            const char* expected;
        } cases[] = {
            {layout(node("h:b,a,c")), "H(b a c)"},
            {layout(node("v:a,x,b")), "V(a b c)"}, // unknown, and one that it does not mention
            {layout(node("t:a,b")), "H(T(a b) c)"},
            {layout(node("h:a,a,b,c")), "H(a b c)"},
            {layout("{'type':'group','children':[7,{'type':'?'}," + node("b") + "]}"), "H(b a c)"},
            {layout("{'type':'tabGroup','active':9,'children':{}}"), "H(a b c)"},
            {layout(
                 "{'type':'group','sizes':[1,-1],'children':[" + node("c") + ',' + node("b")
                 + "]}"),
             "H(c b a)"},
            {layout(node("h:b,c"), ",'closed':['a'],'floating':7"), "H(b c)"},
            {layout(node("h:b"), ",'floating':[{'root':" + node("t:a,c") + "},7,{}]"),
             "H(b) T(a c)"},
        };
        for (const auto& row : cases) {
            DockTree tree(u"H(T(a b) c)"_qs);
            saved();
            QVERIFY(ui::restoreLayout(row.json));
            settle();
            QCOMPARE(row.json + '\n' + tree.text().toUtf8(), row.json + '\n' + row.expected);
            if (QByteArray(row.expected).contains('T')) {
                QCOMPARE(tree.tabs("^a")->activeIndex(), 1);
            }
        }
    }

    void whatIsNoLayoutChangesNothing()
    {
        const QByteArray group = "{'type':'group','children':[";
        DockTree tree(u"H(a b)"_qs);
        saved();
        for (const QByteArray& json :
             {QByteArray(),
              QByteArray("[]"),
              QByteArray("{'version':1"),
              QByteArray("{'version':2,'root':" + node("a") + '}'),
              QByteArray("{'version':1}"),
              layout("7"),
              QByteArray(5 << 20, ' ')})
        {
            QString error;
            QVERIFY2(!ui::restoreLayout(quoted(json), &error), json.left(100));
            QVERIFY(!error.isEmpty());
            QCOMPARE(tree.text(), u"H(a b)"_qs);
        }
        QVERIFY(ui::restoreLayout(
            layout(group.repeated(40) + node("b") + QByteArray("]}").repeated(40))));
        settle();
        QCOMPARE(tree.text(), u"H(a b)"_qs);
        gMainWindow = nullptr;
        QVERIFY(!ui::restoreLayout(layout(node("a"))) && ui::saveLayout().isEmpty());
        gMainWindow = &tree.root();
    }

    void floatingWindowsKeepPlaceStateAndHeader()
    {
        DockTree tree(u"H(a b) f=180x120"_qs);
        tree["a"]->header()->hide();
        DockableWindow* const floating = tree["f"];
        floating->setGeometry(60, 70, 180, 120);
        const QByteArray layout = saved();
        tree.play(u"dock f a left"_qs);
        tree["a"]->setHeaderVisible(true);
        QVERIFY(ui::restoreLayout(layout));
        settle();
        QVERIFY(tree["a"]->header()->isHidden() && !tree["b"]->header()->isHidden());
        QTRY_COMPARE(ui::saveLayout(), layout); // nor is it off by a frame
        QCOMPARE(ui::floatingWindows(), QList<DockableWindow*>{floating});

        QByteArray far = layout;
        far.replace("60,", "99000,");
        QVERIFY(far != layout && ui::restoreLayout(far));
        QTRY_VERIFY(floating->screen()->availableGeometry().contains(floating->frameGeometry()));
        QCOMPARE(floating->size(), QSize(180, 120));
    }

    void whatChangesIsToldOnceItIsAtRest()
    {
        DockTree tree(u"H(a b) f=180x120"_qs);
        QWidget* const window = tree.root().window();
        LayoutWatch watch(window);
        QSignalSpy settled(&watch, &LayoutWatch::settled);
        const std::function<void()> changes[] = {
            [] { DockTree::panel(u"n"_qs)->show(); },
            [&] { tree["n"]->move(90, 80); },
            [&] { tree["n"]->hide(); },
            [&] { window->resize(window->size() + QSize(30, 20)); },
            [&] { tree.play(u"dock f a left"_qs); },
            [&] { tree["b"]->undock(true); },
            [&] { tree["b"]->resize(170, 130); }};
        for (const auto& change : changes) {
            settle();
            watch.forget();
            change();
            settle();
            settled.clear();
            ui::test::FakeClock(&watch).fireTimers(ui::kLayoutRest);
            QCOMPARE(settled.size(), 1);
        }
    }

    void aPanelIsAskedForOnceAndMayBeNew()
    {
        DockTree tree(u"H(a b)"_qs);
        saved();
        QStringList asked;
        QVERIFY(ui::restoreLayout(layout(node("h:a,new,b,a")), [&asked](const QString& name) {
            asked.append(name);
            return name == u"new"_qs ? DockTree::panel(name) : ui::panelNamed(name);
        }));
        settle();
        QCOMPARE(asked, (QStringList{u"a"_qs, u"new"_qs, u"b"_qs}));
        QCOMPARE(tree.text(), u"H(a new b)"_qs);
        QVERIFY(ui::restoreLayout(layout(node("h:a,b")), [&tree](const QString& name) {
            delete tree["new"]; // the host may do what it likes
            return ui::panelNamed(name == u"b"_qs ? u"a"_qs : name);
        }));
        settle();
        QCOMPARE(tree.text(), u"H(a b)"_qs);
    }

    void whatComesAsAnotherIsAskedToCloseStays()
    {
        DockTree tree(u"H(V(a x) b)"_qs);
        saved();
        DockTree::panel(u"n"_qs); // nobody has seen it
        const auto come = [&tree](QObject*, QEvent* event) {
            event->type() == QEvent::Close ? tree.play(u"dock n x left"_qs) : void();
            return false;
        };
        ui::installEventFilter(tree["a"], come, nullptr);
        QVERIFY(ui::restoreLayout(layout(node("h:b,x"), ",'closed':['a']")));
        settle();
        QCOMPARE(tree.text(), u"H(b x n)"_qs);
    }

    void sizesWaitForTheMainWindow()
    {
        QByteArray layout;
        QSize size;
        {
            DockTree tree(u"H(a=100 b=300 c=200)"_qs);
            layout = saved();
            size = tree.root().size();
        }
        QSizePolicy stretching;
        stretching.setHorizontalStretch(1);
        for (const bool restored : {true, false}) {
            DockTree tree;
            const auto make = [](const QString& name) {
                auto* panel = DockTree::panel(name);
                panel->setObjectName(name);
                return panel;
            };
            if (restored) {
                QVERIFY(ui::restoreLayout(layout, make));
                QCOMPARE(ui::saveLayout(), layout);
            } else {
                tree.play(u"insert a root 9, insert b root 9, insert c root 9"_qs);
                tree["b"]->setSizePolicy(stretching);
                tree.root().setSizes({1, 3, 2});
            }
            tree.root().resize(size);
            tree.root().show();
            settle();
            QCOMPARE(tree.sizes(), u"H(a=100 b=300 c=200)"_qs);
            tree.root().findChild<QSplitter*>()->setSizes({300, 100, 200}); // as a handle's drag
            tree.root().resize(size + QSize(0, 10));
            QCOMPARE(tree.sizes(), u"H(a=300 b=100 c=200)"_qs);
        }
    }

    void aClosedPanelComesBackToItsNeighbours()
    {
        DockTree tree(u"H(a V(b c) T(d e))"_qs);
        const QByteArray home = saved();
        for (const char* name : {"a", "b", "c", "d", "e"}) {
            const QString title = QString::fromLatin1(name);
            tree.play(u"undock "_qs + title);
            ui::dockAsInLayout(tree[name], home);
            settle();
            QCOMPARE(tree.text(), u"H(a V(b c) T(d e))"_qs);
        }
        ui::dockAsInLayout(nullptr, home);
        ui::dockAsInLayout(tree["a"], home);
        QCOMPARE(tree.text(), u"H(a V(b c) T(d e))"_qs);
    }

    void layoutsHaveNames()
    {
        const QTemporaryDir folder;
        const ui::NamedLayouts layouts(folder.filePath(u"not/yet"_qs));
        QVERIFY(layouts.names().isEmpty());
        DockTree tree(u"H(a b)"_qs);
        saved();
        const QString longest(78, u'歩');
        const QStringList names{u"../x: 1"_qs, u"a"_qs, u"con"_qs, u"Über 10"_qs, longest};
        for (const QString& name : names) {
            QVERIFY(layouts.save(name));
        }
        QVERIFY(!layouts.save(u"  "_qs) && !layouts.save(QChar(0x200b)));
        QCOMPARE(layouts.names(), names);
        tree.play(u"dock a b right"_qs);
        QVERIFY(layouts.restore(names[1], &ui::panelNamed));
        settle();
        QCOMPARE(tree.text(), u"H(a b)"_qs);
        const QByteArray other = layout(node("b"));
        QVERIFY(layouts.save(names[0], other) && layouts.layout(names[0]) == other);
        QVERIFY(layouts.save(u"A"_qs, other) && layouts.layout(u"a"_qs) != other);
        QVERIFY(layouts.save(u"ς"_qs, other) && layouts.save(u"σ"_qs));
        QStringList files = QDir(folder.filePath(u"not/yet"_qs)).entryList(QDir::Files);
        files = files.join(u'/').toCaseFolded().split(u'/');
        QVERIFY(files.removeDuplicates() == 0 && files.size() == 8); // where case does not count
        QVERIFY(!layouts.save(names[0], "x") && layouts.layout(names[0]) == other);
        const ui::NamedLayouts nowhere(folder.filePath(u"not/yet/"_qs) + files[0]);
        QVERIFY(!nowhere.save(u"a"_qs));
        QCOMPARE(ui::test::LogSink::take().size(), 2);
        QVERIFY(layouts.remove(names[0]) && !layouts.remove(names[0]));
        QVERIFY(!layouts.restore(names[0], &ui::panelNamed) && layouts.layout(names[0]).isEmpty());
    }
};

const ui::test::Registration<SavedLayoutsTest> kRegistration;

#include "tst_savedlayouts.moc"

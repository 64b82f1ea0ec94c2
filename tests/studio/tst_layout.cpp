#include "layout/layoutjson.h"
#include "support/TestCase.h"

#include <QDir>
#include <QTemporaryDir>

using namespace studio;
using Kind = LayoutNode::Kind;

namespace {

LayoutNode panel(const QString& id)
{
    return {Kind::Panel, id, {}, 0, {}};
}

/// Trees as texts: "row(a tabs(b c))".
QString text(const LayoutNode& node)
{
    if (node.kind == Kind::Panel) {
        return node.panel;
    }
    QStringList children;
    for (const LayoutNode& child : node.children) {
        children.append(text(child));
    }
    if (node.kind == Kind::Tabs) {
        children[node.active].prepend(u'*');
    }
    const QString names[] = {{}, u"row"_qs, u"column"_qs, u"tabs"_qs}; // in the order of Kind
    return names[static_cast<int>(node.kind)] + u'(' + children.join(u' ') + u')';
}

LayoutNode row(std::vector<LayoutNode> children, QList<int> sizes = {})
{
    return {Kind::Row, {}, std::move(sizes), 0, std::move(children)};
}

LayoutNode column(std::vector<LayoutNode> children, QList<int> sizes = {})
{
    return {Kind::Column, {}, std::move(sizes), 0, std::move(children)};
}

LayoutNode tabs(std::vector<LayoutNode> children, int active)
{
    return {Kind::Tabs, {}, {}, active, std::move(children)};
}

Layout layoutOf(LayoutNode root)
{
    Layout layout;
    layout.root = std::move(root);
    return layout;
}

QByteArray nested(int depth)
{
    const QByteArray group = R"({"type":"group","orientation":"vertical","children":[)";
    return R"({"version":1,"root":)" + group.repeated(depth) + QByteArray("]}").repeated(depth)
           + '}';
}

} // namespace

namespace {

class LayoutTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void badFilesAreRefusedWithAReason_data()
    {
        QTest::addColumn<QByteArray>("json");
        const auto row = [](const char* name, const QByteArray& json) {
            QTest::newRow(name) << json;
        };
        const auto root = [](const char* name, const QByteArray& node) {
            QTest::newRow(name) << QByteArray(R"({"version":1,"root":)" + node + '}');
        };
        const auto more = [](const char* name, const QByteArray& members) {
            QTest::newRow(name) << QByteArray(
                R"({"version":1,"root":{"type":"panel","panel":"a"},)" + members + '}');
        };
        row("nothing", "");
        row("cut", R"({"version":1,"root":{)");
        row("a list", "[]");
        row("no version", R"({"root":{"type":"panel","panel":"a"}})");
        row("a later version", R"({"version":2,"root":{"type":"panel","panel":"a"}})");
        row("no root", R"({"version":1})");
        row("too deep", nested(kMaxLayoutNesting + 1));
        row("far too deep", nested(100'000));
        root("no type", R"({"panel":"a"})");
        root("no name", R"({"type":"panel"})");
        root("a number for a name", R"({"type":"panel","panel":7})");
        root("no orientation", R"({"type":"group","children":[]})");
        root("children that are none", R"({"type":"tabGroup","active":0,"children":{}})");
        root("a child that is none", R"({"type":"tabGroup","active":0,"children":[7]})");
        root("no active", R"({"type":"tabGroup","children":[{"type":"panel","panel":"a"}]})");
        root(
            "no such tab",
            R"({"type":"tabGroup","active":1,"children":[{"type":"panel","panel":"a"}]})");
        for (const char* sizes : {"[1,2]", "[-1]", "[1.5]", "[1e300]", "[\"1\"]", "1"}) {
            root(
                sizes,
                QByteArray(R"({"type":"group","orientation":"vertical","sizes":)") + sizes
                    + R"(,"children":[{"type":"panel","panel":"a"}]})");
        }
        more("a panel twice", R"("closed":["a"])");
        more("closed that is no list", R"("closed":"b")");
        more("a window without a size", R"("windowSize":[0,100])");
        more("a window far away", R"("windowPosition":[0,100001])");
        more("maximised a little", R"("maximized":0.5)");
        more("no geometry", R"("floating":[{"root":{"type":"panel","panel":"b"}}])");
        more(
            "no area",
            R"("floating":[{"geometry":[0,0,0,9],"root":{"type":"panel","panel":"b"}}])");
    }

    void badFilesAreRefusedWithAReason()
    {
        QFETCH(QByteArray, json);
        const LayoutResult result = readLayout(json);
        QVERIFY(!result);
        QVERIFY(!result.error.isEmpty() && !result.error.contains(u'\n'));
        QVERIFY2(readLayout(nested(kMaxLayoutNesting)), "as deep as is allowed");
    }

    void everyPartSurvivesAFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"not/yet/layout.json"_qs);
        Layout layout = layoutOf(column({row({panel(u"a"_qs), panel(u"ä\n\""_qs)}, {10, 0})}, {3}));
        layout.windowSize = {800, 600};
        layout.windowPosition = QPoint(-1920, 40);
        layout.maximized = true;
        layout.floating = {{QRect(-5, 6, 70, 80), tabs({panel(u"b"_qs), panel(u"c"_qs)}, 1)}};
        layout.closed = QStringList{u"d"_qs, u"e"_qs};

        QVERIFY(!readLayoutFile(path));
        QCOMPARE(writeLayoutFile(layout, path), QString());
        QVERIFY(readLayoutFile(path).layout == layout);
        QVERIFY(writeLayoutFile(Layout(), path).isEmpty());
        QVERIFY(readLayoutFile(path).layout == Layout());
        QVERIFY(!writeLayoutFile(layout, folder.path()).isEmpty());
        QVERIFY(!readLayoutFile(folder.path()));
    }

    void aLayoutFitsThePanelsThereAre_data()
    {
        QTest::addColumn<LayoutNode>("root");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QList<int>>("sizes");
        const LayoutNode a = panel(u"a"_qs);
        const LayoutNode b = panel(u"b"_qs);
        const LayoutNode c = panel(u"c"_qs);
        const LayoutNode x = panel(u"x"_qs);
        const LayoutNode y = panel(u"y"_qs);
        QTest::newRow("as it is") << row({a, tabs({b, c}, 1)}, {1, 2}) << u"row(a tabs(b *c))"_qs
                                  << QList{1, 2};
        QTest::newRow("nothing") << LayoutNode() << u"row(a b c)"_qs << QList<int>();
        QTest::newRow("a panel only") << c << u"row(c a b)"_qs << QList<int>();
        QTest::newRow("unknown panels")
            << column({x, row({a, x}), tabs({x, b, y, c}, 3)}, {1, 2, 3})
            << u"column(a tabs(b *c))"_qs << QList{2, 3};
        QTest::newRow("nothing known in it")
            << row({tabs({x, y}, 1)}) << u"row(a b c)"_qs << QList<int>();
        QTest::newRow("some missing")
            << column({a, column({b})}, {10, 20}) << u"column(a b c)"_qs << QList{10, 20, 15};
        QTest::newRow("the tab in front is gone")
            << row({tabs({a, b, x}, 2), c}) << u"row(tabs(*a b) c)"_qs << QList<int>();
        QTest::newRow("twice") << row({a, b, row({c, b, a})}) << u"row(a b c)"_qs << QList<int>();
        QTest::newRow("a lone group")
            << row({column({b, c}, {4, 5})}, {9}) << u"column(b c a)"_qs << QList{4, 5, 4};
    }

    void aLayoutFitsThePanelsThereAre()
    {
        QFETCH(LayoutNode, root);
        const QStringList panels{u"a"_qs, u"b"_qs, u"c"_qs};
        const Layout layout = fitted(layoutOf(root), panels);
        QTEST(text(layout.root), "expected");
        QTEST(layout.root.sizes, "sizes");
        QVERIFY(fitted(layout, panels) == layout);

        // Elsewhere panels are not missing; twice they are where they were found first.
        Layout spread = layoutOf(panel(u"c"_qs));
        spread.floating = {{QRect(0, 0, 9, 9), root}, {QRect(0, 0, 9, 9), panel(u"x"_qs)}};
        spread.closed = QStringList{u"c"_qs, u"x"_qs, u"b"_qs};
        spread = fitted(spread, panels);
        QStringList all = panelsOf(spread.root) + spread.closed;
        for (const FloatingWindow& window : spread.floating) {
            all += panelsOf(window.root);
        }
        all.sort();
        QCOMPARE(all, panels);
    }

    void neighboursAreToldFromTheInside()
    {
        const LayoutNode root = column(
            {row({panel(u"a"_qs), tabs({panel(u"b"_qs), panel(u"c"_qs)}, 0), panel(u"d"_qs)}),
             panel(u"e"_qs)});
        const std::vector<Neighbour> expected{
            {{u"b"_qs}, Kind::Tabs, true},
            {{u"a"_qs}, Kind::Row, true},
            {{u"d"_qs}, Kind::Row, false},
            {{u"e"_qs}, Kind::Column, false}};
        QVERIFY(neighboursOf(root, u"c"_qs) == expected);
        const Neighbour above{{u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs}, Kind::Column, true};
        QVERIFY(neighboursOf(root, u"e"_qs) == std::vector{above});
        QVERIFY(neighboursOf(root, u"x"_qs).empty());
    }

    void windowsAreBroughtBackOntoTheScreen()
    {
        const QRect screen(-100, 50, 800, 600);
        QCOMPARE(within(QRect(0, 60, 10, 10), screen), QRect(0, 60, 10, 10));
        QCOMPARE(within(QRect(-5000, 9999, 10, 10), screen), QRect(-100, 640, 10, 10));
        QCOMPARE(within(QRect(0, 0, 5000, 5000), screen), screen);
    }
};

const ui::test::Registration<LayoutTest> kRegistration;
} // namespace

#include "tst_layout.moc"

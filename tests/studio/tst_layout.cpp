#include "layout/layoutjson.h"
#include "support/TestCase.h"

#include <QDir>
#include <QTemporaryDir>

#include <iterator>
#include <tuple>

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

class LayoutTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void badFilesAreRefusedWithAReason()
    {
        const char* const whole[] = {
            "",
            R"({"version":1,"root":{)",
            "[]",
            R"({"root":{"type":"panel","panel":"a"}})",
            R"({"version":2,"root":{"type":"panel","panel":"a"}})",
            R"({"version":1})"};
        const char* const roots[] = {
            R"({"panel":"a"})",
            R"({"type":"panel"})",
            R"({"type":"panel","panel":7})",
            R"({"type":"group","children":[]})",
            R"({"type":"tabGroup","active":0,"children":{}})",
            R"({"type":"tabGroup","active":0,"children":[7]})",
            R"({"type":"tabGroup","children":[{"type":"panel","panel":"a"}]})",
            R"({"type":"tabGroup","active":1,"children":[{"type":"panel","panel":"a"}]})"};
        const char* const more[] = {
            R"("closed":["a"])", // a panel twice
            R"("closed":"b")",
            R"("windowSize":[0,100])",
            R"("windowPosition":[0,100001])",
            R"("maximized":0.5)",
            R"("floating":[{"root":{"type":"panel","panel":"b"}}])",
            R"("floating":[{"geometry":[0,0,0,9],"root":{"type":"panel","panel":"b"}}])"};
        QByteArrayList files{nested(kMaxLayoutNesting + 1), nested(100'000)};
        std::copy(std::begin(whole), std::end(whole), std::back_inserter(files));
        for (const char* root : roots) {
            files << QByteArray(R"({"version":1,"root":)") + root + '}';
        }
        for (const char* sizes : {"[1,2]", "[-1]", "[1.5]", "[1e300]", "[\"1\"]", "1"}) {
            files << QByteArray(R"({"version":1,"root":{"type":"group","orientation":"vertical",)")
                         + R"("sizes":)" + sizes
                         + R"(,"children":[{"type":"panel","panel":"a"}]}})";
        }
        for (const char* members : more) {
            files << QByteArray(R"({"version":1,"root":{"type":"panel","panel":"a"},)") + members
                         + '}';
        }
        for (const QByteArray& file : files) {
            const LayoutResult result = readLayout(file);
            QVERIFY2(!result, file.left(200));
            QVERIFY(!result.error.isEmpty() && !result.error.contains(u'\n'));
        }
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

    void aLayoutFitsThePanelsThereAre()
    {
        const QStringList panels{u"a"_qs, u"b"_qs, u"c"_qs};
        const LayoutNode a = panel(u"a"_qs);
        const LayoutNode b = panel(u"b"_qs);
        const LayoutNode c = panel(u"c"_qs);
        const LayoutNode x = panel(u"x"_qs);
        const LayoutNode y = panel(u"y"_qs);
        const std::tuple<LayoutNode, const char*, QList<int>> cases[] = {
            {row({a, tabs({b, c}, 1)}, {1, 2}), "row(a tabs(b *c))", {1, 2}},
            {LayoutNode(), "row(a b c)", {}},
            {c, "row(c a b)", {}},
            {column({x, row({a, x}), tabs({x, b, y, c}, 3)}, {1, 2, 3}),
             "column(a tabs(b *c))",
             {2, 3}},
            {row({tabs({x, y}, 1)}), "row(a b c)", {}}, // nothing known in it
            {column({a, column({b})}, {10, 20}), "column(a b c)", {10, 20, 15}},
            {row({tabs({a, b, x}, 2), c}), "row(tabs(*a b) c)", {}}, // the tab in front is gone
            {row({a, b, row({c, b, a})}), "row(a b c)", {}},
            {row({column({b, c}, {4, 5})}, {9}), "column(b c a)", {4, 5, 4}}}; // a lone group
        for (const auto& [root, expected, sizes] : cases) {
            const Layout layout = fitted(layoutOf(root), panels);
            QCOMPARE(text(layout.root), QLatin1String(expected));
            QCOMPARE(layout.root.sizes, sizes);
            QVERIFY(fitted(layout, panels) == layout);

            // Elsewhere panels are not missing; twice they are where they were found first.
            Layout spread = layoutOf(c);
            spread.floating = {{QRect(0, 0, 9, 9), root}, {QRect(0, 0, 9, 9), x}};
            spread.closed = QStringList{u"c"_qs, u"x"_qs, u"b"_qs};
            spread = fitted(spread, panels);
            QStringList all = panelsOf(spread.root) + spread.closed;
            for (const FloatingWindow& window : spread.floating) {
                all += panelsOf(window.root);
            }
            all.sort();
            QCOMPARE(all, panels);
        }
    }

    void aPanelThatALayoutDoesNotKnowComesToItsPlace()
    {
        const LayoutNode a = panel(u"a"_qs);
        const LayoutNode b = panel(u"b"_qs);
        const LayoutNode c = panel(u"c"_qs);
        const LayoutNode n = panel(u"new"_qs);
        const LayoutNode home = column({row({tabs({a, b}, 0), c}), n});
        const std::tuple<LayoutNode, const char*, QList<int>> cases[] = {
            {column({row({a, b, c}), panel(u"x"_qs)}, {100, 20}),
             "column(row(a b c) new x)",
             {68, 32, 20}},
            {row({a, column({b, c})}, {5, 6}), "column(row(a column(b c)) new)", {}},
            {row({c, tabs({a, panel(u"x"_qs)}, 0)}), "column(row(c tabs(*a x)) new)", {}},
            {row({n, a}), "row(new a)", {}}};
        for (const auto& [root, expected, sizes] : cases) {
            const Layout layout = withPanel(layoutOf(root), u"new"_qs, home);
            QCOMPARE(text(layout.root), QLatin1String(expected));
            QCOMPARE(layout.root.sizes, sizes);
        }
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

#include "docking/DockTree.h"
#include "support/TestCase.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

#include <utility>

using ui::test::brokenInvariants;
using ui::test::DockTree;
using ui::test::settle;
using Area = DockableArea;
using LayoutMode = DockableGroup::LayoutMode;

/// Makes what the class offers its heirs callable.
class OpenGroup : public DockableGroup
{
public:
    using DockableGroup::combinedSize;
};

class DockedSizesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFloatingGroupGrowsTowardsTheNewcomer();
    void floatingWindowsPartAsTheyMet_data();
    void floatingWindowsPartAsTheyMet();
    void sizesOfTogetherStayOnTheScreen();
    void sizesComeBackAfterAHundredCycles_data();
    void sizesComeBackAfterAHundredCycles();
    void aNewcomerTakesAtMostHalf();
};

void DockedSizesTest::aFloatingGroupGrowsTowardsTheNewcomer()
{
    DockTree tree;
    tree.show();
    const auto floatingGroup = [](Area area) {
        const QSize size(150, 80); // no less than what Windows lets a window have
        DockableWindow* f = DockTree::panel(QStringLiteral("f"), size);
        f->show();
        auto* group = f->dockInArea(DockTree::panel(QStringLiteral("g"), size), area);
        group->move(150, 140);
        return qobject_cast<DockableGroup*>(group);
    };
    DockableGroup* row = floatingGroup(Area::Right);
    const QPoint where = row->getChild(0)->mapToGlobal(QPoint());
    const QSize before = row->size();
    QCOMPARE(before, QSize(318, 92)); // with border and handle
    DockableWindow* newcomer = DockTree::panel(QStringLiteral("n"), {70, 60});
    row->dockInArea(newcomer, Area::Left);
    QCOMPARE(row->pos(), QPoint(80, 140));
    QCOMPARE(row->size(), QSize(388, 92));
    QCOMPARE(row->getChild(1)->mapToGlobal(QPoint()), where);
    newcomer->undock(true); // and back again
    QCOMPARE(row->pos(), QPoint(150, 140));
    QCOMPARE(row->size(), before);
    QCOMPARE(row->getChild(0)->mapToGlobal(QPoint()), where);

    DockableGroup* column = floatingGroup(Area::Bottom);
    column->dockInArea(DockTree::panel(QStringLiteral("n"), {70, 60}), Area::Top);
    QCOMPARE(column->pos(), QPoint(150, 80));
    const QRect screen = column->screen()->availableGeometry();
    for (const auto& [group, area, clamped] :
         {std::tuple(column, Area::Top, QPoint(5, 0)), std::tuple(row, Area::Left, QPoint(0, 5))})
    {
        group->move(screen.topLeft() + QPoint(5, 5));
        group->dockInArea(DockTree::panel(QStringLiteral("o"), {70, 60}), area);
        QCOMPARE(group->pos(), screen.topLeft() + clamped); // as far as the screen goes
    }

    tree.root().move(120, 120);
    tree.showRow({100, 100});
    const QPoint main = tree.root().pos();
    tree.root().dockInArea(DockTree::panel(QStringLiteral("l")), Area::Left);
    QCOMPARE(tree.root().pos(), main); // the main window does not float
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockedSizesTest::floatingWindowsPartAsTheyMet_data()
{
    QTest::addColumn<Area>("area");
    QTest::addColumn<bool>("targetLeaves");
    for (int area = 1; area <= 5; ++area) {
        for (const bool targetLeaves : {false, true}) {
            QTest::addRow("area %d, %s", area, targetLeaves ? "the target" : "the newcomer")
                << static_cast<Area>(area) << targetLeaves;
        }
    }
}

void DockedSizesTest::floatingWindowsPartAsTheyMet()
{
    QFETCH(Area, area);
    QFETCH(bool, targetLeaves);
    DockTree tree;
    tree.show();
    const QSize sizes[] = {{260, 180}, {200, 160}};
    DockableWindow* target = DockTree::panel(QStringLiteral("f"), sizes[0]);
    DockableWindow* newcomer = DockTree::panel(QStringLiteral("g"), sizes[1]);
    target->move(300, 300);
    newcomer->move(700, 500);
    target->show();
    newcomer->show();
    settle();
    const QPoint place = target->pos();
    for (int cycle = 0; cycle < 3; ++cycle) {
        target->dockInArea(newcomer, area);
        settle();
        (targetLeaves ? target : newcomer)->undock(true);
        settle();
        QCOMPARE(target->size(), sizes[0]);
        QCOMPARE(newcomer->size(), sizes[area == Area::Center ? 0 : 1]); // tabs share one
        if (!targetLeaves) {
            QCOMPARE(target->pos(), place);
        }
    }
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockedSizesTest::sizesOfTogetherStayOnTheScreen()
{
    DockTree tree;
    OpenGroup group;
    DockableWindow* window = DockTree::panel(QString(), {120, 60});
    group.resize(200, 150);
    QCOMPARE(group.combinedSize(window), QSize(120, 60)); // without children the group counts not
    group.appendChild(DockTree::panel());
    group.resize(200, 150);
    QCOMPARE(group.combinedSize(window), QSize(320, 150));
    group.setLayoutMode(LayoutMode::Vertical);
    QCOMPARE(group.combinedSize(window), QSize(200, 210));
    window->resize(5000, 5000);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const int titleBar = group.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    QCOMPARE(group.combinedSize(window), screen->availableSize() - QSize(0, titleBar));
}

void DockedSizesTest::sizesComeBackAfterAHundredCycles_data()
{
    QTest::addColumn<int>("target"); // -1 is the root
    QTest::addColumn<Area>("area");
    const std::pair<int, Area> cases[] = {
        {-1, Area::Right},
        {-1, Area::Left},
        {-1, Area::Top},
        {1, Area::Left},
        {1, Area::Bottom},
        {2, Area::Right},
        {2, Area::Top}};
    for (const auto& [target, area] : cases) {
        QTest::addRow("%d at %d", target, static_cast<int>(area)) << target << area;
    }
}

void DockedSizesTest::sizesComeBackAfterAHundredCycles()
{
    QFETCH(int, target);
    QFETCH(Area, area);
    DockTree tree;
    tree.showRow({200, 300, 100});
    DockableGroup& root = tree.root();
    DockableWindow* panels[] = {root.getChild(0), root.getChild(1), root.getChild(2)};
    panels[2]->content()->setMinimumWidth(90); // some of them cannot give their half
    DockableWindow* guest = DockTree::panel(QStringLiteral("x"), {170, 120});
    guest->content()->setMinimumSize(60, 40);
    const auto widths = [&] {
        return QList({panels[0]->width(), panels[1]->width(), panels[2]->width()});
    };
    for (int i = 0; i < 100; ++i) {
        DockableWindow& at = target < 0 ? static_cast<DockableWindow&>(root) : *panels[target];
        at.dockInArea(guest, area);
        if (i % 10 == 0) {
            settle();
        }
        if (target == 1) {
            for (int other = 0; other < 3; ++other) {
                QVERIFY(other == target || widths()[other] == QList({200, 300, 100})[other]);
            }
        }
        guest->undock(true);
        QCOMPARE(widths(), QList({200, 300, 100}));
    }
    settle();
    QCOMPARE(widths(), QList({200, 300, 100}));
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void DockedSizesTest::aNewcomerTakesAtMostHalf()
{
    DockTree tree;
    tree.showRow({300, 294});
    DockableWindow* a = tree.root().getChild(0);
    DockableWindow* large = DockTree::panel(QStringLiteral("x"), {800, 600});
    a->dockInArea(large, Area::Right);
    QCOMPARE(large->width(), 147);
    QCOMPARE(a->width(), 147);
    DockableWindow* narrow = DockTree::panel(QStringLiteral("y"), {100, 600});
    narrow->content()->setMaximumWidth(50);
    tree.root().getChild(1)->dockInArea(narrow, Area::Left);
    QCOMPARE(narrow->width(), 50);
    QCOMPARE(tree.root().sizes(), QList({300, 294}));
}

const ui::test::Registration<DockedSizesTest> kRegistration;
#include "tst_dockedsizes.moc"

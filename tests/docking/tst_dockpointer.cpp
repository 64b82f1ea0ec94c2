#include "docking/DockTree.h"
#include "support/RealPointer.h"
#include "support/TestCase.h"
#include <MorrantUI/docking/DockableHeader.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/DropIndicatorMain.h>
#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>

using ui::test::brokenInvariants;
using ui::test::DockTree;
using ui::test::RealPointer;
using ui::test::settle;
using Area = DockableArea;

namespace {

/// Three panels a, b and c side by side, and the system's own pointer.
class Stage
{
public:
    Stage()
    {
        tree.root().move(m_origin);
        tree.showRow(widths());
        for (int i = 0; i < 3; ++i) {
            panels[i] = tree.root().getChild(i);
            tint(*panels[i]);
        }
        tree.root().activateWindow();
        settle();
    }
    ~Stage()
    {
        if (const QStringList broken = brokenInvariants(); !broken.isEmpty()) {
            QTest::qFail(qPrintable(broken.join(u'\n')), __FILE__, __LINE__);
        }
    }
    Q_DISABLE_COPY_MOVE(Stage)

    static QList<int> widths() { return {200, 300, 100}; }
    DockableWindow& a() const { return *panels[0]; }
    DockableWindow& b() const { return *panels[1]; }
    DockableWindow& c() const { return *panels[2]; }

    /// A floating panel with its corner there, below the main window.
    DockableWindow& floating(const QString& title, QPoint position, QSize size)
    {
        DockableWindow* window = DockTree::panel(title, size);
        tint(*window);
        window->move(m_origin + QPoint(0, 460) + position);
        window->show();
        settle();
        return *window;
    }

    QPoint outside() const { return m_origin + QPoint(200, 560); }

    /// Where the user takes hold of a panel: on its header, or on its tab.
    static QPoint grip(DockableWindow& window)
    {
        auto* tabs = qobject_cast<DockableTabGroup*>(window.findDockableParentGroup());
        const QWidget* widget = window.header();
        if (tabs) {
            widget = tabs->tabAt(tabs->indexOfChild(&window));
        }
        return widget->mapToGlobal(QPoint(14, 9));
    }

    void moveTo(QPoint point)
    {
        pointer.moveTo((QPointF(point) * tree.root().devicePixelRatioF()).toPoint());
    }
    /// Takes hold of a window and goes somewhere, the last pixel by itself: over a new target the
    /// first move only shows the zones.
    void drag(DockableWindow& window, QPoint to)
    {
        moveTo(grip(window));
        pointer.press();
        dragOn(to);
    }
    void dragOn(QPoint to)
    {
        moveTo(to - QPoint(1, 1));
        moveTo(to);
    }
    void drop()
    {
        pointer.release();
        settle();
    }
    void click(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        moveTo(point);
        pointer.press(button);
        pointer.release();
        settle();
    }

    /// Right-clicks on a window's header or tab, and left-clicks on an entry of the menu.
    /// @return the entries
    QString chooseInMenu(DockableWindow& window, const QString& text)
    {
        QStringList entries;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu) {
                return;
            }
            timer.stop();
            pointer.release();
            picture("menu");
            const auto actions = menu->actions();
            for (QAction* action : actions) {
                entries << action->text();
                if (action->text() == text) {
                    click(menu->mapToGlobal(menu->actionGeometry(action).center()));
                }
            }
        });
        timer.start(20);
        click(grip(window), Qt::RightButton);
        if (!QTest::qWaitFor([&] { return !timer.isActive(); })) {
            QTest::qFail("no menu came", __FILE__, __LINE__);
        }
        settle();
        return entries.join(u',');
    }

    /// The tree, then what floats, with a tilde if it is half transparent, then who shows zones,
    /// and which is highlighted.
    QString look(const char* step)
    {
        settle();
        picture(step);
        static const char* const names[] = {"none", "right", "top", "left", "bottom", "center"};
        QStringList floating;
        QStringList zones;
        QList<DockableWindow*> windows = tree.root().findChildren<DockableWindow*>();
        windows << &tree.root();
        for (DockableWindow* window : windows) {
            const QString text = DockTree::text(*window);
            if (window->isFloating() && window->isVisible()) {
                const bool half = std::abs(window->windowOpacity() - 0.5) < 0.01;
                floating << text + (half ? QStringLiteral("~") : QString());
            }
            const auto* indicator =
                window->findChild<DropIndicatorMain*>(QString(), Qt::FindDirectChildrenOnly);
            if (indicator->isVisible()) {
                zones << text + u':' + QLatin1String(names[static_cast<int>(window->dropArea())]);
            }
        }
        floating.sort();
        return (DockTree::text(tree.root()) + u' ' + (floating + zones).join(u' ')).trimmed();
    }

    DockTree tree;
    RealPointer pointer;
    DockableWindow* panels[3] = {};

private:
    /// So that the pictures show whose content is where.
    static void tint(DockableWindow& window)
    {
        window.content()->setAutoFillBackground(true);
        const int hue = window.getText().at(0).unicode() * 67 % 360;
        window.content()->setPalette(QColor::fromHsv(hue, 80, 90));
    }

    void picture(const char* step)
    {
        static const QString folder = qEnvironmentVariable("MORRANT_PICTURES_DIR");
        if (folder.isEmpty()) {
            return;
        }
        static int number = 0;
        QTest::qWait(100); // for what is painted and composed elsewhere
        const QString name = QStringLiteral("/%1 %2.png").arg(++number, 2, 10, QChar(u'0'));
        if (!tree.root().screen()->grabWindow(0).save(folder + name.arg(QLatin1String(step)))) {
            QTest::qFail("a picture could not be saved", __FILE__, __LINE__);
        }
    }

    QPoint m_origin = {300, 120};
};

/// A point within the zone of a panel or a tab group.
QPoint zone(DockableWindow& target, Area area)
{
    const QRect rect = target.rect();
    auto* tabs = qobject_cast<DockableTabGroup*>(&target);
    const int top = tabs ? tabs->tabAt(0)->height() : target.header()->height();
    const QPoint points[] = {
        {rect.width() / 2, (rect.height() + top) / 2},
        {rect.width() - 8, rect.height() / 2},
        {rect.width() / 2, top + 8},
        {8, rect.height() / 2},
        {rect.width() / 2, rect.height() - 8},
        {rect.width() / 2, top / 2}};
    return target.mapToGlobal(points[static_cast<int>(area)]);
}

QRect onScreen(DockableWindow& window)
{
    return {window.mapToGlobal(QPoint()), window.size()};
}

} // namespace

/// The gestures of a user with a mouse on a real display. With a folder in MORRANT_PICTURES_DIR
/// there is a picture of the screen after every step.
class DockPointerTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aPanelIsTornOutAndFollowsThePointer();
    void anyZoneTakesAPanelAndSizesComeBack();
    void tabGroupsAreMadeAndBroken();
    void escapeCancels();
    void onlyTheUpperOfTwoFloatingWindowsIsTheTarget();
    void theMenuComesWithTheRightButton();
};

void DockPointerTest::aPanelIsTornOutAndFollowsThePointer()
{
    int presses = 0; // outlives the filter that counts
    Stage stage;
    DockableWindow& a = stage.a();
    const QRect place = onScreen(a);
    stage.click(Stage::grip(a));
    QCOMPARE(stage.look("a click on a header"), u"H(a b c)"_qs);
    QCOMPARE(stage.tree.root().sizes(), Stage::widths());

    // At once, so that the press is the second of a double click.
    stage.drag(a, zone(stage.c(), Area::None));
    QCOMPARE(stage.look("still inside"), u"H(a b c) c:none"_qs);
    QCOMPARE(onScreen(a), place);
    stage.dragOn(stage.outside());
    QCOMPARE(stage.look("torn out"), u"H(b c) a~"_qs);
    QCOMPARE(a.size(), place.size());
    for (const QPoint step : {QPoint(40, 0), QPoint(300, 30), QPoint(-200, -20)}) {
        stage.dragOn(stage.outside() + step);
        QCOMPARE(Stage::grip(a), QCursor::pos());
    }
    stage.dragOn(zone(stage.b(), Area::None));
    QCOMPARE(stage.look("over no zone"), u"H(b c) a~ b:none"_qs);
    stage.drop();
    QCOMPARE(stage.look("dropped on nothing"), u"H(b c) a"_qs);

    stage.drag(a, zone(stage.b(), Area::Left));
    QCOMPARE(stage.look("over the left zone"), u"H(b c) a~ b:left"_qs);
    stage.drop();
    QCOMPARE(stage.look("back again"), u"H(H(a b) c)"_qs);
    // What was pressed has lost its window: the pointer is free for others all the same.
    const auto count = [&presses](QObject*, QEvent* event) {
        presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        return false;
    };
    ui::installEventFilter(stage.c().content(), count, stage.c().content());
    stage.moveTo(zone(stage.c(), Area::None));
    QTRY_VERIFY(stage.c().content()->underMouse());
    stage.click(zone(stage.c(), Area::None));
    QCOMPARE(presses, 1);
}

void DockPointerTest::anyZoneTakesAPanelAndSizesComeBack()
{
    Stage stage;
    DockableWindow& f = stage.floating(u"f"_qs, {}, {240, 140});
    const struct
    {
        const char* zone;
        Area area;
        QString tree;
    } cases[] = {
        {"right", Area::Right, u"H(a H(b f) c)"_qs},
        {"top", Area::Top, u"H(a V(f b) c)"_qs},
        {"left", Area::Left, u"H(a H(f b) c)"_qs},
        {"bottom", Area::Bottom, u"H(a V(b f) c)"_qs},
        {"center", Area::Center, u"H(a T(b f) c)"_qs}};
    for (int cycle = 0; cycle < 100; ++cycle) {
        const auto& [name, area, text] = cases[cycle % 5];
        const bool isSeen = cycle < 5;
        const QRect room = onScreen(stage.b());
        stage.drag(f, zone(stage.b(), area));
        if (isSeen) {
            QCOMPARE(stage.look(name), u"H(a b c) f~ b:"_qs + QLatin1String(name));
        }
        stage.drop();
        if (isSeen) {
            QCOMPARE(stage.look("docked there"), text);
            QVERIFY(room.contains(onScreen(f)));
        }
        QCOMPARE(DockTree::text(stage.tree.root()), text);
        stage.drag(f, stage.outside());
        stage.drop();
        QCOMPARE(stage.tree.root().sizes(), Stage::widths());
    }
    QCOMPARE(stage.look("after a hundred cycles"), u"H(a b c) f"_qs);
}

void DockPointerTest::tabGroupsAreMadeAndBroken()
{
    Stage stage;
    stage.drag(stage.a(), zone(stage.b(), Area::Center));
    QCOMPARE(stage.look("over a header"), u"H(a b c) b:center"_qs);
    stage.drop();
    QCOMPARE(stage.look("two tabs"), u"H(T(b a) c)"_qs);
    auto* tabs = qobject_cast<DockableTabGroup*>(stage.a().findDockableParentGroup());
    QVERIFY(tabs);
    QCOMPARE(tabs->activeChild(), &stage.a());
    stage.click(Stage::grip(stage.b()));
    QCOMPARE(tabs->activeChild(), &stage.b());
    QCOMPARE(stage.look("the other tab"), u"H(T(b a) c)"_qs);

    stage.drag(stage.c(), zone(*tabs, Area::Center));
    QCOMPARE(stage.look("over the strip"), u"H(T(b a) c) T(b a):center"_qs);
    stage.drop();
    QCOMPARE(stage.look("three tabs"), u"H(T(b a c))"_qs);

    stage.drag(stage.a(), stage.outside());
    QCOMPARE(stage.look("a tab torn out"), u"H(T(b c)) a~"_qs);
    QVERIFY(stage.a().header()->isVisible());
    const QPoint held = stage.a().header()->mapFromGlobal(QCursor::pos());
    QVERIFY(stage.a().header()->rect().contains(held));
    stage.drop();
    stage.drag(stage.a(), zone(*tabs, Area::Right));
    QCOMPARE(stage.look("beside the tabs"), u"H(T(b c)) a~ T(b c):right"_qs);
    stage.drop();
    QCOMPARE(stage.look("docked beside them"), u"H(H(T(b c) a))"_qs);

    stage.drag(stage.c(), stage.outside());
    stage.drop();
    QCOMPARE(stage.look("tabs dissolved"), u"H(H(b a)) c"_qs);
    QVERIFY(stage.b().header()->isVisible());
}

void DockPointerTest::escapeCancels()
{
    Stage stage;
    stage.drag(stage.a(), zone(stage.b(), Area::Top));
    QCOMPARE(stage.look("before Escape"), u"H(a b c) b:top"_qs);
    stage.pointer.pressEscape();
    QCOMPARE(stage.look("Escape inside"), u"H(a b c)"_qs);
    stage.drop();
    QCOMPARE(stage.look("released"), u"H(a b c)"_qs);
    stage.drag(stage.a(), stage.outside());
    stage.dragOn(zone(stage.b(), Area::Bottom));
    QCOMPARE(stage.look("torn out before Escape"), u"H(b c) a~ b:bottom"_qs);
    stage.pointer.pressEscape();
    QCOMPARE(stage.look("Escape outside"), u"H(a b c)"_qs);
    const QRect place = onScreen(stage.a());
    stage.dragOn(stage.outside());
    stage.drop();
    QCOMPARE(stage.look("left where it was"), u"H(a b c)"_qs);
    QCOMPARE(onScreen(stage.a()), place);
}

void DockPointerTest::onlyTheUpperOfTwoFloatingWindowsIsTheTarget()
{
    Stage stage;
    DockableWindow& lower = stage.floating(u"f"_qs, {0, 0}, {400, 220});
    DockableWindow& upper = stage.floating(u"g"_qs, {150, 60}, {200, 120});
    stage.drag(stage.c(), zone(upper, Area::Left));
    QCOMPARE(stage.look("above two windows"), u"H(a b) c~ f g g:left"_qs);
    stage.dragOn(zone(lower, Area::Left));
    QCOMPARE(stage.look("above the lower one"), u"H(a b) c~ f g f:left"_qs);
    stage.dragOn(stage.outside() + QPoint(500, -300));
    stage.drop();
    stage.click(Stage::grip(lower));
    lower.raise(); // which nobody does where there is no window manager
    stage.drag(stage.c(), zone(upper, Area::Left));
    QCOMPARE(stage.look("above the other one"), u"H(a b) c~ f g f:none"_qs);
    stage.dragOn(zone(lower, Area::Right));
    stage.drop();
    QCOMPARE(stage.look("docked in it"), u"H(a b) H(f c) g"_qs);
}

void DockPointerTest::theMenuComesWithTheRightButton()
{
    Stage stage;
    const QRect place = onScreen(stage.a());
    QCOMPARE(stage.chooseInMenu(stage.a(), u"Undock"_qs), u"Undock,Show,Close"_qs);
    QCOMPARE(stage.look("undocked by the menu"), u"H(b c) a"_qs);
    QVERIFY(stage.a().frameGeometry().contains(place.topLeft()));

    stage.drag(stage.a(), zone(stage.b(), Area::Center));
    stage.drop();
    QCOMPARE(stage.look("tabs again"), u"H(T(b a) c)"_qs);
    QCOMPARE(stage.chooseInMenu(stage.b(), u"Undock"_qs), u"Undock,Show,Close"_qs);
    QCOMPARE(stage.look("a tab undocked by the menu"), u"H(a c) b"_qs);
}

const ui::test::Registration<DockPointerTest> kRegistration(
    ui::test::RunOrder::Normal, RealPointer::available);
#include "tst_dockpointer.moc"

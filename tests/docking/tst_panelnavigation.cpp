#include "docking/Desk.h"
#include "docking/DockTree.h"
#include "docking/Hand.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableTabHeader.h>
#include <MorrantUI/docking/DockableTabWidget.h>
#include <MorrantUI/docking/panelnavigation.h>

#include <QAccessible>
#include <QtWidgets>

#include <functional>

using ui::test::brokenInvariants;
using ui::test::Desk;
using ui::test::DockTree;
using ui::test::Hand;
using ui::test::menuDuring;
using ui::test::SeenMenu;
using ui::test::settle;
using Area = DockableArea;

namespace {

QString titles(const QList<DockableWindow*>& panels)
{
    QString all;
    for (const DockableWindow* panel : panels) {
        all += panel->getText();
    }
    return all;
}
/// What the system sends for the Menu key.
void pressMenuKey()
{
    QWindow* window = QGuiApplication::focusWindow();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint(), Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

/// Uses F6, and has a menu of its own.
class SelfWilled : public QWidget
{
public:
    SelfWilled()
    {
        setObjectName(QStringLiteral("self-willed"));
        setFocusPolicy(Qt::StrongFocus);
    }
    int keys = 0;
    int menus = 0;

protected:
    void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
    void contextMenuEvent(QContextMenuEvent* /*event*/) override { ++menus; }
};

} // namespace

class PanelNavigationTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void panelsInSightAreReadInOrder();
    void f6WalksToWhereTheFocusWasLast();
    void f6LeavesOthersTheirKey();
    void f6ComesInFromOutside();
    void aPanelWithoutFieldsGivesItsHeaderTheFocus();
    void headersTakeTheFocusFromKeysOnly();
    void theFirstActivationGoesToTheContent();
    void theMenuKeyOpensTheMenuBelowTheTitle();
    void theFocusStaysThroughEveryOperation_data();
    void theFocusStaysThroughEveryOperation();
    void theFocusIsNeverLeftBehind();
};

void PanelNavigationTest::panelsInSightAreReadInOrder()
{
    Desk desk;
    auto order = [] { return titles(ui::panelsInOrder()); };
    QCOMPARE(order(), QStringLiteral("abde"));
    desk.tabs->setActiveIndex(1);
    QCOMPARE(order(), QStringLiteral("acde"));
    desk.a->undock(true); // floats after e
    QCOMPARE(order(), QStringLiteral("cdea"));
    desk.d->hide();
    desk.e->setWindowState(Qt::WindowMinimized);
    QCOMPARE(order(), QStringLiteral("ca"));
    desk.a->dockInArea(desk.e, Area::Top);
    desk.c->undockAndClose(); // not deleted yet
    QCOMPARE(order(), QStringLiteral("bea"));
    QVERIFY(!ui::focusPanel(desk.c) && !ui::focusPanel(desk.d) && !ui::focusPanel(nullptr));
    desk.tree.destroy();
    QVERIFY(ui::panelsInOrder().isEmpty() && !ui::focusNextPanel());
}

void PanelNavigationTest::f6WalksToWhereTheFocusWasLast()
{
    Desk desk;
    const auto walk = [&](const QStringList& stops, Qt::KeyboardModifiers held = Qt::NoModifier) {
        for (const QString& stop : stops) {
            Desk::press(Qt::Key_F6, held);
            QTRY_COMPARE(Desk::focused(), stop);
        }
    };
    walk({u"b1"_qs, u"d1"_qs, u"e1"_qs, u"a1"_qs});
    desk.focus(u"b2"_qs);
    desk.focus(u"e2"_qs);
    desk.focus(u"a2"_qs);
    walk({u"e2"_qs, u"d1"_qs, u"b2"_qs, u"a2"_qs}, Qt::ShiftModifier);

    // Nor is it forgotten by what changes places meanwhile, or what lies behind another tab.
    desk.b->undock(true);
    desk.a->dockInArea(desk.e, Area::Bottom);
    desk.a->dockInArea(desk.b, Area::Center);
    desk.focus(u"d1"_qs);
    walk({u"b2"_qs, u"e2"_qs, u"c1"_qs, u"d1"_qs});

    // A field that cannot have it any more gives way to the next.
    desk.root.findChild<QWidget*>(u"e2"_qs)->setEnabled(false);
    desk.root.findChild<QWidget*>(u"b2"_qs)->setParent(desk.e->content());
    walk({u"b1"_qs, u"e1"_qs, u"c1"_qs});

    // A field finds its caret where it was.
    auto* field = desk.root.findChild<QLineEdit*>(u"c1"_qs);
    field->setText(QStringLiteral("text"));
    field->setCursorPosition(2);
    walk({u"d1"_qs});
    walk({u"c1"_qs}, Qt::ShiftModifier);
    QVERIFY(field->cursorPosition() == 2 && !field->hasSelectedText());
}

void PanelNavigationTest::f6LeavesOthersTheirKey()
{
    Desk desk;
    auto* selfWilled = new SelfWilled;
    desk.a->content()->layout()->addWidget(selfWilled);
    selfWilled->show();
    desk.focus(selfWilled->objectName());
    Desk::press(Qt::Key_F6);
    pressMenuKey();
    QVERIFY(selfWilled->keys == 1 && selfWilled->menus == 1 && selfWilled->hasFocus());

    desk.focus(u"a1"_qs);
    const auto nothingHappens = [&] {
        return !ui::focusNextPanel() && !ui::focusPreviousPanel()
               && desk.a->isAncestorOf(desk.a->window()->focusWidget());
    };
    QTest::mousePress(desk.root.windowHandle(), Qt::LeftButton, {}, {1, 1});
    QVERIFY(nothingHappens());
    QTest::mouseRelease(desk.root.windowHandle(), Qt::LeftButton, {}, {1, 1});
    {
        QMenu popup;
        popup.addAction(QStringLiteral("Entry"));
        popup.popup(QPoint(10, 10));
        QVERIFY(nothingHappens());
    }
    {
        QDialog dialog(desk.a);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(nothingHappens());
        Desk::press(Qt::Key_F6); // must not come through to its parent
        QVERIFY(desk.a->isAncestorOf(desk.root.focusWidget()));
    }
    desk.focus(u"a1"_qs);
    Desk::press(Qt::Key_F6, Qt::ControlModifier);
    QVERIFY(desk.a->isAncestorOf(desk.a->window()->focusWidget()));
}

void PanelNavigationTest::f6ComesInFromOutside()
{
    Desk desk;
    QWidget host;
    auto* field = new QLineEdit(&host);
    field->setObjectName(QStringLiteral("outside"));
    ui::addPanelNavigation(&host);
    ui::addPanelNavigation(nullptr);
    host.show();
    host.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&host));
    const auto comeIn = [&](Qt::KeyboardModifiers held, const QString& stop) {
        host.activateWindow();
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        Desk::press(Qt::Key_F6, held);
        QTRY_COMPARE(Desk::focused(), stop);
    };
    // In this order, since Wine gives a window that has just appeared the focus once more, later.
    comeIn(Qt::ShiftModifier, QStringLiteral("e1"));
    comeIn(Qt::NoModifier, QStringLiteral("a1"));

    // A tab is part of its page.
    desk.root.activateWindow();
    desk.tabs->tabAt(0)->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(Desk::focused(), QStringLiteral("(DockableTabWidget)"));
    Desk::press(Qt::Key_F6);
    QTRY_COMPARE(Desk::focused(), QStringLiteral("d1"));
}

void PanelNavigationTest::aPanelWithoutFieldsGivesItsHeaderTheFocus()
{
    Desk desk;
    DockableWindow* bare = DockTree::panelIn(*desk.a, Area::Bottom, QStringLiteral("bare"));
    QVERIFY(ui::focusPanel(bare));
    QVERIFY(bare->header()->hasFocus());
    desk.a->dockInArea(bare, Area::Center);
    QTRY_COMPARE(QApplication::focusWidget(), bare->header()->window()->focusWidget());
    desk.focus(u"d1"_qs);
    QVERIFY(ui::focusPanel(bare)); // its header is hidden now
    QTRY_COMPARE(Desk::focused(), QStringLiteral("(DockableTabWidget)"));
}

void PanelNavigationTest::headersTakeTheFocusFromKeysOnly()
{
    Desk desk;
    DockableHeader& header = *desk.d->header();
    QTest::mouseClick(&header, Qt::LeftButton);
    QCOMPARE(Desk::focused(), QStringLiteral("a1"));
    const QColor bare = ui::test::pixelAt(ui::test::renderWidget(header), QPoint(1, 12));

    desk.focus(u"d1"_qs);
    Desk::press(Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(header.hasFocus());
    Desk::press(Qt::Key_Space);
    Desk::press(Qt::Key_Return);
    QVERIFY(header.hasFocus());
    const QColor ringed = ui::test::pixelAt(ui::test::renderWidget(header), QPoint(1, 12));
    QVERIFY(ringed != bare);
    Desk::press(Qt::Key_Tab);
    QCOMPARE(Desk::focused(), QStringLiteral("d1"));
}

void PanelNavigationTest::theFirstActivationGoesToTheContent()
{
    Desk desk;
    DockableWindow* opened = Desk::panel(QStringLiteral("x"));
    opened->show();
    opened->activateWindow();
    QTRY_COMPARE(Desk::focused(), QStringLiteral("x1"));

    // But a header that the user has gone to keeps the focus.
    QWidget* header = opened->header();
    header->setFocus(Qt::TabFocusReason);
    desk.focus(u"a1"_qs);
    opened->activateWindow();
    QTRY_VERIFY(header->hasFocus());
    desk.a->dockInArea(opened, Area::Bottom);
    QTRY_VERIFY(header->hasFocus());
    opened->undock(true);
    settle();
    QTRY_VERIFY(header->hasFocus());

    DockableWindow* first = Desk::panel(QStringLiteral("y"));
    auto* group = first->dockInArea(Desk::panel(QStringLiteral("z")), Area::Center);
    group->activateWindow();
    QTRY_COMPARE(Desk::focused(), QStringLiteral("z1")); // rather than its tab
}

void PanelNavigationTest::theMenuKeyOpensTheMenuBelowTheTitle()
{
    Desk desk;
    auto* plain = new QWidget; // without a menu of its own
    plain->setObjectName(QStringLiteral("plain"));
    plain->setFocusPolicy(Qt::StrongFocus);
    desk.b->content()->layout()->addWidget(plain);
    DockableWindow* bare = DockTree::panelIn(*desk.a, Area::Top, QStringLiteral("bare"));
    settle();

    const auto cornerOf = [](const QWidget* title) {
        return title->mapToGlobal(title->rect().bottomLeft());
    };
    const QPoint tabCorner = cornerOf(desk.tabs->tabAt(0));
    const struct
    {
        QWidget* focus;
        QPoint place;
    } cases[] = {
        {bare->header(), cornerOf(bare->header())},
        {desk.tabs->tabAt(0), tabCorner},
        {plain, tabCorner},
    };
    for (const auto& row : cases) {
        row.focus->setFocus(Qt::TabFocusReason);
        for (const std::function<void()>& key :
             {std::function<void()>(pressMenuKey),
              std::function<void()>([] { Desk::press(Qt::Key_F10, Qt::ShiftModifier); })})
        {
            const SeenMenu menu = menuDuring(key);
            QCOMPARE(menu.texts.join(u','), QStringLiteral("Undock,Show,Close"));
            QCOMPARE(menu.place, row.place);
            QCOMPARE(row.focus->window()->focusWidget(), row.focus);
            row.focus->activateWindow(); // as any system does by itself but off screen
            QTRY_VERIFY(row.focus->hasFocus());
        }
    }
    // The mouse's own request is none of the panel's business.
    const SeenMenu none = menuDuring([&] {
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {}, plain->mapToGlobal(QPoint()));
        QCoreApplication::sendEvent(plain, &byMouse);
    });
    QVERIFY(none.texts.isEmpty());

    bare->header()->setFocus(Qt::TabFocusReason);
    QTimer::singleShot(0, bare, [bare] { delete bare; }); // while its menu is open
    Desk::press(Qt::Key_F10, Qt::ShiftModifier);
    settle();
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

void PanelNavigationTest::theFocusStaysThroughEveryOperation_data()
{
    using Change = std::function<void(Desk&)>;
    QTest::addColumn<Change>("change");
    const auto row = [](const QByteArray& name, const Change& change) {
        QTest::newRow(name.constData()) << change;
    };
    row("undock", [](Desk& desk) { desk.a->undock(true); });
    const QPair<const char*, Area> areas[] = {
        {"right", Area::Right},
        {"top", Area::Top},
        {"left", Area::Left},
        {"bottom", Area::Bottom},
        {"center", Area::Center}};
    for (const auto& [name, where] : areas) {
        const Area area = where;
        row(QByteArray("dock at d, ") + name,
            [area](Desk& desk) { desk.d->dockInArea(desk.a, area); });
        row(QByteArray("dock at e, which floats, ") + name,
            [area](Desk& desk) { desk.e->dockInArea(desk.a, area); });
        row(QByteArray("dock at the root, ") + name,
            [area](Desk& desk) { desk.root.dockInArea(desk.a, area); });
        if (area != Area::Center) {
            row(QByteArray("a neighbour docks, ") + name,
                [area](Desk& desk) { desk.a->dockInArea(desk.e, area); });
        }
    }
    row("dock among tabs, and back", [](Desk& desk) {
        desk.tabs->dockInArea(desk.a, Area::Center);
        desk.a->undock(true);
        desk.root.dockInArea(desk.a, Area::Left);
    });
    row("collapse", [](Desk& desk) {
        desk.a->dockInArea(desk.e, Area::Top);
        desk.a->findDockableParentGroup()->collapseGroup();
    });
    row("collapse what floats", [](Desk& desk) {
        desk.e->dockInArea(desk.a, Area::Top);
        desk.a->findDockableParentGroup()->collapseGroup();
    });
    row("tabs away and back", [](Desk& desk) {
        DockableWindow* group = desk.a->dockInArea(desk.e, Area::Center);
        auto* own = qobject_cast<DockableTabGroup*>(group);
        own->setActiveIndex(0);
        desk.focus(u"a2"_qs);
        own->setActiveIndex(1);
        QTRY_COMPARE(Desk::focused(), QStringLiteral("e1"));
        own->setActiveIndex(0);
    });
    row("other tabs switched", [](Desk& desk) { desk.tabs->setActiveIndex(1); });
    row("a neighbour closed", [](Desk& desk) {
        desk.d->undockAndClose();
        desk.e->close();
    });
    row("a tab of others closed", [](Desk& desk) { desk.b->undockAndClose(); });
    row("a menu left", [](Desk& desk) {
        menuDuring([&] {
            QContextMenuEvent event(QContextMenuEvent::Mouse, {}, QPoint(50, 50));
            QCoreApplication::sendEvent(desk.d->header(), &event);
        });
        desk.root.activateWindow(); // as any system does by itself but off screen
    });
    row("round by F6", [](Desk& /*desk*/) {
        for (const QString& stop : {u"b1"_qs, u"d1"_qs, u"e1"_qs, u"a2"_qs}) {
            Desk::press(Qt::Key_F6);
            QTRY_COMPARE(Desk::focused(), stop);
        }
    });
    row("dragged elsewhere", [](Desk& desk) {
        QWidget* header = desk.a->header();
        Hand hand;
        hand.press(*header, header->rect().center());
        const QPoint edge = desk.d->mapToGlobal(QPoint(desk.d->width() - 5, desk.d->height() / 2));
        hand.moveTo(edge, 6);
        hand.moveTo(edge + QPoint(1, 0));
        hand.release();
        QCOMPARE(DockTree::text(desk.root), QStringLiteral("H(T(b c) H(d a))"));
    });
    row("header replaced and hidden", [](Desk& desk) {
        desk.a->setHeader(new DockableTabHeader);
        desk.a->setHeaderVisible(false);
    });
}

void PanelNavigationTest::theFocusStaysThroughEveryOperation()
{
    QFETCH(std::function<void(Desk&)>, change);
    Desk desk;
    desk.focus(u"a2"_qs);
    change(desk);
    settle();
    QTRY_COMPARE(Desk::focused(), QStringLiteral("a2"));
    QVERIFY(QApplication::focusWidget()->isVisible());
    QCOMPARE(brokenInvariants().join(u'\n'), QString());
}

/// When what has the focus disappears.
void PanelNavigationTest::theFocusIsNeverLeftBehind()
{
    Desk desk;
    const auto isInSight = [] {
        const QWidget* focus = QApplication::focusWidget();
        return focus && focus->isVisible();
    };
    desk.focus(u"a1"_qs);
    desk.a->dockInArea(desk.e, Area::Center); // in front of it
    QTRY_COMPARE(Desk::focused(), QStringLiteral("e1"));
    desk.e->undockAndClose();
    settle();
    QTRY_VERIFY(isInSight());
    desk.focus(u"b1"_qs);
    Desk::press(Qt::Key_Tab, Qt::ShiftModifier);
    desk.b->undockAndClose();
    settle();
    QTRY_VERIFY(isInSight());
    desk.d->header()->setFocus(Qt::TabFocusReason);
    desk.d->setHeader(nullptr);
    settle();
    QTRY_VERIFY(isInSight());
}

const ui::test::Registration<PanelNavigationTest> kRegistration;
#include "tst_panelnavigation.moc"

// SPDX-License-Identifier: Apache-2.0
#include "docking/Desk.h"
#include "support/TestCase.h"
#include "support/pixels.h"
#include <MorrantUI/MorrantUI.h>

using namespace ui::test;
using Area = DockableArea;

namespace {

QString order()
{
    QString all;
    for (const DockableWindow* panel : ui::panelsInOrder()) {
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

/// Presses F6 and follows the focus.
void walk(const QString& stops, Qt::KeyboardModifiers held = Qt::NoModifier)
{
    for (const QString& stop : stops.split(u' ')) {
        Desk::press(Qt::Key_F6, held);
        QTRY_COMPARE(Desk::focused(), stop);
    }
}

/// Uses F6, and has a menu of its own.
class SelfWilled : public QWidget
{
public:
    int keys = 0;
    int menus = 0;

protected:
    void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
    void contextMenuEvent(QContextMenuEvent* /*event*/) override { ++menus; }
};

template <typename Field>
Field* addField(DockableWindow& panel, const QString& name)
{
    auto* field = new Field;
    field->setObjectName(name);
    field->setFocusPolicy(Qt::StrongFocus);
    panel.content()->layout()->addWidget(field);
    settle();
    return field;
}

} // namespace

class PanelNavigationTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void panelsInSightAreReadInOrder()
    {
        Desk desk;
        QCOMPARE(order(), u"abde"_qs);
        for (const auto& [operations, expected] :
             {std::pair("select c", "acde"),
              {"undock a", "cdea"},                               // floats after e
              {"dock a e right, dock e a top, close c", "bdea"}}) // not deleted yet
        {
            desk.play(QString::fromLatin1(operations));
            QCOMPARE(order(), QString::fromLatin1(expected));
        }
        QVERIFY(!ui::focusPanel(desk.c) && !ui::focusPanel(nullptr));
        desk.d->hide();
        desk.e->window()->setWindowState(Qt::WindowMinimized);
        QVERIFY(!ui::focusPanel(desk.d));
        QCOMPARE(order(), u"b"_qs);
        desk.destroy();
        QVERIFY(ui::panelsInOrder().isEmpty() && !ui::focusNextPanel());
    }

    void f6WalksToWhereTheFocusWasLast()
    {
        Desk desk;
        walk(u"b1 d1 e1 a1"_qs);
        for (const QString& field : {u"b2"_qs, u"e2"_qs, u"a2"_qs}) {
            desk.focus(field);
        }
        walk(u"e2 d1 b2 a2"_qs, Qt::ShiftModifier);
        // Nor is it forgotten by what changes places meanwhile, or what lies behind another tab.
        desk.play(u"undock b, dock e a bottom, dock b a center"_qs);
        desk.focus(u"d1"_qs);
        walk(u"b2 e2 c1 d1"_qs);
        // A field that cannot have it any more gives way to the next.
        desk.root().findChild<QWidget*>(u"e2"_qs)->setEnabled(false);
        desk.root().findChild<QWidget*>(u"b2"_qs)->setParent(desk.e->content());
        walk(u"b1 e1 c1"_qs);
        // A field finds its caret where it was.
        auto* field = desk.root().findChild<QLineEdit*>(u"c1"_qs);
        field->setText(u"text"_qs);
        field->setCursorPosition(2);
        walk(u"d1"_qs);
        walk(u"c1"_qs, Qt::ShiftModifier);
        QVERIFY(field->cursorPosition() == 2 && !field->hasSelectedText());
        // A number field at rest can be typed into, and shows that it has the focus.
        auto* number = addField<NumericField>(*desk.d, u"number"_qs);
        for (const QString& other : {u"d1"_qs, u"d2"_qs}) {
            desk.root().findChild<QWidget*>(other)->setEnabled(false);
        }
        number->window()->setAttribute(Qt::WA_KeyboardFocusChange, false);
        walk(u"number"_qs);
        QCOMPARE(number->selectedText(), u"0"_qs);
        QVERIFY(!number->isReadOnly());
        QVERIFY(number->window()->testAttribute(Qt::WA_KeyboardFocusChange));
    }

    void f6LeavesOthersTheirKey()
    {
        Desk desk;
        auto* selfWilled = addField<SelfWilled>(*desk.a, u"own"_qs);
        desk.focus(u"own"_qs);
        Desk::press(Qt::Key_F6);
        pressMenuKey();
        QVERIFY(selfWilled->keys == 1 && selfWilled->menus == 1 && selfWilled->hasFocus());

        desk.focus(u"a1"_qs);
        const auto nothingHappens = [&] {
            return !ui::focusNextPanel() && !ui::focusPreviousPanel()
                   && desk.a->isAncestorOf(desk.a->window()->focusWidget());
        };
        QTest::mousePress(desk.root().windowHandle(), Qt::LeftButton, {}, {1, 1});
        QVERIFY(nothingHappens());
        QTest::mouseRelease(desk.root().windowHandle(), Qt::LeftButton, {}, {1, 1});
        QMenu popup;
        popup.addAction(u"Entry"_qs);
        popup.popup(QPoint(10, 10));
        QVERIFY(nothingHappens());
        popup.close();
        QDialog dialog(desk.a);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog) && nothingHappens());
        Desk::press(Qt::Key_F6); // must not come through to its parent
        QVERIFY(desk.a->isAncestorOf(desk.root().focusWidget()));
        dialog.close();
        desk.focus(u"a1"_qs);
        Desk::press(Qt::Key_F6, Qt::ControlModifier);
        QCOMPARE(Desk::focused(), u"a1"_qs);
    }

    void f6ComesInFromOutside()
    {
        Desk desk;
        QWidget host;
        auto* field = new QLineEdit(&host);
        ui::addPanelNavigation(&host);
        ui::addPanelNavigation(nullptr);
        host.show();
        // In this order, since Wine gives a window that has just appeared the focus once more,
        // later.
        for (const auto& [held, stop] :
             {std::pair(Qt::ShiftModifier, u"e1"_qs), {Qt::NoModifier, u"a1"_qs}})
        {
            host.activateWindow();
            field->setFocus();
            QTRY_VERIFY(field->hasFocus());
            walk(stop, held);
        }
        desk.root().activateWindow(); // a tab is part of its page
        desk.rowOfTabs->tabAt(0)->setFocus(Qt::TabFocusReason);
        QTRY_COMPARE(Desk::focused(), u"(DockableTabWidget)"_qs);
        walk(u"d1"_qs);
    }

    void aClickFocusesWhatTheHeaderOrTabStandsFor()
    {
        Desk desk;
        QTest::mouseClick(desk.d->header(), Qt::LeftButton);
        QTRY_COMPARE(Desk::focused(), u"d1"_qs);
        QTest::mouseClick(desk.rowOfTabs->tabAt(1), Qt::LeftButton);
        QTRY_COMPARE(Desk::focused(), u"c1"_qs);
        desk.focus(u"c2"_qs);
        QTest::mouseClick(desk.rowOfTabs->tabAt(1), Qt::LeftButton); // it is there already
        settle();
        QCOMPARE(Desk::focused(), u"c2"_qs);
        desk.c->content()->setParent(desk.e->content()); // whose panel it no longer is
        QVERIFY(ui::focusPanel(desk.c));
        QTRY_COMPARE(Desk::focused(), u"(DockableTabWidget)"_qs);
    }

    void aPanelIsMaximisedAndBack()
    {
        Desk desk;
        desk.play(u"dock x d top, settle"_qs);
        const QString sizes = desk.sizes();
        const QSize all = desk.root().size() - QSize(12, 12);
        for (const auto& [field, operation] : // and what ends it
             {std::pair("a1", ""), {"d1", ""}, {"b1", ""}, {"a1", "undock e"}, {"d1", "delete d"}})
        {
            desk.focus(QString::fromLatin1(field));
            DockableWindow* panel = DockableWindow::findDockableParent(QApplication::focusWidget());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F10, Qt::ControlModifier);
            settle();
            QCOMPARE(ui::maximizedPanel(), panel);
            QWidget* seen = panel == desk.b ? desk.rowOfTabs : panel;
            QCOMPARE(seen->size(), all);
            if (*operation) {
                desk.play(u"dock e a left, "_qs + QLatin1String(operation) + u", settle"_qs);
            } else {
                QTest::keyClick(panel->content(), Qt::Key_F10, Qt::ControlModifier);
            }
            QVERIFY(!ui::maximizedPanel());
            settle();
            QCOMPARE(desk.sizes(), operation == QByteArray("delete d") ? desk.sizes() : sizes);
            QVERIFY(!desk.a->isHidden() && !desk["x"]->isHidden());
        }
        QVERIFY(!ui::maximizePanel(nullptr) && !ui::maximizePanel(desk.c));

        QVERIFY(ui::maximizePanel(desk.b) && !desk.root().takeChild(99));
        desk.root().insertChild(0, nullptr);
        QCOMPARE(ui::maximizedPanel(), desk.b); // nothing came or went
        const QPointer<DockableWindow> guest = new DockableWindow(new QWidget);
        ui::installEventFilter(
            desk.a,
            [guest](QObject*, const QEvent* event) {
                delete (event->type() == QEvent::Show ? guest.data() : nullptr);
                return false;
            },
            nullptr);
        QVERIFY(!desk.a->dockInArea(guest, Area::Left) && !guest);
    }

    void maximisingEndsWhereAHiddenPanelRestoresTheOthers()
    {
        DockTree tree(u"H(a b c)"_qs);
        const auto restores = [](QObject* /*watched*/, QEvent* event) {
            if (event->type() == QEvent::Hide) {
                ui::restorePanels();
            }
            return false;
        };
        ui::installEventFilter(tree["b"], restores, tree["b"]);
        QVERIFY(!ui::maximizePanel(tree["a"]) && tree["c"]->isVisible());
    }

    void headersTakeTheFocusFromKeysOnly()
    {
        Desk desk;
        DockableHeader& header = *desk.d->header();
        const auto edge = [&] { return pixelAt(renderWidget(header), QPoint(1, 12)); };
        const QColor bare = edge();
        desk.focus(u"d1"_qs);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
        QTRY_VERIFY(header.hasFocus());
        QTest::keyClick(&header, Qt::Key_Space);
        QTest::keyClick(&header, Qt::Key_Return);
        QTRY_VERIFY(header.hasFocus());
        QVERIFY(edge() != bare);
        QTest::keyClick(&header, Qt::Key_Tab);
        QTRY_COMPARE(Desk::focused(), u"d1"_qs);

        desk.play(u"dock bare a bottom"_qs); // a panel without fields
        DockableWindow* bareOne = desk["bare"];
        QVERIFY(ui::focusPanel(bareOne) && bareOne->header()->hasFocus());
        desk.play(u"dock bare a center"_qs);
        desk.focus(u"d1"_qs);
        QVERIFY(ui::focusPanel(bareOne)); // its header is hidden now
        QTRY_COMPARE(Desk::focused(), u"(DockableTabWidget)"_qs);
    }

    void theFirstActivationGoesToTheContent()
    {
        Desk desk;
        DockableWindow* opened = Desk::panelWithFields(u"x"_qs);
        opened->show();
        opened->activateWindow();
        QTRY_COMPARE(Desk::focused(), u"x1"_qs);
        // But a header that the user has gone to keeps the focus.
        QWidget* header = opened->header();
        header->setFocus(Qt::TabFocusReason);
        desk.focus(u"a1"_qs);
        opened->activateWindow();
        QTRY_VERIFY(header->hasFocus());
        for (const QString& operation : {u"dock x a bottom"_qs, u"undock x, settle"_qs}) {
            desk.play(operation);
            QTRY_VERIFY(header->hasFocus());
        }
        DockableWindow* first = Desk::panelWithFields(u"y"_qs);
        first->dockInArea(Desk::panelWithFields(u"z"_qs), Area::Center)->activateWindow();
        QTRY_COMPARE(Desk::focused(), u"z1"_qs); // rather than its tab
    }

    void theMenuKeyOpensTheMenuBelowTheTitle()
    {
        Desk desk;
        QWidget* plain = addField<QWidget>(*desk.b, u"plain"_qs); // without a menu of its own
        desk.play(u"dock bare a top, settle"_qs);
        QWidget* header = desk["bare"]->header();
        QWidget* tab = desk.rowOfTabs->tabAt(0);
        for (const auto& [focus, title] : {std::pair(header, header), {tab, tab}, {plain, tab}}) {
            focus->setFocus(Qt::TabFocusReason);
            for (const bool byMenuKey : {true, false}) {
                const SeenMenu menu = desk.menuDuring([byMenuKey] {
                    byMenuKey ? pressMenuKey() : Desk::press(Qt::Key_F10, Qt::ShiftModifier);
                });
                QCOMPARE(menu.texts.join(u','), u"Undock,Show,Close"_qs);
                QCOMPARE(menu.place, title->mapToGlobal(title->rect().bottomLeft()));
                QCOMPARE(focus->window()->focusWidget(), focus);
                focus->activateWindow(); // as any system does by itself but off screen
                QTRY_VERIFY(focus->hasFocus());
            }
        }
        // The mouse's own request is none of the panel's business.
        const SeenMenu none = desk.menuDuring([&] {
            QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {}, plain->mapToGlobal(QPoint()));
            QCoreApplication::sendEvent(plain, &byMouse);
        });
        QVERIFY(none.texts.isEmpty());
    }

    void theFocusStaysThroughEveryOperation_data()
    {
        QTest::addColumn<QString>("operations");
        QStringList all = u"undock a|dock a ^b center, undock a, dock a root left|"
                          "dock e a top, collapse ^a|dock a e top, collapse ^a|select c|"
                          "close d, shut e|close b|header|tabs|menu|drag"_qs.split(u'|');
        for (const char* const area : {"right", "top", "left", "bottom", "center"}) {
            for (const QString& dock : {u"dock a d "_qs, u"dock a e "_qs, u"dock a root "_qs}) {
                all << dock + QLatin1String(area);
            }
            all << u"dock e a "_qs + QLatin1String(area);
        }
        all.removeLast(); // in front of it
        for (const QString& operations : std::as_const(all)) {
            QTest::newRow(qPrintable(operations)) << operations;
        }
    }

    void theFocusStaysThroughEveryOperation()
    {
        QFETCH(QString, operations);
        Desk desk;
        desk.focus(u"a2"_qs);
        if (operations == u"header") { // replaced and hidden
            desk.a->setHeader(new DockableTabHeader);
            desk.a->setHeaderVisible(false);
        } else if (operations == u"tabs") { // away and back
            desk.play(u"dock e a center, select a"_qs);
            desk.focus(u"a2"_qs);
            desk.play(u"select e"_qs);
            QTRY_COMPARE(Desk::focused(), u"e1"_qs);
            desk.play(u"select a"_qs);
        } else if (operations == u"menu") {
            desk.menuDuring([&] {
                QContextMenuEvent event(QContextMenuEvent::Mouse, {}, QPoint(50, 50));
                QCoreApplication::sendEvent(desk.d->header(), &event);
            });
            desk.root().activateWindow(); // as any system does by itself but off screen
        } else if (operations == u"drag") {
            desk.hand.press(*desk.a->header(), desk.a->header()->rect().center());
            desk.hand.moveTo(zoneOf(*desk.d, Area::Right), 6);
            desk.hand.moveTo(zoneOf(*desk.d, Area::Right));
            desk.hand.release();
            QCOMPARE(desk.text(), u"H(T(b c) H(d a)) e"_qs);
        } else {
            desk.play(operations);
        }
        settle();
        QTRY_COMPARE(Desk::focused(), u"a2"_qs);
        QVERIFY(QApplication::focusWidget()->isVisible());
    }

    /// When what has the focus disappears.
    void theFocusIsNeverLeftBehind()
    {
        Desk desk;
        desk.play(u"dock e a center"_qs);
        QTRY_COMPARE(Desk::focused(), u"e1"_qs);
        desk.play(u"close e, settle"_qs);
        const auto inSight = [] {
            const QWidget* focus = QApplication::focusWidget();
            return focus && focus->isVisible();
        };
        QTRY_VERIFY(inSight());
        desk.focus(u"b1"_qs);
        Desk::press(Qt::Key_Tab, Qt::ShiftModifier);
        desk.play(u"close b, settle"_qs);
        QTRY_VERIFY(inSight());
    }
};

const ui::test::Registration<PanelNavigationTest> kRegistration;
#include "tst_panelnavigation.moc"

#include "CommandPalette.h"
#include "LayerTree.h"
#include "studiotest.h"

#include <QContextMenuEvent>
#include <QMenuBar>

using namespace studio;

namespace {

struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        openFile(samplePaths().first());
        studio::test::showActive(*this);
    }
};

QAction* actionOf(StudioWindow& window, const QString& text)
{
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->text() == text) {
            return action;
        }
    }
    return nullptr;
}

QStringList shownRows(const QMenu& menu)
{
    QStringList rows;
    for (const QAction* row : menu.actions()) {
        if (row->isVisible() && !row->isSeparator()) {
            rows.append(row->text() + (row->isEnabled() ? QString() : u" -"_qs));
        }
    }
    return rows;
}

/// The texts of the menu that a widget's context menu key opens, which is closed again.
QStringList rowsOfMenuAt(QWidget& widget)
{
    const QPoint point(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, point, widget.mapToGlobal(point));
    QApplication::sendEvent(&widget, &event);
    auto* menu = qobject_cast<ContextMenu*>(QApplication::activePopupWidget());
    const QStringList rows = menu ? shownRows(*menu) : QStringList();
    if (menu) {
        menu->close();
    }
    studio::test::settle();
    return rows;
}

} // namespace

/// Context menus, and the list of all commands.
class PaletteTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void typingFindsACommandAndReturnRunsIt()
    {
        OpenWindow window;
        auto* palette = window.findChild<CommandPalette*>();
        const auto open = [&] {
            QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
            QVERIFY(palette->isVisible());
        };
        open();
        QVERIFY(shownRows(*palette).contains(u"File: Open…\tCtrl+O"_qs));
        QVERIFY(shownRows(*palette).contains(u"Edit: Undo\tCtrl+Z -"_qs));
        QTest::keyClicks(palette, u"light back"_qs); // words in any order
        QCOMPARE(
            shownRows(*palette), (QStringList{u"light back -"_qs, u"View: Backdrop: Light"_qs}));
        QTest::keyClick(palette, Qt::Key_Return);
        QVERIFY(!palette->isVisible());
        QVERIFY(actionOf(window, u"&Light"_qs)->isChecked());

        window.viewport().setFocus();
        open();
        QTest::keyClicks(palette, u"zz"_qs);
        QCOMPARE(shownRows(*palette), QStringList{u"zz -"_qs});
        QTest::keyClick(palette, Qt::Key_Return); // there is nothing to run
        QTest::keyClick(palette, Qt::Key_Backspace);
        QTest::keyClick(palette, Qt::Key_Backspace);
        QVERIFY(shownRows(*palette).size() > 20);
        QTest::keyClick(palette, Qt::Key_Escape);
        QVERIFY(!palette->isVisible() && window.viewport().hasFocus());
    }

    void theRowsFollowTheirActionsWhileTheListIsOpen()
    {
        OpenWindow window;
        QAction* const own = window.menuBar()->actions().first()->menu()->addAction(u"A && B"_qs);
        QAction* const palettes = actionOf(window, u"&Command Palette…"_qs);
        palettes->trigger();
        auto* palette = window.findChild<CommandPalette*>();
        QTest::keyClicks(palette, u"a & "_qs);
        QCOMPARE(shownRows(*palette).at(1), u"File: A && B"_qs);
        own->setText(u"A & &C"_qs);
        own->setEnabled(false);
        QCOMPARE(shownRows(*palette), QStringList{u"a && "_qs + u" -"_qs});
        QTest::keyClick(palette, Qt::Key_Backspace);
        QTest::keyClick(palette, Qt::Key_Backspace);
        QVERIFY(shownRows(*palette).contains(u"File: A  C -"_qs));
        delete own;
        studio::test::settle();
        QVERIFY(!shownRows(*palette).contains(u"File: A  C -"_qs));
        palette->close();

        window.setGalleryShown(true); // whose menu is disabled as a whole
        palettes->trigger();
        QTest::keyClicks(palette, u"rename"_qs);
        QCOMPARE(shownRows(*palette).at(1), u"Layer: Rename\tF2 -"_qs);
        palette->close();
    }

    void everyPanelHasAMenu()
    {
        OpenWindow window;
        window.selectLayer(0);
        window.viewport().setFocus();
        QCOMPARE(rowsOfMenuAt(window.viewport()).last(), u"&Backdrop"_qs);
        QCOMPARE(rowsOfMenuAt(*window.findChild<LayerTree*>()).first(), u"&Rename"_qs);
        for (const Workspace::Panel& panel : window.workspace().panels()) {
            window.workspace().setPanelOpen(panel.id, true);
            QVERIFY2(rowsOfMenuAt(*panel.content).size() > 1, qUtf8Printable(panel.id));
        }
    }
};

const ui::test::Registration<PaletteTest> kRegistration;

#include "tst_palette.moc"

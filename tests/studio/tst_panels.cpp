// SPDX-License-Identifier: Apache-2.0
#include "DocumentTabs.h"
#include "LayerTree.h"
#include "studiotest.h"
#include <MorrantUI/menus/CommandPalette.h>
#include <MorrantUI/text/PlainTextEdit.h>

using namespace studio;

namespace {

/// A document of a hundred frames, ten a second.
struct OpenWindow : StudioWindow
{
    OpenWindow()
    {
        open();
        studio::test::showActive(*this);
    }

    void open()
    {
        const Document document = studio::test::documentOf(studio::test::layer(R"("ty":3)"));
        openDocument(std::make_shared<Document>(document), u"untitled"_qs);
    }

    PlainTextEdit& notes() { return *findChild<PlainTextEdit*>(); }
};

/// Disabled ones with a minus sign.
QStringList rowsOf(const QMenu& menu)
{
    QStringList rows;
    for (const QAction* row : menu.actions()) {
        if (row->isVisible() && !row->isSeparator()) {
            rows.append(row->text() + (row->isEnabled() ? QString() : u" -"_qs));
        }
    }
    return rows;
}

/// Of the menu that a key opens in a widget.
QStringList menuRowsAt(QWidget& widget)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&widget, &event);
    auto* menu = qobject_cast<ContextMenu*>(QApplication::activePopupWidget());
    const QStringList rows = menu ? rowsOf(*menu) : QStringList();
    if (menu) {
        menu->close();
    }
    return rows;
}

void type(QWidget& field, const QString& text)
{
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, text);
}

} // namespace

/// Menus, the list of commands, and text fields of the studio's panels.
class PanelsTest : public studio::test::StudioTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyPanelHasAMenu()
    {
        OpenWindow window;
        QCOMPARE(menuRowsAt(window.viewport()).last(), u"&Backdrop"_qs);
        QCOMPARE(menuRowsAt(*window.findChild<LayerTree*>()).first(), u"&Rename -"_qs);
        for (const QString& panel : window.workspace().panels()) {
            window.workspace().setPanelOpen(panel, true);
            QWidget& content = *window.workspace().content(panel);
            QVERIFY2(menuRowsAt(content).size() > 1, qUtf8Printable(panel));
        }
    }

    void thePaletteRunsTheMenuBarsCommands()
    {
        OpenWindow window;
        QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        auto& palette = *window.findChild<CommandPalette*>();
        QVERIFY(rowsOf(palette).contains(u"Edit: Undo\tCtrl+Z -"_qs));
        QTest::keyClicks(&palette, u"sample bounc"_qs);
        QCOMPARE(rowsOf(palette).at(1), u"File: Open Sample: bounce"_qs);
        QTest::keyClick(&palette, Qt::Key_Return);
        QCOMPARE(window.documents().count(), 2);
    }

    void notesBelongToTheirDocumentAndAnEditIsOneStep()
    {
        OpenWindow window;
        window.workspace().setPanelOpen(u"notes"_qs, true);
        type(window.notes(), u"one"_qs);
        QTest::keyClick(&window.notes(), Qt::Key_Return);
        window.notes().moveCursor(QTextCursor::End);
        type(window.notes(), u" two"_qs);
        window.open(); // before anything else has taken over what was typed
        QCOMPARE(window.notes().toPlainText(), QString());
        QVERIFY(!window.editor().canUndo());

        window.documents().setTab(0);
        QCOMPARE(window.notes().toPlainText(), u"one two"_qs);
        window.notes().setFocus();
        for (const QString& text : {u"one"_qs, QString()}) {
            QTest::keyClick(&window.notes(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(window.notes().toPlainText(), text);
            QCOMPARE(window.document()->notes, text);
        }
    }
};

const ui::test::Registration<PanelsTest> kRegistration;

#include "tst_panels.moc"

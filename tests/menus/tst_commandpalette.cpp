// SPDX-License-Identifier: Apache-2.0
#include "controls/StyledApplication.h"
#include <MorrantUI/menus/CommandPalette.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/colors.h>

namespace {

/// A window with a menu bar and a field that has the focus, and the list of its commands.
struct Host
{
    Host()
    {
        window.setCentralWidget(field);
        open->setShortcut(Qt::CTRL | Qt::Key_O);
        file->addMenu(recent);
        field->setFocus();
        ui::test::showActive(window);
    }

    /// Types and tells which rows are left; disabled ones have a minus sign.
    QString rowsAfter(const QString& typed)
    {
        palette.isVisible() ? void() : palette.openOver(window);
        QTest::keyClicks(&palette, typed);
        QStringList texts;
        for (const QAction* row : palette.actions().mid(1)) { // behind the prompt
            if (row->isVisible() && !row->isSeparator()) {
                texts.append(row->text() + (row->isEnabled() ? QString() : u" -"_qs));
            }
        }
        return texts.join(u", "_qs);
    }

    QMainWindow window;
    QLineEdit* field = new QLineEdit(&window);
    QMenu* file = window.menuBar()->addMenu(u"&File"_qs);
    QAction* again = file->addAction(u"Reopen"_qs);
    QAction* open = file->addAction(u"&Open"_qs);
    QMenu* recent = new QMenu(u"&Recent"_qs, file);
    QAction* both = recent->addAction(u"S && &P"_qs);
    CommandPalette palette{window.menuBar()};
    QSignalSpy opened{open, &QAction::triggered};
};

} // namespace

/// What hosts get for their menus: the list of commands, and shortcuts that float along.
class CommandPaletteTest : public ui::test::StyledTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void wordsFindACommandWhichReturnRuns()
    {
        Host host;
        QCOMPARE(host.rowsAfter({}), u"File: Reopen, File: Open\tCtrl+O, File: Recent: S && P"_qs);
        QCOMPARE(host.rowsAfter(u"en FI ope"_qs), u"File: Open\tCtrl+O, File: Reopen"_qs);
        const auto isAccented = [&, accent = ui::colorQt(u"Accent1"_qs)](int row) {
            const QRect place = host.palette.actionGeometry(host.palette.actions().at(row));
            const QImage image = host.palette.grab(place).toImage();
            bool found = false;
            for (int i = 0; i < image.width() * image.height() && !found; ++i) {
                const QColor pixel = image.pixelColor(i % image.width(), i / image.width());
                found = ui::test::closeTo(pixel, accent, 8);
            }
            return found;
        };
        QVERIFY(isAccented(0)); // what was typed, although that row cannot be chosen
        QVERIFY(isAccented(3)); // the letters in a row that is not the active one
        QTest::keyClick(&host.palette, Qt::Key_Return);
        QVERIFY(!host.palette.isVisible() && host.field->hasFocus() && host.opened.size() == 1);
        QCOMPARE(host.rowsAfter(u"z"_qs), u"No command found -"_qs);
        QTest::keyClick(&host.palette, Qt::Key_Backspace);
        QTest::keyClick(&host.palette, Qt::Key_Backspace, Qt::ControlModifier); // nothing is left
        QGuiApplication::clipboard()->setText(u" s\n"_qs);
        QTest::keyClick(&host.palette, Qt::Key_V, Qt::ControlModifier);
        QVERIFY(host.rowsAfter({}).contains(u"S && P"_qs));

        host.palette.close();
        for (int i = 0; i < 90; ++i) { // more than the screen holds
            host.file->addAction(u"Item %1"_qs.arg(i));
        }
        host.rowsAfter({});
        const int above = host.palette.y();
        QVERIFY(above >= host.window.mapToGlobal(QPoint()).y());
        host.rowsAfter(u"reop"_qs);
        const QRect typed = host.palette.actionGeometry(host.palette.actions().first());
        QVERIFY(host.palette.y() == above && typed.top() > 0);
        const int screen = host.window.screen()->geometry().bottom();
        QTest::keyClick(&host.palette, Qt::Key_Backspace, Qt::ControlModifier);
        QVERIFY(host.palette.y() == above && host.palette.geometry().bottom() <= screen);
        host.rowsAfter(u"reop"_qs);
        QEvent left(QEvent::Leave);
        QCoreApplication::sendEvent(&host.palette, &left); // the list has shrunk away
        QTest::mouseMove(&host.palette, QPoint(-9, 5));
        QTRY_COMPARE(host.palette.activeAction()->text(), u"File: Reopen"_qs);
    }

    void rowsFollowTheirActionsAndMenusWhichMayDie()
    {
        Host host;
        host.rowsAfter(u"rec &"_qs);
        host.both->setText(u"S && &Q"_qs);
        host.file->menuAction()->setEnabled(false);
        QCOMPARE(host.rowsAfter({}), u"File: Recent: S && Q -"_qs);
        delete host.recent;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::keyClick(&host.palette, Qt::Key_Backspace);
        QCOMPARE(host.rowsAfter({}), u"No command found -"_qs);
        host.palette.close();
        host.file->menuAction()->setVisible(false);
        QCOMPARE(host.rowsAfter({}), u"No command found -"_qs);
        host.palette.close();
        delete host.window.menuBar();
        QCOMPARE(host.rowsAfter({}), u"No command found -"_qs);
    }

    void shortcutsFloatAlongButNotIntoDialogs()
    {
        Host host;
        ui::shareShortcuts(*host.window.menuBar());
        for (const auto type : {Qt::Window, Qt::Dialog}) {
            QWidget other(&host.window, type);
            other.show();
            other.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &other);
            QTest::keyClick(other.windowHandle(), Qt::Key_O, Qt::ControlModifier);
            QCOMPARE(host.opened.size(), 1);
        }
    }
};

const ui::test::Registration<CommandPaletteTest> kRegistration;

#include "tst_commandpalette.moc"

#include "controls/StyledApplication.h"
#include "support/TestCase.h"
#include <MorrantUI/menus/CommandPalette.h>
#include <MorrantUI/menus/hostmenus.h>

#include <QtWidgets>

namespace {

/// A window with a menu bar and a field that has the focus, and the list of its commands.
struct Host
{
    Host()
    {
        window.setCentralWidget(field);
        open->setShortcut(Qt::CTRL | Qt::Key_O);
        file->addSeparator();
        file->addMenu(recent);
        field->setFocus();
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        palette.leaveOut(left);
    }

    /// Disabled ones with a minus sign.
    QStringList rowsAfter(const QString& typed = {})
    {
        palette.openOver(window);
        QTest::keyClicks(&palette, typed);
        return rows();
    }
    QStringList rows() const
    {
        QStringList texts;
        for (const QAction* row : palette.actions()) {
            if (row->isVisible() && !row->isSeparator()) {
                texts.append(row->text() + (row->isEnabled() ? QString() : u" -"_qs));
            }
        }
        return texts.mid(1); // the prompt
    }

    QMainWindow window;
    QLineEdit* field = new QLineEdit(&window);
    QMenu* file = window.menuBar()->addMenu(u"&File"_qs);
    QAction* open = file->addAction(u"&Open\u2026"_qs);
    QAction* left = file->addAction(u"Left out"_qs);
    QMenu* recent = new QMenu(u"&Recent"_qs, file);
    QAction* both = recent->addAction(u"S && &P"_qs);
    CommandPalette palette{window.menuBar()};
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
        QSignalSpy triggered(host.open, &QAction::triggered);
        QCOMPARE(
            host.rowsAfter(),
            (QStringList{u"File: Open\u2026\tCtrl+O"_qs, u"File: Recent: S && P"_qs}));
        QTest::keyClicks(&host.palette, u"en FI"_qs);
        QCOMPARE(host.rows().size(), 2); // "Recent" as well
        QTest::keyClicks(&host.palette, u" ope"_qs);
        QTest::keyClick(&host.palette, Qt::Key_Return);
        QVERIFY(!host.palette.isVisible() && host.field->hasFocus());
        QCOMPARE(triggered.size(), 1);

        QCOMPARE(host.rowsAfter(u"zz"_qs), QStringList());
        QTest::keyClick(&host.palette, Qt::Key_Backspace);
        QTest::keyClick(&host.palette, Qt::Key_Backspace);
        QTest::keyClick(&host.palette, Qt::Key_Backspace); // nothing is left to take away
        QCOMPARE(host.rows().size(), 2);
        QTest::keyClick(&host.palette, Qt::Key_Escape);
        QVERIFY(!host.palette.isVisible() && host.field->hasFocus());
    }

    void rowsFollowTheirActionsAndMenusWhichMayDie()
    {
        Host host;
        QCOMPARE(host.rowsAfter(u"rec &"_qs), QStringList{u"File: Recent: S && P"_qs});
        host.both->setText(u"S && &Q"_qs);
        host.file->menuAction()->setEnabled(false);
        QCOMPARE(host.rows(), QStringList{u"File: Recent: S && Q -"_qs});
        delete host.both;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(host.rows(), QStringList());
        delete host.recent;
        QTest::keyClick(&host.palette, Qt::Key_Backspace);
        host.palette.close();
        delete host.window.menuBar();
        QCOMPARE(host.rowsAfter(), QStringList());
    }

    void shortcutsFloatAlongButNotIntoDialogs()
    {
        Host host;
        ui::shareShortcuts(*host.window.menuBar());
        QSignalSpy triggered(host.open, &QAction::triggered);
        for (const auto& [type, count] : {std::pair(Qt::Window, 1), {Qt::Dialog, 1}}) {
            QWidget other(&host.window, type);
            other.show();
            other.activateWindow();
            QTRY_COMPARE(QApplication::activeWindow(), &other);
            QTest::keyClick(other.windowHandle(), Qt::Key_O, Qt::ControlModifier);
            QCOMPARE(triggered.size(), count);
        }
    }

    void theLastOfferOfAContextMenuCounts()
    {
        QWidget widget;
        QStringList filled;
        for (const QString& name : {u"first"_qs, u"second"_qs}) {
            ui::offerContextMenu(widget, [&filled, name](ContextMenu&, QPoint) { filled += name; });
        }
        Q_EMIT widget.customContextMenuRequested({});
        QCOMPARE(filled, QStringList{u"second"_qs});
        QVERIFY(!QApplication::activePopupWidget()); // it had no rows
    }
};

const ui::test::Registration<CommandPaletteTest> kRegistration;

#include "tst_commandpalette.moc"

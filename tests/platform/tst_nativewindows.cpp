#include "Desktop.h"
#include "support/TestCase.h"
#include "support/paths.h"
#include <MorrantUI/platform/native.h>

#include <QApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QTemporaryFile>
#include <QWindow>

namespace native = morrant::native;

/// A main window on screen, a window of somebody else's above it, and a panel that belongs to it.
struct MainWindowWithPanel
{
    QWidget main;
    QWidget other;
    QWidget panel{&main, Qt::Window};

    MainWindowWithPanel()
    {
        main.resize(300, 200);
        panel.resize(100, 100);
        main.show();
        other.show(); // also because Wine never lets go of a window that has none above its owner
    }
};

class NativeWindowsTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNoWindowIsLeftAlone()
    {
        native::setDarkTitleBar(nullptr);
        native::setFloating(nullptr, true);
        native::activateWindow(nullptr);

        QWidget window;
        QWidget child(&window);
        QWidget sibling(&window);
        window.show();
        native::setDarkTitleBar(&child);
        native::setFloating(&child, true);
        native::activateWindow(&child);
        QVERIFY(!child.internalWinId());
        QVERIFY(!sibling.internalWinId());
        QVERIFY(!m_desktop.isAlwaysOnTop(window));
        QVERIFY(!m_desktop.hasDarkTitleBar(window));
    }

    void aTitleBarTurnsDarkWhenItsWindowFirstShows()
    {
        QWidget window;
        native::setDarkTitleBar(&window);
        QVERIFY(!window.internalWinId());

        window.show();
        QCOMPARE(m_desktop.hasDarkTitleBar(window), m_desktop.showsTitleBars());

        QWidget shown;
        shown.show();
        QVERIFY(!m_desktop.hasDarkTitleBar(shown));
        native::setDarkTitleBar(&shown);
        QCOMPARE(m_desktop.hasDarkTitleBar(shown), m_desktop.showsTitleBars());
    }

    void aDarkTitleBarOutlivesItsNativeWindow()
    {
        QWidget parent;
        QWidget window;
        native::setDarkTitleBar(&window);
        window.show();

        window.setParent(&parent); // docked: the native window goes
        window.setParent(nullptr);
        window.show();
        QCOMPARE(m_desktop.hasDarkTitleBar(window), m_desktop.showsTitleBars());
    }

    void aDarkTitleBarOutlivesAChangeOfColors()
    {
        QWidget window;
        native::setDarkTitleBar(&window);
        window.show();

        const QPalette before = QApplication::palette();
        QPalette other = before;
        other.setColor(QPalette::Window, Qt::darkGray);
        m_desktop.makeTitleBarLight(window);
        QApplication::setPalette(other);
        QTRY_COMPARE(m_desktop.hasDarkTitleBar(window), m_desktop.showsTitleBars());
        QApplication::setPalette(before);

        // The user chooses other colours for the system and comes back.
        QWidget settings;
        native::activateWindow(&settings);
        QTRY_VERIFY(settings.isActiveWindow());
        m_desktop.makeTitleBarLight(window);
        native::activateWindow(&window);
        QTRY_COMPARE(m_desktop.hasDarkTitleBar(window), m_desktop.showsTitleBars());
    }

    void aFloatingWindowLiesAboveAllAndBelongsToItsParent()
    {
        MainWindowWithPanel windows;
        const Qt::WindowFlags flags = windows.panel.windowFlags();
        native::setFloating(&windows.panel, true);
        QVERIFY(!windows.panel.isVisible());

        windows.panel.show();
        QCOMPARE(m_desktop.isAlwaysOnTop(windows.panel), m_desktop.isReal());
        QTRY_COMPARE(m_desktop.isOwnedBy(windows.panel, windows.main), m_desktop.isReal());
        QCOMPARE(windows.panel.windowHandle()->transientParent(), windows.main.windowHandle());

        native::setFloating(&windows.panel, false);
        QVERIFY(!m_desktop.isAlwaysOnTop(windows.panel));
        QCOMPARE(m_desktop.isOwnedBy(windows.panel, windows.main), m_desktop.isReal());

        native::setFloating(&windows.panel, true);
        native::setFloating(&windows.panel, true);
        QCOMPARE(m_desktop.isAlwaysOnTop(windows.panel), m_desktop.isReal());
        QVERIFY(!m_desktop.isAlwaysOnTop(windows.main));
        QCOMPARE(windows.panel.windowFlags(), flags);
    }

    void aWindowMayAskToFloatAsItIsShown()
    {
        class Asking : public QWidget
        {
        public:
            using QWidget::QWidget;

        protected:
            void showEvent(QShowEvent* /*event*/) override { native::setFloating(this, true); }
        };
        QWidget main;
        Asking panel(&main, Qt::Window);
        main.show();
        panel.show();
        QTRY_COMPARE(m_desktop.isOwnedBy(panel, main), m_desktop.isReal());
        QVERIFY(m_desktop.isAlwaysOnTop(panel) == m_desktop.isReal());
    }

    void aWindowThatNoLongerFloatsLiesJustAboveItsParent()
    {
        MainWindowWithPanel windows;
        native::setFloating(&windows.panel, true);
        windows.panel.show();
        const QList<const QWidget*> floating{&windows.panel, &windows.other, &windows.main};
        const QList<const QWidget*> ordinary{&windows.other, &windows.panel, &windows.main};
        const bool seen = !m_desktop.stacked(floating).isEmpty();
        QCOMPARE(m_desktop.stacked(ordinary), seen ? floating : QList<const QWidget*>());

        native::setFloating(&windows.panel, false);
        QCOMPARE(m_desktop.stacked(floating), seen ? ordinary : QList<const QWidget*>());
    }

    void aWindowFloatsAgainAfterItWasDocked()
    {
        MainWindowWithPanel windows;
        native::setFloating(&windows.panel, true);
        windows.panel.show();

        windows.panel.setParent(&windows.main);
        windows.panel.show();
        QVERIFY(!m_desktop.isAlwaysOnTop(windows.main));

        windows.panel.setParent(&windows.main, Qt::Window);
        windows.panel.show();
        QCOMPARE(m_desktop.isAlwaysOnTop(windows.panel), m_desktop.isReal());
        QTRY_COMPARE(m_desktop.isOwnedBy(windows.panel, windows.main), m_desktop.isReal());
    }

    void aFloatingWindowDoesNotCoverAModalDialog_data()
    {
        QTest::addColumn<Qt::WindowModality>("modality");

        QTest::newRow("of all windows") << Qt::ApplicationModal;
        QTest::newRow("of its parent") << Qt::WindowModal;
    }

    void aFloatingWindowDoesNotCoverAModalDialog()
    {
        QFETCH(const Qt::WindowModality, modality);
        MainWindowWithPanel windows;
        native::setFloating(&windows.panel, true);
        windows.panel.show();
        QWidget late(&windows.main, Qt::Window);
        late.show();

        QDialog dialog(&windows.main);
        dialog.setWindowModality(modality);
        QWidget tool(&dialog, Qt::Tool);
        tool.show();
        dialog.show();
        QVERIFY(!m_desktop.isAlwaysOnTop(windows.panel));
        native::setFloating(&late, true);
        QVERIFY(!m_desktop.isAlwaysOnTop(late));
        native::setFloating(&windows.other, true);
        const bool blocksAll = modality == Qt::ApplicationModal;
        QCOMPARE(m_desktop.isAlwaysOnTop(windows.other), m_desktop.isReal() && !blocksAll);
        native::setFloating(&tool, true);
        QCOMPARE(m_desktop.isAlwaysOnTop(tool), m_desktop.isReal());
        // As the host does when the user goes to another application and comes back.
        native::setFloating(&windows.panel, false);
        native::setFloating(&windows.panel, true);
        QVERIFY(!m_desktop.isAlwaysOnTop(windows.panel));

        dialog.close();
        for (const QWidget* window : {&windows.panel, &late, &windows.other}) {
            QCOMPARE(m_desktop.isAlwaysOnTop(*window), m_desktop.isReal());
        }
    }

    void activationBringsAMinimisedWindowBack()
    {
        QWidget other;
        QWidget window;
        window.showMaximized();
        other.show();
        window.setWindowState(window.windowState() | Qt::WindowMinimized);

        native::activateWindow(&window);
        QVERIFY(window.isVisible());
        QVERIFY(!window.isMinimized());
        QVERIFY(window.isMaximized());
        QTRY_VERIFY(window.isActiveWindow());
    }

    void theFontsOfAFileCanBeUsedOnceItIsRegistered()
    {
        const QString file =
            ui::test::dataPath(QStringLiteral("theme")) + QStringLiteral("/MorrantTest.ttf");
        const QStringList before = QFontDatabase::families();

        QVERIFY(native::registerFontFile(file.toStdString()));
        const QStringList after = QFontDatabase::families();
        QCOMPARE(after.size(), before.size() + 1);

        // Qt would count another registration under another number.
        QVERIFY(native::registerFontFile(file.toStdString()));
        QVERIFY(QFontDatabase::applicationFontFamilies(1).isEmpty());

        QFontDatabase::removeAllApplicationFonts();
        QVERIFY(native::registerFontFile(file.toStdString()));
        QCOMPARE(QFontDatabase::families(), after);
    }

    void whatIsNoFontFileIsRefused()
    {
        QTemporaryFile text;
        QVERIFY(text.open());
        text.write("not a font");
        text.close();

        QVERIFY(!native::registerFontFile(text.fileName().toStdString()));
        QVERIFY(!native::registerFontFile("fonts:none.ttf"));
        QVERIFY(!native::registerFontFile(""));
    }

private:
    ui::test::Desktop m_desktop;
};

const ui::test::Registration<NativeWindowsTest> kRegistration;

#include "tst_nativewindows.moc"

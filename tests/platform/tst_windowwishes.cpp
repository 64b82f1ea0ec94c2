// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/WindowWishes.h"
#include "MorrantUI/platform/windowsystem.h"
#include "support/TestCase.h"

using morrant::native::WindowWishes;

namespace {

QStringList& recorded()
{
    static QStringList calls;
    return calls;
}

/// What has been asked of the window system since the last time, each request once.
QStringList takeCalls()
{
    recorded().removeDuplicates();
    return std::exchange(recorded(), {});
}

} // namespace

/// A window system that only takes notes.
namespace morrant::native::system {

void setDarkTitleBar(QWindow& window)
{
    recorded() << u"dark "_qs + window.title();
}

void setOwner(QWindow& window, QWindow& owner)
{
    recorded() << window.title() + u" below "_qs + owner.title();
}

void setAlwaysOnTop(QWindow& window, bool on)
{
    recorded() << window.title() + (on ? u" floats"_qs : u" rests"_qs);
}

} // namespace morrant::native::system

namespace {

/// A main window on screen, somebody else's window, and a panel that belongs to the main window.
struct Windows
{
    QWidget main;
    QWidget other;
    QWidget panel{&main, Qt::Window};
    WindowWishes& wishes = WindowWishes::of(panel);

    Windows()
    {
        main.setWindowTitle(u"main"_qs);
        other.setWindowTitle(u"other"_qs);
        panel.setWindowTitle(u"panel"_qs);
        main.show();
        other.show();
        QCoreApplication::processEvents();
        takeCalls();
    }
};

} // namespace

class WindowWishesTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aWishWaitsForTheNativeWindowAndOutlivesIt()
    {
        Windows windows;
        windows.wishes.setDarkTitleBar();
        windows.wishes.setFloating(true);
        QCOMPARE(takeCalls(), QStringList());
        QVERIFY(!windows.panel.internalWinId());
        for (int round = 0; round < 2; ++round) {
            const Qt::WindowFlags flags = windows.panel.windowFlags();
            windows.panel.show();
            QCOMPARE(
                takeCalls(),
                (QStringList{u"dark panel"_qs, u"panel below main"_qs, u"panel floats"_qs}));
            const QWindow* window = windows.panel.windowHandle();
            QCOMPARE(window->transientParent(), windows.main.windowHandle());
            QCOMPARE(windows.panel.windowFlags(), flags);
            QCoreApplication::processEvents(); // when Qt may have dropped the owner again
            QVERIFY(takeCalls().contains(u"panel below main"_qs));

            windows.panel.setParent(&windows.main); // docked: the native window goes
            windows.panel.show();
            QCoreApplication::processEvents();
            QCOMPARE(takeCalls(), QStringList());
            windows.panel.setParent(&windows.main, Qt::Window);
        }
    }

    void onlyWhatIsWishedIsAskedFor()
    {
        Windows windows;
        windows.wishes.setDarkTitleBar();
        windows.panel.show();
        QCoreApplication::processEvents();
        QCOMPARE(takeCalls(), QStringList(u"dark panel"_qs));
        windows.wishes.setFloating(false);
        QCOMPARE(takeCalls(), QStringList(u"panel rests"_qs));
    }

    void aDarkBarIsAskedForAgainWhenColorsMayHaveChanged()
    {
        Windows windows;
        windows.wishes.setDarkTitleBar();
        windows.panel.show();
        QCoreApplication::processEvents();
        for (const auto change : {QEvent::ApplicationPaletteChange, QEvent::WindowActivate}) {
            takeCalls();
            QEvent event(change);
            QCoreApplication::sendEvent(&windows.panel, &event);
            QCOMPARE(takeCalls(), QStringList(u"dark panel"_qs));
        }
    }

    void aFloatingWindowDoesNotCoverAModalDialog()
    {
        for (const auto modality : {Qt::ApplicationModal, Qt::WindowModal}) {
            Windows windows;
            windows.wishes.setFloating(true);
            windows.panel.show();
            QDialog dialog(&windows.main);
            dialog.setWindowModality(modality);
            QWidget tool(&dialog, Qt::Tool);
            tool.setWindowTitle(u"tool"_qs);
            tool.show();
            dialog.show();
            QVERIFY(takeCalls().contains(u"panel rests"_qs));
            // As the host does when the user goes to another application and comes back.
            windows.wishes.setFloating(false);
            windows.wishes.setFloating(true);
            QVERIFY(!takeCalls().contains(u"panel floats"_qs));
            WindowWishes::of(windows.other).setFloating(true);
            const bool isBlocked = modality == Qt::ApplicationModal;
            QCOMPARE(takeCalls().last(), isBlocked ? u"other rests"_qs : u"other floats"_qs);
            WindowWishes::of(tool).setFloating(true);
            QCOMPARE(takeCalls().last(), u"tool floats"_qs);
            dialog.close();
            QVERIFY(takeCalls().contains(u"panel floats"_qs));
        }
    }
};

const ui::test::Registration<WindowWishesTest> kRegistration;

#include "tst_windowwishes.moc"

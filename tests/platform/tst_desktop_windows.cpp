// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/platform/native.h>

#include <windows.h>

namespace native = morrant::native;

namespace {

HWND handleOf(const QWidget& window)
{
    return reinterpret_cast<HWND>(window.internalWinId());
}

bool isAlwaysOnTop(const QWidget& window)
{
    return (GetWindowLongPtrW(handleOf(window), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
}

} // namespace

/// What reaches a real desktop.
class DesktopTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aFloatingWindowLiesAboveAllAndThenJustAboveItsOwner()
    {
        QWidget main;
        QWidget other;
        QWidget panel(&main, Qt::Window);
        main.show();
        other.show(); // also because Wine never lets go of a window that has none above its owner
        native::setDarkTitleBar(&panel);
        native::setFloating(&panel, true);
        panel.show();
        QVERIFY(isAlwaysOnTop(panel) && !isAlwaysOnTop(main));
        QTRY_COMPARE(GetWindow(handleOf(panel), GW_OWNER), handleOf(main));
        const auto stacked = [&] {
            QList<const QWidget*> found;
            for (HWND next = GetTopWindow(nullptr); next; next = GetWindow(next, GW_HWNDNEXT)) {
                for (const QWidget* window : {&main, &other, &panel}) {
                    if (handleOf(*window) == next) {
                        found << window;
                    }
                }
            }
            return found;
        };
        QCOMPARE(stacked(), (QList<const QWidget*>{&panel, &other, &main}));
        native::setFloating(&panel, false);
        QVERIFY(!isAlwaysOnTop(panel));
        QCOMPARE(GetWindow(handleOf(panel), GW_OWNER), handleOf(main));
        QCOMPARE(stacked(), (QList<const QWidget*>{&other, &panel, &main}));
    }
};

const ui::test::Registration<DesktopTest> kRegistration(ui::test::RunOrder::Normal, [] {
    return QGuiApplication::platformName() == u"windows";
});

#include "tst_desktop_windows.moc"

// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/platform/native.h>

namespace native = morrant::native;

class NativeTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNoWindowIsLeftAlone()
    {
        QWidget window;
        QWidget child(&window);
        QWidget sibling(&window);
        window.show();
        for (QWidget* widget : {static_cast<QWidget*>(nullptr), &child}) {
            native::setDarkTitleBar(widget);
            native::setFloating(widget, true);
            native::activateWindow(widget);
        }
        QVERIFY(!child.internalWinId() && !sibling.internalWinId());
    }

    void activationBringsAMinimisedWindowBack()
    {
        QWidget other;
        QWidget window;
        window.showMaximized();
        other.show();
        window.setWindowState(window.windowState() | Qt::WindowMinimized);
        native::activateWindow(&window);
        QVERIFY(window.isVisible() && window.isMaximized() && !window.isMinimized());
        QTRY_VERIFY(window.isActiveWindow());
    }

    void theFontsOfAFileCanBeUsedOnceItIsRegistered()
    {
        const std::string file =
            (ui::test::dataPath(u"theme"_qs) + u"/MorrantTest.ttf"_qs).toStdString();
        const qsizetype before = QFontDatabase::families().size();
        for (int round = 0; round < 2; ++round) {
            QVERIFY(native::registerFontFile(file) && native::registerFontFile(file));
            QCOMPARE(QFontDatabase::families().size(), before + 1);
            // Qt would count another registration under another number.
            QVERIFY(QFontDatabase::applicationFontFamilies(1).isEmpty());
            QFontDatabase::removeAllApplicationFonts();
        }
        QTemporaryFile text;
        QVERIFY(text.open() && text.write("not a font") > 0);
        text.close();
        for (const std::string& none : {text.fileName().toStdString(), std::string("fonts:no.ttf")})
        {
            QVERIFY(!native::registerFontFile(none));
        }
    }
};

const ui::test::Registration<NativeTest> kRegistration;

#include "tst_native.moc"

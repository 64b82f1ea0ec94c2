// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/native.h"

#include "MorrantUI/platform/WindowWishes.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QWidget>

namespace morrant::native {

void setDarkTitleBar(QWidget* window)
{
    if (window) {
        WindowWishes::of(*window).setDarkTitleBar();
    }
}

void setFloating(QWidget* window, bool floating)
{
    if (window && window->isWindow()) {
        WindowWishes::of(*window).setFloating(floating);
    }
}

void activateWindow(QWidget* window)
{
    if (!window || !window->isWindow()) {
        return;
    }
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->activateWindow();
}

bool registerFontFile(const std::string& utf8Path)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        return false;
    }
    static QHash<QString, int> registered; // file to Qt's number for it
    const QString file = QFileInfo(QString::fromStdString(utf8Path)).canonicalFilePath();
    if (file.isEmpty()) {
        return false;
    }
    // Asked for its families, since Qt forgets all fonts with the application or when told to.
    const auto known = registered.constFind(file);
    if (known != registered.cend()
        && !QFontDatabase::applicationFontFamilies(known.value()).isEmpty()) {
        return true;
    }
    const int id = QFontDatabase::addApplicationFont(file);
    registered.insert(file, id);
    return id != -1;
}

} // namespace morrant::native

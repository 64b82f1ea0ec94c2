// SPDX-License-Identifier: Apache-2.0
#include "SketchWindow.h"
#include "selfcheck.h"
#include <MorrantUI/platform/notifications.h>
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QStandardPaths>

/// sketchpad [--once]: draws a rosette; --once uses it without a user, for the tests.
int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Morrant"));
    QApplication::setApplicationName(QStringLiteral("sketchpad"));
    VisualDesignDark theme(QStringLiteral(ASSETS_DIR)); // lives as long as the application
    theme.applyAppStyle();
    registerWithNotificationServer();

    if (QApplication::arguments().contains(QStringLiteral("--once"))) {
        theme.setUsePointerLock(false); // pressed by the program, the pointer stays where it is
        return selfCheck() ? 0 : 1;
    }
    SketchWindow window(
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QStringLiteral("/layout.json"));
    window.show();
    return QApplication::exec();
}

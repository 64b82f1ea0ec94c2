// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "fuzzing.h"

#include <QApplication>

/// An application without a screen, in which no input makes Qt warn.
class QtHost
{
public:
    QtHost() { qInstallMessageHandler(abortOnWarning); }

private:
    static void abortOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        const bool ofThePlatform = text.startsWith(QLatin1String("This plugin does not support"))
                                   && !text.contains(QLatin1String("setParent"));
        check(type == QtDebugMsg || type == QtInfoMsg || ofThePlatform, qPrintable(text));
    }
    static int setUp()
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QApplication::setDesktopSettingsAware(false);
        return 1;
    }

    int m_argc = setUp();
    char m_name[5] = "fuzz";
    char* m_argv[2] = {m_name, nullptr};
    QApplication m_application{m_argc, m_argv};
};

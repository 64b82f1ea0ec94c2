// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Report.h"
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QFile>
#include <QString>

#include <cstdio>

/// The main function of a benchmark: an application, off screen unless told otherwise, and the
/// folder of the built assets. Without a theme in there it fails with a line on the error stream,
/// as an empty theme would be quick at everything.
template <typename Bench>
int benchWithAssets(int argc, char** argv, Bench&& bench)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ui::bench::Report report(argc, argv);
    QApplication::setDesktopSettingsAware(false);
    const QApplication app(argc, argv);
    const QString assets = QStringLiteral(MORRANT_ASSETS_DIR);
    if (!QFile::exists(assets + QStringLiteral("/Style/theme.json"))) {
        std::fprintf(stderr, "no theme in %s\n", qPrintable(assets));
        return 1;
    }
    bench(report, assets);
    return report.exitCode();
}

/// The same in our theme.
inline int benchWithTheme(int argc, char** argv, void (*bench)(ui::bench::Report& report))
{
    return benchWithAssets(argc, argv, [bench](ui::bench::Report& report, const QString& assets) {
        VisualDesignDark theme(assets);
        theme.applyAppStyle();
        bench(report);
    });
}

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Report.h"
#include <MorrantUI/theme/VisualDesignDark.h>

#include <QApplication>
#include <QFile>
#include <QString>

#include <cstdio>

/// The folder of the built assets; empty, with a line on the error stream, when it has no theme: an
/// empty theme would be quick at everything.
inline QString themeAssets()
{
    const QString assets = QStringLiteral(MORRANT_ASSETS_DIR);
    if (QFile::exists(assets + QStringLiteral("/Style/theme.json"))) {
        return assets;
    }
    std::fprintf(stderr, "no theme in %s\n", qPrintable(assets));
    return {};
}

/// The main function of a benchmark that needs nothing but an application in our theme.
inline int benchWithTheme(int argc, char** argv, void (*bench)(ui::bench::Report& report))
{
    ui::bench::Report report(argc, argv);
    QApplication::setDesktopSettingsAware(false);
    const QApplication app(argc, argv);
    const QString assets = themeAssets();
    if (assets.isEmpty()) {
        return 1;
    }
    VisualDesignDark theme(assets);
    theme.applyAppStyle();
    bench(report);
    return report.exitCode();
}

#pragma once

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

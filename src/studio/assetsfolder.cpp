// SPDX-License-Identifier: Apache-2.0
#include "assetsfolder.h"

#include <QDir>
#include <QFile>
#include <QtGlobal>

namespace studio {

QString findAssets(const QStringList& candidates)
{
    for (const QString& folder : candidates) {
        if (QFile::exists(folder + QStringLiteral("/Style/theme.json"))) {
            return QDir(folder).absolutePath();
        }
    }
    return {};
}

QStringList assetsCandidates(const QString& programFolder)
{
    QStringList folders;
    const QString wanted = qEnvironmentVariable("MORRANT_ASSETS");
    if (!wanted.isEmpty()) {
        folders.append(wanted);
    }
    folders.append(programFolder + QStringLiteral("/../assets"));
    folders.append(programFolder + QStringLiteral("/assets"));
    folders.append(programFolder + QStringLiteral("/../share/morrant-ui/assets"));
    return folders;
}

} // namespace studio

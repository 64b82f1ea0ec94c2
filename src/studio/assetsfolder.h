// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

namespace studio {

/// The first of the folders that holds a theme; empty when none does.
QString findAssets(const QStringList& candidates);

/// Where the studio's assets may lie, best first: what MORRANT_ASSETS names, then the places of a
/// build, of a portable folder and of an installation, as seen from the program.
QStringList assetsCandidates(const QString& programFolder);

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace studio {

/// Something the user can do.
struct Command
{
    QString text;
    QString icon; ///< name among the icons; may be empty
    QList<QKeySequence> keys;
    std::function<void()> run;
};

/// Adds actions that name their first key in their tool tips and answer their keys in the window.
QList<QAction*> addCommands(QMenu& menu, const std::vector<Command>& commands);

} // namespace studio

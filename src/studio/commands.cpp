// SPDX-License-Identifier: Apache-2.0
#include "commands.h"

#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace studio {

QList<QAction*> addCommands(QMenu& menu, const std::vector<Command>& commands)
{
    QList<QAction*> actions;
    for (const Command& command : commands) {
        QAction* action = menu.addAction(command.text, &menu, command.run);
        action->setShortcuts(command.keys);
        if (!command.icon.isEmpty()) {
            action->setIcon(ui::getCachedIcon(u"icons:%1.png"_qs.arg(command.icon)));
        }
        if (!command.keys.isEmpty()) {
            const QString key = command.keys.first().toString(QKeySequence::NativeText);
            action->setToolTip(QCoreApplication::translate("studio::Command", "%1 (%2)")
                                   .arg(action->toolTip(), key));
        }
        actions.append(action);
    }
    return actions;
}

} // namespace studio

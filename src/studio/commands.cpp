#include "commands.h"

#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/theme/icons.h>

#include <QAction>
#include <QCoreApplication>

#include <utility>

namespace studio {

QList<QAction*> addCommands(QMenu& menu, const std::vector<Command>& commands)
{
    QList<QAction*> actions;
    for (const Command& command : commands) {
        QAction* action = menu.addAction(command.text, &menu, command.run);
        action->setShortcuts(command.keys);
        action->setShortcutContext(Qt::ApplicationShortcut); // in floating panels too
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

QString menuText(QString text)
{
    return text.replace(u'&', u"&&"_qs);
}

QString plainText(const QString& menuText)
{
    QString text;
    for (qsizetype i = 0; i < menuText.size(); ++i) {
        i += menuText.at(i) == u'&' ? 1 : 0; // what follows one is written as it is
        text += i < menuText.size() ? QString(menuText.at(i)) : QString();
    }
    return text;
}

void offerContextMenu(QWidget& widget, FillMenu fill)
{
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(
        &widget,
        &QWidget::customContextMenuRequested,
        &widget,
        [&widget, fillMenu = std::move(fill)](QPoint point) {
            auto* menu = new ContextMenu(&widget);
            QObject::connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
            fillMenu(*menu, point);
            menu->isEmpty() ? menu->deleteLater() : menu->popup(widget.mapToGlobal(point));
        });
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "guide.h"
#include <MorrantUI/MorrantUI.h>

#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("host", text);
}

} // namespace

QMenu* menuChapter(QWidget* panel)
{
    // [menus]
    auto* menu = new ContextMenu(panel);
    auto* hide = new ContextMenuItemWidget(tr("Hide"), menu);           // a rich row is an action
    hide->setPixmap(QStringLiteral("icons:eye.png"));                   // by icon name
    QObject::connect(hide, &QAction::triggered, panel, &QWidget::hide); // with the menu closed
    RolloverButton* solo = hide->addSubAction(QStringLiteral("icons:solo.png"));
    hide->setStaysOpen(true); // its buttons leave the menu open
    // menu->exec(event->globalPos()) or menu->popup(…) shows it
    // [menus]
    solo->setToolTip(tr("Solo"));
    return menu;
}

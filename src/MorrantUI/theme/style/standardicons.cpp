// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/style/standardicons.h"

#include <MorrantUI/theme/icons.h>

namespace ui::style {

namespace {

QString iconName(QStyle::StandardPixmap picture, bool leftToRight)
{
    switch (picture) {
    case QStyle::SP_MessageBoxInformation: return QStringLiteral("messageInformation");
    case QStyle::SP_MessageBoxQuestion: return QStringLiteral("messageQuestion");
    case QStyle::SP_MessageBoxWarning: return QStringLiteral("messageWarning");
    case QStyle::SP_MessageBoxCritical: return QStringLiteral("messageCritical");
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirClosedIcon:
    case QStyle::SP_DirLinkIcon: return QStringLiteral("folder");
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DialogOpenButton: return QStringLiteral("open");
    case QStyle::SP_DirHomeIcon: return QStringLiteral("home");
    case QStyle::SP_FileIcon:
    case QStyle::SP_FileLinkIcon: return QStringLiteral("new");
    case QStyle::SP_DriveHDIcon:
    case QStyle::SP_DriveNetIcon:
    case QStyle::SP_ComputerIcon: return QStringLiteral("drive");
    case QStyle::SP_FileDialogToParent: return QStringLiteral("parentFolder");
    case QStyle::SP_FileDialogNewFolder: return QStringLiteral("newFolder");
    case QStyle::SP_FileDialogListView: return QStringLiteral("listView");
    case QStyle::SP_FileDialogDetailedView: return QStringLiteral("detailView");
    case QStyle::SP_FileDialogBack:
    case QStyle::SP_ArrowBack:
        return leftToRight ? QStringLiteral("arrowLeft") : QStringLiteral("arrowRight");
    case QStyle::SP_ArrowForward:
        return leftToRight ? QStringLiteral("arrowRight") : QStringLiteral("arrowLeft");
    case QStyle::SP_ArrowLeft: return QStringLiteral("arrowLeft");
    case QStyle::SP_ArrowRight: return QStringLiteral("arrowRight");
    case QStyle::SP_ArrowUp: return QStringLiteral("arrowUp");
    case QStyle::SP_LineEditClearButton: return QStringLiteral("close");
    case QStyle::SP_DialogSaveButton: return QStringLiteral("save");
    case QStyle::SP_TrashIcon: return QStringLiteral("delete");
    case QStyle::SP_BrowserReload: return QStringLiteral("reset");
    default: return {};
    }
}

} // namespace

QIcon standardIcon(QStyle::StandardPixmap picture, Qt::LayoutDirection direction)
{
    const QString name = iconName(picture, direction != Qt::RightToLeft);
    const QString path = QStringLiteral("icons:%1.png").arg(name);
    return !name.isEmpty() && iconExists(path) ? getCachedIcon(path) : QIcon();
}

} // namespace ui::style

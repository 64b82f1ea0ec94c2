// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/icons.h"

#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/theme/VisualDesignBase.h>

#include <QFileInfo>

namespace ui {

QIcon getCachedIcon(const QString& path)
{
    VisualDesignBase* theme = currentTheme();
    return theme ? theme->getCachedIcon(path) : QIcon();
}

QPixmap getCachedPixmap(const QString& path)
{
    VisualDesignBase* theme = currentTheme();
    return theme && !path.isEmpty() ? theme->getCachedPixmap(path) : QPixmap();
}

bool iconExists(const QString& path)
{
    return QFileInfo::exists(path);
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/theme/themesettings.h"

#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/theme/VisualDesignBase.h>

namespace ui {

QFont font()
{
    const VisualDesignBase* theme = currentTheme();
    return theme ? theme->getFont() : QFont();
}

QVariant themePreference(const QString& key)
{
    VisualDesignBase* theme = currentTheme();
    return theme ? theme->getPref(key) : QVariant();
}

} // namespace ui

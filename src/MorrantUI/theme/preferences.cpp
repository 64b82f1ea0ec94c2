#include "MorrantUI/theme/preferences.h"

#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/theme/VisualDesignBase.h>

namespace ui {

QVariant themePreference(const QString& key)
{
    VisualDesignBase* theme = currentTheme();
    return theme ? theme->getPref(key) : QVariant();
}

} // namespace ui

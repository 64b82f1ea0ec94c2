#include "MorrantUI/theme/fonts.h"

#include "MorrantUI/theme/currenttheme.h"
#include <MorrantUI/theme/VisualDesignBase.h>

namespace ui {

QFont font()
{
    const VisualDesignBase* theme = currentTheme();
    return theme ? theme->getFont() : QFont();
}

} // namespace ui

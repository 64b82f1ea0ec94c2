#include "MorrantUI/theme/keys.h"

namespace ui {

QString ctrlKeyName()
{
    return QStringLiteral("CTRL");
}

} // namespace ui

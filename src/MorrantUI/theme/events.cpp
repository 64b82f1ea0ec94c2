#include "MorrantUI/theme/events.h"

#include <QCoreApplication>

namespace ui {

void processEvents()
{
    QCoreApplication::processEvents();
}

} // namespace ui

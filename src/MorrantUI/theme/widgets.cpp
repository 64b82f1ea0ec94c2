#include "MorrantUI/theme/widgets.h"

#include <QApplication>

namespace qtutils {

QWidget* findWidgetAt(const QPoint& globalPoint)
{
    return QApplication::widgetAt(globalPoint);
}

} // namespace qtutils

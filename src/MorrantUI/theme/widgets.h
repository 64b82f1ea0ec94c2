#pragma once

#include <MorrantUI/morrantui_export.h>

class QPoint;
class QWidget;

namespace qtutils {

/// The widget of this application at a global point, the innermost one; null if there is none.
MORRANT_UI_EXPORT QWidget* findWidgetAt(const QPoint& globalPoint);

} // namespace qtutils

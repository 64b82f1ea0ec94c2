// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

class QWidget;
class TabBar;

namespace ui {

/// Lets the arrow keys Left and Right, pressed in a widget or in what lies in it and has no use for
/// them, select the tab on that side, also where the window has shortcuts for these keys. Disabled
/// tabs are passed over; while the bar is disabled the keys are the widget's. Ends with either of
/// the two; null is ignored.
MORRANT_UI_EXPORT void addTabArrowNavigation(QWidget* widget, TabBar* tabBar);

} // namespace ui

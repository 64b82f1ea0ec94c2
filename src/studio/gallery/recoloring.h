// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

class QWidget;

namespace studio::gallery {

/// Calls `apply` now and again whenever the application style changes, as it does with the theme's
/// contrast: for widgets that are handed their colours instead of asking for them while painting.
/// `apply` lives as long as the widget.
void keepColored(QWidget* widget, std::function<void()> apply);

} // namespace studio::gallery

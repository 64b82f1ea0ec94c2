// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/theme/style/elements.h"

namespace ui::style {

/// Which function draws an element; null for what the base style draws.
Draw primitiveDrawing(QStyle::PrimitiveElement element);
Draw controlDrawing(QStyle::ControlElement element);
Draw complexControlDrawing(QStyle::ComplexControl control);

/// Which function lays a complex control out; null for what the base style lays out.
using Place = QRect (*)(const QStyleOption&, QStyle::SubControl, const Context&);
Place complexControlLayout(QStyle::ComplexControl control);

} // namespace ui::style

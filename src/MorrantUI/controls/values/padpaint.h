// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/theme/style/shades.h"

#include <QColor>
#include <QPointF>
#include <QSize>

class QPainter;
class QWidget;

/// What the controls that paint themselves have in common.
namespace ui::pads {

/// The disc that sliders and pads are dragged by, set off by a gap of the colour below it.
void drawKnob(
    QPainter& painter,
    const QPointF& center,
    double diameter,
    const QColor& ground,
    const style::WidgetState& state);

/// The pixel size of a widget's font, which lengths follow.
int fontSize(const QWidget& widget);

/// A square whose side is so many font sizes of the widget.
QSize squareOf(const QWidget& widget, double fontSizes);

} // namespace ui::pads

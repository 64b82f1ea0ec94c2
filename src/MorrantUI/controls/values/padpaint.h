#pragma once

#include "MorrantUI/theme/style/shades.h"

#include <QColor>
#include <QPointF>

class QPainter;
class QWidget;

/// What the controls that paint themselves have in common.
namespace ui::pads {

/// The state of a widget as the application style would see it.
style::Mood moodOf(const QWidget& widget, bool pressed);

/// The disc that sliders and pads are dragged by, set off by a gap of the colour below it.
void drawKnob(
    QPainter& painter,
    const QPointF& center,
    double diameter,
    const QColor& ground,
    const style::Mood& mood);

/// The pixel size of a widget's font, which lengths follow.
int fontSize(const QWidget& widget);

} // namespace ui::pads

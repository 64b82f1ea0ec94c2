// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets>

class QWidget;

namespace ui::test {

/// Renders a widget, laid out but not necessarily shown, into an image of the given device pixel
/// ratio over a transparent ground. Children are included, the system's window background is not.
QImage renderWidget(QWidget& widget, double devicePixelRatio = 1.0);

/// The colour of the device pixel that holds a point in logical pixels; invalid outside the image.
QColor pixelAt(const QImage& image, QPointF logical);

/// Whether two colours differ by at most `tolerance` in every channel, alpha included.
bool closeTo(const QColor& a, const QColor& b, int tolerance = 2);

} // namespace ui::test

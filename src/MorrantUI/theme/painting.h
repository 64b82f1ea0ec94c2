// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <Core/num2.h>

#include <QPainterPath>
#include <QPixmap>
#include <QPoint>
#include <QRectF>
#include <QSize>
#include <QString>

#include <array>
#include <optional>

class QColor;
class QWidget;

/// Geometry shared by paint events, in logical pixels.
namespace ui {

/// The rectangle along which a border of `penWidth` is stroked so that it stays inside `rect`.
/// @param pixelAligned moves the line onto pixel centres, half a pixel further in
MORRANT_UI_EXPORT QRectF borderedRect(const QRectF& rect, double penWidth, bool pixelAligned);

/// A rounded rectangle with one ellipse for each corner.
/// @param radii x and y radius of top left, top right, bottom right, bottom left; limited to half
///        the rectangle, and less than zero or not a number counts as zero
MORRANT_UI_EXPORT QPainterPath
radiusClip(const std::array<num2<double>, 4>& radii, const QRectF& rect);

/// Where textAtWidgetCentre() puts pixmap and text.
struct CentredText
{
    std::optional<QPoint> pixmapTopLeft; ///< set when there is a pixmap
    QPoint baseline;                     ///< where the baseline of the text starts
};

/// Centres a text in a widget, with a pixmap above it if a width is given. The pixmap counts as
/// square, whatever its height.
/// @param textBox size of the text's bounding box, a pixel added to each side
/// @param pixmapWidth logical pixels
MORRANT_UI_EXPORT CentredText
centredText(QSize widget, QSize textBox, std::optional<double> pixmapWidth);

/// Paints a text in the middle of the widget, and a pixmap above it unless `pixmap` is null. Only
/// for the widget's paint event, with no other painter open on the widget. A null widget is
/// ignored.
MORRANT_UI_EXPORT void textAtWidgetCentre(
    QWidget* widget, const QString& text, const QColor& color, const QPixmap* pixmap);

} // namespace ui

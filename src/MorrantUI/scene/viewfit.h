// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/scene/framemath.h>

#include <QRectF>
#include <QSize>

#include <optional>

/// How an editor over frames is laid out and framed. Rectangles are scene units, viewports logical
/// pixels.
namespace ui {

inline constexpr double kFitMargin = 4.0;       ///< pixels of the viewport that a fit leaves free
inline constexpr double kFramesBeyondEnd = 4.0; ///< frames shown after the frame range
inline constexpr double kMinScaleShare = 0.02;  ///< of a pixel for each frame of the playback range
inline constexpr double kFitMarginShare = 0.02; ///< of a framed range, left free on either side

/// Pixels a frame beyond which a transform cannot be turned round, or a document of a thousand
/// frames cannot be scrolled. A key framed alone again and again would leave them.
inline constexpr double kLeastZoom = 1e-9;
inline constexpr double kMostZoom = 1e6;

/// The horizontal factor, in pixels a frame, that makes a rectangle as wide as the viewport; empty
/// when there is nothing to fit or nowhere to fit it into.
std::optional<double> horizontalFit(const QRectF& rect, QSize viewport);

/// What holds both rectangles, also those without a width or a height.
QRectF spanned(const QRectF& a, const QRectF& b);

/// The smallest scale of an editor: about 50 pixels a frame, however long the playback range is.
double minimumScale(int viewWidth, const FrameRange& playback);

/// The scene's rectangle: the range of frames, as high as the rows.
QRectF sceneRectOf(double first, double last, int height);

/// What is fitted into the viewport at a scale.
QRectF scaledFrameRect(double first, double last, double scale, int height);

/// What shows a range with a little room on either side, at least a frame.
/// @param items bounds of everything in the scene, for y and height
QRectF framedRange(const FrameRange& range, double scale, const QRectF& items);

/// The rectangle that backgrounds are painted for: the visible one, widened to the left to an even
/// frame. A stripe a frame then has the same parity however little of it is painted anew.
QRectF evenBackground(const QRectF& visible);

} // namespace ui

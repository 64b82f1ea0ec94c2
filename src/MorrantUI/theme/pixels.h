// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QSize>

#include <include/core/SkImage.h>
#include <include/core/SkRefCnt.h>
#include <include/core/SkSurface.h>

class QPaintDevice;
class QPainter;

namespace ui {

/// Draws a surface's pixels at the origin of the painter's device, one device pixel for each pixel.
/// The painter's transform does not apply; its clip, opacity and composition mode do, and its state
/// is left as it was. On a raster painter, pixels of the native or the RGBA format are neither
/// copied nor is memory allocated for them.
/// @return whether pixels were drawn: not with a null or inactive painter or a null surface
MORRANT_UI_EXPORT bool copyPixels(const sk_sp<SkSurface>& surface, QPainter* painter);

/// The same for an image, which is rasterised first if it has no pixels in memory.
MORRANT_UI_EXPORT bool copyPixels(const sk_sp<SkImage>& image, QPainter* painter);

/// How many device pixels it takes to cover a device: rounded up, at least 1 x 1, also for null.
MORRANT_UI_EXPORT QSize renderSizeFromDevice(const QPaintDevice* device);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <include/core/SkRect.h>

class SkCanvas;

namespace studio {

struct DrawResult
{
    double cost = 0;                   ///< see drawcost.h
    const Layer* unfinished = nullptr; ///< the layer that cost too much; null when all was drawn
};

/// Draws a frame in the composition's own units, its top left corner at the canvas's origin,
/// clipped to its size, over what is there. The canvas is given back as it was.
/// A frame that costs more than kMaxDrawCost is left unfinished: small files can ask for hours.
/// @param frame whole or fractional; outside inPoint..outPoint only layers that reach there show
DrawResult draw(SkCanvas& canvas, const Document& document, double frame);

/// The topmost layer of the main composition that can be seen at a point and is not locked; null
/// where there is none. Looking for it has the budget of a frame.
/// @param point in pixels of the composition
/// @param scale device pixels a composition pixel: a layer within about one of them counts
const Layer* layerAt(const Document& document, double frame, SkPoint point, double scale);

/// The room that a layer's content takes in its own units, with its strokes and without its masks;
/// empty where it draws nothing.
SkRect boundsOf(const Document& document, const Layer& layer, double frame);

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

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

} // namespace studio

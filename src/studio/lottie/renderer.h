#pragma once

#include "lottie/Document.h"

class SkCanvas;

namespace studio {

/// Draws a frame in the composition's own units, its top left corner at the canvas's origin,
/// clipped to its size, over what is there. The canvas is given back as it was.
/// @param frame whole or fractional; outside inPoint..outPoint only layers that reach there show
void draw(SkCanvas& canvas, const Document& document, double frame);

} // namespace studio

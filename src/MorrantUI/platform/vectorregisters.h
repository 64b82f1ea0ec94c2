// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace morrant::native {

/// Marks the upper halves of the processor's wide registers as unused. Qt 6.4 leaves them in use
/// after every opaque fill, a widget's ground above all; until somebody clears them, what is
/// compiled for narrow registers, as Qt's blending of glyphs is, can take twice its time (measured
/// on processors with AVX-512, where the C library's copying does not clear them by the way). To be
/// called where text follows a ground; takes a nanosecond, and does nothing on processors without
/// such registers.
void clearVectorRegisters();

} // namespace morrant::native

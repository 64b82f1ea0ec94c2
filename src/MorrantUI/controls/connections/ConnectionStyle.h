// SPDX-License-Identifier: Apache-2.0
#pragma once

/// How the line of a connection being dragged is drawn.
enum class ConnectionStyle
{
    Line = 0,   ///< just the line; the receiver itself marks what would be connected
    Framed = 1, ///< the line, and a frame around the receiver's widget
    Dashed = 2, ///< a broken line and the frame, for a connection that would replace another
};

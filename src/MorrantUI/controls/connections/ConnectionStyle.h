// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui::connections {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// How the line of a connection being dragged is drawn.
enum class ConnectionStyle
{
    Line = 0,   ///< just the line; the receiver itself marks what would be connected
    Framed = 1, ///< the line, and a frame around the receiver's widget
    Dashed = 2, ///< a broken line and the frame, for a connection that would replace another
};
Q_ENUM_NS(ConnectionStyle)

} // namespace ui::connections

using ui::connections::ConnectionStyle;

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui::clips {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// Which part of a clip area the pointer is on, or drags.
enum class EndPointHover
{
    None = 0,
    Start = 1, ///< the handle at its first frame
    End = 2,   ///< the handle at its end
    Body = 3,
};
Q_ENUM_NS(EndPointHover)

} // namespace ui::clips

using ui::clips::EndPointHover;

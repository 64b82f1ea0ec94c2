// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui::popovers {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// The side of its anchor on which a popover lies.
enum class PopoverSide
{
    Below,
    Above,
    Right,
    Left
};
Q_ENUM_NS(PopoverSide)

} // namespace ui::popovers

using ui::popovers::PopoverSide;

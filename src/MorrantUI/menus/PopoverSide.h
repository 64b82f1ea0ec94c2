// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The side of its anchor on which a popover lies.
enum class PopoverSide
{
    Below,
    Above,
    Right,
    Left
};

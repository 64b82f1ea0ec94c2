// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Which part of a clip area the pointer is on, or drags.
enum class EndPointHover
{
    None = 0,
    Start = 1, ///< the handle at its first frame
    End = 2,   ///< the handle at its end
    Body = 3,
};

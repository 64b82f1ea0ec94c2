// SPDX-License-Identifier: Apache-2.0
#pragma once

/// How the value goes from a key to the next one of its row, as far as the time editor shows it.
enum class KeyEasing
{
    Linear = 0,
    Bezier = 1,
    Hold = 2, ///< stays until the next key
};

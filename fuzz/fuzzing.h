// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <cstdlib>

/// A claim that every input has to keep.
inline void check(bool holds, const char* claim)
{
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", claim);
        std::abort();
    }
}

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace ui::bench {

/// How often this program and its libraries have taken memory from the heap so far, on any thread:
/// through malloc, calloc and realloc, and so through operator new and Qt's containers as well.
std::size_t allocationCount();

template <typename Work>
std::size_t allocationsOf(Work&& work)
{
    const std::size_t before = allocationCount();
    work();
    return allocationCount() - before;
}

} // namespace ui::bench

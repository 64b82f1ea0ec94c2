// SPDX-License-Identifier: Apache-2.0
#include "allocations.h"

#include <atomic>

namespace {

constinit std::atomic<std::size_t> gAllocations = 0;

} // namespace

// The C library's own allocator under the names that it keeps for those who replace malloc. Memory
// from it goes back through the ordinary free().
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming,readability-inconsistent-declaration-parameter-name)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

[[gnu::visibility("default")]] void* malloc(std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_malloc(size);
}

[[gnu::visibility("default")]] void* calloc(std::size_t count, std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_calloc(count, size);
}

[[gnu::visibility("default")]] void* realloc(void* block, std::size_t size)
{
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    return __libc_realloc(block, size);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming,readability-inconsistent-declaration-parameter-name)

namespace ui::bench {

std::size_t allocationCount()
{
    return gAllocations.load(std::memory_order_relaxed);
}

} // namespace ui::bench

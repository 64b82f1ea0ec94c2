// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/vectorregisters.h"
#include "MorrantUI/platform/x86/upperhalves.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace morrant::native {

namespace {

/// Of the processor, and saved by the system when it switches threads.
bool hasUpperHalves()
{
#ifdef _WIN32
    return ::IsProcessorFeaturePresent(PF_AVX_INSTRUCTIONS_AVAILABLE) != FALSE;
#else
    return __builtin_cpu_supports("avx") != 0;
#endif
}

} // namespace

void clearVectorRegisters()
{
    static const bool has = hasUpperHalves();
    if (has) {
        system::clearUpperHalves();
    }
}

} // namespace morrant::native

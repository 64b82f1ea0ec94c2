// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/platform/x86/upperhalves.h"

#include <immintrin.h>

namespace morrant::native::system {

void clearUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace morrant::native::system

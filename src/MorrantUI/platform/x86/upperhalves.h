// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace morrant::native::system {

/// Only for processors with AVX: its source alone is compiled for them.
void clearUpperHalves();

} // namespace morrant::native::system

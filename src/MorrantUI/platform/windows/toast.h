// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace morrant::native {

/// Shows a toast of the given XML for kApplicationId. The first step that fails ends it with one
/// line in the log.
void showToast(std::wstring_view xml);

} // namespace morrant::native

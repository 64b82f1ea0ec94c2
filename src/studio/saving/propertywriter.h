// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "saving/ObjectEdit.h"

namespace studio {

/// Writes what has changed in a property, which is the member `key` of an object.
/// @param before as read from the file
/// @param unit what the file writes for 1
void writeProperty(
    ObjectEdit& parent,
    std::string_view key,
    const NumberProperty& now,
    const NumberProperty& before,
    double unit = 1);

} // namespace studio

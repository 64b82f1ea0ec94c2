// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/ReadContext.h"

namespace studio {

/// Reads the list `parent[key]` of shape items. A kind that is not drawn is listed as missing.
/// @param transform takes the list's transform, where it is a group's
void readShapes(
    ReadContext& context,
    const JsonValue& parent,
    std::string_view key,
    std::vector<ShapeItem>& items,
    Transform* transform = nullptr);

} // namespace studio

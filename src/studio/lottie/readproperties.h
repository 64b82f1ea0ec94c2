// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/ReadContext.h"

namespace studio {

/// Reads the property `parent[key]`; left as it is when the file leaves it out. A colour is brought
/// to 0..1 by the caller. An expression is listed as missing.
void readProperty(
    ReadContext& context, const JsonValue& parent, std::string_view key, NumberProperty& property);

/// @param closed for files that tell it outside the outline
void readProperty(
    ReadContext& context,
    const JsonValue& parent,
    std::string_view key,
    PathProperty& property,
    bool closed);

void readProperty(
    ReadContext& context, const JsonValue& parent, std::string_view key, StopsProperty& property);

/// As readProperty(), with channels brought to 0..1.
void readColor(
    ReadContext& context, const JsonValue& parent, std::string_view key, NumberProperty& property);

void readTransform(ReadContext& context, const JsonValue& object, Transform& transform);

} // namespace studio

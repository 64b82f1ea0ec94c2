// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"
#include "editing/keychanges.h"

#include <QByteArray>

namespace studio {

/// Of copied keys on the clipboard, which are JSON text.
inline constexpr char kKeysMimeType[] = "application/x-morrant-keys+json";

/// The copied keys of one property.
struct CopiedKeys
{
    PropertyAddress property; ///< where they come from
    int dimensions = 1;
    std::vector<LooseKey> keys; ///< upwards, at least one; times count from the first of all copied
};

QByteArray toJson(const std::vector<CopiedKeys>& rows);
/// Nothing when the text is not what toJson() writes.
std::vector<CopiedKeys> keysFromJson(const QByteArray& json);

/// The property that takes keys: where they come from, or what is the same in another layer: the
/// same attribute, and of colours the one at the same place, or else the layer's first.
/// @param layer -1 for the layer they come from
/// @return nothing where the document has none that can be animated
std::optional<PropertyAddress> pasteTarget(
    const Document& document, const PropertyAddress& source, int layer);

/// Copied keys for a property, from a frame on. What their values lack is the property's own.
std::vector<LooseKey> fitted(const CopiedKeys& row, const NumberProperty& property, int frame);

} // namespace studio

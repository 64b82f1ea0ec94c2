// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/PropertyAddress.h"

#include <optional>

namespace studio {

/// An animated property of a layer.
struct KeyRow
{
    QString name;                           ///< as the user calls it
    std::optional<PropertyAddress> address; ///< none: it cannot be edited
    std::vector<double> times;              ///< of its keys, in frames, upwards
};

/// The animated properties of a layer: of its transform, its colours, then what cannot be edited.
std::vector<KeyRow> keyRowsOf(const Document& document, int layer);

} // namespace studio

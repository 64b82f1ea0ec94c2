// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>

#include <cstddef>
#include <optional>
#include <vector>

/// Which items go on as which keys when a host pushes its document back.
namespace ui {

/// Which of the places that are shown each wanted one goes on from: its own where it has stayed, or
/// else one that lies there already, so that keys may pass each other in the host's list; what is
/// left in its order. None for places beyond those that are shown.
std::vector<std::optional<std::size_t>> matchedPlaces(
    const std::vector<QPointF>& shown, const std::vector<QPointF>& wanted);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/docking/saving/layoutnode.h"

#include <QByteArray>

#include <optional>

namespace ui::docking {

inline constexpr int kLayoutVersion = 1;
inline constexpr int kMaxLayoutNesting = 32;          ///< groups within each other
inline constexpr int kMaxLayoutNodes = 10'000;        ///< panels and groups in all
inline constexpr qsizetype kMaxLayoutBytes = 4 << 20; ///< of a text
inline constexpr int kMaxExtent = 100'000;            ///< logical pixels, either way from 0

/// Reads what layoutJson() has written, or a person. What is wrong in it is left out: a node of no
/// known type, groups nested too deep, sizes and places that are no numbers in range.
/// @param error what is wrong with a text that is no layout at all, the rest of a sentence
/// @return nothing for that
std::optional<SavedLayout> readLayout(const QByteArray& json, QString* error);

QByteArray layoutJson(const SavedLayout& layout);

} // namespace ui::docking

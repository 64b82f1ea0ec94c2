// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "saving/jsonforms.h"

namespace studio {

/// A list of the first numbers of a value.
/// @param unit what the file writes for 1
std::string numbersText(
    const Numbers& numbers, std::size_t count, const JsonForm& form, double unit = 1);

/// Writes numbers over a number or a list of numbers. Those that read as what they should be keep
/// their text, and a list keeps entries beyond the ones that we know.
/// @param count how many numbers there should be at least
void replaceNumbers(
    TextPatch& patch,
    const JsonValue& value,
    const Numbers& numbers,
    std::size_t count,
    double unit = 1);

/// The entries up to the last that is not 0, and at least one.
std::size_t usedEntries(const Numbers& numbers);

} // namespace studio

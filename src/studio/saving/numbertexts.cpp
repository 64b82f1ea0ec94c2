// SPDX-License-Identifier: Apache-2.0
#include "saving/numbertexts.h"

#include "lottie/reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace studio {

namespace {

/// As the reader takes a number in.
double fromFile(double written, double unit)
{
    const double number = std::clamp(written, -kMaxMagnitude, kMaxMagnitude);
    return unit == 1 ? number : number * (1 / unit);
}

std::string scaledText(double number, double unit)
{
    if (unit == 1) {
        return numberText(number);
    }
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double exact = number * unit;
    for (const double near :
         {std::round(exact),
          exact,
          std::nextafter(exact, kInfinity),
          std::nextafter(exact, -kInfinity)})
    {
        if (fromFile(near, unit) == number) {
            return numberText(near);
        }
    }
    return numberText(exact);
}

bool reads(const JsonValue& entry, double number, double unit)
{
    const auto written = entry.number();
    return written && fromFile(*written, unit) == number;
}

} // namespace

std::string numbersText(
    const Numbers& numbers, std::size_t count, const JsonForm& form, double unit)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < std::min(count, numbers.size()); ++i) {
        texts.push_back(scaledText(numbers[i], unit));
    }
    return compose(form, texts);
}

void replaceNumbers(
    TextPatch& patch,
    const JsonValue& value,
    const Numbers& numbers,
    std::size_t count,
    double unit)
{
    const auto entries = value.isList() ? valuesOf(value) : std::vector<JsonValue>{value};
    for (std::size_t i = 0; i < std::min(entries.size(), numbers.size()); ++i) {
        if (!reads(entries[i], numbers[i], unit)) {
            patch.replace(entries[i].span(), scaledText(numbers[i], unit));
        }
    }
    if (entries.size() >= count) {
        return;
    }
    if (!value.isList()) {
        const JsonForm spaced{"[", ", ", ": ", "]"};
        patch.replace(value.span(), numbersText(numbers, count, spaced, unit));
        return;
    }
    std::vector<JsonPiece> pieces;
    for (std::size_t i = 0; i < count; ++i) {
        const bool isThere = i < entries.size();
        pieces.push_back(isThere ? JsonPiece{i, {}} : JsonPiece{{}, scaledText(numbers[i], unit)});
    }
    patch.replace(value.span(), compose(patch, value, pieces));
}

std::size_t usedEntries(const Numbers& numbers)
{
    std::size_t used = numbers.size();
    while (used > 1 && numbers[used - 1] == 0) {
        --used;
    }
    return used;
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "native.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// What a lead byte promises. The second byte has a range of its own, which is what keeps overlong
/// forms, surrogates and numbers beyond Unicode out.
struct Sequence
{
    std::size_t length = 0; ///< bytes, lead byte included; 0 for a byte that leads nothing
    unsigned char secondMin = 0x80;
    unsigned char secondMax = 0xBF;
};

constexpr Sequence sequenceOf(unsigned char lead)
{
    if (lead < 0x80) {
        return {1};
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {2};
    }
    switch (lead) {
    case 0xE0: return {3, 0xA0, 0xBF};
    case 0xED: return {3, 0x80, 0x9F};
    case 0xF0: return {4, 0x90, 0xBF};
    case 0xF4: return {4, 0x80, 0x8F};
    default: break;
    }
    if (lead >= 0xE1 && lead <= 0xEF) {
        return {3};
    }
    if (lead >= 0xF1 && lead <= 0xF3) {
        return {4};
    }
    return {};
}

/// Takes one character, or the longest start of one, off the front of the text.
char32_t takeCharacter(std::string_view& text)
{
    const auto byteAt = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    const Sequence sequence = sequenceOf(lead);
    if (sequence.length <= 1) {
        text.remove_prefix(1);
        return sequence.length == 1 ? lead : kReplacement;
    }

    // 110xxxxx, 1110xxxx and 11110xxx carry 5, 4 and 3 bits.
    char32_t character = lead & (0x7FU >> sequence.length);
    const std::size_t available = std::min(sequence.length, text.size());
    for (std::size_t i = 1; i < available; ++i) {
        const unsigned char min = i == 1 ? sequence.secondMin : 0x80;
        const unsigned char max = i == 1 ? sequence.secondMax : 0xBF;
        if (byteAt(i) < min || byteAt(i) > max) {
            text.remove_prefix(i);
            return kReplacement;
        }
        character = (character << 6U) | (byteAt(i) & 0x3FU);
    }
    text.remove_prefix(available);
    return available == sequence.length ? character : kReplacement;
}

void append(std::wstring& wide, char32_t character)
{
    if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
        if (character > 0xFFFF) {
            const char32_t offset = character - 0x10000;
            wide += static_cast<wchar_t>(0xD800 + (offset >> 10U));
            wide += static_cast<wchar_t>(0xDC00 + (offset & 0x3FFU));
            return;
        }
    }
    wide += static_cast<wchar_t>(character);
}

} // namespace

std::wstring to_native(std::string_view utf8)
{
    std::wstring wide;
    wide.reserve(utf8.size());
    while (!utf8.empty()) {
        append(wide, takeCharacter(utf8));
    }
    return wide;
}

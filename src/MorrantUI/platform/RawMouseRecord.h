// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <cstdint>

namespace ui {

/// One record of raw mouse input, as Windows fills it in.
struct RawMouseRecord
{
    static constexpr std::uint16_t kAbsolute = 0x01;       ///< in flags: position, not motion
    static constexpr std::uint16_t kVirtualDesktop = 0x02; ///< in flags: of all screens, not one
    static constexpr std::uint16_t kPixels = 0x40;         ///< in flags: not scaled to the screen
    static constexpr std::uint16_t kWheel = 0x0400;        ///< in buttonFlags

    bool isMouse = true; ///< and no keyboard or other device
    std::uint16_t flags = 0;
    std::uint16_t buttonFlags = 0;
    std::int32_t x = 0; ///< lLastX
    std::int32_t y = 0;

    bool operator==(const RawMouseRecord&) const = default;
};

} // namespace ui

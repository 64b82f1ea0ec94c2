// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <include/core/SkColor.h>

#include <cstdint>

/// A 32-bit colour, 0xAARRGGBB, not premultiplied. This is also SkColor's layout and that of QRgb.
class Color
{
public:
    /// Opaque black.
    constexpr Color() = default;

    constexpr explicit Color(std::uint32_t argb)
        : m_argb(argb)
    {}

    static constexpr Color fromRgba(
        std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t alpha = 255)
    {
        return Color(SkColorSetARGB(alpha, red, green, blue));
    }

    constexpr std::uint8_t red() const { return SkColorGetR(m_argb); }
    constexpr std::uint8_t green() const { return SkColorGetG(m_argb); }
    constexpr std::uint8_t blue() const { return SkColorGetB(m_argb); }
    constexpr std::uint8_t alpha() const { return SkColorGetA(m_argb); }

    constexpr std::uint32_t argb() const { return m_argb; }

    /// Implicit, so that a Color goes wherever Skia wants one.
    constexpr operator SkColor() const { return m_argb; }

    friend constexpr bool operator==(Color, Color) = default;

private:
    std::uint32_t m_argb = SK_ColorBLACK;
};

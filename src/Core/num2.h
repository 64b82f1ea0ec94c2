// SPDX-License-Identifier: Apache-2.0
#pragma once

/// A pair of numbers: a point, a size, or the two radii of a corner.
template <typename T>
struct num2
{
    T x{};
    T y{};

    constexpr num2() = default;
    constexpr num2(T xValue, T yValue)
        : x(xValue)
        , y(yValue)
    {}

    constexpr num2& operator+=(const num2& other)
    {
        x += other.x;
        y += other.y;
        return *this;
    }

    constexpr num2& operator-=(const num2& other)
    {
        x -= other.x;
        y -= other.y;
        return *this;
    }

    constexpr num2& operator*=(T factor)
    {
        x *= factor;
        y *= factor;
        return *this;
    }

    /// Dividing by zero does what it does for T.
    constexpr num2& operator/=(T divisor)
    {
        x /= divisor;
        y /= divisor;
        return *this;
    }

    constexpr num2 operator-() const { return {-x, -y}; }

    friend constexpr num2 operator+(num2 left, const num2& right) { return left += right; }
    friend constexpr num2 operator-(num2 left, const num2& right) { return left -= right; }
    friend constexpr num2 operator*(num2 pair, T factor) { return pair *= factor; }
    friend constexpr num2 operator*(T factor, num2 pair) { return pair *= factor; }
    friend constexpr num2 operator/(num2 pair, T divisor) { return pair /= divisor; }

    /// Exact; a NaN equals nothing.
    friend constexpr bool operator==(const num2&, const num2&) = default;
};

// SPDX-License-Identifier: Apache-2.0
#include "lottie/gradients.h"

#include "lottie/evaluate.h"

#include <include/core/SkShader.h>
#include <include/effects/SkGradientShader.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace studio {

namespace {

constexpr std::size_t kColorNumbers = 4;   ///< offset, red, green, blue
constexpr std::size_t kOpacityNumbers = 2; ///< offset, opacity

/// A focus on the rim or beyond it would leave a part of the plane uncoloured.
constexpr double kFarthestFocus = 0.99;

// One value or three along 0..1, straight between its stops.
template <std::size_t Count>
struct Ramp
{
    using Value = std::array<double, Count>;

    struct Stop
    {
        double offset = 0;
        Value value{};
    };
    std::vector<Stop> stops;

    // Takes as many stops as there are numbers for.
    void append(const GradientStops& numbers, std::size_t begin, std::size_t end)
    {
        for (std::size_t i = begin; i + Count < end; i += Count + 1) {
            const double least = stops.empty() ? 0 : stops.back().offset;
            Stop& stop = stops.emplace_back();
            stop.offset = std::clamp(std::clamp(numbers[i], 0.0, 1.0), least, 1.0);
            for (std::size_t n = 0; n < Count; ++n) {
                stop.value[n] = std::clamp(numbers[i + 1 + n], 0.0, 1.0);
            }
        }
    }

    // The value just before an offset, or just after it: at a sharp edge they differ.
    Value at(double offset, bool after, const Value& fallback) const
    {
        if (stops.empty()) {
            return fallback;
        }
        const auto isBefore = [after](const Stop& stop, double place) {
            return after ? stop.offset <= place : stop.offset < place;
        };
        const auto next = std::lower_bound(stops.begin(), stops.end(), offset, isBefore);
        if (next == stops.begin()) {
            return next->value;
        }
        const Stop& last = *(next - 1);
        if (next == stops.end()) {
            return last.value;
        }
        const double share = (offset - last.offset) / (next->offset - last.offset);
        Value value{};
        for (std::size_t n = 0; n < Count; ++n) {
            value[n] = std::lerp(last.value[n], next->value[n], share);
        }
        return value;
    }

    void addOffsets(std::vector<double>& offsets) const
    {
        for (const Stop& stop : stops) {
            offsets.push_back(stop.offset);
        }
    }
};

float toFloat(double value)
{
    return static_cast<float>(value);
}

SkPoint toPoint(double x, double y)
{
    return SkPoint::Make(toFloat(x), toFloat(y));
}

// Where a radial gradient's rays start.
SkPoint focusAt(const Gradient& gradient, const Numbers& center, const Numbers& rim, double frame)
{
    const double share = std::clamp(
        scalarAt(gradient.highlightLength, frame) / 100, -kFarthestFocus, kFarthestFocus);
    const double x = rim[0] - center[0];
    const double y = rim[1] - center[1];
    const double turn = scalarAt(gradient.highlightAngle, frame) * std::numbers::pi / 180;
    return toPoint(
        center[0] + share * (x * std::cos(turn) - y * std::sin(turn)),
        center[1] + share * (x * std::sin(turn) + y * std::cos(turn)));
}

} // namespace

std::vector<GradientStop> stopsOf(const GradientStops& numbers, int colorStops)
{
    const std::size_t most = numbers.size() / kColorNumbers;
    const bool isMixed = colorStops >= 0 && static_cast<std::size_t>(colorStops) <= most;
    const std::size_t colorEnd =
        isMixed ? static_cast<std::size_t>(colorStops) * kColorNumbers : most * kColorNumbers;
    Ramp<kColorNumbers - 1> colors;
    Ramp<kOpacityNumbers - 1> opacities;
    colors.append(numbers, 0, colorEnd);
    opacities.append(numbers, colorEnd, isMixed ? numbers.size() : colorEnd);

    std::vector<double> offsets;
    colors.addOffsets(offsets);
    if (!offsets.empty()) {
        opacities.addOffsets(offsets);
    }
    std::sort(offsets.begin(), offsets.end());
    offsets.erase(std::unique(offsets.begin(), offsets.end()), offsets.end());

    std::vector<GradientStop> stops;
    for (const double offset : offsets) {
        const auto stopAt = [&](bool after) {
            const auto color = colors.at(offset, after, {});
            const auto opacity = opacities.at(offset, after, {1});
            return GradientStop{
                toFloat(offset),
                {toFloat(color[0]), toFloat(color[1]), toFloat(color[2]), toFloat(opacity[0])}};
        };
        stops.push_back(stopAt(false));
        if (const GradientStop after = stopAt(true); after != stops.back()) {
            stops.push_back(after);
        }
    }
    return stops;
}

sk_sp<SkShader> shaderAt(const Gradient& gradient, const GradientStops& stops, double frame)
{
    std::vector<SkColor4f> colors;
    std::vector<float> offsets;
    for (const GradientStop& stop : stopsOf(stops, gradient.colorStops)) {
        colors.push_back(stop.color);
        offsets.push_back(stop.offset);
    }
    const auto count = static_cast<int>(colors.size());
    if (count == 0) {
        return nullptr;
    }
    const Numbers start = valueAt(gradient.start, frame);
    const Numbers end = valueAt(gradient.end, frame);
    const SkPoint ends[] = {toPoint(start[0], start[1]), toPoint(end[0], end[1])};
    const float length = SkPoint::Distance(ends[0], ends[1]);
    const auto clamp = SkTileMode::kClamp;
    if (!std::isfinite(length)) {
        return nullptr;
    }
    if (!gradient.isRadial) {
        return SkGradientShader::MakeLinear(
            ends, colors.data(), nullptr, offsets.data(), count, clamp);
    }
    return SkGradientShader::MakeTwoPointConical(
        focusAt(gradient, start, end, frame),
        0,
        ends[0],
        length,
        colors.data(),
        nullptr,
        offsets.data(),
        count,
        clamp);
}

} // namespace studio

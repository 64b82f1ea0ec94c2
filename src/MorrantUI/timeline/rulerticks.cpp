// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/rulerticks.h"

#include "MorrantUI/text/wholerate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ui {

namespace {

constexpr std::int64_t kMostStep =
    10'000'000'000; ///< beyond it no two frames of 32 bits have ticks
constexpr std::int64_t kSecondsInHour = 3600;
constexpr double kMostTicks = 100'000.0; ///< no ruler is as wide

using Steps = std::vector<std::int64_t>;

/// 1, 2, 5, 10, 20 ... units.
void appendDecades(Steps& steps, std::int64_t unit)
{
    for (std::int64_t ten = unit; ten <= kMostStep; ten *= 10) {
        steps.insert(steps.end(), {ten, 2 * ten, 5 * ten});
    }
}

/// The parts of a second, without the second.
void appendDivisors(Steps& steps, std::int64_t rate)
{
    for (std::int64_t low = 1; low * low <= rate; ++low) {
        if (rate % low == 0) {
            steps.push_back(low);
            steps.push_back(rate / low);
        }
    }
    std::sort(steps.begin(), steps.end());
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    steps.pop_back();
}

Steps ladder(const RulerScale& scale)
{
    Steps steps;
    const std::int64_t rate = scale.timeCode ? wholeRate(scale.framesPerSecond) : 0;
    if (rate == 0) {
        appendDecades(steps, 1);
        return steps;
    }
    appendDivisors(steps, rate);
    for (const int unit : {1, 60}) {
        for (const int count : {1, 2, 5, 10, 15, 30}) {
            steps.push_back(rate * unit * count);
        }
    }
    appendDecades(steps, rate * kSecondsInHour);
    return steps;
}

bool divides(std::int64_t part, std::int64_t whole)
{
    return part < whole && whole % part == 0;
}

} // namespace

double labelRoom(const LabelMetrics& metrics, const QString& label)
{
    double room = 0.0;
    for (const QChar c : label) {
        room += c.isDigit() ? metrics.digit : c == u'-' ? metrics.sign : metrics.separator;
    }
    return room;
}

RulerSteps rulerSteps(const RulerScale& scale, double labelWidth)
{
    const double pixels = scale.pixelsPerFrame;
    if (!std::isfinite(pixels) || !(pixels > 0.0) || !std::isfinite(labelWidth)) {
        return {};
    }
    const Steps steps = ladder(scale);
    const auto firstWith = [pixels](auto from, auto to, double room) {
        return std::find_if(from, to, [pixels, room](std::int64_t step) {
            return static_cast<double>(step) * pixels >= room;
        });
    };
    auto label = firstWith(steps.begin(), steps.end(), labelWidth + kLabelGap);
    if (label == steps.end()) {
        --label;
    }
    RulerSteps result{*label, 0, 0};
    const auto firstMinor = firstWith(steps.begin(), label, kLeastTickDistance);
    const auto minor = std::find_if(
        firstMinor, label, [&label](std::int64_t step) { return divides(step, *label); });
    if (minor == label) {
        return result;
    }
    result.minor = *minor;
    for (auto step = minor; step != label; ++step) {
        if (divides(*step, *label) && divides(*minor, *step)) {
            result.medium = *step;
        }
    }
    return result;
}

std::vector<RulerTick> rulerTicks(const RulerSteps& steps, double first, double last)
{
    std::vector<RulerTick> ticks;
    const std::int64_t step = steps.minor > 0 ? steps.minor : steps.label;
    const double from = std::max<double>(first, std::numeric_limits<int>::min());
    const double to = std::min<double>(last, std::numeric_limits<int>::max());
    if (step <= 0 || !(from <= to) || (to - from) / static_cast<double>(step) > kMostTicks) {
        return ticks;
    }
    const auto atOrAfter = static_cast<std::int64_t>(std::ceil(from / static_cast<double>(step)));
    for (std::int64_t frame = atOrAfter * step; static_cast<double>(frame) <= to; frame += step) {
        const TickKind kind = frame % steps.label == 0                        ? TickKind::Label
                              : steps.medium > 0 && frame % steps.medium == 0 ? TickKind::Medium
                                                                              : TickKind::Minor;
        ticks.push_back({frame, kind});
    }
    return ticks;
}

} // namespace ui

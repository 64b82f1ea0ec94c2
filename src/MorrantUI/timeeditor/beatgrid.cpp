// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/beatgrid.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ui {

namespace {

constexpr double kSecondsPerMinute = 60.0;
constexpr double kSlowing = 1.001;       ///< of rates that colour television has slowed down
constexpr double kLeastDistance = 1.0;   ///< pixels between lines
constexpr float kFarthestOffset = 1e10F; ///< frames, beyond all of them; lines are counted from it

/// Which lines of a pass are in sight: the numbers of the first and the last one.
struct LineSpan
{
    double first = 0.0;
    double last = -1.0;
};

/// A pass counts away from the offset, up to a number of lines.
/// @param direction 1 to the right, -1 to the left
LineSpan linesInSight(
    double offset, double step, double direction, double count, const QRectF& exposed)
{
    const double toLeft = (exposed.left() - offset) / step * direction;
    const double toRight = (exposed.right() - offset) / step * direction;
    return {
        std::max(0.0, std::floor(std::min(toLeft, toRight))),
        std::min(count, std::ceil(std::max(toLeft, toRight)))};
}

} // namespace

double meantRate(float framesPerSecond)
{
    const double slowed = std::round(static_cast<double>(framesPerSecond) * kSlowing) / kSlowing;
    if (static_cast<float>(slowed) == framesPerSecond) {
        return slowed;
    }
    std::array<char, 64> written{}; // room for any float's shortest text
    const auto end =
        std::to_chars(written.data(), written.data() + written.size(), framesPerSecond);
    return QByteArray(written.data(), end.ptr - written.data()).toDouble();
}

double framesPerBeat(const BeatGrid& grid)
{
    const double frames =
        grid.framesPerSecond * kSecondsPerMinute / std::max(static_cast<double>(grid.bpm), 1.0);
    const bool drawable = grid.framesPerSecond > 0.0 && !std::isnan(grid.bpm)
                          && grid.beatsPerBar > 0 && std::abs(grid.offset) < kFarthestOffset
                          && std::isfinite(frames);
    return drawable ? frames : 0.0;
}

void beatGridLines(
    const BeatGrid& grid,
    const FrameRange& frames,
    const QRectF& exposed,
    double scale,
    std::vector<QLineF>& beats,
    std::vector<QLineF>& bars)
{
    beats.clear();
    bars.clear();
    const double beat = framesPerBeat(grid);
    const double offset = static_cast<double>(grid.offset);
    const double bar = static_cast<double>(grid.beatsPerBar);
    const bool barsOnly = !(beat * scale >= kLeastDistance);
    if (!(beat > 0.0) || !(beat * bar * scale >= kLeastDistance)) {
        return;
    }
    const double bottom = exposed.top() + (exposed.top() + exposed.height());
    const auto addLine = [&](double direction, double number) {
        const double x = offset + direction * number * beat;
        const QLineF line(x, exposed.top(), x, bottom);
        (std::fmod(number, bar) == 0.0 ? bars : beats).push_back(line);
    };
    const auto addPass = [&](double direction, double reach) {
        const double stride = barsOnly ? bar : 1.0;
        const double count = std::trunc(reach / beat);
        const LineSpan span = linesInSight(offset, beat, direction, count, exposed);
        for (double i = std::floor(span.first / stride) * stride; i <= span.last; i += stride) {
            addLine(direction, i);
        }
    };
    addPass(1.0, frames.second - offset);
    addPass(-1.0, offset - frames.first);
}

} // namespace ui

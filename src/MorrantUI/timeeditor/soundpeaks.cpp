// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/soundpeaks.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace ui {

namespace {

constexpr std::size_t kSamplesPerPeak = 16; ///< of the finest level

void widen(SoundPeak& peak, const SoundPeak& other)
{
    peak.low = std::min(peak.low, other.low);
    peak.high = std::max(peak.high, other.high);
}

SoundPeak peakOf(std::span<const SoundPeak> peaks)
{
    SoundPeak peak = peaks.front();
    for (const SoundPeak& other : peaks.subspan(1)) {
        widen(peak, other);
    }
    return peak;
}

/// A sample's number, held within the sound.
std::size_t sampleAt(double frame, const SoundPlacement& placement, std::size_t size)
{
    const double sample = (frame - placement.firstFrame) * placement.samplesPerFrame;
    if (!(sample > 0.0)) {
        return 0;
    }
    return sample < static_cast<double>(size) ? static_cast<std::size_t>(sample) : size;
}

float amplified(float sample, double gain)
{
    const double value = static_cast<double>(sample) * gain;
    return std::isfinite(value) ? static_cast<float>(std::clamp(value, -1.0, 1.0)) : 0.0F;
}

} // namespace

SoundPeaks::SoundPeaks(std::vector<float> samples)
    : m_samples(std::move(samples))
{
    for (float& sample : m_samples) {
        sample = std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F;
    }
    std::vector<SoundPeak> level;
    for (std::size_t i = 0; i < m_samples.size(); i += kSamplesPerPeak) {
        level.push_back(samplePeak(i, std::min(i + kSamplesPerPeak, m_samples.size())));
    }
    while (level.size() > 1) {
        std::vector<SoundPeak> coarser;
        for (std::size_t i = 0; i < level.size(); i += 2) {
            coarser.push_back(
                peakOf(std::span(level).subspan(i, std::min<std::size_t>(2, level.size() - i))));
        }
        m_levels.push_back(std::exchange(level, std::move(coarser)));
    }
    m_levels.push_back(std::move(level));
}

SoundPeak SoundPeaks::samplePeak(std::size_t first, std::size_t last) const
{
    const auto [low, high] = std::minmax_element(
        m_samples.begin() + static_cast<std::ptrdiff_t>(first),
        m_samples.begin() + static_cast<std::ptrdiff_t>(last));
    return {*low, *high};
}

SoundPeak SoundPeaks::peak(std::size_t first, std::size_t last) const
{
    last = std::min(last, m_samples.size());
    if (first >= last) {
        return {};
    }
    // Samples up to whole blocks at both ends, and from there upwards at most two peaks a level.
    std::size_t from = (first + kSamplesPerPeak - 1) / kSamplesPerPeak;
    std::size_t to = last / kSamplesPerPeak;
    if (from >= to) {
        return samplePeak(first, last);
    }
    SoundPeak peak{m_samples.at(first), m_samples.at(first)};
    if (first < from * kSamplesPerPeak) {
        widen(peak, samplePeak(first, from * kSamplesPerPeak));
    }
    if (to * kSamplesPerPeak < last) {
        widen(peak, samplePeak(to * kSamplesPerPeak, last));
    }
    for (const std::vector<SoundPeak>& level : m_levels) {
        if (from < to && from % 2 == 1) {
            widen(peak, level.at(from++));
        }
        if (from < to && to % 2 == 1) {
            widen(peak, level.at(--to));
        }
        if (from >= to) {
            break;
        }
        from /= 2;
        to /= 2;
    }
    return peak;
}

void soundColumns(
    const SoundPeaks& peaks,
    const SoundPlacement& placement,
    double left,
    double step,
    std::span<SoundPeak> columns)
{
    const bool sounds = placement.samplesPerFrame > 0.0 && std::isfinite(placement.samplesPerFrame)
                        && std::isfinite(placement.firstFrame);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const double frame = left + static_cast<double>(i) * step;
        const std::size_t first = sampleAt(frame, placement, peaks.size());
        const std::size_t next = sampleAt(frame + step, placement, peaks.size());
        // Zoomed in, several columns share a sample; before the sound's start there is none.
        const bool before = frame + step <= placement.firstFrame;
        const SoundPeak peak =
            sounds && !before ? peaks.peak(first, std::max(next, first + 1)) : SoundPeak{};
        columns[i] = {amplified(peak.low, placement.gain), amplified(peak.high, placement.gain)};
        if (columns[i].low > columns[i].high) {
            std::swap(columns[i].low, columns[i].high); // a gain below 0 turns the sound over
        }
    }
}

} // namespace ui

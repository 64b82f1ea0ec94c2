// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <cstddef>
#include <span>
#include <vector>

namespace ui {

/// The lowest and the highest sample of a stretch of sound, -1 to 1.
struct SoundPeak
{
    float low = 0.0F;
    float high = 0.0F;

    friend bool operator==(const SoundPeak&, const SoundPeak&) = default;
};

/// A sound's peaks at every zoom: the samples' own, and above them levels that halve in number, so
/// that the peak of any stretch is found in a time that does not depend on its length. Takes about
/// a quarter of the memory of the samples on top of theirs: the lowest level stands for 16 samples.
class MORRANT_UI_EXPORT SoundPeaks
{
public:
    SoundPeaks() = default;
    /// Samples that are not finite count as silence, others are held within -1 to 1.
    explicit SoundPeaks(std::vector<float> samples);

    std::size_t size() const { return m_samples.size(); }
    bool isEmpty() const { return m_samples.empty(); }

    /// The peak of the samples [first, last); silence for an empty stretch and outside the sound.
    SoundPeak peak(std::size_t first, std::size_t last) const;

private:
    SoundPeak samplePeak(std::size_t first, std::size_t last) const;

    std::vector<float> m_samples;
    std::vector<std::vector<SoundPeak>> m_levels; ///< the lowest, finest one first
};

/// Where a sound lies over frames.
struct SoundPlacement
{
    double samplesPerFrame = 0.0;
    double firstFrame = 0.0; ///< the frame at which the sound itself begins
    double gain = 1.0;       ///< times the amplitude
};

/// The peaks of columns one beside the other, with the gain, held within -1 to 1.
/// @param left the first column's frame
/// @param step frames a column
MORRANT_UI_EXPORT void soundColumns(
    const SoundPeaks& peaks,
    const SoundPlacement& placement,
    double left,
    double step,
    std::span<SoundPeak> columns);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/soundpeaks.h>

#include <QString>

#include <memory>
#include <vector>

class QIODevice;

namespace studio {

inline constexpr qint64 kMostSamples = 60'000'000; ///< of a sound: over 20 minutes at 48 kHz
inline constexpr int kMostChannels = 8;
inline constexpr int kMostSampleRate = 768'000;

/// A sound as it is drawn: its channels mixed into one.
struct Sound
{
    QString name;
    double rate = 0; ///< samples a second, above 0
    std::shared_ptr<const ui::SoundPeaks> peaks;
};

/// The samples of a WAV file, its channels mixed, within -1 to 1 unless the file goes beyond.
struct WavResult
{
    std::vector<float> samples; ///< at least one, unless there is an error
    double rate = 0;            ///< samples a second
    QString error;              ///< the rest of a sentence; empty when it was read
};

/// Reads PCM of 8, 16, 24 and 32 bits and floating point of 32 and 64, also by
/// WAVE_FORMAT_EXTENSIBLE. Chunks that it does not know are passed over; a file that ends too early
/// gives what is there, as recorders that were cut off leave it.
WavResult readWav(QIODevice& device);

struct SoundResult
{
    std::shared_ptr<const Sound> sound; ///< null when it cannot be read
    QString error;                      ///< then why, the rest of a sentence
};

SoundResult readSoundFile(const QString& path);

} // namespace studio

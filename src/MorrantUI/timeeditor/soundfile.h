// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/soundpeaks.h>

#include <QString>

#include <memory>
#include <vector>

class QIODevice;

namespace ui {

inline constexpr qint64 kMostSoundSamples = 60'000'000; ///< over 20 minutes at 48 kHz

/// The samples of a WAV file, its channels mixed, within -1 to 1 unless the file goes beyond. Those
/// of floating point may be what is no number, in 32 bits: ui::SoundPeaks takes that for silence.
struct WavSound
{
    std::vector<float> samples = {}; ///< at least one, unless there is an error
    double rate = 0.0;               ///< samples a second
    QString error = {}; ///< empty when it was read, else a clause such as "it is no WAV file"
};

/// Reads PCM of 8, 16, 24 and 32 bits and floating point of 32 and 64, also by
/// WAVE_FORMAT_EXTENSIBLE, of up to eight channels and kMostSoundSamples. Chunks that it does not
/// know are passed over; a file that ends too early gives what is there, as recorders that were cut
/// off leave it, and so does one whose sound has no size yet. Whatever else is wrong with it is
/// told by the error. In any thread; at the limit the samples take 240 MB.
/// @param device that is open for reading, at the file's first byte; a sequential one, such as a
/// pipe, is read until it has no more at once
MORRANT_UI_EXPORT WavSound readWav(QIODevice& device);

/// A sound as a TimeEditorSoundItem draws it.
struct SoundFile
{
    QString name = {}; ///< the file's, without its suffix; empty, too, where there is none
    double rate = 0.0; ///< samples a second
    std::shared_ptr<const SoundPeaks> peaks = {}; ///< null for no sound
    QString error = {};                           ///< why there is none, as of a WavSound
};

/// Reads a file by readWav(), in any thread, too.
MORRANT_UI_EXPORT SoundFile readSoundFile(const QString& path);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
// Any bytes as a WAV file: a sound that the bytes have room for, or a sentence.

#include "fuzzing.h"
#include <MorrantUI/timeeditor/soundfile.h>

#include <QBuffer>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    check(buffer.open(QIODevice::ReadOnly), "the bytes open");
    const ui::WavSound sound = ui::readWav(buffer);
    check(sound.samples.empty() != sound.error.isEmpty(), "samples or an error");
    check(sound.samples.size() <= size, "a sample is a byte at least");
    check(sound.error.isEmpty() == (sound.rate > 0.0), "a sound has a rate");
    const ui::SoundPeaks peaks(sound.samples);
    const ui::SoundPeak all = peaks.peak(0, peaks.size());
    check(all.low >= -1.0F && all.high <= 1.0F, "peaks are within -1 and 1");
    return 0;
}

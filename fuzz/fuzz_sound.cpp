// SPDX-License-Identifier: Apache-2.0
// Any bytes as a WAV file: a sound that the bytes have room for, or a sentence.

#include "fuzzing.h"
#include <MorrantUI/timeeditor/soundfile.h>

#include <QBuffer>

#include <algorithm>
#include <cstdint>

namespace {

/// The same bytes in pieces, and nobody knows how many.
class Pipe : public QIODevice
{
public:
    explicit Pipe(const QByteArray& bytes)
        : m_bytes(bytes)
    {
        open(ReadOnly);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 most) override
    {
        const qint64 count = std::min<qint64>({most, 100, m_bytes.size() - m_given});
        std::copy_n(m_bytes.constData() + m_given, count, data);
        m_given += count;
        return count;
    }
    qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

private:
    const QByteArray& m_bytes;
    qint64 m_given = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    check(buffer.open(QIODevice::ReadOnly), "the bytes open");
    const ui::WavSound sound = ui::readWav(buffer);
    check(sound.samples.empty() != sound.error.isEmpty(), "samples or an error");
    check(sound.samples.size() <= size, "a sample is a byte at least");
    check(sound.error.isEmpty() == (sound.rate > 0.0), "a sound has a rate");
    Pipe pipe(bytes);
    check(ui::readWav(pipe).samples.size() <= size, "nor are there more in pieces");
    const ui::SoundPeaks peaks(sound.samples);
    const ui::SoundPeak all = peaks.peak(0, peaks.size());
    check(all.low >= -1.0F && all.high <= 1.0F, "peaks are within -1 and 1");
    return 0;
}

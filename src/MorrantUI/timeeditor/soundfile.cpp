// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/soundfile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace ui {

namespace {

constexpr int kPcm = 1; ///< format tags
constexpr int kFloat = 3;
constexpr int kExtensible = 0xFFFE;
constexpr qint64 kFormatBytes = 16;     ///< of the least "fmt " chunk
constexpr qint64 kExtensibleBytes = 40; ///< of one with a format behind it
constexpr int kSubFormat = 24;          ///< where that begins; the tag are its first two bytes
constexpr qint64 kFramesAtOnce = 16384;
constexpr int kMostChunks = 1000; ///< before the sound
constexpr int kMostChannels = 8;
constexpr qint64 kUnknownSize = 0xFFFF'FFFF;
constexpr quint32 kMostSampleRate = 768'000;

/// What follows the tag in the names of all formats that have one.
constexpr std::array<unsigned char, 14> kSubFormatTail = {
    0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80, 0x00, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71};

/// A text of this file's, in a context of its own.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ui::sound)
};

struct Format
{
    int tag = 0;
    int channels = 0;
    int bits = 0; ///< of a sample
    quint32 rate = 0;

    int sampleBytes() const { return bits / 8; }
    int frameBytes() const { return sampleBytes() * channels; }
};

template <typename Number>
Number at(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<Number>(bytes.constData() + offset);
}

/// @return what is wrong with a format; empty for one that can be read
QString complaint(const Format& format, int blockAlign)
{
    const bool isPcm =
        format.tag == kPcm
        && (format.bits == 8 || format.bits == 16 || format.bits == 24 || format.bits == 32);
    const bool isFloat = format.tag == kFloat && (format.bits == 32 || format.bits == 64);
    if (!isPcm && !isFloat) {
        return Texts::tr("its samples are neither PCM nor floating point numbers");
    }
    if (format.channels < 1 || format.channels > kMostChannels) {
        return Texts::tr("it has %1 channels").arg(format.channels);
    }
    if (format.rate < 1 || format.rate > kMostSampleRate) {
        return Texts::tr("it has %1 samples a second").arg(format.rate);
    }
    return blockAlign == format.frameBytes() ? QString()
                                             : Texts::tr("its format contradicts itself");
}

/// What a float cannot hold is held at its ends.
float narrowed(double sample)
{
    constexpr double kMost = std::numeric_limits<float>::max();
    return std::isnan(sample) ? 0.0F : static_cast<float>(std::clamp(sample, -kMost, kMost));
}

/// One sample, -1 to 1 for whole numbers.
float sampleAt(const char* bytes, const Format& format)
{
    constexpr float kScale = 1.0F / 2147483648.0F; // of 32 bits
    if (format.tag == kFloat) {
        return format.bits == 32 ? qFromLittleEndian<float>(bytes)
                                 : narrowed(qFromLittleEndian<double>(bytes));
    }
    if (format.bits == 8) {
        return (static_cast<float>(static_cast<unsigned char>(*bytes)) - 128.0F) / 128.0F;
    }
    std::array<char, 4> widened{}; // the sample's bytes are the highest
    const auto size = static_cast<std::size_t>(format.sampleBytes());
    std::memcpy(widened.data() + widened.size() - size, bytes, size);
    return static_cast<float>(qFromLittleEndian<qint32>(widened.data())) * kScale;
}

class WavReader
{
public:
    explicit WavReader(QIODevice& device)
        : m_device(device)
    {}

    WavSound read()
    {
        const QByteArray head = next(12);
        if (head.size() < 12 || !head.startsWith("RIFF") || head.mid(8) != "WAVE") {
            return refused(Texts::tr("it is no WAV file"));
        }
        m_end = qint64(at<quint32>(head, 4)) + 8;
        for (int chunks = 0; chunks < kMostChunks; ++chunks) {
            const QByteArray chunk = next(8);
            if (chunk.size() < 8) {
                break;
            }
            const auto size = qint64(at<quint32>(chunk, 4));
            if (chunk.startsWith("fmt ")) {
                const QString error = readFormat(size);
                if (!error.isEmpty()) {
                    return refused(error);
                }
            } else if (chunk.startsWith("data")) {
                return readSamples(size);
            } else {
                skip(size + size % 2);
            }
        }
        return refused(Texts::tr("it holds no sound"));
    }

private:
    static WavSound refused(const QString& error) { return {{}, 0, error}; }

    /// As many bytes as there are: a sequential device gives them in pieces.
    QByteArray next(qint64 count)
    {
        QByteArray bytes;
        while (bytes.size() < count) {
            const QByteArray piece = m_device.read(count - bytes.size());
            if (piece.isEmpty()) {
                break;
            }
            bytes += piece;
        }
        m_read += bytes.size();
        return bytes;
    }

    void skip(qint64 bytes)
    {
        m_read += std::max<qint64>(0, m_device.skip(bytes)); // at the end the next chunk is missing
    }

    QString readFormat(qint64 size)
    {
        const QByteArray bytes = next(std::min(size, kExtensibleBytes));
        if (bytes.size() < kFormatBytes) {
            return Texts::tr("its format is incomplete");
        }
        Format format{
            at<quint16>(bytes, 0),
            at<quint16>(bytes, 2),
            at<quint16>(bytes, 14),
            at<quint32>(bytes, 4)};
        if (format.tag == kExtensible && bytes.size() >= kExtensibleBytes
            && std::memcmp(
                   bytes.constData() + kSubFormat + 2, kSubFormatTail.data(), kSubFormatTail.size())
                   == 0)
        {
            format.tag = at<quint16>(bytes, kSubFormat);
        }
        skip(size + size % 2 - bytes.size());
        m_format = format;
        return complaint(format, at<quint16>(bytes, 12));
    }

    WavSound readSamples(qint64 size)
    {
        if (!m_format) {
            return refused(Texts::tr("its format comes too late"));
        }
        // While it is written a recorder knows no size; an empty sound may have chunks behind it.
        const bool isOpen = size == kUnknownSize || (size == 0 && m_end <= m_read);
        const qint64 most = (kMostSoundSamples + 1) * m_format->frameBytes();
        qint64 there = isOpen ? most : size;
        if (!m_device.isSequential()) {
            there = std::min(there, m_device.size() - m_device.pos());
        }
        const qint64 frames = there / m_format->frameBytes();
        if (frames > kMostSoundSamples && !(isOpen && m_device.isSequential())) {
            return refused(Texts::tr("it is too long"));
        }
        WavSound result{{}, static_cast<double>(m_format->rate), {}};
        if (!m_device.isSequential()) { // else nobody knows
            result.samples.reserve(static_cast<std::size_t>(std::max<qint64>(0, frames)));
        }
        for (qint64 left = frames; left > 0;) {
            const qint64 wanted = std::min(left, kFramesAtOnce);
            const QByteArray block = next(wanted * m_format->frameBytes());
            const qint64 got = block.size() / m_format->frameBytes();
            mix(block, got, result.samples);
            left = got == wanted ? left - got : 0;
        }
        if (result.samples.size() > static_cast<std::size_t>(kMostSoundSamples)) {
            return refused(Texts::tr("it is too long"));
        }
        return result.samples.empty() ? refused(Texts::tr("it holds no sound")) : std::move(result);
    }

    void mix(const QByteArray& block, qint64 frames, std::vector<float>& samples) const
    {
        const char* bytes = block.constData();
        for (qint64 i = 0; i < frames; ++i) {
            float sum = 0.0F;
            for (int channel = 0; channel < m_format->channels; ++channel) {
                sum += sampleAt(bytes, *m_format);
                bytes += m_format->sampleBytes();
            }
            samples.push_back(sum / static_cast<float>(m_format->channels));
        }
    }

    QIODevice& m_device;
    qint64 m_read = 0; ///< bytes, which sequential devices do not count
    qint64 m_end = 0;  ///< of the file as its head has it
    std::optional<Format> m_format;
};

} // namespace

WavSound readWav(QIODevice& device)
{
    return WavReader(device).read();
}

SoundFile readSoundFile(const QString& path)
{
    SoundFile sound;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        sound.error = Texts::tr("it cannot be opened");
        return sound;
    }
    WavSound wav = readWav(file);
    sound.error = wav.error;
    if (wav.error.isEmpty()) {
        sound.name = QFileInfo(path).completeBaseName();
        sound.rate = wav.rate;
        sound.peaks = std::make_shared<const SoundPeaks>(std::move(wav.samples));
    }
    return sound;
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "support/TestCase.h"
#include <MorrantUI/timeeditor/soundfile.h>

namespace {

template <typename Number>
QByteArray bytesOf(std::initializer_list<Number> numbers)
{
    QByteArray bytes;
    for (const Number number : numbers) {
        const Number little = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
    }
    return bytes;
}

QByteArray chunk(const char* name, const QByteArray& content)
{
    const QByteArray size = bytesOf<quint32>({quint32(content.size())});
    return name + size + content + QByteArray(content.size() % 2, '\0');
}

QByteArray format(quint16 tag, quint16 channels, quint16 bits, quint32 rate = 8000)
{
    const auto align = quint16(channels * bits / 8);
    return bytesOf<quint16>({tag, channels}) + bytesOf<quint32>({rate, rate * align})
           + bytesOf<quint16>({align, bits});
}

QByteArray extensible(const QByteArray& plain, quint16 tag, char last = '\x71')
{
    QByteArray wide = bytesOf<quint16>({0xFFFE}) + plain.mid(2) + bytesOf<quint16>({22, 24});
    return wide + bytesOf<quint32>({4}) + bytesOf<quint16>({tag})
           + QByteArray("\0\0\0\0\x10\0\x80\0\0\xaa\0\x38\x9b", 13) + last;
}

QByteArray wav(const QByteArray& format, const QByteArray& data)
{
    const QByteArray chunks = chunk("LIST", "odd") + chunk("fmt ", format) + chunk("data", data);
    return "RIFF" + bytesOf<quint32>({quint32(chunks.size() + 4)}) + "WAVE" + chunks;
}

/// As a recorder leaves it that was cut off.
QByteArray unsized(QByteArray wav, int dataBytes, quint32 size)
{
    wav.replace(4, 4, bytesOf<quint32>({size}));
    return wav.replace(wav.size() - dataBytes - 4, 4, bytesOf<quint32>({size}));
}

/// Bytes in pieces, and nobody knows how many.
struct Pipe : QIODevice
{
    explicit Pipe(QByteArray all)
        : bytes(std::move(all))
    {
        open(ReadOnly);
    }
    bool isSequential() const override { return true; }
    qint64 readData(char* data, qint64 most) override
    {
        const auto count = std::min<qint64>({most, 7, bytes.size()});
        std::copy_n(bytes.constData(), count, data);
        bytes.remove(0, count);
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

    QByteArray bytes;
};

ui::WavSound readBytes(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return ui::readWav(buffer);
}

} // namespace

class SoundFileTest : public ui::test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void everyFormatIsReadAsOneChannel()
    {
        const QByteArray wide = bytesOf<qint16>({-32768, 0, 16384, 0});
        const auto floats = bytesOf<float>({-1.0F, 0.5F});
        const std::pair<QByteArray, std::vector<float>> cases[] = {
            {wav(format(1, 1, 8), QByteArray("\x00\x80\xc0", 3)), {-1.0F, 0.0F, 0.5F}},
            {wav(format(1, 1, 16), wide), {-1.0F, 0.0F, 0.5F, 0.0F}},
            {wav(format(1, 2, 16), wide), {-0.5F, 0.25F}},
            {wav(format(1, 1, 24), QByteArray("\0\0\x80\0\0\x40", 6)), {-1.0F, 0.5F}},
            {wav(format(1, 1, 32), bytesOf<qint32>({-2147483647 - 1, 1 << 30})), {-1.0F, 0.5F}},
            {wav(format(3, 1, 32), floats), {-1.0F, 0.5F}},
            {wav(format(3, 2, 64), bytesOf<double>({1.0, 0.0})), {0.5F}},
            {wav(extensible(format(1, 2, 16), 1), wide), {-0.5F, 0.25F}},
            {wav(extensible(format(3, 1, 32), 3), floats), {-1.0F, 0.5F}},
            {wav(format(3, 1, 64), bytesOf<double>({1e300})), {std::numeric_limits<float>::max()}},
            {unsized(wav(format(1, 2, 16), wide), 8, 0), {-0.5F, 0.25F}},
            {unsized(wav(format(1, 2, 16), wide), 8, 0xFFFFFFFF), {-0.5F, 0.25F}},
            {wav(format(1, 1, 16), wide).chopped(3), {-1.0F, 0.0F}}}; // cut off in a sample
        for (const auto& [bytes, samples] : cases) {
            const ui::WavSound result = readBytes(bytes);
            QCOMPARE(result.error, QString());
            QVERIFY(result.samples == samples);
            QCOMPARE(result.rate, 8000.0);
            Pipe pipe(bytes);
            QVERIFY(ui::readWav(pipe).samples == samples);
        }
    }

    void whatIsDamagedIsRefusedInASentence()
    {
        const QByteArray good = wav(format(1, 1, 16), bytesOf<qint16>({1, 2}));
        const QByteArray endless = wav(format(1, 1, 16), {}).chopped(4) + "\xff\xff\xff\xff";
        std::vector<QByteArray> cases = {
            {},
            good.left(40),
            endless,
            wav(format(1, 1, 16), {}).replace(4, 1, "@") + chunk("LIST", "no samples"),
            wav(extensible(format(1, 1, 16), 1, 'x'), "ab"),
            "RIFF\1\0\0\0WAVE" + QByteArray(64 << 10, '\0')};
        for (const char* name : {"WAVE", "data", "fmt "}) {
            cases.push_back(QByteArray(good).replace(name, "what"));
        }
        for (const QByteArray& bad :
             {format(2, 1, 16),
              format(1, 0, 16),
              format(1, 99, 16),
              format(1, 1, 12),
              format(3, 1, 16),
              format(1, 1, 16, 0),
              format(1, 1, 16, 4'000'000'000)})
        {
            cases.push_back(wav(bad, "abcd"));
        }
        for (const QByteArray& bytes : cases) {
            const ui::WavSound result = readBytes(bytes);
            QVERIFY2(!result.error.isEmpty() && result.samples.empty(), bytes.left(64).toHex());
        }
        // Whatever a byte says: nothing but samples that are there.
        for (int i = 0; i < good.size(); ++i) {
            for (const char byte : {'\x00', '\x01', '\x7f', '\xff'}) {
                QByteArray bytes = good;
                bytes[i] = byte;
                QVERIFY(readBytes(bytes).samples.size() <= 4);
            }
        }
    }
};

const ui::test::Registration<SoundFileTest> kRegistration;

#include "tst_soundfile.moc"

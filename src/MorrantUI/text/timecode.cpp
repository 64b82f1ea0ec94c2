// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/text/timecode.h"

#include "MorrantUI/text/wholerate.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace ui {

namespace {

constexpr int kSecondsInMinute = 60;
constexpr int kMinutesInHour = 60;
constexpr int kFieldDigits = 2;
constexpr std::size_t kMostFields = 4;

/// More than any frame, and far from where sums of fields in 64 bits would overflow.
constexpr std::int64_t kMostCounted = std::int64_t(1) << 32;

QString padded(std::int64_t number, qsizetype digits)
{
    return QString::number(number).rightJustified(digits, u'0');
}

bool isSeparator(char32_t c)
{
    constexpr char32_t kFullWidthColon = 0xFF1A;
    return c == U':' || c == U';' || c == U'.' || c == kFullWidthColon;
}

bool isMinus(char32_t c)
{
    constexpr char32_t kMinusSign = 0x2212;
    constexpr char32_t kFullWidthMinus = 0xFF0D;
    return c == U'-' || c == kMinusSign || c == kFullWidthMinus;
}

std::optional<int> decimalDigit(char32_t c)
{
    return QChar::category(c) == QChar::Number_DecimalDigit ? std::optional(QChar::digitValue(c))
                                                            : std::nullopt;
}

/// The fields from the left, at the end of the array.
using Fields = std::array<std::int64_t, kMostFields>;

std::optional<Fields> readFields(const QList<uint>& text, qsizetype from)
{
    Fields fields{};
    std::size_t count = 1;
    bool hasDigit = false;
    for (qsizetype i = from; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (isSeparator(c)) {
            if (++count > kMostFields) {
                return std::nullopt;
            }
            std::rotate(fields.begin(), fields.begin() + 1, fields.end()); // the first is still 0
            continue;
        }
        const auto digit = decimalDigit(c);
        if (!digit) {
            return std::nullopt;
        }
        hasDigit = true;
        fields.back() = std::min(fields.back() * 10 + *digit, kMostCounted);
    }
    return hasDigit ? std::optional(fields) : std::nullopt;
}

/// a * factor + b, limited; both at most kMostCounted, the factor at most 2^31.
std::int64_t carried(std::int64_t a, std::int64_t factor, std::int64_t b)
{
    return a > kMostCounted / factor ? kMostCounted : std::min(a * factor + b, kMostCounted);
}

} // namespace

QString timeCode(int frame, double framesPerSecond)
{
    const std::int64_t rate = wholeRate(framesPerSecond);
    if (rate == 0) {
        return {};
    }
    const std::int64_t frames = std::abs(std::int64_t(frame));
    const std::int64_t seconds = frames / rate;
    const std::int64_t minutes = seconds / kSecondsInMinute;
    const qsizetype frameDigits =
        std::max<qsizetype>(kFieldDigits, QString::number(rate - 1).size());
    return QStringLiteral("%1%2:%3:%4:%5")
        .arg(
            frame < 0 ? QStringLiteral("-") : QString(),
            padded(minutes / kMinutesInHour, kFieldDigits),
            padded(minutes % kMinutesInHour, kFieldDigits),
            padded(seconds % kSecondsInMinute, kFieldDigits),
            padded(frames % rate, frameDigits));
}

std::optional<int> framesFromTimeCode(const QString& text, double framesPerSecond)
{
    const std::int64_t rate = wholeRate(framesPerSecond);
    const QList<uint> characters = text.trimmed().toUcs4();
    if (rate == 0 || characters.isEmpty()) {
        return std::nullopt;
    }
    const bool isNegative = isMinus(characters.first());
    const auto fields = readFields(characters, isNegative || characters.first() == U'+' ? 1 : 0);
    if (!fields) {
        return std::nullopt;
    }
    const auto& [hours, minutes, seconds, frames] = *fields;
    const std::int64_t total = carried(
        carried(carried(hours, kMinutesInHour, minutes), kSecondsInMinute, seconds), rate, frames);
    constexpr std::int64_t kLeast = std::numeric_limits<int>::min();
    constexpr std::int64_t kMost = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(isNegative ? -total : total, kLeast, kMost));
}

} // namespace ui

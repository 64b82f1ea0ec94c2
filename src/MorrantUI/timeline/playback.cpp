// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/playback.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr double kHundredths = 100.0; ///< in a second
constexpr double kMostHundredths = 1e15;
constexpr double kThousandths = 1000.0;
constexpr int kRateDigits = 7;
constexpr double kRounding = 1e-6; ///< frames

QLocale ungrouped(QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale;
}

QString twoDigits(const QLocale& locale, qint64 value)
{
    return (value < 10 ? locale.zeroDigit() : QString()) + locale.toString(value);
}

} // namespace

FrameRange wholeFrames(double in, double out)
{
    const int first = saturatedFrame(std::ceil(in - kRounding));
    const int last = saturatedFrame(std::ceil(out - kRounding) - 1.0);
    return {first, std::max(first, last)};
}

QString timeText(int frame, double framesPerSecond, const QLocale& locale)
{
    const double frames = std::abs(static_cast<double>(frame));
    const double wanted = framesPerSecond > 0.0 ? frames / framesPerSecond * kHundredths : 0.0;
    const qint64 hundredths = std::llround(std::min(wanted, kMostHundredths));
    const QLocale plain = ungrouped(locale);
    return (frame < 0 && hundredths > 0 ? plain.negativeSign() : QString())
           + plain.toString(hundredths / 6000) + u':' + twoDigits(plain, hundredths / 100 % 60)
           + plain.decimalPoint() + twoDigits(plain, hundredths % 100);
}

QString rateText(double framesPerSecond, const QLocale& locale)
{
    const bool isRate = std::isfinite(framesPerSecond) && framesPerSecond > 0.0;
    const double rate = isRate ? framesPerSecond : 0.0;
    const double rounded = std::round(rate * kThousandths) / kThousandths;
    return QCoreApplication::translate("ui::playback", "%1 fps")
        .arg(ungrouped(locale).toString(rounded, 'g', kRateDigits));
}

} // namespace ui

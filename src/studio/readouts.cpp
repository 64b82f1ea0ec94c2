// SPDX-License-Identifier: Apache-2.0
#include "readouts.h"

#include "texts.h"

#include <cmath>

namespace studio {

namespace {

/// Plain digits: a group separator in a running number makes it jump.
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

QString timeText(int frame, double rate, const QLocale& locale)
{
    const qint64 hundredths = rate > 0 ? std::llround(std::abs(frame) / rate * 100.0) : 0;
    const QLocale plain = ungrouped(locale);
    return (frame < 0 ? plain.negativeSign() : QString()) + plain.toString(hundredths / 6000) + u':'
           + twoDigits(plain, hundredths / 100 % 60) + plain.decimalPoint()
           + twoDigits(plain, hundredths % 100);
}

QString rateText(double rate, const QLocale& locale)
{
    const QLocale plain = ungrouped(locale);
    return tr("%1 fps").arg(plain.toString(std::round(rate * 1000.0) / 1000.0, 'g', 7));
}

QString sizeText(int width, int height, const QLocale& locale)
{
    const QLocale plain = ungrouped(locale);
    return tr("%1 × %2").arg(plain.toString(width), plain.toString(height));
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLocale>
#include <QString>

namespace studio {

/// Numbers as the user reads them, in the user's own format.

QString timeText(int frame, double rate, const QLocale& locale = {}); ///< "1:02.50"
QString rateText(double rate, const QLocale& locale = {});            ///< "29.97 fps"
QString sizeText(int width, int height, const QLocale& locale = {});  ///< "1920 × 1080"

} // namespace studio

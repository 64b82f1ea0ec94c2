// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/scene/dragreadout.h"

#include <QCoreApplication>
#include <QMarginsF>

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr QMarginsF kPadding(7.0, 3.0, 7.0, 3.0);
constexpr QPointF kFromPointer(14.0, -8.0); ///< to the lower left corner
constexpr double kBelowPointer = 22.0;
constexpr double kFromEdge = 4.0;

QString frameText(double frame)
{
    const double parts = std::round(std::abs(frame) * 100.0);
    const QString digits =
        QString::number(parts / 100.0, 'f', std::fmod(parts, 100.0) == 0.0 ? 0 : 2);
    return frame < 0.0 && parts > 0.0 ? QChar(0x2212) + digits : digits;
}

} // namespace

QString movedText(double moved, double now)
{
    const QString sign = moved > 0.0 ? QStringLiteral("+") : QString();
    return QCoreApplication::translate("DragReadout", "%1  \u2192  %2")
        .arg(sign + frameText(moved), frameText(now));
}

QRectF readoutRect(QSizeF text, QPointF pointer, QSizeF viewport)
{
    QRectF rect = QRectF(QPointF(), text).marginsAdded(kPadding);
    rect.moveBottomLeft(pointer + kFromPointer);
    if (rect.top() < kFromEdge) {
        rect.moveTop(pointer.y() + kBelowPointer);
    }
    const auto held = [](double place, double length, double room) {
        return std::max(kFromEdge, std::min(place, room - kFromEdge - length));
    };
    rect.moveTopLeft(
        {held(rect.left(), rect.width(), viewport.width()),
         held(rect.top(), rect.height(), viewport.height())});
    return rect;
}

} // namespace ui

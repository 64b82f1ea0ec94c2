// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/padmath.h"

#include <QCoreApplication>

#include <cmath>
#include <numbers>

namespace ui {

namespace {

constexpr double kFullTurn = 360.0; ///< degrees

QString shortNumber(double value)
{
    QString text = QString::number(value, 'f', 2);
    while (text.endsWith(u'0')) {
        text.chop(1);
    }
    if (text.endsWith(u'.')) {
        text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

} // namespace

std::optional<double> directionOf(const QPointF& fromCenter)
{
    if (!(std::hypot(fromCenter.x(), fromCenter.y()) >= kDeadRadius)) {
        return std::nullopt;
    }
    const double degrees = std::atan2(fromCenter.x(), -fromCenter.y()) * 180.0 / std::numbers::pi;
    return degrees < 0.0 ? degrees + kFullTurn : degrees;
}

double shortestTurn(double from, double to)
{
    const double turn = std::remainder(to - from, kFullTurn);
    return turn == -kFullTurn / 2 ? kFullTurn / 2 : turn;
}

double TurnTracker::advance(const QPointF& fromCenter)
{
    const std::optional<double> direction = directionOf(fromCenter);
    if (!direction) {
        return 0.0;
    }
    const double turned = m_direction ? shortestTurn(*m_direction, *direction) : 0.0;
    m_direction = direction;
    return turned;
}

Turns turnsOf(double degrees)
{
    const double whole = std::trunc(degrees / kFullTurn);
    return {static_cast<int>(whole), degrees - whole * kFullTurn};
}

QString angleText(double degrees)
{
    // Rounded first: 359.999 is a whole turn in this many decimals.
    const Turns turns = turnsOf(std::round(degrees * 100.0) / 100.0);
    const QString rest =
        QCoreApplication::translate("AnglePad", "%1°").arg(shortNumber(turns.rest));
    return turns.whole == 0
               ? rest
               : QCoreApplication::translate("AnglePad", "%1× %2", "whole turns and degrees")
                     .arg(turns.whole)
                     .arg(rest);
}

double nearestMultiple(double value, double step)
{
    return step > 0.0 ? std::round(value / step) * step : value;
}

QPointF alongOneAxis(const QPointF& movement)
{
    return std::abs(movement.y()) > std::abs(movement.x()) ? QPointF(0.0, movement.y())
                                                           : QPointF(movement.x(), 0.0);
}

QPointF PadArea::pointOf(const num2<double>& value) const
{
    const auto share = [](double number, double least, double greatest) {
        const double width = greatest / 2 - least / 2; // which need not be a number itself
        return width > 0.0 ? (number / 2 - least / 2) / width : 0.5;
    };
    const double right = share(value.x, minimum.x, maximum.x);
    const double grown = share(value.y, minimum.y, maximum.y);
    const double down = yDownwards ? grown : 1.0 - grown;
    return {rect.left() + right * rect.width(), rect.top() + down * rect.height()};
}

num2<double> PadArea::valueAt(const QPointF& point) const
{
    const double right = rect.width() > 0.0 ? (point.x() - rect.left()) / rect.width() : 0.0;
    const double down =
        rect.height() > 0.0 ? (point.y() - rect.top()) / rect.height() : (yDownwards ? 0.0 : 1.0);
    return {
        std::lerp(minimum.x, maximum.x, right),
        std::lerp(minimum.y, maximum.y, yDownwards ? down : 1.0 - down)};
}

} // namespace ui

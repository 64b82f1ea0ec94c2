// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <Core/num2.h>

#include <QPointF>
#include <QRectF>
#include <QString>

#include <optional>

/// From points to angles and pairs of numbers, and back. Lengths are logical pixels, y downwards.
namespace ui {

/// Nearer to its centre than this a dial cannot tell a direction.
inline constexpr double kDeadRadius = 3.0;

/// Which way a point lies from a centre, in degrees from 0 (up), clockwise, below 360. Nothing
/// within kDeadRadius.
MORRANT_UI_EXPORT std::optional<double> directionOf(const QPointF& fromCenter);

/// Degrees of the shortest turn from one direction to another: over -180, up to 180.
MORRANT_UI_EXPORT double shortestTurn(double from, double to);

/// Adds up how far a pointer turns round a centre. Through the centre it goes by the shortest way
/// from where the dead radius was entered to where it is left.
class MORRANT_UI_EXPORT TurnTracker
{
public:
    void start(const QPointF& fromCenter) { m_direction = directionOf(fromCenter); }
    /// Degrees turned since the last point, clockwise positive.
    double advance(const QPointF& fromCenter);

private:
    std::optional<double> m_direction;
};

/// An angle as whole turns and what is left of it, both of the angle's sign.
struct Turns
{
    int whole = 0;
    double rest = 0.0; ///< degrees, below 360 in amount
};
MORRANT_UI_EXPORT Turns turnsOf(double degrees);

/// The angle as people say it: "-1× -30°", without turns "30°"; at most two decimals.
MORRANT_UI_EXPORT QString angleText(double degrees);

/// The nearest multiple of `step`, halves away from zero; the value itself when the step is not
/// above 0.
MORRANT_UI_EXPORT double nearestMultiple(double value, double step);

/// The movement along that axis alone on which it is longer; x when they are alike.
MORRANT_UI_EXPORT QPointF alongOneAxis(const QPointF& movement);

/// A rectangle whose sides are two ranges of numbers.
struct MORRANT_UI_EXPORT PadArea
{
    QRectF rect; ///< that the middle of the handle can reach
    num2<double> minimum;
    num2<double> maximum;
    bool yDownwards = false;

    /// The point of a pair; the middle on an axis that has no length.
    QPointF pointOf(const num2<double>& value) const;
    /// The pair of a point, beyond the limits outside the rectangle; the minimum on an axis that
    /// has no length on screen.
    num2<double> valueAt(const QPointF& point) const;
};

} // namespace ui

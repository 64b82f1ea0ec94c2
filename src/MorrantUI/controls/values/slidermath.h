// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <QRectF>
#include <Qt>

/// From points of a slider to values, and back. Lengths are logical pixels.
namespace ui {

/// The groove of a slider and the numbers at its ends.
struct MORRANT_UI_EXPORT SliderScale
{
    double left = 0.0;  ///< the middle of the handle at the left end
    double right = 0.0; ///< and at the right end
    double minimum = 0.0;
    double maximum = 1.0;
    Qt::LayoutDirection direction = Qt::LeftToRight;

    /// Where the middle of the handle is; a value outside the scale is at its end.
    double xOf(double value) const;
    /// The value of a position; limited to the scale, the minimum when that has no length.
    double valueAt(double x) const;
};

/// What a slider spans and how its values step.
struct SliderSetup
{
    double minimum = 0.0; ///< the hard range
    double maximum = 1.0;
    double softMinimum = 0.0; ///< of the slider's ends
    double softMaximum = 1.0;
    double step = 0.01;
    double resetValue = 0.0;
    int decimals = 2;

    bool operator==(const SliderSetup&) const = default;
};

/// The value rounded to decimals (0 to 15, others are limited), halves away from zero.
MORRANT_UI_EXPORT double roundedTo(double value, int decimals);

/// A value from the slider as its user wants it: the nearest multiple of `step`, unless an end of
/// the range is nearer, with so many decimals at most.
MORRANT_UI_EXPORT double steppedValue(
    double value, double minimum, double maximum, double step, int decimals);

/// How far a key moves a value: the step times `factor`, but never less than the last decimal.
MORRANT_UI_EXPORT double keyStep(double step, double factor, int decimals);

/// The part of the groove between the value and where the fill begins: at 0 when the scale spans
/// it, else at the minimum. `groove` gives top and height.
MORRANT_UI_EXPORT QRectF filledGroove(const SliderScale& scale, const QRectF& groove, double value);

} // namespace ui

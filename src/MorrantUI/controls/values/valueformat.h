// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/morrantui_export.h>

#include <QString>

/// The arithmetic of number fields, without a field.
namespace ui {

/// Hard limits and kind of a number.
struct NumberRange
{
    double min = -2147483648.0;
    double max = 2147483647.0;
    bool isInteger = true;
};

/// The value within the limits, NaN counting as 0. Limits that cross give the maximum.
MORRANT_UI_EXPORT double limitValue(double value, const NumberRange& range);

/// The limited value as a field shows it, in any locale with a decimal point and without grouping:
/// a whole number, halves rounded away from zero, or one to three decimals ("2.0"). A negative
/// value that rounds to nothing shows as "-0.0".
MORRANT_UI_EXPORT QString formatValue(double value, const NumberRange& range);

/// Whether two limits span a range: finite, and in order or alike.
MORRANT_UI_EXPORT bool isRange(double minimum, double maximum);

/// The limits that a field takes when it is asked for `limit`: within 32 bits on that side for
/// integers, always finite. `limit` is not NaN.
MORRANT_UI_EXPORT double acceptedMin(double limit, bool isInteger);
MORRANT_UI_EXPORT double acceptedMax(double limit, bool isInteger);

/// A drag as it stands.
struct ScrubState
{
    double startValue = 0.0;
    double distance = 0.0; ///< logical pixels to the right since the drag distance was passed
    double valuePerPixel = 1.0;
    double softMin = 0.0;
    double softMax = 0.0;
};

/// Where a drag has taken the value, limited to the soft and hard limits on the sides where it
/// began inside them. A drag that began outside is deliberately not pulled in: a typed value can
/// still be dragged from where it is.
MORRANT_UI_EXPORT double scrubbedValue(const ScrubState& scrub, const NumberRange& range);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>

#include <optional>

/// Time codes, "HH:MM:SS:FF", of whole frames. No frame number is dropped: a second has as many
/// frames as the rate rounded to a whole number, at least one, so that 29.97 counts as 30.
namespace ui {

/// The time code of a frame. Hours beyond 99 take more digits, frames as many as the rate's last
/// one, a negative frame has a minus sign before it.
/// @param framesPerSecond empty text unless finite and above 0
MORRANT_UI_EXPORT QString timeCode(int frame, double framesPerSecond);

/// The frame that a user means. Fields are read from the right: frames, seconds, minutes, hours;
/// those on the left may be left out, empty ones count as 0, and a field may go beyond its range:
/// "12" is frame 12, "1:02" is a second and two frames, "0:90" ninety frames. Fields may also be
/// separated by ';' or '.', digits be those of any script, space around the text does not count,
/// and a sign may go before it.
/// @return limited to the range of int; none for any other text, and unless the rate is finite and
///     above 0
MORRANT_UI_EXPORT std::optional<int> framesFromTimeCode(
    const QString& text, double framesPerSecond);

} // namespace ui

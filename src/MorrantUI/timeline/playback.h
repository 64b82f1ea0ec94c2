// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/framemath.h>

#include <QLocale>
#include <QString>

/// What is played, and when, in numbers and as the user reads it.
namespace ui {

/// The whole frames within [in, out), as documents give them in parts of frames: for
/// PlaybackClock::setTrack(). A millionth of a frame counts as rounding. What is over before its
/// first whole frame has that one alone; times that are no frames are held at the ends of 32 bits,
/// and what is no number counts as 0.
MORRANT_UI_EXPORT FrameRange wholeFrames(double in, double out);

/// When a frame is shown, in minutes, seconds and hundredths, "1:02.50". In plain digits, since
/// group separators in a running number make it jump.
/// @param framesPerSecond one that is not above 0 gives 0
MORRANT_UI_EXPORT QString timeText(int frame, double framesPerSecond, const QLocale& locale = {});

/// A rate with at most three decimals, "29.97 fps"; 0 for one that is not above 0 and finite.
MORRANT_UI_EXPORT QString rateText(double framesPerSecond, const QLocale& locale = {});

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

namespace studio {

/// The whole frames that a document plays. Never empty.
struct FrameRange
{
    int first = 0;
    int last = 0; ///< inclusive

    int count() const { return last - first + 1; }
    int clamped(int frame) const { return qBound(first, frame, last); }
    bool operator==(const FrameRange&) const = default;
};

/// The whole frames within [in, out). A document that is over before its first whole frame plays
/// that one, which is then empty.
FrameRange frameRange(double in, double out);

/// Whole frames that have passed after so many seconds. A millionth of a frame counts as rounding.
/// Negative or non-finite times count as none.
qint64 framesPassed(double seconds, double rate);

/// The frame shown so many seconds after `startFrame`: looping over the range, or staying at its
/// end.
int frameAt(double seconds, double rate, FrameRange range, int startFrame, bool loops);

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>

#include <QPointF>

/// A key of a ValueGraphCurve, in frames and in the value's own unit, which grows upward.
struct ValueGraphKey
{
    double time = 0.0; ///< frames, as DopeSheetKey::frame; the one of a GraphCurveKey is 0 to 1
    double value = 0.0;
    QPointF leftHandle = {};  ///< from the key: frames, and value upward; none lies on the key
    QPointF rightHandle = {}; ///< likewise
    ui::Graph::Interpolation interpolation = ui::Graph::Interpolation::Linear;
    bool hold = false;         ///< the value stays up to the next key
    bool handlesLocked = true; ///< they move as a pair

    /// To the last digit, in the handles too, which QPointF would compare roughly.
    friend bool operator==(const ValueGraphKey& a, const ValueGraphKey& b)
    {
        const auto isSame = [](QPointF place, QPointF other) {
            return place.x() == other.x() && place.y() == other.y();
        };
        return a.time == b.time && a.value == b.value && isSame(a.leftHandle, b.leftHandle)
               && isSame(a.rightHandle, b.rightHandle) && a.interpolation == b.interpolation
               && a.hold == b.hold && a.handlesLocked == b.handlesLocked;
    }
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>

#include <QPointF>

/// A key of a ValueGraphCurve, in frames and in the value's own unit, which grows upward.
struct ValueGraphKey
{
    double time = 0.0; ///< frames
    double value = 0.0;
    QPointF leftHandle = {};  ///< from the key: frames, and value upward; none lies on the key
    QPointF rightHandle = {}; ///< likewise
    ui::Graph::Interpolation interpolation = ui::Graph::Interpolation::Linear;
    bool hold = false;         ///< the value stays up to the next key
    bool handlesLocked = true; ///< they move as a pair

    friend bool operator==(const ValueGraphKey&, const ValueGraphKey&) = default;
};

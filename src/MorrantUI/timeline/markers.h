// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QString>

#include <optional>
#include <vector>

/// A named place on the time ruler.
struct TimelineMarker
{
    int id = 0; ///< within its scene; above 0, and 0 only for a marker that has not got one yet
    int frame = 0;
    int duration = 0; ///< frames that it reaches over; none at 0 or less
    QString name = {};
    QColor color = {}; ///< an invalid one stands for the theme's "Accent3"

    friend bool operator==(const TimelineMarker&, const TimelineMarker&) = default;
};

using TimelineMarkers = std::vector<TimelineMarker>;

/// What the user has done to one marker: added it (nothing before), removed it (nothing after) or
/// changed it.
struct MarkerEdit
{
    std::optional<TimelineMarker> before;
    std::optional<TimelineMarker> after;
};

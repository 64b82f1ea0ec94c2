// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/scene/framemath.h"
#include <MorrantUI/timeline/markers.h>

#include <QPointF>
#include <QRectF>

#include <functional>
#include <optional>
#include <vector>

/// Where everything on a ruler is. Lengths are pixels of the viewport; painting, hit test and tests
/// read the same values.
namespace ui {

inline constexpr double kTickBand = 12.0;   ///< at least
inline constexpr double kRangeBand = 10.0;  ///< of the playback range
inline constexpr double kThumbReach = 8.0;  ///< to either side of the current frame
inline constexpr double kThumbTop = 12.0;   ///< of the thumb's outline, below the thumb's origin
inline constexpr double kThumbTip = 21.0;   ///< likewise
inline constexpr double kMarkerReach = 6.0; ///< to either side of a marker's frame
inline constexpr double kBarHeight = 2.0;   ///< of a marker's duration
inline constexpr double kLeastName = 14.0;  ///< a name with less room is left out
inline constexpr double kLabelInset = 2.0;  ///< from the ruler's edge
inline constexpr double kLeastGap = 6.0;    ///< from a label that was moved in to the next one

/// Bands from top to bottom, each from one edge to the next.
struct RulerBands
{
    double labels = 0.0;
    double ticks = 0.0;
    double range = 0.0;
    double markers = 0.0;
    double bottom = 0.0;
};

/// What a ruler is high, with markers as high as labels and a bit.
double rulerHeight(double labelHeight);
/// Ticks take what is more than that; what is less is missing at the bottom.
RulerBands rulerBands(double height, double labelHeight);

struct RulerGeometry
{
    RulerBands bands;
    double scale = 1.0;  ///< pixels a frame; above 0
    double offset = 0.0; ///< x of frame 0
    double width = 0.0;
    FrameRange playback;
    int current = 0;

    double x(double frame) const { return frame * scale + offset; }
    double frame(double place) const { return (place - offset) / scale; }
};

/// Where the label of a tick at x begins: its middle is at the tick, or as near as the ruler's edge
/// lets it. None where the tick is out of sight, and where it would come too close to the next one.
/// @param distance from one label's tick to the next one's @param room the ruler's width
std::optional<double> labelStart(double x, double width, double distance, double room);

/// A rectangle of a band between two frames; empty where the second is not after the first.
QRectF bandBetween(
    const RulerGeometry& geometry, double top, double bottom, const FrameRange& range);

/// One marker as it is shown.
struct MarkerSpot
{
    const TimelineMarker* marker = nullptr;
    double x = 0.0;
    QRectF name; ///< empty where there is none, or no room for it
};

/// The markers in sight, at most one on each pixel, with as much of their names as fits before the
/// next one.
/// @param markers by frame @param widthOf pixels of a name
std::vector<MarkerSpot> markerSpots(
    const TimelineMarkers& markers,
    const RulerGeometry& geometry,
    const std::function<double(const QString&)>& widthOf);

/// How far a marker with a duration reaches.
struct MarkerBar
{
    const TimelineMarker* marker = nullptr;
    QRectF rect;
};

/// Those in sight that are wide enough to be seen, wherever their markers are.
std::vector<MarkerBar> markerBars(const TimelineMarkers& markers, const RulerGeometry& geometry);

enum class RulerGrip
{
    Ruler, ///< nothing that could be held: a press seeks
    Thumb,
    Start, ///< of the playback range
    End,
    Range, ///< all of it
    Marker,
    Pan, ///< by another button, wherever it is pressed
};

struct RulerHit
{
    RulerGrip grip = RulerGrip::Ruler;
    int marker = 0; ///< id
    friend bool operator==(const RulerHit&, const RulerHit&) = default;
};

/// @param grabSize pixels around a bookend, together; between two bookends neither takes more than
///     a third of the room
/// @param selected id of the marker that is in front
RulerHit rulerHit(
    const RulerGeometry& geometry,
    const std::vector<MarkerSpot>& spots,
    QPointF place,
    double grabSize,
    int selected);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/rulerlayout.h"

#include <algorithm>
#include <cmath>

namespace ui {

namespace {

constexpr double kMarkerMargin = 4.0; ///< what the marker band is higher than a label
constexpr double kLeastBar = 0.5;     ///< pixels, of a duration that is shown
constexpr double kBookendParts = 3.0; ///< of a short range: bookend, middle, bookend

bool isBefore(const TimelineMarker& marker, double frame)
{
    return marker.frame < frame;
}

double distanceTo(const MarkerSpot& spot, double x)
{
    return std::abs(spot.x - x);
}

RulerHit markerHit(const std::vector<MarkerSpot>& spots, QPointF place, int selected)
{
    const MarkerSpot* found = nullptr;
    for (const MarkerSpot& spot : spots) {
        const double distance = distanceTo(spot, place.x());
        if (distance > kMarkerReach) {
            continue;
        }
        if (spot.marker->id == selected) {
            return {RulerGrip::Marker, selected};
        }
        if (!found || distance < distanceTo(*found, place.x())) {
            found = &spot;
        }
    }
    for (const MarkerSpot& spot : spots) {
        if (!found && spot.name.contains(place)) {
            found = &spot;
        }
    }
    return found ? RulerHit{RulerGrip::Marker, found->marker->id} : RulerHit{};
}

RulerHit rangeHit(const RulerGeometry& geometry, double x, double grabSize)
{
    const double start = geometry.x(geometry.playback.first);
    const double end = geometry.x(geometry.playback.second);
    const double outside = grabSize / 2.0;
    const double inside = std::clamp((end - start) / kBookendParts, 0.0, outside);
    if (x >= start - outside && x <= start + inside) {
        return {RulerGrip::Start, 0};
    }
    if (x >= end - inside && x <= end + outside) {
        return {RulerGrip::End, 0};
    }
    return {x > start && x < end ? RulerGrip::Range : RulerGrip::Ruler, 0};
}

} // namespace

double rulerHeight(double labelHeight)
{
    return 2.0 * labelHeight + kTickBand + kRangeBand + kMarkerMargin;
}

RulerBands rulerBands(double height, double labelHeight)
{
    const double spare = std::max(0.0, height - rulerHeight(labelHeight));
    RulerBands bands;
    bands.ticks = labelHeight;
    bands.range = bands.ticks + kTickBand + spare;
    bands.markers = bands.range + kRangeBand;
    bands.bottom = bands.markers + labelHeight + kMarkerMargin;
    return bands;
}

std::optional<double> labelStart(double x, double width, double distance, double room)
{
    const double centred = x - width / 2.0;
    const double most = std::max(kLabelInset, room - kLabelInset - width);
    const double start = std::clamp(centred, kLabelInset, most);
    const bool isClear = distance - width - std::abs(start - centred) >= kLeastGap;
    return x >= 0.0 && x <= room && isClear ? std::optional(start) : std::nullopt;
}

QRectF bandBetween(
    const RulerGeometry& geometry, double top, double bottom, const FrameRange& range)
{
    // Far ends are cut: they lie beyond what a painter can count.
    const double left = std::clamp(geometry.x(range.first), -1.0, geometry.width + 1.0);
    const double right = std::clamp(geometry.x(range.second), -1.0, geometry.width + 1.0);
    return range.first < range.second ? QRectF(left, top, right - left, bottom - top) : QRectF();
}

std::vector<MarkerSpot> markerSpots(
    const TimelineMarkers& markers,
    const RulerGeometry& geometry,
    const std::function<double(const QString&)>& widthOf)
{
    const auto from = [&](TimelineMarkers::const_iterator begin, double x) {
        return std::lower_bound(begin, markers.end(), geometry.frame(x), isBefore);
    };
    std::vector<MarkerSpot> spots;
    auto it = from(markers.begin(), -kMarkerReach);
    if (it != markers.begin()) {
        --it; // its name may reach into sight
    }
    while (it != markers.end()) {
        const double x = geometry.x(it->frame);
        if (x > geometry.width + kMarkerReach) {
            break;
        }
        const auto next = from(it + 1, x + 1.0);
        const double end =
            next == markers.end() ? geometry.width : geometry.x(next->frame) - kMarkerReach;
        const double left = x + kMarkerReach + 1.0;
        MarkerSpot spot{&*it, x, {}};
        const double room = std::min(end, geometry.width) - left;
        if (room >= kLeastName && !it->name.isEmpty()) {
            const RulerBands& bands = geometry.bands;
            const double width = std::min(std::ceil(widthOf(it->name)), room);
            spot.name = {left, bands.markers, width, bands.bottom - bands.markers};
        }
        spots.push_back(spot);
        it = next;
    }
    return spots;
}

std::vector<MarkerBar> markerBars(const TimelineMarkers& markers, const RulerGeometry& geometry)
{
    const double bottom = geometry.bands.bottom - 1.0; // above the ruler's edge
    std::vector<MarkerBar> bars;
    for (const TimelineMarker& marker : markers) {
        if (marker.duration <= 0 || marker.duration * geometry.scale < kLeastBar) {
            continue;
        }
        const FrameRange span(marker.frame, movedFrame(marker.frame, marker.duration));
        const QRectF rect = bandBetween(geometry, bottom - kBarHeight, bottom, span);
        if (!rect.isEmpty()) {
            bars.push_back({&marker, rect});
        }
    }
    return bars;
}

RulerHit rulerHit(
    const RulerGeometry& geometry,
    const std::vector<MarkerSpot>& spots,
    QPointF place,
    double grabSize,
    int selected)
{
    const RulerBands& bands = geometry.bands;
    if (place.y() >= bands.markers) {
        return markerHit(spots, place, selected);
    }
    if (place.y() >= bands.range) {
        return rangeHit(geometry, place.x(), grabSize);
    }
    const bool isOnThumb = std::abs(place.x() - geometry.x(geometry.current)) <= kThumbReach
                           && place.y() >= bands.range - (kThumbTip - kThumbTop);
    return {isOnThumb ? RulerGrip::Thumb : RulerGrip::Ruler, 0};
}

} // namespace ui

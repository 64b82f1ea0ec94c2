// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/TimelineScene.h"

#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/timeline/rulerpaint.h"
#include <MorrantUI/timeline/PlaybackBookend.h>
#include <MorrantUI/timeline/TimeThumb.h>

#include <QGraphicsView>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using ui::style::PainterState;

auto hasId(int id)
{
    return [id](const TimelineMarker& marker) { return marker.id == id; };
}

bool isEarlier(const TimelineMarker& a, const TimelineMarker& b)
{
    return a.frame < b.frame;
}

ui::BookendLook lookOf(const PlaybackBookend* bookend, bool isRangeLit)
{
    return bookend ? ui::BookendLook{true, bookend->flag(), bookend->isHovered() || isRangeLit}
                   : ui::BookendLook{};
}

/// Lets a picture be painted in the viewport's pixels, under any layout direction alike.
void useViewUnits(QPainter& painter)
{
    painter.setLayoutDirection(Qt::LeftToRight); // a minus stands before its number
    painter.setWorldTransform(QTransform::fromTranslate(0.0, painter.worldTransform().dy()));
}

int widthOf(const QGraphicsScene& scene)
{
    const QList<QGraphicsView*> views = scene.views();
    return views.isEmpty() ? 0 : views.constFirst()->viewport()->width();
}

} // namespace

TimelineScene::TimelineScene(QObject* parent)
    : QGraphicsScene(parent)
{
    setItemIndexMethod(NoIndex); // of one item that moves
}

TimelineScene::~TimelineScene() = default;

void TimelineScene::setFrameRange(int first, int last)
{
    if (std::pair(first, last) != m_frames) {
        m_frames = {first, last};
        update();
        Q_EMIT frameRangeChanged(first, last);
    }
}

void TimelineScene::setPlaybackRange(int first, int last)
{
    if (std::pair(first, last) != m_playback) {
        m_playback = {first, last};
        update();
        Q_EMIT playbackRangeChanged(first, last);
    }
}

void TimelineScene::setPlaybackStartFrame(int frame)
{
    setPlaybackRange(frame, m_playback.second);
}

void TimelineScene::setPlaybackEndFrame(int frame)
{
    setPlaybackRange(m_playback.first, frame);
}

void TimelineScene::setFramesPerSecond(double framesPerSecond)
{
    const bool areNone = std::isnan(framesPerSecond) && std::isnan(m_framesPerSecond);
    if (framesPerSecond != m_framesPerSecond && !areNone) {
        m_framesPerSecond = framesPerSecond;
        update();
        Q_EMIT labelsChanged();
    }
}

void TimelineScene::setShowsTimeCode(bool timeCode)
{
    if (timeCode != m_timeCode) {
        m_timeCode = timeCode;
        update();
        Q_EMIT labelsChanged();
    }
}

QString TimelineScene::frameText(int frame) const
{
    return ui::rulerLabel(frame, {1.0, m_framesPerSecond, m_timeCode});
}

// Markers

TimelineMarkers::iterator TimelineScene::find(int id)
{
    return std::find_if(m_markers.begin(), m_markers.end(), hasId(id));
}

void TimelineScene::takeMarkers(TimelineMarkers markers)
{
    std::stable_sort(markers.begin(), markers.end(), isEarlier);
    if (markers == m_markers) {
        return;
    }
    m_markers = std::move(markers);
    update();
    const QPointer<TimelineScene> alive(this);
    if (m_selectedMarker != 0 && !marker(m_selectedMarker)) {
        setSelectedMarker(0);
    }
    if (alive) {
        Q_EMIT markersChanged();
    }
}

/// Ids are not used again, unless there are no others left.
int TimelineScene::newId(const std::set<int>& taken)
{
    if (m_lastId < std::numeric_limits<int>::max()) {
        return ++m_lastId;
    }
    int id = 1;
    while (taken.contains(id)) {
        ++id;
    }
    return id;
}

void TimelineScene::setMarkers(TimelineMarkers markers)
{
    std::set<int> ids;
    std::vector<TimelineMarker*> nameless;
    for (TimelineMarker& each : markers) {
        if (each.id > 0 && ids.insert(each.id).second) {
            m_lastId = std::max(m_lastId, each.id);
        } else {
            nameless.push_back(&each);
        }
    }
    for (TimelineMarker* const each : nameless) {
        each->id = newId(ids);
        ids.insert(each->id);
    }
    takeMarkers(std::move(markers));
}

std::optional<TimelineMarker> TimelineScene::marker(int id) const
{
    const auto found = std::find_if(m_markers.begin(), m_markers.end(), hasId(id));
    return found == m_markers.end() ? std::nullopt : std::optional(*found);
}

int TimelineScene::addMarker(int frame, const QString& name, const QColor& color)
{
    TimelineMarkers markers = m_markers;
    std::set<int> ids;
    for (const TimelineMarker& each : markers) {
        ids.insert(each.id);
    }
    const int id = newId(ids);
    markers.push_back({id, frame, 0, name, color});
    takeMarkers(std::move(markers));
    return id;
}

bool TimelineScene::changeMarker(const TimelineMarker& marker)
{
    const auto found = find(marker.id);
    if (found == m_markers.end()) {
        return false;
    }
    TimelineMarkers markers = m_markers;
    markers[static_cast<std::size_t>(found - m_markers.begin())] = marker;
    takeMarkers(std::move(markers));
    return true;
}

bool TimelineScene::removeMarker(int id)
{
    TimelineMarkers markers = m_markers;
    const auto gone = std::erase_if(markers, hasId(id));
    takeMarkers(std::move(markers));
    return gone > 0;
}

void TimelineScene::setSelectedMarker(int id)
{
    const int known = marker(id) ? id : 0;
    if (known != m_selectedMarker) {
        m_selectedMarker = known;
        update();
        Q_EMIT selectedMarkerChanged(known);
    }
}

void TimelineScene::setHovered(int marker, bool range)
{
    if (marker != m_hoveredMarker || range != m_rangeHovered) {
        m_hoveredMarker = marker;
        m_rangeHovered = range;
        update();
    }
}

// The picture

ui::RulerGeometry TimelineScene::geometry(const QTransform& toView, int width) const
{
    ui::RulerGeometry geometry;
    geometry.bands = ui::rulerBands(height(), ui::labelHeight(font()));
    geometry.scale = toView.m11();
    geometry.offset = toView.dx();
    geometry.width = width;
    geometry.playback = m_playback;
    geometry.current = m_thumb ? m_thumb->getCurrentFrame() : 0;
    return geometry;
}

ui::RulerHit TimelineScene::hitTest(QPointF position, const QTransform& toView, int width) const
{
    const ui::RulerGeometry place = geometry(toView, width);
    const auto spots = ui::markerSpots(
        m_markers, place, [this](const QString& name) { return ui::nameWidth(font(), name); });
    const double grabSize = m_start ? m_start->grabSize() : 0.0;
    ui::RulerHit hit = ui::rulerHit(place, spots, position, grabSize, m_selectedMarker);
    const bool isFixed = (hit.grip == ui::RulerGrip::Start && !(m_start && m_start->flag()))
                         || (hit.grip == ui::RulerGrip::End && !(m_end && m_end->flag()))
                         || (hit.grip == ui::RulerGrip::Range
                             && !(m_start && m_start->flag() && m_end && m_end->flag()));
    return isFixed ? ui::RulerHit{} : hit;
}

void TimelineScene::drawBackground(QPainter* painter, const QRectF& /*exposed*/)
{
    ui::RulerPicture picture;
    picture.geometry = geometry(painter->worldTransform(), widthOf(*this));
    picture.scale = {picture.geometry.scale, m_framesPerSecond, m_timeCode};
    picture.frames = m_frames;
    picture.font = font();
    if (m_thumb) {
        picture.playheadLabel =
            ui::playheadLabel(picture.geometry, picture.font, frameText(picture.geometry.current));
    }
    picture.spots = ui::markerSpots(m_markers, picture.geometry, [&picture](const QString& name) {
        return ui::nameWidth(picture.font, name);
    });
    picture.bars = ui::markerBars(m_markers, picture.geometry);
    const auto selected = find(m_selectedMarker);
    picture.selected = selected == m_markers.end() ? nullptr : &*selected;
    picture.hoveredMarker = m_hoveredMarker;
    picture.isRangeLit = m_rangeHovered;
    picture.start = lookOf(m_start, m_rangeHovered);
    picture.end = lookOf(m_end, m_rangeHovered);
    const PainterState state(*painter);
    useViewUnits(*painter);
    ui::paintRuler(*painter, picture);
}

void TimelineScene::drawForeground(QPainter* painter, const QRectF& /*exposed*/)
{
    if (m_thumb) {
        const ui::RulerGeometry place = geometry(painter->worldTransform(), widthOf(*this));
        const PainterState state(*painter);
        useViewUnits(*painter);
        ui::paintPlayhead(*painter, place, font(), frameText(place.current));
    }
}

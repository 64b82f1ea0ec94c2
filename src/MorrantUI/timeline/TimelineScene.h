// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeline/markers.h>

#include <QFont>
#include <QGraphicsScene>
#include <QPointer>

#include <optional>
#include <set>
#include <utility>

class PlaybackBookend;
class TimeThumb;

namespace ui {
struct RulerGeometry;
struct RulerHit;
} // namespace ui

/// What a TimelineView shows: frame range, playback range, rate and markers. x is the frame, y a
/// pixel. Paints the ruler, and says what lies under a place of it.
///
/// Any int is a frame, and any pair of them a range; one whose last frame is not after its first
/// one is painted as empty.
class MORRANT_UI_EXPORT TimelineScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit TimelineScene(QObject* parent = nullptr);
    ~TimelineScene() override;

    /// The frames of the document; 0 to 0 at first. What the user drags stays inside.
    void setFrameRange(int first, int last);
    int getStartFrame() const { return m_frames.first; }
    int getEndFrame() const { return m_frames.second; }

    /// The frames that are played, 0 to 0 at first; stored as they are. playbackRangeChanged()
    /// follows a change.
    void setPlaybackRange(int first, int last);
    void setPlaybackStartFrame(int frame); ///< as setPlaybackRange()
    void setPlaybackEndFrame(int frame);   ///< as setPlaybackRange()
    int getPlaybackStartFrame() const { return m_playback.first; }
    int getPlaybackEndFrame() const { return m_playback.second; }

    /// 30 at first. What is not finite or not above 0 makes a ruler without time codes.
    void setFramesPerSecond(double framesPerSecond);
    double framesPerSecond() const { return m_framesPerSecond; }
    /// Labels are time codes instead of frames.
    void setShowsTimeCode(bool timeCode);
    bool showsTimeCode() const { return m_timeCode; }
    /// A frame as the ruler writes it.
    QString frameText(int frame) const;

    /// All markers, by frame. Those without an id of their own get one. markersChanged() follows a
    /// change, here as below.
    void setMarkers(TimelineMarkers markers);
    const TimelineMarkers& markers() const { return m_markers; }
    std::optional<TimelineMarker> marker(int id) const; ///< none for an unknown id
    /// @return the new marker's id
    int addMarker(int frame, const QString& name = {}, const QColor& color = {});
    /// Replaces the marker of the same id. @return whether there is one
    bool changeMarker(const TimelineMarker& marker);
    bool removeMarker(int id); ///< whether there was one

    /// The marker that keys and menus act on; 0 for none.
    void setSelectedMarker(int id);
    int selectedMarker() const { return m_selectedMarker; }

Q_SIGNALS:
    void frameRangeChanged(int first, int last); ///< by the host
    /// By the host or by the user, at every step.
    void playbackRangeChanged(int first, int last);
    void markersChanged(); ///< the same
    /// Goes before markersChanged() where the selected one is gone.
    void selectedMarkerChanged(int id);
    /// Rate or kind of the labels.
    void labelsChanged();

protected:
    void drawBackground(QPainter* painter, const QRectF& exposed) override;
    void drawForeground(QPainter* painter, const QRectF& exposed) override;

private:
    friend class PlaybackBookend;
    friend class TimelineView;

    ui::RulerGeometry geometry(const QTransform& toView, int width) const;
    ui::RulerHit hitTest(QPointF position, const QTransform& toView, int width) const;
    void setHovered(int marker, bool range);
    TimelineMarkers::iterator find(int id);
    int newId(const std::set<int>& taken);
    void takeMarkers(TimelineMarkers markers);

    std::pair<int, int> m_frames{0, 0};
    std::pair<int, int> m_playback{0, 0};
    double m_framesPerSecond = 30.0;
    bool m_timeCode = false;
    TimelineMarkers m_markers; ///< by frame
    int m_lastId = 0;
    int m_selectedMarker = 0;
    int m_hoveredMarker = 0;
    bool m_rangeHovered = false;
    QPointer<TimeThumb> m_thumb;
    QPointer<PlaybackBookend> m_start;
    QPointer<PlaybackBookend> m_end;
};

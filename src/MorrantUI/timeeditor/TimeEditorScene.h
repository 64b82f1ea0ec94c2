// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QGraphicsScene>
#include <QLineF>
#include <QPointer>

#include <memory>
#include <set>
#include <utility>
#include <vector>

class TimeEditorBaseItem;
class TimeEditorClipItem;
class TimeEditorCurveItem;
class TimeEditorKeyframeItem;
class TimeEditorLayoutContainer;
class TimeEditorView;
class TimeHandle;

namespace ui {
class RowHover;
} // namespace ui

/// The scene behind a TimeEditorView: x is the frame, y the row's position. Holds the current
/// frame, the background region (normally the playback range), the beat grid and the stack of rows,
/// and paints background and playhead.
///
/// selectionChanged() about an item that dies comes when control returns to the event loop: a slot
/// must not find it half destroyed.
class MORRANT_UI_EXPORT TimeEditorScene : public QGraphicsScene
{
    Q_OBJECT

public:
    /// @param view that shows the scene; it may die before the scene
    /// @param rect the scene's rectangle, as wide and high as the rectangle says
    /// @param useTimeHandle whether the scene has a TimeHandle that drags the playhead
    TimeEditorScene(TimeEditorView* view, const QRect& rect, bool useTimeHandle = false);
    ~TimeEditorScene() override;

    TimeEditorView* view() const;

    /// Appends a row at the bottom of the stack, which owns it from then on. Null is ignored.
    void addLayoutItem(TimeEditorBaseItem* item);
    /// The stack; after clearScene() it is a new one.
    TimeEditorLayoutContainer* layoutContainer() const;

    /// Deletes all items but the time handle and the view's transform tool, those in front first.
    /// Rows may be added again at once.
    void clearScene();

    int currentFrame() const { return m_currentFrame; }
    /// Stores the frame and moves the time handle; the view repaints.
    void setCurrentFrame(int frame);
    /// The time handle was dragged: its frame becomes the current one, and the view's
    /// frameChangeCommitted() is called.
    void commitFrameChange();

    bool useTimeHandle() const { return m_useTimeHandle; }
    /// Null unless the scene was made with one.
    TimeHandle* getTimeHandle() const { return m_timeHandle; }

    /// Both only store; the view repaints.
    void setBackgroundRegion(int first, int last);
    void setBackgroundRegionColor(QColor color); ///< see setBackgroundRegion()
    const std::pair<int, int>& getBackgroundRegion() const { return m_region; }

    /// The beat grid. Each repaints the scene. There is none while rate, beats a bar or the
    /// distance of the lines on screen are 0 or less; a BPM below 1 counts as 1.
    void setEnableBeatMarkers(bool enable);
    void setBPM(float bpm);             ///< beats a minute
    void setFps(float framesPerSecond); ///< the rate
    void setBeatBars(int beatsPerBar);  ///< every so many beats a stronger line
    void setBeatOffset(float frame);    ///< where the first beat lies

    /// The time editor's item in front at a place, in scene units; null where there is none, and
    /// below what is none.
    TimeEditorBaseItem* itemUnder(const QRectF& place) const;

    /// All curves and all clips of the scene, ordered by address.
    const std::set<TimeEditorCurveItem*>& curves() const { return m_curves; }
    const std::set<TimeEditorClipItem*>& clips() const { return m_clips; }
    /// All curves, and what else has keys for its children, such as clips, in no order.
    std::vector<TimeEditorBaseItem*> keyRows() const;

protected:
    void drawBackground(QPainter* painter, const QRectF& exposed) override;
    void drawForeground(QPainter* painter, const QRectF& exposed) override;
    /// Presses on keys find them by their order; all others are Qt's.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    bool event(QEvent* event) override;
    /// Walks the keys, unless an item has the focus.
    void keyPressEvent(QKeyEvent* event) override;

private:
    friend class TimeEditorBaseItem;
    friend class TimeEditorView;

    void enlist(TimeEditorBaseItem* item);
    void strike(TimeEditorBaseItem* item);
    void takeOut(TimeEditorBaseItem& dying);
    QList<QGraphicsItem*> topLevelItems() const;
    TimeEditorKeyframeItem* keyUnder(const QRectF& place) const;
    bool isCovered(const QRectF& place, bool hidesStack) const;
    void hover(QGraphicsSceneMouseEvent& event);
    void hoverAgain(const QGraphicsSceneMouseEvent& event);
    const TimeEditorBaseItem* hoveredCursorOwner() const;
    QRectF pixelAt(QPointF position) const;
    bool survivesClearing(const QGraphicsItem* item) const;
    void makeLayoutContainer();
    template <typename Value>
    void change(Value& stored, Value value);
    void paintRegion(QPainter& painter, const QRectF& exposed) const;
    double framesInSight(const QRectF& exposed) const;
    void paintZebra(QPainter& painter, const QRectF& exposed) const;
    void paintBeatGrid(QPainter& painter, const QRectF& exposed);

    bool m_drawRegion = true;
    int m_currentFrame = 0;
    TimeHandle* m_timeHandle = nullptr;
    QPointer<TimeEditorView> m_view;
    QPointer<TimeEditorLayoutContainer> m_layoutContainer;
    QColor m_regionColor;
    std::pair<int, int> m_region{0, 0};
    bool m_useTimeHandle = false;
    bool m_beatMarkers = false;
    float m_bpm = 60.0F;
    double m_fps = 30.0;
    int m_beatBars = 4;
    float m_beatOffset = 0.0F; ///< frames
    std::vector<QLineF> m_beatLines;
    std::vector<QLineF> m_barLines;
    QPointer<TimeEditorKeyframeItem> m_pressedKey; ///< has the mouse until its release
    const QGraphicsItem* m_pressGrabber = nullptr; ///< took the mouse with a press; only compared
    std::unique_ptr<ui::RowHover> m_hover;
    bool m_qtHovers = false;        ///< Qt may have told items that they are hovered
    bool m_selectionUntold = false; ///< something selected has died since the last event
    std::set<TimeEditorCurveItem*> m_curves;
    std::set<TimeEditorClipItem*> m_clips;
    std::set<TimeEditorBaseItem*> m_others; ///< whatever else sizes itself for the zoom
};

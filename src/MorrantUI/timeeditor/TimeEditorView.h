// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/connections/ConnectionReceiver.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/GraphicsView.h>
#include <MorrantUI/timeeditor/TimeEditorUtils.h>
#include <MorrantUI/timeeditor/clipmoves.h>
#include <MorrantUI/timeeditor/keymoves.h>

#include <QPoint>
#include <QPointer>
#include <QRectF>

#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

class TimeEditorBaseItem;
class TimeEditorClipItem;
class TimeEditorCurveItem;
class TimeEditorKeyframeItem;
class TimeEditorScene;
class TranslateScaleTool;

class DragOverlay;

namespace ui {
class KeyDrag;
class KeyEdit;
class KeptSelection;
struct DragProgress;
inline constexpr int kTrackHeight = 22; ///< scene units, of a row
} // namespace ui

/// The dope sheet: a view over one TimeEditorScene of curves with keys, clips and sounds. One scene
/// unit on x is a frame, one on y a pixel; the view only ever scales horizontally.
///
/// `scale` tells the zoom: the fraction of the frame range, plus four frames, that fills the
/// viewport. The host sets the ranges, calls setupViewAndScene(), drives setCurrentFrame(), and
/// hands over a TimeEditorUtils for what the user's shortcuts ask for.
///
/// Keys move by whole frames, with Shift to what is near; Escape takes a drag back. Edits are told
/// once they are complete, as what changed. While something is dragged the view shows how far, and
/// scrolls when the pointer is at its edge.
///
/// A slot may change, clear or delete the scene and whatever is in it, also in mid-drag. It may
/// delete the view once an edit is complete; in mid-drag, and told of the selection, by
/// deleteLater(): Qt has not done with it.
///
/// With the keyboard: Left and Right walk along a row's keys, Home and End to its first and last,
/// Up and Down to other rows. The key is selected; with Shift the ones from where that began,
/// with Control none until Return. The accessible description tells of the key.
class MORRANT_UI_EXPORT TimeEditorView : public GraphicsView, public ConnectionReceiver
{
    Q_OBJECT

public:
    /// What a rubber band may leave selected. With Alt every mode but None acts as ClipsOnly.
    enum SelectionMode : int
    {
        None = 0,
        PreferKeyframes = 1, ///< no clips; curves only where no key was caught
        CurvesOnly = 2,
        ClipsOnly = 3,
    };
    Q_ENUM(SelectionMode)

    explicit TimeEditorView(QWidget* parent = nullptr);
    /// Deletes scene and items first, while they can still ask the view.
    ~TimeEditorView() override;

    /// Attaches a scene, which belongs to the view from then on, and makes its transform tool. Null
    /// and the present scene are ignored; a former scene is deleted.
    void setup(TimeEditorScene* scene);
    TimeEditorScene* getEditorScene() const;

    /// The host's editing back end, which stays the host's. Null and its death mean none.
    void setUtils(TimeEditorUtils* utils);
    TimeEditorUtils* utils() const { return m_utils; }

    /// Lays out the scene's rectangle and the zoom, for the size that the view has now, and centres
    /// it on the current frame. A DopeSheetPane keeps all frames in sight by itself.
    /// @param height scene units, of all rows; 0 keeps the scene's. Frames that are not finite are
    ///     ignored.
    void setupViewAndScene(double first, double last, int height);

    /// At least getMinScale(), without an upper limit; scaleChanged() follows. What is not finite
    /// is ignored.
    void setScale(double scale);
    const double& getScale() const { return m_scale; }
    /// About 50 pixels a frame, by the playback range (deliberate).
    double getMinScale() const;
    /// setScale(), but what is at a place of the viewport stays there. @param x logical pixels
    void setScaleAt(double scale, int x);

    /// Both only store; nothing is redrawn.
    void setFrameRange(int first, int last) { m_frameRange = {first, last}; }
    void setPlaybackRange(int first, int last) { m_playbackRange = {first, last}; } ///< only stored
    const std::pair<int, int>& getFrameRange() const { return m_frameRange; }
    const std::pair<int, int>& getPlaybackRange() const { return m_playbackRange; }

    /// The extent of the selection, taken at every release of the mouse.
    void setScaleRange(std::pair<int, int> range) { m_scaleRange = range; }
    const std::pair<int, int>& getScaleRange() const { return m_scaleRange; }

    int trackHeight() const { return m_trackHeight; }

    /// The scene's current frame; 0 without a scene.
    int frameNumber() const;
    void setCurrentFrame(int frame);               ///< the scene's; repaints
    void setBackgroundRegion(int first, int last); ///< the scene's; repaints
    void setBackgroundRegionColor(QColor color);   ///< the scene's

    /// Zooms and scrolls horizontally so that a rectangle of the scene fills the viewport. A
    /// rectangle without width, and a viewport narrower than five pixels, leave it unscaled.
    void fitRect(const QRectF& rect);
    /// The playback range, or with Shift held the frame range, with a little room.
    void fitTimelineInView();
    void fitSelectedItemsInView(); ///< rescale() follows

    /// Bounds of the selected keys' positions; empty at the origin without any.
    QRectF getTranslateToolRect() const;
    void clearSelection(); ///< of the scene

    /// The curves, and other rows that have keys, as far as they are visible: from the top.
    QObjectList listsForReaders() const override;

    /// Scaling of the selected keys in time, as the transform tool drives it.
    /// @param origin scene units @param flag whether the right edge is dragged
    void setupKeyScaling(QPoint origin, bool flag);
    void scaleKeys(QPoint current); ///< scene units
    void endKeyScaling();           ///< keeps what was scaled

    void setSnapping(bool on) { m_snapping = on; } ///< as Shift does, until the gesture ends
    bool getSnapping() const { return m_snapping; }
    void setGhosting(bool on) { m_ghosting = on; } ///< stored for the host
    bool getGhosting() const { return m_ghosting; }
    void setShowTransformTool(bool show) { m_showTransformTool = show; } ///< over two or more keys
    bool getShowTransformTool() const { return m_showTransformTool; }
    void setDoneRippleEdit(bool done) { m_doneRippleEdit = done; } ///< of the scaling under way
    bool getDoneRippleEdit() const { return m_doneRippleEdit; }
    void setMarqueeSelectionMode(SelectionMode mode) { m_marqueeMode = mode; } ///< for bands
    SelectionMode getMarqueeSelectionMode() const { return m_marqueeMode; }
    /// Also shows or clears the clips' feedback at their ends.
    void setEndPointSnapping(bool on);
    bool getEndPointSnapping() const { return m_endPointSnapping; }
    bool isSpaceHeld() const { return m_spaceHeld; }

    /// Moves the selected keys as a drag would, as one edit; not in mid-drag. For the host's
    /// shortcuts. @param frames distance, whole
    void nudgeSelectedKeys(int frames);

    /// The selected keys, ordered by address.
    std::set<TimeEditorKeyframeItem*> selectedKeyframes() const;
    /// What a context menu at a place of the viewport is about: the curve there, else those of the
    /// selection.
    std::set<TimeEditorCurveItem*> curvesForMenu(QPoint position) const;

    /// The user has dragged the scene's time handle. For hosts to override.
    virtual void frameChangeCommitted() {}

    void onConnectionEnter(ConnectionInstance* connection) override;
    void onConnectionMove(ConnectionInstance* connection) override;
    void onConnectionLeave(ConnectionInstance* connection) override;
    void onConnectionDrop(ConnectionInstance* connection) override;

Q_SIGNALS:
    /// A framing command has fitted a rectangle of the scene. The zoom is then no longer what
    /// getScale() says: the host derives it from the rectangle.
    void rescale(QRectF newRect);
    /// The horizontal scroll bar's value or range has changed.
    void viewRectChanged();
    void scaleChanged(); ///< the zoom is another
    /// Keys are being dragged or scaled and have moved by a step.
    void keysMoving();
    /// A drag or a scaling of keys is complete: what changed, once. Nothing for a click, or after
    /// Escape.
    void keysMoved(const KeyMoves& moves);
    /// A drag of clip areas is complete: what changed in all clips that went along, once, after
    /// each one's TimeEditorClipItem::clipChanged(). One step of the host's history.
    void clipsChanged(const ClipMoves& moves);

public Q_SLOTS:
    /// Filters what a rubber band has caught and shows the transform tool.
    void selectionChanged();

protected:
    /// Takes a drag back to where it began. @return whether there was one
    bool cancelGesture();
    void abandonGesture() override;

    void drawBackground(QPainter* painter, const QRectF& exposed) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool event(QEvent* event) override;

private:
    friend class DopeSheetRow;
    friend class TimeEditorClipItem;
    friend class TimeEditorKeyframeItem;
    friend class TimeEditorScene;
    friend class TranslateScaleTool;

    using ScalingKeys = std::vector<std::pair<int, QPointer<TimeEditorKeyframeItem>>>;

    struct KeyExtent
    {
        int keys = 0;
        QRectF places; ///< scene units
    };

    void configure();
    KeyExtent selectedKeyExtent() const;
    TimeEditorBaseItem* itemUnder(QPoint position) const;
    std::vector<QGraphicsItem*> selectedContent() const;
    QRectF selectedBounds() const;
    void updateItemRects();
    void subSelect(QRect band, QPointF from, QPointF to);
    bool filterMarquee();
    void showTool();
    void placeTool();
    bool selectClipsUpTo(TimeEditorBaseItem* pressed, QPoint position);
    bool selectKeysUpTo(TimeEditorKeyframeItem* pressed);
    void rememberPress(TimeEditorBaseItem* pressed, double sceneX, Qt::MouseButton button);
    bool cancelRubberBand();
    bool snapsDrag(const QMouseEvent& event);
    bool snapDraggedKeys(double sceneX);
    const std::vector<int>& snapCandidates();
    void startKeyDrag(TimeEditorKeyframeItem* key, double sceneX);
    bool dragKeys(double sceneX);
    bool isKeyPressed() const;
    TimeEditorClipItem* heldClip() const;
    void tellOfDragged();
    void finishKeyDrag();
    void finishDrags();
    double moveSelectedKeys(double distance);
    void restoreEdit();
    void finishEdit();
    void showHoverCursor(Qt::CursorShape shape);
    void followCursor();
    std::optional<ui::DragProgress> dragProgress() const;
    Qt::Orientations scrollDirections() const;
    void followDrag(const QMouseEvent& event);
    void endDragAids();
    bool walkKeys(const QKeyEvent& event);
    void selectWalked(TimeEditorKeyframeItem& key, bool extends);
    void describeWalkedKey();
    void rememberWalk(TimeEditorKeyframeItem* pressed);
    void onAltPressed(bool on);
    void handleShortcut(int key);
    void releaseSpace();

    int m_trackHeight = ui::kTrackHeight;
    double m_scale = 1.0;
    QPointer<TimeEditorScene> m_scene;
    ScalingKeys m_scalingKeys;
    ScalingKeys m_scalingCurveKeys;
    QPoint m_scalingOrigin;
    bool m_panning = false;
    std::pair<int, int> m_frameRange{0, 0};
    std::pair<int, int> m_playbackRange{0, 0};
    bool m_snapping = false;
    bool m_ghosting = true;
    bool m_showTransformTool = false;
    bool m_spaceHeld = false;
    bool m_endPointSnapping = false;
    bool m_scalingFlag = false;
    bool m_doneRippleEdit = false;
    std::pair<int, int> m_scaleRange{0, 0};
    QPointer<TranslateScaleTool> m_tool;
    int m_toolKeys = 0;         ///< that it was last placed for
    bool m_toolAwaited = false; ///< it is placed when control returns to the event loop
    QPointer<TimeEditorKeyframeItem> m_pressedKey;
    int m_pressedKeyFrame = 0;
    QPointer<TimeEditorBaseItem> m_lastClicked;
    QPoint m_lastPress; ///< in the viewport
    QPointer<TimeEditorUtils> m_utils;
    bool m_inSelectionChange = false;
    QPointer<TimeEditorKeyframeItem> m_rangeAnchor;
    std::unique_ptr<ui::KeptSelection> m_beforeBand; ///< after a press beside all items
    SelectionMode m_marqueeMode = PreferKeyframes;
    QPointer<TimeEditorBaseItem> m_connectionTarget;
    std::unique_ptr<ui::KeyDrag> m_keyDrag;
    std::unique_ptr<ui::KeyEdit> m_edit; ///< by the transform tool
    std::vector<int> m_snapCandidates;   ///< frames, gathered once a drag
    bool m_hasSnapCandidates = false;
    std::optional<int> m_snapFrame; ///< where the last step of the drag has snapped to
    std::unique_ptr<DragOverlay> m_overlay;
    std::optional<QCursor> m_cursorBelowRows;     ///< the viewport's own, while a row shows one
    QPointer<TimeEditorKeyframeItem> m_walkedKey; ///< where the keyboard is
    QPointer<TimeEditorKeyframeItem> m_walkAnchor;
    bool m_walkShown = false; ///< the keyboard has been used since the last press
    double m_itemScale = 0.0; ///< pixels a frame that the items are sized for
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/GraphicsView.h>
#include <MorrantUI/timeline/markers.h>

#include <QPointF>
#include <QPointer>
#include <QTimer>

#include <memory>
#include <utility>

class ContextMenu;
class MarkerNameEdit;
class PlaybackBookend;
class PlaybackClock;
class QMenu;
class TimeEditorView;
class TimeThumb;
class TimelineScene;

namespace ui {
class ClockLink;
struct RulerHit;
struct RulerKey;
struct TimelineGesture;
} // namespace ui

/// The time ruler: labels and ticks over frames, the current frame, the playback range between two
/// bookends, and markers.
///
/// A press or drag on the ruler seeks. Bookends, the range between them and markers are dragged;
/// Shift snaps to what is near, Escape takes a drag back. With the keyboard: Left and Right step
/// (by ten frames with Shift, from marker to marker with Control, moving the selected marker with
/// Alt), Home and End go to the ends of the playback range, I and O set them, M adds a marker, F2
/// renames the selected one and Delete removes it.
///
/// setEditor() keeps the ruler in step with a TimeEditorView. Without one it scrolls and zooms by
/// itself.
class MORRANT_UI_EXPORT TimelineView : public GraphicsView
{
    Q_OBJECT

public:
    /// Makes its scene, thumb and bookends, and owns them.
    explicit TimelineView(QWidget* parent = nullptr);
    ~TimelineView() override;

    TimelineScene* getTimelineScene() const { return m_scene; }
    TimeThumb* getTimeWidget() const { return m_thumb; }
    PlaybackBookend* getLeftBookend() const { return m_left; }
    PlaybackBookend* getRightBookend() const { return m_right; }

    /// Scroll and zoom are those of the editor from now on: a frame is as far from the left edge of
    /// one viewport as of the other. The editor is not owned; null and its death leave the ruler
    /// where it is.
    void setEditor(TimeEditorView* editor);
    TimeEditorView* editor() const;

    /// Frame range, rate, current frame and playback range are those of the clock from now on, and
    /// what the user does to the last two is the clock's at once; a drag of the playhead pauses it.
    /// Another track, and another clock, end what is under way. What the host sets here meanwhile
    /// holds until the clock says otherwise: better set it there. The clock is not owned; null and
    /// its death leave the ruler as it is.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// The same as the scene's, which see.
    void setFrameRange(int first, int last);
    void setPlaybackRange(int first, int last); ///< the scene's

    /// The time has changed elsewhere: nothing is reported. Any number of calls in one turn of the
    /// event loop paint once. Any frame will do, also one outside the range.
    void setCurrentFrame(int frame);
    int currentFrame() const;

    /// Goes to a frame as the user does: into the frame range, with frameChanged() if it is
    /// another one.
    void seek(int frame);
    bool isScrubbing() const;

    /// Ends a drag, and the editing of a name, where they are, as the loss of the focus does. For
    /// hosts that show something else now.
    void finishGesture();

    /// Logical pixels.
    double pixelsPerFrame() const;
    /// Zooms so that the frame at a place of the viewport stays there, the editor's ends allowing.
    /// Zooming out ends with all frames, or a hundred, on forty pixels, lest they are lost from
    /// sight. What is not a factor above 0 is ignored.
    void zoomAt(double factor, int x);
    /// Positive distances, in logical pixels, show later frames.
    void scrollBy(int pixels);
    /// Shows the whole frame range. Without an editor it stays so, whatever the range and the size,
    /// until the ruler is scrolled or zoomed.
    void fitFrameRange();

    /// Adds a marker as the user does and selects it; markerEdited() follows. Where there is one
    /// already, that one is selected.
    /// @return its id
    int addMarker(int frame);
    /// Removes a marker as the user does; markerEdited() follows. @return whether there was one
    bool removeMarker(int id);
    /// Opens a line edit on the marker, or whatever the host has made of requestRename().
    void renameMarker(int id);
    /// @return whether a name is being edited in place
    bool isRenaming() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has moved the playhead, at every step.
    void frameChanged(int frame);
    /// A drag of the playhead begins or ends.
    void scrubbingChanged(bool scrubbing);
    /// The user has changed the playback range: once for a whole drag, and not after Escape.
    void playbackRangeEdited(std::pair<int, int> before, std::pair<int, int> after);
    /// The user has changed a marker: once for a whole drag, and not after Escape.
    void markerEdited(const MarkerEdit& edit);
    /// Scroll, zoom or size have changed; the size is told of with the next turn of the event loop.
    /// A slot may delete the ruler.
    void viewRectChanged();
    /// fitFrameRange() has shown the whole range, as also the context menu can.
    void frameRangeFitted();

protected:
    /// The user wants to give a marker another name. The base opens a line edit on it; a host may
    /// ask in its own way, and then calls the scene's changeMarker().
    virtual void requestRename(int id);
    /// Fills the context menu. The base adds what the ruler itself can do; a host may call it and
    /// add its own.
    /// @param frame at the pointer @param marker id of the marker there, or 0
    virtual void populateMenu(ContextMenu* menu, int frame, int marker);

    void abandonGesture() override;

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    friend class MarkerNameEdit;
    enum class Outcome
    {
        Keep,
        TakeBack
    };
    using Range = std::pair<int, int>;

    void followEditor();
    void followRange();
    void showAt(double pixelsPerFrame, double scroll);
    double zoomCentre(int x);
    void arrange();
    void arrangeNameEdit();
    void noteFrame();

    ui::RulerHit hitAt(QPointF position) const;
    ui::RulerHit hoverAt(QPointF position) const;
    double frameAt(double x) const;
    Range frames() const;
    Range playback() const;
    void showHover(const ui::RulerHit& hit);

    void beginGesture(const ui::RulerHit& hit, const QMouseEvent& event);
    void dragTo(QPointF position, Qt::KeyboardModifiers modifiers);
    void dragHeld(QPointF position, Qt::KeyboardModifiers modifiers);
    void scrollAtEdge();
    void endGesture(Outcome outcome);
    void takeBack(const ui::TimelineGesture& gesture);
    void tellEdit(const ui::TimelineGesture& gesture);
    std::vector<int> snapFrames(const ui::TimelineGesture& gesture) const;

    void applyPlayback(Range range);
    void tellPlayback(Range before);
    void setPlaybackEnd(bool isStart, int frame);
    void playAllFrames();
    bool changeMarker(const TimelineMarker& marker);
    void moveSelectedMarker(int frame);
    void goToMarker(bool forward);
    bool wantsKey(const ui::RulerKey& key) const;
    void obey(const ui::RulerKey& key);
    void addMarkerRows(QMenu* menu, int marker);
    void addRulerRows(QMenu* menu, int frame);

    TimelineScene* m_scene; ///< a child, as are the others
    TimeThumb* m_thumb;     ///< the scene's
    PlaybackBookend* m_left;
    PlaybackBookend* m_right;
    QPointer<TimeEditorView> m_editor;
    QPointer<PlaybackClock> m_clock;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    std::unique_ptr<ui::TimelineGesture> m_gesture;
    QPointer<MarkerNameEdit> m_nameEdit;
    double m_scroll = 0.0;     ///< pixels from frame 0 to the viewport's left edge, before rounding
    int m_zoomedAt = -1;       ///< x of the last step of the zoom
    double m_zoomFrame = 0.0;  ///< and what was to stay there
    bool m_fitsRange = true;   ///< shows all frames until the user zooms or scrolls
    bool m_showsFocus = false; ///< came by the keyboard
    QPointF m_wheelRest;       ///< of a pixel that the wheel has not scrolled yet
    QTimer m_edgeTimer;        ///< while a drag is beyond an edge
};

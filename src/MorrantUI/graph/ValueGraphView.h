// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/morrantui_export.h>

#include <QPoint>
#include <QPointer>
#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class PlaybackClock;
class ValueGraphCurve;

namespace ui {
class ClockLink;
} // namespace ui

/// Curves over frames in the values' own unit, with axes that follow the zoom and a line at the
/// current frame. Scene x is the frame, y the value, downward negative; what a host gives and gets
/// of a ValueGraphCurve grows upward. The view makes its scene.
///
/// Control and the wheel zoom, the middle button and Space pan, F fits what is selected and A
/// everything, Plus and Minus zoom about the current frame. What is fitted stays so when keys or
/// the view's size change.
///
/// The user's gestures are told as steps and an end. In a slot of either the host reads
/// ValueGraphCurve::keys(), and may push what its document makes of them back with setKeys(). The
/// view and its curves may be deleted in these slots.
class MORRANT_UI_EXPORT ValueGraphView : public GeneralGraphView
{
    Q_OBJECT

public:
    explicit ValueGraphView(QWidget* parent = nullptr);
    ~ValueGraphView() override;

    /// A curve without keys, which is the scene's.
    /// @param text that names it: its tool tip, by which assistive tools call it
    /// @param colorName see ValueGraphCurve::setColorName()
    ValueGraphCurve* addCurve(const QString& text = {}, const QString& colorName = {});
    /// In the order of their making, without those that were deleted.
    std::vector<ValueGraphCurve*> curves() const { return m_curves; }

    /// A key of a curve of this view, by its place in ValueGraphCurve::keys().
    struct KeyPlace
    {
        ValueGraphCurve* curve = nullptr;
        std::size_t key = 0;

        bool operator==(const KeyPlace&) const = default;
    };
    /// Those whose points are selected, in the order of the curves and their keys. The scene's
    /// selectionChanged() tells of others.
    std::vector<KeyPlace> selectedKeys() const;
    /// Selects the points of these keys and no others; the scene tells once, and only where that is
    /// different. Handles and curves stay as they are. What is no key of this view does not count,
    /// and what is disabled cannot be selected.
    void selectKeys(const std::vector<KeyPlace>& keys);
    /// The frame that all selected keys are at, and the value of a single one; none where there is
    /// none to tell.
    std::optional<double> selectedFrame() const;
    std::optional<double> selectedValue() const; ///< see selectedFrame()

    /// Brings the selected keys to a frame, whole where keys go by whole frames, and to a value,
    /// upward: an edit as by the mouse, with its step and its gesture. Nothing happens without keys
    /// or numbers, or for a number that is not finite.
    void placeSelectedKeys(std::optional<double> frame, std::optional<double> value);
    /// Around several of these that are one gesture, of the keys that are selected now, whatever is
    /// selected later. The gesture that is under way ends before; a press of the left button and an
    /// arrow key end this one, and keep what it did.
    void beginGesture();
    /// @param keeps false to have every key where it was when the gesture began. Ignored without
    ///     one.
    void endGesture(bool keeps);

    /// Shows the clock's frame while it has a track, and a tap of Space plays and pauses. Not
    /// owned; null and its death leave the view as it is.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    int currentFrame() const { return m_frame; }
    void setCurrentFrame(int frame); ///< repaints; nothing is told

    /// What stands in the middle while there are no curves, such as how to get some; it is then the
    /// accessible description, too. Empty for nothing.
    const QString& hint() const { return m_hint; }
    void setHint(const QString& hint);

    /// Whether keys go by whole frames. On at first.
    bool snapsToFrames() const { return m_snapsToFrames; }
    void setSnapsToFrames(bool snaps) { m_snapsToFrames = snaps; }

    /// Fits two or more selected points or, without them, all curves.
    void fitSelected();
    /// All curves, with what overshoots.
    void fitAll();
    /// Ends what the mouse is doing, as by its release, or the gesture that beginGesture() began.
    /// For hosts that show something else now.
    void finishGesture() { abandonGesture(); }

Q_SIGNALS:
    /// Around what is one step of a history: a drag, a key, a click. When it starts, nothing may be
    /// deleted.
    void gestureStarted();
    /// Keys may have been changed by a step of a gesture, also as Escape takes it back. What a slot
    /// pushes back does not send it again; one that runs an event loop may get the next step inside
    /// its own.
    void keysChanging();
    /// After the last step. @param changed false where all is as before
    void gestureEnded(bool changed);
    /// Curves have been given keys, by whomever; after all of them, and not in mid-gesture.
    void keysShown();
    /// Space was pressed and let go with nothing between: for a host without a clock to play and
    /// pause.
    void spaceTapped();

protected:
    /// A frame, and a tenth of the distance between two labelled values.
    QSizeF nudgeStep() const override;
    QString pointText(const GraphPointWidget& point) const override;
    /// The hint, where there are no curves.
    QString selectionText() const override;
    void editStarted() override;
    void editEnded(bool changed) override;
    void abandonGesture() override;

    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    friend class ValueGraphCurve;

    struct Pan
    {
        Qt::MouseButton button;
        QPoint last; ///< where the mouse was
    };

    std::vector<std::pair<KeyPlace, GraphPointWidget*>> selection() const;
    void rememberTimes();
    void noteKeys(bool hasNewPoints);
    void forget(ValueGraphCurve& curve);
    void takeExtent();
    bool tellStep();
    void moveView(const std::function<void()>& change);
    bool takesPress(const QMouseEvent& event);
    bool isPanning(const QMouseEvent& event);
    void endPan();
    void showByKey(int key);
    /// Distances between lines with a label, in frames and in the values' unit.
    QSizeF steps() const;
    void fit(QRectF rect);
    void paintLabels(QPainter& painter) const;

    std::vector<ValueGraphCurve*> m_curves; ///< the scene's, which see to it that none is dead
    QPointer<PlaybackClock> m_clock;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    int m_frame = 0;
    QString m_hint;
    bool m_snapsToFrames = true;
    bool m_isEditing = false;     ///< between gestureStarted() and gestureEnded()
    bool m_isExtentStale = false; ///< curves have other keys
    bool m_isFitted = true;       ///< all of it, until the user zooms or pans
    bool m_spaceHeld = false;
    bool m_isTap = false; ///< Space is down, and nothing else has happened
    std::optional<Pan> m_pan;
    std::unique_ptr<ui::GraphEdit> m_placed; ///< between beginGesture() and endGesture()
};

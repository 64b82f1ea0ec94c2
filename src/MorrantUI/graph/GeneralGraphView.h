// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/GraphicsView.h>

#include <QPoint>
#include <QPointF>
#include <QPointer>
#include <QRectF>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class GeneralGraphUtils;
class GraphBezierHandleItem;
class GraphPointWidget;
class TimeEditorBaseItem;
class TransformTool;

namespace ui {
class ChangeBatch;
class GraphDrag;
class GraphEdit;
} // namespace ui

/// The base of every editor of animation curves: a view over a scene of GraphCurveWidgets with
/// points, whose children are tangent handles. Scene units are the graph's own, x being time and y
/// the value, downward on the screen. The view draws nothing and sets no transform and no scene;
/// subclasses do, for whom the operations that zoom and pan are here.
///
/// What points and handles report while the user drags, nudges or scales them comes at the end of
/// each step, when everything has moved. editStarted() and editEnded() lie around all steps of a
/// gesture, which a host makes one step of its history. Escape takes a gesture back. Drags scroll
/// at the viewport's edge, as far as the scene's rectangle lets them.
class MORRANT_UI_EXPORT GeneralGraphView : public GraphicsView
{
    Q_OBJECT

public:
    explicit GeneralGraphView(QWidget* parent = nullptr);
    /// Deletes a scene that belongs to the view first, while its items can still ask the view.
    ~GeneralGraphView() override;

    bool isGridSnapping() const { return m_gridSnapping; }
    void setGridSnapping(bool on) { m_gridSnapping = on; } ///< off at first
    /// Graph units between the grid's lines on both axes. Not checked: with 0 nothing moves.
    int getGridSnappingValue() const { return m_gridSnappingValue; }
    void setGridSnappingValue(int units) { m_gridSnappingValue = units; }

    /// The axis that points keep to while they are dragged. A drag with Shift sets it, and every
    /// release takes it away.
    ui::Graph::AxisSnappingMode getAxisSnapping() const { return m_axisSnapping; }
    void setAxisSnapping(ui::Graph::AxisSnappingMode mode) { m_axisSnapping = mode; }

    /// While Z is held, a press on a handle takes it away.
    bool isZHeld() const { return m_zHeld; }

    /// What the owner gives to points that it creates.
    ui::Graph::Interpolation getDefaultInterpolation() const { return m_defaultInterpolation; }
    void setDefaultInterpolation(ui::Graph::Interpolation interpolation)
    {
        m_defaultInterpolation = interpolation;
    }

    /// Where a handle is placed that lies on its point when this becomes Bezier, from the point.
    virtual QPointF getDefaultBezierPosition(ui::Graph::Side side);

    /// Whether a selection of several points shows the transform tool.
    const bool& getShowTransformTool() { return m_showTransformTool; }
    void setShowTransformTool(bool show) { m_showTransformTool = show; }
    /// Whether the scaling that is under way has moved points beyond the selection.
    const bool& getDoneRippleEdit() { return m_doneRippleEdit; }
    void setDoneRippleEdit(bool done) { m_doneRippleEdit = done; }
    /// The extent of the selection in whole frames, taken at every release of the mouse.
    const std::pair<int, int>& getScaleRange() { return m_scaleRange; }
    void setScaleRange(std::pair<int, int> range) { m_scaleRange = range; }

    GeneralGraphUtils* utils() { return m_utils; } ///< owned by the view

    /// Around all selected points in the scene; null without any.
    QRectF getSelectionRect();
    /// Does nothing while the view has a scene (deliberate); without one it hides the tool. Call
    /// updateTransformTool() to have the tool follow the selection.
    void selectionChanged();
    /// Lays the transform tool over two or more selected points where it is wanted, and hides it
    /// otherwise.
    void updateTransformTool();
    /// Null before it is first needed. The scene's.
    TransformTool* transformTool() const;

    /// Scaling of the selected points in time, as the transform tool drives it; the view's release
    /// of the mouse ends it, or a host that scales by itself. @param anchor scene units @param side
    /// false for the left edge
    void setupKeyScaling(QPoint anchor, bool side);
    void scaleKeys(QPoint position); ///< scene units
    void endKeyScaling();            ///< keeps what was scaled
    /// Puts all points back to where they were when the scaling began, and ends it.
    void cancelKeyScaling();

    /// Moves the selected points in time, as the transform tool's body does; distances of one
    /// gesture, which ends with the release of the mouse, add up before the points' own rules
    /// apply.
    /// @return the distance, or 0 where there are no points or it is not finite
    double moveSelectedPoints(double distance);
    /// Moves the selected points, or else the selected handles, by a distance in scene units.
    /// @return whether there were any
    bool nudgeSelection(QPointF distance);

    /// Takes a drag, a scaling or a rubber band back to where it began. @return whether there was
    /// one
    bool cancelGesture();

    /// The zoom on each axis about a place of the viewport, which stays where it is as far as the
    /// scene's rectangle lets it. Factors that are not above 0, and what would leave the zoom not
    /// finite, are ignored. @param place logical pixels
    void zoomAt(QPointF factors, QPointF place);
    /// Moves what is shown by pixels, the content following the distance.
    void panBy(QPoint distance);
    /// Zooms on each axis by itself, so that a rectangle of the scene fills the viewport with a
    /// little room around. An axis on which it has no length keeps its zoom.
    void fitSceneRect(const QRectF& rect);
    /// Around the selected points and what their curves do between them, in the scene; all where
    /// none is selected or all are asked for. Empty without points.
    std::optional<QRectF> pointBounds(bool all) const;
    void fitPoints(bool all); ///< pointBounds(), if there are any
    /// Lets points and handles take the present zoom, for their size and hit test, before they are
    /// painted next. The operations above do so themselves.
    void updateItemRects();

    /// How a screen reader is told of a point.
    virtual QString pointText(const GraphPointWidget& point) const;
    /// The curves, those in front first.
    QObjectList listsForReaders() const override;

protected:
    /// Zooms about the pointer: with Control both axes, with Shift too the values', with Alt too
    /// the time's. @return whether the event was one for zooming
    bool zoomByWheel(const QWheelEvent& event);
    /// Scene units that an arrow key moves the selection by; ten times as much with Shift. By
    /// default a unit on each axis, and the grid's where points snap to it.
    virtual QSizeF nudgeStep() const;
    /// The accessible description: what is selected; empty for nothing.
    virtual QString selectionText() const;
    /// Tells assistive tools selectionText(), where that is another than before. The view does so
    /// itself after the user's gestures and when it gets the focus.
    void describeSelection();
    /// Makes the transform tool, which becomes the scene's. By default a PointTransformTool.
    virtual TransformTool* createTransformTool();
    /// Around what the user changes in one go: a drag, a key, a click that changes points. When it
    /// starts, nothing may be deleted: Qt is in the middle of the event.
    virtual void editStarted() {}
    /// @param changed whether anything is different from before; not after Escape
    virtual void editEnded(bool changed);
    /// Runs a change as an edit of its own, or as a part of the one that is under way.
    /// @param change which may delete the view; it returns whether anything is different
    void asEdit(const std::function<bool()>& change);
    /// Of a gesture that ends with the release, or with finishEdit(). @param changed already
    void beginEdit(bool changed);
    void finishEdit(); ///< nothing without one

    void abandonGesture() override;

    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    friend class GraphBezierHandleItem;
    friend class GraphPointWidget;
    friend class PointTransformTool;
    friend class ui::ChangeBatch;

    enum class Edit
    {
        None,
        Unchanged, ///< has begun
        Changed,
    };
    using Points = std::vector<std::pair<int, QPointer<GraphPointWidget>>>;

    void startDrag(TimeEditorBaseItem* item, QPointF scenePosition);
    void watchGesture();
    void scrollAlong(const QMouseEvent& event);
    void dragTo(QPointF scenePosition);
    void closeGesture();
    void startToolDrag();
    void openBatch() { ++m_batches; }
    void closeBatch();
    /// Whether items wait with what they report, until the batch lets them.
    bool isBatching() const { return m_batches > 0; }
    void queueChange(TimeEditorBaseItem* item);
    void queueNotice(GraphPointWidget* point);
    bool cancelRubberBand();
    void preferPoints();
    QRectF selectedBounds() const;
    bool nudgeByKey(const QKeyEvent& event);
    /// What an item that is moved goes by: none while the arrow keys move it.
    static Qt::KeyboardModifiers heldModifiers(const GeneralGraphView* view);

    bool m_doneRippleEdit = false;
    std::pair<int, int> m_scaleRange{0, 0};
    QPointer<TransformTool> m_transformTool;
    bool m_keyScalingSide = false;
    bool m_showTransformTool = false;
    Points m_scaledKeys;
    Points m_rippleKeys;
    QPoint m_scaleAnchor;
    GeneralGraphUtils* m_utils = nullptr; ///< a child
    QPointF m_pressPosition;              ///< in the viewport, whole pixels
    bool m_zHeld = false;
    bool m_gridSnapping = false;
    int m_gridSnappingValue = 5;
    ui::Graph::AxisSnappingMode m_axisSnapping = ui::Graph::AxisSnappingMode::None;
    ui::Graph::Interpolation m_defaultInterpolation = ui::Graph::Interpolation::Linear;

    std::unique_ptr<ui::GraphDrag> m_drag;
    std::unique_ptr<ui::GraphEdit> m_toolEdit; ///< of the transform tool, or of key scaling
    double m_toolDistance = 0.0;               ///< scene units, by the tool's body
    Edit m_edit = Edit::None;
    bool m_nudging = false;
    int m_batches = 0;
    std::vector<QPointer<TimeEditorBaseItem>> m_changed; ///< to be told at the end of the batch
    std::vector<QPointer<GraphPointWidget>> m_noticed;   ///< the same, of their notices
    std::vector<QPointer<TimeEditorBaseItem>> m_bandSelection; ///< before the rubber band
    GestureDoors m_gestureDoors;
};

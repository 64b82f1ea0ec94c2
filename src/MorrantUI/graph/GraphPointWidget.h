// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/timeeditor/TimeEditorBaseItem.h>

#include <QPainterPath>
#include <QPointF>
#include <QPointer>

#include <array>
#include <cstddef>

class GeneralGraphView;
class GraphBezierHandleItem;
class GraphCurveWidget;
class QGraphicsWidget;
class QTransform;

namespace ui {
class CurveKnots;
class GraphEdit;
} // namespace ui

/// A point of a curve, which is its parent: a diamond of twelve pixels at any zoom. Its two handles
/// are its children, placed from it.
///
/// Where it is told to go, its view's axis lock and grid and its own range have a say. What is
/// pushed while updates are off, and forceMove(), is taken as it is and told to nobody.
class MORRANT_UI_EXPORT GraphPointWidget : public TimeEditorBaseItem
{
    Q_OBJECT

public:
    /// @param view which may die before the point
    GraphPointWidget(GeneralGraphView* view, QGraphicsWidget* parent);
    ~GraphPointWidget() override;

    GeneralGraphView* parentView() const;
    /// The curve that it is a child of; null without.
    GraphCurveWidget* curve() const { return m_curve; }

    /// Keeps where it is; a drag that is locked to an axis keeps one coordinate of it.
    void storePosition() { m_storedPosition = pos(); }
    const QPointF& getStoredPosition() const { return m_storedPosition; }

    /// The key that it shows, in the owner's own count.
    int index() const { return m_index; }
    void setIndex(int index) { m_index = index; }

    /// Whether both coordinates stay from 0 to ui::Graph::kFixedScale.
    bool clippingPosition() const { return m_clipPosition; }
    void setClipPosition(bool clip) { m_clipPosition = clip; } ///< off at first

    /// Null for both unless it has exactly two children, and both are handles.
    GraphBezierHandleItem* getLeftBezier();
    GraphBezierHandleItem* getRightBezier(); ///< see getLeftBezier()

    /// Whether the handles move as a pair, opposite each other.
    bool hasLockedBeziers() const { return m_lockedBeziers; }
    /// When it locks and is not silent, a handle that lies on the point goes opposite the other
    /// one, and both are shown; nothing moves where both lie on the point. Tells nobody.
    void setLockedBeziers(bool locked, bool silent);

    ui::Graph::Interpolation getInterpolation() const { return m_interpolation; }
    /// Shows or hides the handles. Unless it is silent, those that lie on the point get their
    /// default place when it becomes Bezier, and notifyPointChanged() follows if updates are on.
    void setInterpolation(ui::Graph::Interpolation interpolation, bool silent);

    /// Whether the value stays to the next point and steps there, whatever the interpolation.
    bool isHolding() const { return m_holding; }
    void setHolding(bool holding);

    /// The highlight colour while the pointer is over it.
    QColor getColor() const override;

    void updateRect() override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    /// Interpolation or handles have changed by more than their place.
    virtual void notifyPointChanged() {}

Q_SIGNALS:
    /// It is somewhere else. During the user's gestures it comes once a step, when all points have
    /// moved. Do not delete the point in it when the host itself moves it: Qt is still at it.
    void pointDataChange();

protected:
    bool collidesWithPath(const QPainterPath& path, Qt::ItemSelectionMode mode) const override;
    QVariant itemChange(GraphicsItemChange change, const QVariant& value) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;

private:
    friend class GeneralGraphView;
    friend class GraphCurveWidget;
    friend class GraphBezierHandleItem;
    friend class ui::CurveKnots;
    friend class ui::GraphEdit;

    QPointF acceptedPosition(QPointF wanted) const;
    void reportChange();
    void reportNotice();
    void toggleInterpolation();
    void sizeFor(const QTransform& zoom);
    void placeHandles();
    void handlesChanged();
    void refreshHandles();
    const std::array<GraphBezierHandleItem*, 2>& handles();

    QPointF m_storedPosition;
    int m_index = 0;
    QPainterPath m_path; ///< the diamond, as large as it was last painted
    QPointF m_sizedFor;  ///< pixels a unit, of that size
    QPointer<GeneralGraphView> m_view;
    bool m_lockedBeziers = true;
    bool m_clipPosition = false;
    ui::Graph::Interpolation m_interpolation = ui::Graph::Interpolation::Linear;
    bool m_holding = false;

    GraphCurveWidget* m_curve = nullptr; ///< the parent, which takes it back when it dies
    double m_knotX = 0.0;                ///< the x by which the curve has sorted it
    std::size_t m_knotIndex = 0;         ///< where in that order it was last
    std::array<GraphBezierHandleItem*, 2> m_handles{}; ///< by side
    bool m_handlesStale = true;
    bool m_changeReported = false; ///< waits for the end of the batch
    bool m_noticeReported = false;
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/GeneralGraphView.h>
#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/morrantui_export.h>

#include <Core/GraphCurveData.h>

#include <QPointer>
#include <QRect>
#include <QRectF>

#include <concepts>
#include <functional>
#include <vector>

class GraphCurveWidget;
class GraphPointWidget;
class QMenu;

/// The editor of a normalised curve, such as an easing: keys of GraphCurveData in a square, time
/// and value from 0 to 1. graph/fixedunits.h has the way from data to scene and back.
///
/// The view changes no data. It tells what the user did; the owner applies that to the data, and
/// calls fillGraph() when keys have come or gone. In any slot the owner may change the data, fill
/// the graph, give other data, or deleteLater() the view; a filling ends a drag that is under way.
/// Before the data is freed, the view has to be told with setData(nullptr).
class MORRANT_UI_EXPORT FixedGraphView : public GeneralGraphView
{
    Q_OBJECT

public:
    /// @param curveData not owned; may be null. Nothing is shown before the first fillGraph(true).
    explicit FixedGraphView(GraphCurveData* curveData, QWidget* parent = nullptr);
    /// Without data, as forms make it. A template, so that a null means the data.
    template <std::derived_from<QWidget> Parent>
    explicit FixedGraphView(Parent* parent)
        : FixedGraphView(nullptr, parent)
    {}
    ~FixedGraphView() override;

    GraphCurveData* getData() const { return m_data; }
    /// Shows other data, or none.
    void setData(GraphCurveData* curveData);

    /// Scene units for the data's 0..1.
    static int getScaleMultiplier() { return ui::Graph::kFixedScale; }

    /// Deleting is refused while the data has this many keys or fewer. 1 at first.
    void setMinimumPoints(int points) { m_minimumPoints = points; }
    int minimumPoints() const { return m_minimumPoints; }

    /// Fits a rectangle of the scene into the view, whole and in proportion; it stays fitted when
    /// the view is resized. One that is empty or not finite is ignored.
    void fitToRect(QRectF rect);
    /// The area that is shown, and that is the scene's rectangle. By default the square with a
    /// margin of a quarter of a unit.
    void setRangeRect(QRect rect);

    /// A point at a place of the scene, which the range and a grid have a say in. It has index 0
    /// and no handles, and its moves are told by pointMoved().
    /// @return null without data, and for a place that is not finite
    GraphPointWidget* addPoint(QPointF position, morrant::KeyInterpolationType type);
    /// Gives a point the handles of the key that has its index; places those that it has already.
    /// Nothing happens where no key has it.
    void addBezierHandles(GraphPointWidget* point);
    /// Builds the graph from the data, if the number of keys is not that of the points, or in any
    /// case when forced. Points of the indices that were selected are selected again; the transform
    /// tool stays, hidden. Keys with numbers that are not finite are left out.
    void fillGraph(bool force);
    /// Shows the handles of Bezier points where there are two or more points, by the rules of
    /// GraphBezierHandleItem::showHandle().
    void updateBezierVisibility();

    /// What a point shows, in data units and with its index: the key as the data should hold it.
    /// What has not changed is the data's to the last digit. For null a default key of index -1.
    GraphCurveKey shownKey(GraphPointWidget* point) const;

    QPointF getDefaultBezierPosition(ui::Graph::Side side) override;

Q_SIGNALS:
    /// The user has added a point. The owner adds a key and gives the point its index, in the slot
    /// or in what the slot queues; the point then gets handles.
    /// @param position where the user clicked, in the scene; the point lies at the nearest place
    ///     that it may
    void pointAdded(QPointF position, GraphPointWidget* point);
    /// A point, its handles or its interpolation have changed: shownKey() says to what.
    void pointMoved(GraphPointWidget* point);
    /// The user wants a key deleted. @param index of the key, as of its point
    void pointRemoved(unsigned long index);
    /// The user has chosen a curve type: 0 Bezier, 1 linear. The owner gives it to the selected
    /// points, of which pointMoved() tells after the slot, or to keys.
    void interpolationChanged(short type);

    /// Around all reports of one drag, key or choice: one step of the owner's history. A gesture
    /// that reports nothing is none.
    void gestureStarted();
    /// @param changed false where everything is as before, after Escape too
    void gestureEnded(bool changed);

protected:
    QSizeF nudgeStep() const override;
    QString pointText(const GraphPointWidget& point) const override;
    void editStarted() override;
    void editEnded(bool changed) override;

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    friend class FixedGraphPointWidget;

    enum class Gesture
    {
        None,
        Begun, ///< nothing has been reported of it
        Told,
    };

    const GraphCurveKey* keyOf(const GraphPointWidget& point) const;
    GraphPointWidget* makePoint(morrant::KeyInterpolationType type);
    void makeCurve();
    void makeHandles(GraphPointWidget* point, const GraphCurveKey& key);
    void clearGraph();
    void buildGraph();
    std::vector<GraphPointWidget*> selectedPoints();
    bool canDelete() const;
    void tellStart();
    void tellMoved(GraphPointWidget* point);
    void asGesture(const std::function<void()>& report);
    bool deleteSelectedItems();
    void addPointByUser(QPointF position);
    void fillMenu(QMenu* menu, QPointF position);

    int m_minimumPoints = 1;
    QRectF m_rangeRect{-0.25, -0.25, 10.5, 10.5};
    QPointer<GraphCurveWidget> m_curve; ///< the scene's
    GraphCurveData* m_data;
    QRectF m_shownRect; ///< what was last fitted
    Gesture m_gesture = Gesture::None;
};

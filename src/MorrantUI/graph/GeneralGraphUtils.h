// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

class GeneralGraphView;
class GraphPointWidget;

/// Finds a graph view's points, and scales them in time.
class MORRANT_UI_EXPORT GeneralGraphUtils : public QObject
{
    Q_OBJECT

public:
    /// Points, each with its scene x when the scaling began.
    using ScaledPoints = std::vector<std::pair<int, GraphPointWidget*>>;

    /// @param view which may die before
    GeneralGraphUtils(GeneralGraphView* view, QObject* parent);

    /// Maps a value linearly from one range to another. Not finite when the range to come from is
    /// empty.
    double drange(double value, double inMin, double inMax, double outMin, double outMax);

    /// One step of a scaling: the pressed frame goes from `from` to `to`, the far end of `scaled`
    /// stays, and points land on whole frames. With Alt held, those of `others` that lie outside
    /// the view's scale range on the dragged side go along; without it, they return. These move by
    /// their scene x alone, whatever their parent's position (deliberate). A step to a place that
    /// is not finite is dropped, and so are null points.
    /// @param side false for the left edge, true for the right one
    void scaleKeys(int from, int to, ScaledPoints scaled, ScaledPoints others, bool side);

    /// The scene's selected points, or all of them, those in front first; in the scene's order.
    std::vector<GraphPointWidget*> pointItems(bool selectedOnly);

private:
    QPointer<GeneralGraphView> m_view;
};

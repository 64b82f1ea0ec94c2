// SPDX-License-Identifier: Apache-2.0
#pragma once // internal: hosts have no use for it

#include <MorrantUI/graph/graphtypes.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointF>
#include <QRectF>

#include <utility>

/// A curve between two of its points, as numbers: drawing, hit test and evaluation read the same
/// ones. All of it in graph units, x being time and y what it leads to, downward on the screen.
namespace ui::Graph {

/// A cubic from a point to the next. Once limited() has been at work, x never decreases along it,
/// so that it is a function of x.
struct Segment
{
    QPointF start;
    QPointF firstControl;
    QPointF secondControl;
    QPointF end;
    bool hold = false; ///< stays at the start's y up to the end, and steps there

    friend bool operator==(const Segment&, const Segment&) = default;
};

/// What a curve keeps to: control points stay between top and bottom, and beyond its first and last
/// point the curve goes on level as far as left and right. Infinite ones limit nothing, or let
/// nothing go on.
struct CurveLimits
{
    double left = 0.0;
    double top = 0.0;
    double right = kFixedScale;
    double bottom = kFixedScale;

    friend bool operator==(const CurveLimits&, const CurveLimits&) = default;
};

/// The segment with its control points between its ends on x, and within the limits on y.
MORRANT_UI_EXPORT Segment limited(const Segment& segment, const CurveLimits& limits);

/// The parameter, 0..1, at which a limited segment reaches an x; 0 before it and 1 after it. Where
/// a whole stretch of the parameter has the same x to the last bit, one out of it.
MORRANT_UI_EXPORT double parameterAt(const Segment& segment, double x);

/// The point at a parameter of the cubic, whether it holds or not.
MORRANT_UI_EXPORT QPointF pointAt(const Segment& segment, double parameter);

/// The y that a limited segment has at an x: its start's before it, its end's from its end on.
MORRANT_UI_EXPORT double valueAt(const Segment& segment, double x);

/// The smallest rectangle around what is drawn of the segment.
MORRANT_UI_EXPORT QRectF segmentBounds(const Segment& segment);

/// Two segments that together are drawn like the one, meeting at an x: what a point inserted there
/// needs for its handles and its neighbours'.
MORRANT_UI_EXPORT std::pair<Segment, Segment> splitAt(const Segment& segment, double x);

} // namespace ui::Graph

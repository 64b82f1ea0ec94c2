// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Property.h"

#include <QString>

#include <string>
#include <variant>
#include <vector>

namespace studio {

/// What the file means where it leaves out an opacity or the end of a trimmed path.
inline const NumberProperty kHundredPercent{{100}, {}, 1, {}, {}};

/// Position and anchor in pixels, scale and opacity in percent, angles in degrees clockwise.
struct Transform
{
    NumberProperty anchor;
    NumberProperty position;
    NumberProperty positionX; ///< with splitPosition, these two stand in for `position`
    NumberProperty positionY;
    NumberProperty scale = NumberProperty{{100, 100, 100}, {}, 3, {}, {}};
    NumberProperty rotation;
    NumberProperty opacity = kHundredPercent;
    NumberProperty skew;
    NumberProperty skewAxis;
    bool splitPosition = false;
    bool autoOrient = false; ///< turn along the position's path
};

struct ShapeItem;

struct GroupShape
{
    std::vector<ShapeItem> items; ///< first on top
    Transform transform;
};

struct PathShape
{
    PathProperty path;
};

struct RectangleShape
{
    NumberProperty position; ///< of the centre
    NumberProperty size;
    NumberProperty radius;
};

struct EllipseShape
{
    NumberProperty position; ///< of the centre
    NumberProperty size;
};

struct StarShape
{
    bool isPolygon = false; ///< without inner points
    NumberProperty position;
    NumberProperty points;
    NumberProperty rotation;
    NumberProperty outerRadius;
    NumberProperty outerRoundness; ///< percent
    NumberProperty innerRadius;
    NumberProperty innerRoundness; ///< percent
};

enum class FillRule
{
    NonZero,
    EvenOdd,
};

/// How a fill covers its paths, whatever it is made of.
struct FillStyle
{
    NumberProperty opacity = kHundredPercent;
    FillRule rule = FillRule::NonZero;
};

struct FillShape : FillStyle
{
    NumberProperty color; ///< red, green, blue, 0..1
};

enum class StrokeCap
{
    Butt,
    Round,
    Square,
};

enum class StrokeJoin
{
    Miter,
    Round,
    Bevel,
};

/// How a stroke follows its paths, whatever it is made of.
struct StrokeStyle
{
    NumberProperty opacity = kHundredPercent;
    NumberProperty width;
    StrokeCap cap = StrokeCap::Butt;
    StrokeJoin join = StrokeJoin::Miter;
    double miterLimit = 4;
    std::vector<NumberProperty> dashes; ///< lengths of dash, gap, dash, gap ...
    NumberProperty dashOffset;
};

struct StrokeShape : StrokeStyle
{
    NumberProperty color; ///< red, green, blue, 0..1
};

struct Gradient
{
    bool isRadial = false;
    NumberProperty start;           ///< the centre of a radial one
    NumberProperty end;             ///< on the rim of a radial one
    NumberProperty highlightLength; ///< of a radial one: percent of the way from centre to rim
    NumberProperty highlightAngle;  ///< degrees clockwise from the direction of `end`
    StopsProperty stops;
    int colorStops = 0; ///< of `stops` the first so many are colours, the others opacities
};

struct GradientFillShape : FillStyle
{
    Gradient gradient;
};

struct GradientStrokeShape : StrokeStyle
{
    Gradient gradient;
};

/// Keeps a stretch of every path above it in its group.
struct TrimShape
{
    NumberProperty start; ///< percent
    NumberProperty end = kHundredPercent;
    NumberProperty offset;   ///< degrees: 360 is once around
    bool sequential = false; ///< all paths count as one long path
};

enum class MergeMode
{
    Append,
    Add,
    Subtract,
    Intersect,
    Exclude,
};

/// Makes one path of those above it in its group.
struct MergeShape
{
    MergeMode mode = MergeMode::Append;
};

/// Something that is not drawn; Document::missing names its kind.
struct UnknownShape
{};

struct ShapeItem
{
    QString name;
    bool hidden = false;
    bool reversed = false; ///< the outline runs counter-clockwise
    std::variant<
        UnknownShape,
        GroupShape,
        PathShape,
        RectangleShape,
        EllipseShape,
        StarShape,
        FillShape,
        StrokeShape,
        GradientFillShape,
        GradientStrokeShape,
        TrimShape,
        MergeShape>
        shape;
};

enum class LayerKind
{
    Precomposition,
    Solid,
    Null,
    Shape,
    Other, ///< not drawn; listed in Document::missing
};

/// What of another layer shows a layer, or with "Inverted" hides it.
enum class MatteMode
{
    None,
    Alpha,
    InvertedAlpha,
    Luma,
    InvertedLuma,
};

enum class MaskMode
{
    Add,
    Subtract,
    Intersect,
};

/// An outline that shows or hides a part of its layer, in the layer's own units.
struct Mask
{
    MaskMode mode = MaskMode::Add;
    bool inverted = false;
    PathProperty path;
    NumberProperty opacity = kHundredPercent;
};

struct Layer
{
    QString name;
    LayerKind kind = LayerKind::Other;
    int parent = -1;      ///< place in the same list of layers, -1 for none; never a circle
    double inPoint = 0;   ///< first frame shown
    double outPoint = 0;  ///< first frame no longer shown
    double startTime = 0; ///< frame at which a precomposition's own frame 0 lies
    double stretch = 1;   ///< frames of this composition to one of the precomposition's; never 0
    bool hidden = false;
    bool locked = false;  ///< the user's, against edits
    bool isMatte = false; ///< stands only for the matte of another layer: not drawn itself
    MatteMode matte = MatteMode::None;
    /// Place of the layer that is the matte, in the same list; -1: the one above, whichever that
    /// is. May form a circle: see matteOf().
    int matteLayer = -1;
    Transform transform;
    std::vector<Mask> masks;       ///< each takes what those before it left
    std::vector<ShapeItem> shapes; ///< first on top

    int composition = -1; ///< place in Document::compositions
    double width = 0;     ///< of a precomposition or a solid, in pixels
    double height = 0;
    bool hasTimeRemap = false;
    NumberProperty timeRemap; ///< seconds into the precomposition
    NumberProperty color;     ///< of a solid: red, green, blue, 0..1; never animated
    Span span;                ///< the whole layer object
};

struct Composition
{
    QString id;
    QString name;
    std::vector<Layer> layers; ///< first on top
};

struct Marker
{
    QString comment;
    double time = 0;     ///< frame
    double duration = 0; ///< frames
};

/// Something that the file asks for and we do not draw.
struct MissingFeature
{
    QString layer;               ///< its name, as the user knows it
    QString feature;             ///< "mask", translated
    std::uint32_t layerByte = 0; ///< where the layer stands in the file: names repeat

    bool operator==(const MissingFeature&) const = default;
};

/// An animation as read from a Lottie file. A plain value: copy it, edit it, draw it. Compositions
/// never hold themselves.
struct Document
{
    QString name;
    QString version;
    double frameRate = 0; ///< frames a second, above 0
    double inPoint = 0;   ///< first frame
    double outPoint = 0;  ///< the frame after the last one, above inPoint
    int width = 0;        ///< pixels, above 0
    int height = 0;
    Composition main;
    std::vector<Composition> compositions; ///< of precomposition layers
    std::vector<Marker> markers;
    double colorUnit = 1; ///< what the file writes for a full colour channel: 255 in old files
    std::vector<MissingFeature> missing; ///< each once a layer, in order of appearance
    QString notes;                       ///< the user's
    std::string bytes;                   ///< the file, which every Span points into
};

} // namespace studio

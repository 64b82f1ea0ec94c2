// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace studio {

/// Where a value stands in the file as it was read: bytes [begin, end). Empty when the file does
/// not spell it out, and of keys that an edit has added.
struct Span
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    bool isEmpty() const { return begin == end; }
    bool operator==(const Span&) const = default;
};

/// A scalar, point, size or colour. Entries past the property's dimensions are 0.
using Numbers = std::array<double, 4>;

/// A cubic bezier outline. Tangents are relative to their vertex; the three lists are equally long.
struct BezierPath
{
    std::vector<std::array<double, 2>> vertices;
    std::vector<std::array<double, 2>> inTangents;
    std::vector<std::array<double, 2>> outTangents;
    bool closed = false;

    bool operator==(const BezierPath&) const = default;
};

/// One end of an easing curve, an entry a dimension: x is the share of the segment's time, within
/// 0..1; y is the share of its change of value and unbounded (overshoot). Without both ends a
/// segment is linear.
struct EasingHandle
{
    Numbers x{};
    Numbers y{};
    int count = 0; ///< entries the file spells out, the rest equal the first; 0: it gives no handle

    bool operator==(const EasingHandle&) const = default;
};

/// A gradient's stops, in the file's form: offset, red, green, blue for each colour, then offset,
/// opacity for each opacity; all 0..1.
using GradientStops = std::vector<double>;

template <typename Value>
struct Keyframe
{
    double time = 0; ///< frames of the composition that holds the layer; may be fractional
    Value value{};
    bool hold = false;       ///< keep the value up to the next key
    EasingHandle easeOut;    ///< how the value leaves this key
    EasingHandle easeIn;     ///< how it enters the next one; stored on this key, as in the file
    Numbers spatialOut{};    ///< "to", relative to this key's position
    Numbers spatialIn{};     ///< "ti", relative to the next key's position
    bool hasSpatial = false; ///< the easing is then progress along the curve, one for x and y

    Span span;        ///< the whole key object
    Span timeSpan;    ///< "t"
    Span valueSpan;   ///< "s"; in old files the last key has none: the earlier key's "e"
    Span endSpan;     ///< "e", a copy of the next key's value that old files carry
    Span holdSpan;    ///< "h"
    Span easeOutSpan; ///< "o"
    Span easeInSpan;  ///< "i"

    bool operator==(const Keyframe&) const = default;
};

/// A value that stands still or follows keys. Keys are in order of time; two may share a frame, the
/// later one then holds from that frame on.
template <typename Value>
struct Property
{
    Value value{};                     ///< used while there are no keys
    std::vector<Keyframe<Value>> keys; ///< never a single key without a value
    int dimensions = 1;                ///< entries of Numbers in use; 1 for paths and stops
    Span span;                         ///< the property object; empty when the file leaves it out
    Span valueSpan;                    ///< "k": the value or the list of keys

    bool isAnimated() const { return !keys.empty(); }
    bool operator==(const Property&) const = default;
};

using NumberProperty = Property<Numbers>;
using PathProperty = Property<BezierPath>;
using StopsProperty = Property<GradientStops>;

} // namespace studio

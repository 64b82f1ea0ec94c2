// SPDX-License-Identifier: Apache-2.0
#include "lottie/readproperties.h"

#include "texts.h"

namespace studio {

namespace {

EasingHandle readHandle(ReadContext& context, const JsonValue& value)
{
    EasingHandle handle;
    int countX = 0;
    int countY = 0;
    handle.x = context.numbers(value["x"], &countX);
    handle.y = context.numbers(value["y"], &countY);
    if (countX == 0 || countY == 0) {
        return {};
    }
    std::fill(handle.x.begin() + countX, handle.x.end(), handle.x[0]);
    std::fill(handle.y.begin() + countY, handle.y.end(), handle.y[0]);
    handle.count = std::max(countX, countY);
    return handle;
}

void readPoints(
    ReadContext& context,
    const JsonValue& outline,
    std::string_view key,
    std::vector<std::array<double, 2>>& points)
{
    for (const JsonValue& point : context.list(outline, key)) {
        const Numbers numbers = context.numbers(point);
        points.push_back({numbers[0], numbers[1]});
    }
}

// Takes the value of a property or of a key, which for a key stands in a list of its own.
struct NumberValue
{
    using Type = Numbers;

    ReadContext& context;
    int dimensions = 1;

    Numbers operator()(const JsonValue& value)
    {
        int count = 0;
        const Numbers result = context.numbers(value, &count);
        dimensions = std::max(dimensions, count);
        return result;
    }
};

struct PathValue
{
    using Type = BezierPath;

    ReadContext& context;
    bool closed = false;
    int dimensions = 1;

    BezierPath operator()(const JsonValue& value)
    {
        const JsonValue outline = value.isList() ? value.first() : value;
        if (outline.exists() && !outline.isObject()) {
            context.failType(value, QCoreApplication::translate("studio", "an outline"));
        }
        BezierPath path;
        readPoints(context, outline, "v", path.vertices);
        readPoints(context, outline, "i", path.inTangents);
        readPoints(context, outline, "o", path.outTangents);
        path.inTangents.resize(path.vertices.size());
        path.outTangents.resize(path.vertices.size());
        path.closed = outline["c"].exists() ? context.flag(outline, "c") : closed;
        return path;
    }
};

struct StopsValue
{
    using Type = GradientStops;

    ReadContext& context;
    int dimensions = 1;

    GradientStops operator()(const JsonValue& value)
    {
        GradientStops stops;
        if (!value.isList()) {
            context.failType(value, QCoreApplication::translate("studio", "a list of numbers"));
        }
        for (const JsonValue& entry : value) {
            stops.push_back(context.numbers(entry)[0]);
        }
        return stops;
    }
};

template <typename Value>
void readSpatial(ReadContext& context, const JsonValue& value, Keyframe<Value>& key)
{
    key.spatialOut = context.numbers(value["to"]);
    key.spatialIn = context.numbers(value["ti"]);
    key.hasSpatial = key.spatialOut != Numbers{} || key.spatialIn != Numbers{};
}

template <typename Reader>
void readKeys(
    ReadContext& context,
    const JsonValue& list,
    Reader& readValue,
    std::vector<Keyframe<typename Reader::Type>>& keys)
{
    keys.reserve(list.size());
    JsonValue previousEnd;
    for (const JsonValue& value : list) {
        if (!value.isObject()) {
            context.failType(list, tr("a list of keyframes"));
            return;
        }
        Keyframe<typename Reader::Type> key;
        // Old files leave out the last key's value: the segment before it ends there.
        const JsonValue written = value["s"].exists() ? value["s"] : previousEnd;
        key.time = context.number(value, "t");
        if (written.exists()) {
            key.value = readValue(written);
        } else if (!keys.empty()) {
            key.value = keys.back().value;
        }
        key.hold = context.flag(value, "h");
        key.easeOut = readHandle(context, value["o"]);
        key.easeIn = readHandle(context, value["i"]);
        readSpatial(context, value, key);
        previousEnd = value["e"];

        key.span = value.span();
        key.timeSpan = value["t"].span();
        key.valueSpan = written.span();
        key.endSpan = previousEnd.span();
        key.holdSpan = value["h"].span();
        key.easeOutSpan = value["o"].span();
        key.easeInSpan = value["i"].span();
        keys.push_back(std::move(key));
    }
    std::stable_sort(
        keys.begin(), keys.end(), [](const auto& a, const auto& b) { return a.time < b.time; });
}

template <typename Reader>
void readAnimated(
    ReadContext& context,
    const JsonValue& parent,
    std::string_view key,
    Reader readValue,
    Property<typename Reader::Type>& property)
{
    const JsonValue object = context.object(parent, key);
    const JsonValue value = object["k"];
    if (object["x"].type() == JsonType::String) {
        context.missing(tr("expression"));
    }
    if (!object.exists() || !value.exists()) {
        return;
    }
    property.span = object.span();
    property.valueSpan = value.span();
    // Whether there are keys is seen, not taken from "a", which not all writers set right.
    if (value.isList() && value.first()["t"].exists()) {
        readKeys(context, value, readValue, property.keys);
    } else {
        property.value = readValue(value);
    }
    property.dimensions = readValue.dimensions;
}

void scale(Numbers& numbers, double factor)
{
    std::for_each(numbers.begin(), numbers.end(), [factor](double& n) { n *= factor; });
}

} // namespace

void readProperty(
    ReadContext& context, const JsonValue& parent, std::string_view key, NumberProperty& property)
{
    readAnimated(context, parent, key, NumberValue{context}, property);
}

void readProperty(
    ReadContext& context,
    const JsonValue& parent,
    std::string_view key,
    PathProperty& property,
    bool closed)
{
    readAnimated(context, parent, key, PathValue{context, closed}, property);
}

void readProperty(
    ReadContext& context, const JsonValue& parent, std::string_view key, StopsProperty& property)
{
    readAnimated(context, parent, key, StopsValue{context}, property);
}

void readColor(
    ReadContext& context, const JsonValue& parent, std::string_view key, NumberProperty& property)
{
    readProperty(context, parent, key, property);
    const double unit = context.document().colorUnit;
    if (unit != 1) {
        scale(property.value, 1 / unit);
        for (auto& frame : property.keys) {
            scale(frame.value, 1 / unit);
        }
    }
}

void readTransform(ReadContext& context, const JsonValue& object, Transform& transform)
{
    readProperty(context, object, "a", transform.anchor);
    readProperty(context, object, "s", transform.scale);
    readProperty(context, object, "o", transform.opacity);
    readProperty(context, object, "sk", transform.skew);
    readProperty(context, object, "sa", transform.skewAxis);
    // Turned out of the plane, a layer names its angle in the plane "rz".
    readProperty(context, object, object["rz"].exists() ? "rz" : "r", transform.rotation);
    const JsonValue position = context.object(object, "p");
    transform.splitPosition = context.flag(position, "s");
    if (transform.splitPosition) {
        readProperty(context, position, "x", transform.positionX);
        readProperty(context, position, "y", transform.positionY);
    } else {
        readProperty(context, object, "p", transform.position);
    }
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "lottie/readshapes.h"

#include "lottie/readproperties.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace studio {

namespace {

// What the kinds that are not drawn are called for the user.
struct UndrawnKind
{
    const char* key;
    const char* name;
};

constexpr UndrawnKind kUndrawnKinds[] = {
    {"op", QT_TRANSLATE_NOOP("studio", "offset path")},
    {"pb", QT_TRANSLATE_NOOP("studio", "pucker and bloat")},
    {"rd", QT_TRANSLATE_NOOP("studio", "rounded corners")},
    {"rp", QT_TRANSLATE_NOOP("studio", "repeater")},
    {"tw", QT_TRANSLATE_NOOP("studio", "twist")},
    {"zz", QT_TRANSLATE_NOOP("studio", "zig-zag")},
};

// The file counts an enumeration from 1; what lies outside becomes its first value.
template <typename Enumeration>
Enumeration choice(
    ReadContext& context, const JsonValue& value, std::string_view key, Enumeration last)
{
    const int number = context.integer(value, key, 1) - 1;
    return number < 0 || number > static_cast<int>(last) ? Enumeration()
                                                         : static_cast<Enumeration>(number);
}

void readShape(ReadContext& context, const JsonValue& value, GroupShape& group)
{
    readShapes(context, value, "it", group.items, &group.transform);
}

void readShape(ReadContext& context, const JsonValue& value, PathShape& shape)
{
    readProperty(context, value, "ks", shape.path, context.flag(value, "closed"));
}

void readShape(ReadContext& context, const JsonValue& value, RectangleShape& shape)
{
    readProperty(context, value, "p", shape.position);
    readProperty(context, value, "s", shape.size);
    readProperty(context, value, "r", shape.radius);
}

void readShape(ReadContext& context, const JsonValue& value, EllipseShape& shape)
{
    readProperty(context, value, "p", shape.position);
    readProperty(context, value, "s", shape.size);
}

void readShape(ReadContext& context, const JsonValue& value, StarShape& shape)
{
    shape.isPolygon = context.integer(value, "sy") == 2;
    readProperty(context, value, "p", shape.position);
    readProperty(context, value, "pt", shape.points);
    readProperty(context, value, "r", shape.rotation);
    readProperty(context, value, "or", shape.outerRadius);
    readProperty(context, value, "os", shape.outerRoundness);
    readProperty(context, value, "ir", shape.innerRadius);
    readProperty(context, value, "is", shape.innerRoundness);
}

void readStyle(ReadContext& context, const JsonValue& value, FillStyle& style)
{
    readProperty(context, value, "o", style.opacity);
    style.rule = choice(context, value, "r", FillRule::EvenOdd);
}

void readStyle(ReadContext& context, const JsonValue& value, StrokeStyle& style)
{
    readProperty(context, value, "o", style.opacity);
    readProperty(context, value, "w", style.width);
    style.cap = choice(context, value, "lc", StrokeCap::Square);
    style.join = choice(context, value, "lj", StrokeJoin::Bevel);
    style.miterLimit = context.number(value, "ml", style.miterLimit);
    for (const JsonValue& dash : context.list(value, "d")) {
        if (dash["n"].string() == u"o") {
            readProperty(context, dash, "v", style.dashOffset);
        } else {
            readProperty(context, dash, "v", style.dashes.emplace_back());
        }
    }
}

// Of fills and strokes alike.
template <typename Shape>
void readColored(ReadContext& context, const JsonValue& value, Shape& shape)
{
    readColor(context, value, "c", shape.color);
    readStyle(context, value, shape);
}

template <typename Shape>
void readGradient(ReadContext& context, const JsonValue& value, Shape& shape)
{
    Gradient& gradient = shape.gradient;
    gradient.isRadial = context.integer(value, "t") == 2;
    readProperty(context, value, "s", gradient.start);
    readProperty(context, value, "e", gradient.end);
    readProperty(context, value, "h", gradient.highlightLength);
    readProperty(context, value, "a", gradient.highlightAngle);
    const JsonValue colors = context.object(value, "g");
    readProperty(context, colors, "k", gradient.stops);
    // Without a count all of them are colours.
    gradient.colorStops =
        colors["p"].exists() ? context.integer(colors, "p") : std::numeric_limits<int>::max();
    readStyle(context, value, shape);
}

void readShape(ReadContext& context, const JsonValue& value, FillShape& shape)
{
    readColored(context, value, shape);
}

void readShape(ReadContext& context, const JsonValue& value, StrokeShape& shape)
{
    readColored(context, value, shape);
}

void readShape(ReadContext& context, const JsonValue& value, GradientFillShape& shape)
{
    readGradient(context, value, shape);
}

void readShape(ReadContext& context, const JsonValue& value, GradientStrokeShape& shape)
{
    readGradient(context, value, shape);
}

void readShape(ReadContext& context, const JsonValue& value, TrimShape& shape)
{
    readProperty(context, value, "s", shape.start);
    readProperty(context, value, "e", shape.end);
    readProperty(context, value, "o", shape.offset);
    shape.sequential = context.integer(value, "m") == 2;
}

void readShape(ReadContext& context, const JsonValue& value, MergeShape& shape)
{
    shape.mode = choice(context, value, "mm", MergeMode::Exclude);
}

template <typename Shape>
void readAs(ReadContext& context, const JsonValue& value, ShapeItem& item)
{
    readShape(context, value, item.shape.emplace<Shape>());
}

void readUndrawn(ReadContext& context, const QString& kind)
{
    const auto known =
        std::find_if(std::begin(kUndrawnKinds), std::end(kUndrawnKinds), [&](const auto& entry) {
            return kind == QLatin1String(entry.key);
        });
    const bool isKnown = known != std::end(kUndrawnKinds);
    context.missing(
        isKnown ? QCoreApplication::translate("studio", known->name)
                : QCoreApplication::translate("studio", "shape of kind “%1”").arg(kind));
}

ShapeItem readItem(ReadContext& context, const JsonValue& value)
{
    using Read = void (*)(ReadContext&, const JsonValue&, ShapeItem&);
    static constexpr std::pair<QLatin1String, Read> kReaders[] = {
        {QLatin1String("gr"), readAs<GroupShape>},
        {QLatin1String("sh"), readAs<PathShape>},
        {QLatin1String("rc"), readAs<RectangleShape>},
        {QLatin1String("el"), readAs<EllipseShape>},
        {QLatin1String("sr"), readAs<StarShape>},
        {QLatin1String("fl"), readAs<FillShape>},
        {QLatin1String("st"), readAs<StrokeShape>},
        {QLatin1String("gf"), readAs<GradientFillShape>},
        {QLatin1String("gs"), readAs<GradientStrokeShape>},
        {QLatin1String("tm"), readAs<TrimShape>},
        {QLatin1String("mm"), readAs<MergeShape>},
    };

    ShapeItem item;
    item.name = value["nm"].string();
    item.hidden = context.flag(value, "hd");
    item.reversed = value["d"].number() == 3; // a stroke's "d" is its list of dashes
    const QString kind = value["ty"].string();
    const auto reader = std::find_if(
        std::begin(kReaders), std::end(kReaders), [&](const auto& r) { return kind == r.first; });
    if (reader != std::end(kReaders)) {
        reader->second(context, value, item);
    } else {
        readUndrawn(context, kind);
    }
    if (context.number(value, "bm") != 0) {
        context.missing(QCoreApplication::translate("studio", "blend mode"));
    }
    return item;
}

} // namespace

void readShapes(
    ReadContext& context,
    const JsonValue& parent,
    std::string_view key,
    std::vector<ShapeItem>& items,
    Transform* transform)
{
    for (const JsonValue& value : context.list(parent, key)) {
        context.countItem();
        if (context.failed()) {
            return;
        }
        if (transform && value["ty"].string() == u"tr") {
            readTransform(context, value, *transform);
        } else {
            items.push_back(readItem(context, value));
        }
    }
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#include "editing/keyclipboard.h"

#include "lottie/evaluate.h"
#include "lottie/reader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace studio {

namespace {

constexpr std::pair<Attribute, const char*> kAttributes[] = {
    {Attribute::Position, "position"},
    {Attribute::PositionX, "positionX"},
    {Attribute::PositionY, "positionY"},
    {Attribute::Scale, "scale"},
    {Attribute::Rotation, "rotation"},
    {Attribute::Opacity, "opacity"},
    {Attribute::Anchor, "anchor"},
    {Attribute::ShapeColor, "color"}};

QString nameOf(Attribute attribute)
{
    for (const auto& [known, name] : kAttributes) {
        if (known == attribute) {
            return QString::fromLatin1(name);
        }
    }
    return {};
}

std::optional<Attribute> attributeOf(const QString& name)
{
    for (const auto& [attribute, known] : kAttributes) {
        if (name == QLatin1String(known)) {
            return attribute;
        }
    }
    return std::nullopt;
}

QJsonArray toJson(const Numbers& numbers)
{
    QJsonArray list;
    std::copy(numbers.begin(), numbers.end(), std::back_inserter(list));
    return list;
}

Numbers numbersFrom(const QJsonValue& value)
{
    Numbers numbers{};
    const QJsonArray list = value.toArray();
    for (int i = 0; i < std::min<int>(int(numbers.size()), int(list.size())); ++i) {
        const double number = list.at(i).toDouble();
        numbers[static_cast<std::size_t>(i)] = std::clamp(number, -kMaxMagnitude, kMaxMagnitude);
    }
    return numbers;
}

QJsonObject toJson(const EasingHandle& handle)
{
    return {{u"x"_qs, toJson(handle.x)}, {u"y"_qs, toJson(handle.y)}, {u"count"_qs, handle.count}};
}

EasingHandle handleFrom(const QJsonValue& value)
{
    EasingHandle handle;
    handle.count = std::clamp(value[u"count"].toInt(), 0, int(handle.x.size()));
    if (handle.count > 0) {
        handle.x = numbersFrom(value[u"x"]);
        handle.y = numbersFrom(value[u"y"]);
    }
    return handle;
}

QJsonObject toJson(const LooseKey& key)
{
    return {
        {u"time"_qs, key.time},
        {u"value"_qs, toJson(key.value)},
        {u"hold"_qs, key.hold},
        {u"easeOut"_qs, toJson(key.easeOut)},
        {u"easeIn"_qs, toJson(key.easeIn)},
        {u"spatialOut"_qs, toJson(key.spatialOut)},
        {u"spatialIn"_qs, toJson(key.spatialIn)}};
}

LooseKey keyFrom(const QJsonValue& value)
{
    return {
        std::clamp(value[u"time"].toDouble(), 0.0, kMaxFrame),
        numbersFrom(value[u"value"]),
        value[u"hold"].toBool(),
        handleFrom(value[u"easeOut"]),
        handleFrom(value[u"easeIn"]),
        numbersFrom(value[u"spatialOut"]),
        numbersFrom(value[u"spatialIn"])};
}

QJsonObject toJson(const CopiedKeys& row)
{
    QJsonArray item;
    for (const std::size_t place : row.property.item) {
        item.append(static_cast<int>(place));
    }
    QJsonArray keys;
    for (const LooseKey& key : row.keys) {
        keys.append(toJson(key));
    }
    return {
        {u"layer"_qs, row.property.layer},
        {u"attribute"_qs, nameOf(row.property.attribute)},
        {u"item"_qs, item},
        {u"dimensions"_qs, row.dimensions},
        {u"keys"_qs, keys}};
}

std::optional<CopiedKeys> rowFrom(const QJsonValue& value)
{
    const auto attribute = attributeOf(value[u"attribute"].toString());
    const QJsonArray keys = value[u"keys"].toArray();
    if (!attribute || keys.isEmpty()) {
        return std::nullopt;
    }
    CopiedKeys row;
    row.property = {value[u"layer"].toInt(-1), *attribute};
    for (const QJsonValue place : value[u"item"].toArray()) {
        row.property.item.push_back(static_cast<std::size_t>(std::max(place.toInt(), 0)));
    }
    row.dimensions = std::clamp(value[u"dimensions"].toInt(), 1, int(Numbers().size()));
    std::transform(keys.begin(), keys.end(), std::back_inserter(row.keys), [](QJsonValue key) {
        return keyFrom(key);
    });
    std::stable_sort(row.keys.begin(), row.keys.end(), [](const auto& a, const auto& b) {
        return a.time < b.time;
    });
    return row;
}

} // namespace

QByteArray toJson(const std::vector<CopiedKeys>& rows)
{
    QJsonArray list;
    for (const CopiedKeys& row : rows) {
        list.append(toJson(row));
    }
    return QJsonDocument(QJsonObject{{u"rows"_qs, list}}).toJson(QJsonDocument::Compact);
}

std::vector<CopiedKeys> keysFromJson(const QByteArray& json)
{
    std::vector<CopiedKeys> rows;
    for (const QJsonValue value : QJsonDocument::fromJson(json)[u"rows"].toArray()) {
        if (auto row = rowFrom(value)) {
            rows.push_back(*std::move(row));
        }
    }
    return rows;
}

std::optional<PropertyAddress> pasteTarget(
    const Document& document, const PropertyAddress& source, int layer)
{
    PropertyAddress target = source;
    if (layer >= 0) {
        target.layer = layer;
    }
    if (target.attribute == Attribute::ShapeColor) {
        const auto colors = colorsOf(document, target.layer);
        if (std::find(colors.begin(), colors.end(), target) == colors.end() && !colors.empty()) {
            target = colors.front();
        }
    }
    const auto transform = transformOf(document, target.layer);
    const bool isOffered =
        target.attribute == Attribute::ShapeColor
        || std::find(transform.begin(), transform.end(), target) != transform.end();
    const bool canTake =
        isOffered && canBeAnimated(target.attribute) && findProperty(document, target);
    return canTake ? std::optional(target) : std::nullopt;
}

std::vector<LooseKey> fitted(const CopiedKeys& row, const NumberProperty& property, int frame)
{
    std::vector<LooseKey> keys = row.keys;
    for (LooseKey& key : keys) {
        key.time = std::min(key.time + frame, kMaxFrame);
        const Numbers own = valueAt(property, key.time);
        for (int i = 0; i < static_cast<int>(own.size()); ++i) {
            if (i >= row.dimensions || i >= property.dimensions) {
                key.value[static_cast<std::size_t>(i)] = own[static_cast<std::size_t>(i)];
            }
        }
    }
    return keys;
}

} // namespace studio

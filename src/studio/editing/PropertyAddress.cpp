// SPDX-License-Identifier: Apache-2.0
#include "editing/PropertyAddress.h"

#include "texts.h"

namespace studio {

namespace {

const ShapeItem* findItem(const Layer& layer, const std::vector<std::size_t>& places)
{
    const std::vector<ShapeItem>* items = &layer.shapes;
    const ShapeItem* item = nullptr;
    for (const std::size_t place : places) {
        if (!items || place >= items->size()) {
            return nullptr;
        }
        item = &(*items)[place];
        const auto* group = std::get_if<GroupShape>(&item->shape);
        items = group ? &group->items : nullptr;
    }
    return item;
}

const NumberProperty* colorOf(const ShapeItem& item)
{
    if (const auto* fill = std::get_if<FillShape>(&item.shape)) {
        return &fill->color;
    }
    const auto* stroke = std::get_if<StrokeShape>(&item.shape);
    return stroke ? &stroke->color : nullptr;
}

void collectColors(
    const std::vector<ShapeItem>& items, PropertyAddress& at, std::vector<PropertyAddress>& found)
{
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i].hidden) {
            continue;
        }
        at.item.push_back(i);
        if (const auto* group = std::get_if<GroupShape>(&items[i].shape)) {
            collectColors(group->items, at, found);
        } else if (colorOf(items[i])) {
            found.push_back(at);
        }
        at.item.pop_back();
    }
}

QString nameOf(const ShapeItem& item)
{
    if (!item.name.isEmpty()) {
        return item.name;
    }
    return std::holds_alternative<FillShape>(item.shape) ? tr("Fill") : tr("Stroke");
}

/// With the group that holds it: fills and strokes alone have the same names over and over.
QString nameOf(const Layer& layer, std::vector<std::size_t> places)
{
    const ShapeItem* item = findItem(layer, places);
    if (!item) {
        return {};
    }
    places.pop_back();
    const ShapeItem* group = findItem(layer, places);
    const bool isNamed = group != nullptr && !group->name.isEmpty();
    return isNamed ? tr("%1 · %2").arg(group->name, nameOf(*item)) : nameOf(*item);
}

} // namespace

const Layer* findLayer(const Document& document, int layer)
{
    const auto& layers = document.main.layers;
    const auto place = static_cast<std::size_t>(layer);
    return layer >= 0 && place < layers.size() ? &layers[place] : nullptr;
}

const NumberProperty* findProperty(const Document& document, const PropertyAddress& address)
{
    const Layer* layer = findLayer(document, address.layer);
    if (!layer) {
        return nullptr;
    }
    const Transform& transform = layer->transform;
    const bool isSplit = transform.splitPosition;
    switch (address.attribute) {
    case Attribute::Position: return isSplit ? nullptr : &transform.position;
    case Attribute::PositionX: return isSplit ? &transform.positionX : nullptr;
    case Attribute::PositionY: return isSplit ? &transform.positionY : nullptr;
    case Attribute::Scale: return &transform.scale;
    case Attribute::Rotation: return &transform.rotation;
    case Attribute::Opacity: return &transform.opacity;
    case Attribute::Anchor: return &transform.anchor;
    case Attribute::SolidColor: return layer->kind == LayerKind::Solid ? &layer->color : nullptr;
    case Attribute::ShapeColor: break;
    }
    const ShapeItem* item = findItem(*layer, address.item);
    return item ? colorOf(*item) : nullptr;
}

NumberProperty* findProperty(Document& document, const PropertyAddress& address)
{
    return const_cast<NumberProperty*>(findProperty(std::as_const(document), address));
}

std::vector<PropertyAddress> transformOf(const Document& document, int layer)
{
    std::vector<PropertyAddress> addresses;
    const Layer* found = findLayer(document, layer);
    if (!found) {
        return addresses;
    }
    if (found->transform.splitPosition) {
        addresses.push_back({layer, Attribute::PositionX});
        addresses.push_back({layer, Attribute::PositionY});
    } else {
        addresses.push_back({layer, Attribute::Position});
    }
    for (const Attribute attribute :
         {Attribute::Scale, Attribute::Rotation, Attribute::Opacity, Attribute::Anchor})
    {
        addresses.push_back({layer, attribute});
    }
    return addresses;
}

std::vector<PropertyAddress> colorsOf(const Document& document, int layer)
{
    std::vector<PropertyAddress> addresses;
    const Layer* found = findLayer(document, layer);
    if (found && found->kind == LayerKind::Solid) {
        addresses.push_back({layer, Attribute::SolidColor});
    } else if (found) {
        PropertyAddress at{layer, Attribute::ShapeColor};
        collectColors(found->shapes, at, addresses);
    }
    return addresses;
}

QString nameOf(const Document& document, const PropertyAddress& address)
{
    switch (address.attribute) {
    case Attribute::Position: return tr("Position");
    case Attribute::PositionX: return tr("Position X");
    case Attribute::PositionY: return tr("Position Y");
    case Attribute::Scale: return tr("Scale");
    case Attribute::Rotation: return tr("Rotation");
    case Attribute::Opacity: return tr("Opacity");
    case Attribute::Anchor: return tr("Anchor");
    case Attribute::SolidColor: return tr("Solid");
    case Attribute::ShapeColor: break;
    }
    const Layer* layer = findLayer(document, address.layer);
    return layer ? nameOf(*layer, address.item) : QString();
}

bool canBeAnimated(Attribute attribute)
{
    return attribute != Attribute::SolidColor;
}

std::size_t entryCount(Attribute attribute)
{
    switch (attribute) {
    case Attribute::Position:
    case Attribute::Scale:
    case Attribute::Anchor: return 2;
    case Attribute::SolidColor:
    case Attribute::ShapeColor: return 3;
    default: return 1;
    }
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Document.h"

#include <QString>

#include <vector>

namespace studio {

/// What of a layer can be edited.
enum class Attribute
{
    Position,
    PositionX, ///< with split positions, these two stand in for Position
    PositionY,
    Scale,
    Rotation,
    Opacity,
    Anchor,
    SolidColor,
    ShapeColor, ///< of a fill or a stroke
};

/// Names one property of a document, also after undo and redo: edits neither add nor remove layers
/// or shapes, and what moves layers is undone before what was done to them.
struct PropertyAddress
{
    int layer = -1; ///< place among the main composition's layers
    Attribute attribute = Attribute::Position;
    std::vector<std::size_t> item = {}; ///< of a ShapeColor: its place, from the layer's list down

    bool operator==(const PropertyAddress&) const = default;
};

/// Names a key. It holds until the property's keys change; during a gesture, until that has ended.
struct KeyAddress
{
    PropertyAddress property;
    std::size_t key = 0; ///< place among the property's keys, in a gesture as it found them

    bool operator==(const KeyAddress&) const = default;
};

/// A layer of the main composition by its place; null when there is none.
const Layer* findLayer(const Document& document, int layer);

/// Null when the document has nothing there.
NumberProperty* findProperty(Document& document, const PropertyAddress& address);
const NumberProperty* findProperty(const Document& document, const PropertyAddress& address);

/// The transform's attributes of a layer, as an artist reads them.
std::vector<PropertyAddress> transformOf(const Document& document, int layer);

/// The colours of a layer that are drawn, first on top.
std::vector<PropertyAddress> colorsOf(const Document& document, int layer);

/// What the user calls a property. A shape's colour goes by its own name and that of its group.
QString nameOf(const Document& document, const PropertyAddress& address);

/// Files cannot animate everything.
bool canBeAnimated(Attribute attribute);

/// How many numbers a value has at least: more are in use where the file writes more.
std::size_t entryCount(Attribute attribute);

} // namespace studio

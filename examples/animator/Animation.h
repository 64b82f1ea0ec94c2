// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/graph/valuegraphkey.h>
#include <MorrantUI/timeline/markers.h>

#include <QString>

#include <utility>
#include <vector>

// [animation]
/// A number over time. Its keys lie in the order of their frames.
struct Property
{
    QString name;
    QString color; ///< a name of the theme's
    std::vector<ValueGraphKey> keys;

    bool operator==(const Property&) const = default;
};

/// The document: a plain value, which is what a step of the history brings back.
struct Animation
{
    std::vector<Property> properties;
    TimelineMarkers markers;
    std::pair<int, int> playback{0, 100};

    bool operator==(const Animation&) const = default;
};
// [animation]

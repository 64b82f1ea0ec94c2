// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing/DocumentEditor.h"
#include <MorrantUI/timeeditor/KeyEasing.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

/// What of a document the dope sheet shows, as plain values.
namespace studio {

/// A layer's own number, which it keeps wherever it moves.
using LayerId = std::uint32_t;
using FoldedLayers = std::set<LayerId>;

/// A mark at a frame: a property's key, or on a folded layer all keys at that frame.
struct DopeKey
{
    double time = 0; ///< frames
    KeyEasing easing = KeyEasing::Linear;
    std::vector<KeyAddress> keys; ///< what it stands for; empty where something cannot be edited

    bool operator==(const DopeKey&) const = default;
};

/// A row: a layer, or one of its animated properties below it.
struct DopeRow
{
    int layer = -1; ///< place in the main composition
    LayerId id = 0; ///< of the layer
    QString name = {};
    bool isLayer = false;
    bool foldable = false;                       ///< a layer with animated properties
    bool folded = false;                         ///< one that does not show them
    bool isOpen = false;                         ///< it can be edited
    std::optional<PropertyAddress> address = {}; ///< none: a layer, or what can never be edited
    std::vector<DopeKey> keys = {};              ///< upwards; none of a layer that is not folded

    /// Whether both show the same thing, whatever it is called and wherever it stands.
    bool isSameAs(const DopeRow& other) const;
};

/// The rows of a layer from top to bottom, the layer's own first; none where there is no layer.
std::vector<DopeRow> dopeRows(const Document& document, int layer, const FoldedLayers& folded);

/// The layers that are folded when a document is opened: none of one that is small, else all.
FoldedLayers firstFolded(const Document& document);

/// Which marks to select once those of a row have changed: those at the same frames as before, and
/// in place of the selected ones that have gone as many new ones.
/// @param before, after upwards
std::vector<bool> selectionAfter(
    const std::vector<double>& before,
    const std::vector<bool>& selected,
    const std::vector<double>& after);

/// A layer's times as whole frames on the sheet.
struct ClipFrames
{
    int start = 0;
    int end = 0;
    int slip = 0; ///< by which the contents of a precomposition begin later

    bool operator==(const ClipFrames&) const = default;
};

ClipFrames clipFrames(const ClipTimes& times);

/// Times after an edit of the frames, which keeps what they have between frames. What a clip shows
/// moves with it.
ClipTimes editedTimes(const ClipTimes& times, const ClipFrames& from, const ClipFrames& to);

/// The frames that the sheet reaches over: the document's, and farther where there are keys, by no
/// more than the document's length on either side.
std::pair<int, int> sheetRange(const Document& document);

} // namespace studio

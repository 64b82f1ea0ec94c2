// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ui {

/// What a rubber band has caught, and what of it has to go.
struct MarqueeFilter
{
    bool keys = false;
    bool curves = false;
    bool clips = false;
    bool clipAreas = false;

    friend bool operator==(const MarqueeFilter&, const MarqueeFilter&) = default;
};

/// @param mode TimeEditorView::SelectionMode as a number
/// @param altHeld Alt stands for clips only, except where nothing is filtered
/// @param anyKey whether a key is among what was caught
constexpr MarqueeFilter marqueeFilter(int mode, bool altHeld, bool anyKey)
{
    constexpr int kPreferKeys = 1;
    constexpr int kCurvesOnly = 2;
    constexpr int kClipsOnly = 3;
    switch (mode != 0 && altHeld ? kClipsOnly : mode) {
    case kPreferKeys: return {.curves = anyKey, .clips = true, .clipAreas = true};
    case kCurvesOnly: return {.keys = true, .clips = true};
    case kClipsOnly: return {.keys = true, .curves = true};
    default: return {};
    }
}

} // namespace ui

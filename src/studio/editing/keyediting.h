// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "lottie/Property.h"

namespace studio {

/// What a property has at a frame.
enum class KeyState
{
    None,       ///< it stands still
    Animated,   ///< its keys are at other frames
    KeyAtFrame, ///< a key within kSameFrame
};

/// Files round their frames: keys this close to a whole one are meant to be at it. In frames.
inline constexpr double kSameFrame = 0.01;

KeyState keyStateAt(const NumberProperty& property, int frame);

/// A new number for one entry of a value.
struct EntryChange
{
    std::size_t entry = 0;
    double value = 0; ///< ignored unless finite
};

/// Changes the value at a frame. An animated property takes it into its key there, and gets one if
/// need be.
void setEntryAt(NumberProperty& property, int frame, EntryChange change);

/// Adds a key with the value that the property has at a frame, or removes those that are there.
/// Without its last key the property stands still at that key's value.
void toggleKeyAt(NumberProperty& property, int frame);

} // namespace studio

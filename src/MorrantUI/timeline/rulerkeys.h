// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Qt>

namespace ui {

/// What a key does on the ruler.
enum class RulerCommand
{
    None,
    Step,
    GoToMarker,
    MoveMarker,
    GoToStart, ///< of the playback range
    GoToEnd,
    GoToFirst, ///< of all frames
    GoToLast,
    SetStart, ///< of the playback range
    SetEnd,
    AddMarker,
    Rename,
    Remove,
    Cancel,
};

struct RulerKey
{
    RulerCommand command = RulerCommand::None;
    int distance = 0; ///< frames, or markers; below 0 for earlier ones
    friend bool operator==(const RulerKey&, const RulerKey&) = default;
};

/// @param modifiers the keypad's does not count
RulerKey rulerKey(int key, Qt::KeyboardModifiers modifiers);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

namespace studio::gallery {

/// The states that a pointer and the keyboard bring a control into.
enum class State
{
    Rest,
    Hovered,
    Pressed,
    Focused,
    On,
    Disabled,
};

inline constexpr State kStates[] = {
    State::Rest, State::Hovered, State::Pressed, State::Focused, State::On, State::Disabled};

/// Brings a control that is laid out into a state, by the events that a pointer would send it; the
/// keyboard no longer reaches it. State::On is the caller's.
/// @param focus the widget that has the focus in the stead of all that are Focused
void force(QWidget* control, State state, QWidget* focus);

} // namespace studio::gallery

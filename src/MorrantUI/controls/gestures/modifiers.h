// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <Qt>

#include <functional>

namespace ui {

/// The modifier keys held down at this moment, as the system knows them: also between events, and
/// while another program has the focus.
MORRANT_UI_EXPORT Qt::KeyboardModifiers queryKeyboardModifiers();

/// Those held as of the last event that has been delivered, which a drag goes by.
MORRANT_UI_EXPORT Qt::KeyboardModifiers eventKeyboardModifiers();

using KeyboardModifiersQuery = std::function<Qt::KeyboardModifiers()>;

/// Makes both ask `query` instead of the system; an empty one asks the system again. For tests and
/// for hosts that replay input.
MORRANT_UI_EXPORT void setKeyboardModifiersQuery(KeyboardModifiersQuery query);

/// How much faster or slower the user wants a value to change: 0.1 with Control, which wins, 10
/// with Shift, else 1.
MORRANT_UI_EXPORT double modifierFactor(Qt::KeyboardModifiers modifiers);

/// The same where Shift means something else, as snapping: 0.1 with Control, else 1.
MORRANT_UI_EXPORT double fineFactor(Qt::KeyboardModifiers modifiers);

} // namespace ui

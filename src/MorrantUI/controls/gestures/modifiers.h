#pragma once

#include <MorrantUI/morrantui_export.h>

#include <Qt>

#include <functional>

namespace ui {

/// The modifier keys held down at this moment, as the system knows them: also between events, and
/// while another program has the focus.
MORRANT_UI_EXPORT Qt::KeyboardModifiers queryKeyboardModifiers();

using KeyboardModifiersQuery = std::function<Qt::KeyboardModifiers()>;

/// Makes queryKeyboardModifiers() ask `query` instead of the system; an empty one asks the system
/// again. For tests and for hosts that replay input.
MORRANT_UI_EXPORT void setKeyboardModifiersQuery(KeyboardModifiersQuery query);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>

namespace ui::easing {

Q_NAMESPACE_EXPORT(MORRANT_UI_EXPORT)

/// How the value goes from a key to the next one of its row, as far as the time editor shows it.
enum class KeyEasing
{
    Linear = 0,
    Bezier = 1,
    Hold = 2, ///< stays until the next key
};
Q_ENUM_NS(KeyEasing)

} // namespace ui::easing

using ui::easing::KeyEasing;

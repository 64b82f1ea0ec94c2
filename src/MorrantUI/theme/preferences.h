#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>
#include <QVariant>

namespace ui {

/// A value from the root of the current theme's file: a bool, a double or a string. An absent key,
/// any other JSON type or no theme gives an invalid QVariant.
MORRANT_UI_EXPORT QVariant themePreference(const QString& key);

} // namespace ui

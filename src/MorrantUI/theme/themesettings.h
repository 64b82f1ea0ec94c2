// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QFont>
#include <QString>
#include <QVariant>

/// What the current theme says besides colours and icons.
namespace ui {

/// The current theme's font, at its large size while the size override is on; a default QFont when
/// there is no theme.
MORRANT_UI_EXPORT QFont font();

/// A value from the root of the current theme's file: a bool, a double or a string. An absent key,
/// any other JSON type or no theme gives an invalid QVariant.
MORRANT_UI_EXPORT QVariant themePreference(const QString& key);

} // namespace ui

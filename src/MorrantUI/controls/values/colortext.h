// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QString>

#include <memory>
#include <optional>

class QMimeData;

/// Colours on the clipboard and in drags.
namespace ui {

/// "#rrggbb" in lower case, with the alpha behind it ("#rrggbbaa") when that is not full. Empty for
/// an invalid colour.
MORRANT_UI_EXPORT QString colorText(const QColor& color);

/// What is read out for a colour: its name and its channels from 0 to 255, "dark blue: 0, 0, 128",
/// and how opaque it is when that is not wholly so. Empty for an invalid colour.
MORRANT_UI_EXPORT QString colorWords(const QColor& color);

/// Reads #rgb, #rrggbb or #rrggbbaa, in either case, with or without the '#', white space around it
/// allowed. Nothing for any other text.
MORRANT_UI_EXPORT std::optional<QColor> colorFromText(const QString& text);

/// The colour as application/x-color and as its text; owned by the caller.
MORRANT_UI_EXPORT std::unique_ptr<QMimeData> colorMimeData(const QColor& color);

/// The colour in what is dragged or pasted, from either format; nothing without one, or for null.
MORRANT_UI_EXPORT std::optional<QColor> colorFromMimeData(const QMimeData* data);

} // namespace ui

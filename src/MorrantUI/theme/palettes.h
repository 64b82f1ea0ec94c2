// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QColor>
#include <QPalette>

#include <list>
#include <utility>

class QWidget;

/// Changes to a widget's own palette, for all colour groups. A null widget is ignored.
namespace ui {

/// Sets Window, Base and Button to the colour and lets the widget fill its background. A palette
/// that has the colour already, in the widget's present colour group, is not installed again.
MORRANT_UI_EXPORT void setWidgetBackground(QWidget* widget, const QColor& color);

/// Sets Text, ButtonText, BrightText and WindowText to the colour.
MORRANT_UI_EXPORT void setWidgetForeground(QWidget* widget, const QColor& color);

/// Sets the roles in list order and installs the palette once; an empty list installs nothing.
MORRANT_UI_EXPORT void appendPalette(
    QWidget* widget, std::list<std::pair<QPalette::ColorRole, QColor>> roles);

} // namespace ui

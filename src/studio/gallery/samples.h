// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

/// Live controls for the gallery page. Every function makes a widget for the caller to own.
namespace studio::gallery {

/// Line edits, number fields, combo boxes, buttons and groups.
QWidget* fields();

/// Sliders, dials, progress bars and scroll bars.
QWidget* ranges();

/// A menu bar, an open menu and a tool tip, drawn in place.
QWidget* menus();

/// Tabs with a tree, a table, a list and a text.
QWidget* views();

} // namespace studio::gallery

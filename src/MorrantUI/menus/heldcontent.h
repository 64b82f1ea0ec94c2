// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

/// What a panel or a dialog does with the one widget that fills it.
namespace ui {

/// Whether a widget is `container` or what that lies in, also across windows: it cannot lie in it.
bool encloses(const QWidget& widget, const QWidget& container);

/// Hides what lies in a container and deletes it when the loop comes round, since it may be in the
/// middle of a signal. What has moved to another parent meanwhile is left alone.
/// @return whether the keyboard focus was in it; slots run, and anything may have died
bool discardContent(QWidget* content, const QWidget& container);

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

class QWidget;

namespace ui {

/// What a widget lies in or was opened from. A window may have been opened elsewhere than its
/// parent says, and then tells so by what it is transient for. Null at the end.
const QWidget* ownerOf(const QWidget& widget);

/// Whether a widget is `owner`, or one comes to it by ownerOf(). False for null, and where hosts
/// have tied windows to each other in a circle.
bool isOwnedBy(const QWidget* widget, const QWidget* owner);

} // namespace ui

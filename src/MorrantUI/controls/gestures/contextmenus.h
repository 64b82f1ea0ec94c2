// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ui {

/// Keeps the context menu away that belongs to the mouse press being handled, since that press ends
/// a gesture: some systems send it with the press and others with the release. The next press of a
/// button or key opens menus again.
void swallowContextMenu();

} // namespace ui

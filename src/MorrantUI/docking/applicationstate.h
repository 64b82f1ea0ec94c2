// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace ui::docking {

/// Tells all dockable windows, from now on, when the application gains or loses activation. Called
/// by each of them; the first call counts.
void followApplication();

/// Whether the user has left the application for another one. False until it was told of first: a
/// program that has just been started is about to be active.
bool isApplicationLeft();

} // namespace ui::docking

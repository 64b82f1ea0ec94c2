// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Uses the sketchpad as its user would, on settings of its own and with a notification service
/// that it offers itself on the session bus: docks kept between runs, one undo step for a gesture,
/// a themed dialog, Skia's drawing, a notification. Says what fails.
/// @return whether all of it works
bool selfCheck();

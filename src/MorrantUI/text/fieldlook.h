// SPDX-License-Identifier: Apache-2.0
#pragma once

class QFrame;

namespace ui {

/// Ground and edge of a field of one line, for a text area whose viewport fills nothing: so they
/// look alike beside each other, at rest, under the pointer, with the focus and disabled. Without a
/// frame the ground alone.
void paintField(QFrame& field);

} // namespace ui

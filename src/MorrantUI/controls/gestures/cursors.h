// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCursor>

namespace ui {

/// The cursor over values that are dragged: "icons:cursors/scrub.png", held at its middle. Read at
/// the first call that finds the file; until then the system's cursor for horizontal sizing.
QCursor scrubCursor();

/// The open hand of a view that can be panned, and the closed one that pans it, held likewise:
/// "icons:cursors/pan.png" and "icons:cursors/pan-grab.png", until then the system's hands.
QCursor panCursor();
QCursor panGrabCursor();

} // namespace ui

#pragma once

#include <QCursor>

namespace ui {

/// The cursor over values that are dragged: "icons:cursors/scrub.png", held at its middle. Read at
/// the first call that finds the file; until then the system's cursor for horizontal sizing.
QCursor scrubCursor();

} // namespace ui

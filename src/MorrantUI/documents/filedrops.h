// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace ui {

/// Takes dropped files.
/// @param paths of the local files with the suffix; may be empty
/// @param hasOthers something else came with them, or instead of them
using TakeFiles = std::function<void(const QStringList& paths, bool hasOthers)>;

/// Lets files be dropped on a widget, and on what lies in it and takes no drops of its own. They
/// are copied: whoever offers to move a file must not delete it after it was read. What cannot be
/// taken is let in too, so that the drop can say why. They are taken once control returns to the
/// event loop, as whoever has dropped them waits until then, and not once the widget has died. A
/// widget in a floating panel needs an offer of its own, as drops there do not reach the main
/// window. The last offer to a widget counts.
/// @param suffix such as "json", in any case; empty for every file
MORRANT_UI_EXPORT void offerFileDrops(QWidget& widget, const QString& suffix, TakeFiles take);

} // namespace ui

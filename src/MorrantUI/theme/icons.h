// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace ui {

/// The icon of a file such as "icons:addIcon.png", from the current theme's cache. A missing file
/// gives an empty icon and a line at debug level; it is looked for again the next time. Without a
/// theme the icon is empty.
MORRANT_UI_EXPORT QIcon getCachedIcon(const QString& path);

/// The same as a pixmap in the file's own logical size and with the pixels of the application's
/// device pixel ratio (the @2x file on a screen of ratio 2). Null when the file is missing, when
/// `path` is empty and when there is no theme.
MORRANT_UI_EXPORT QPixmap getCachedPixmap(const QString& path);

/// Whether a file exists at `path`, which may begin with a search-path prefix. Needs no theme.
MORRANT_UI_EXPORT bool iconExists(const QString& path);

} // namespace ui

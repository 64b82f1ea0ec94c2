// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>
#include <QStyle>

namespace ui::style {

/// The theme's icon for a standard picture of Qt's dialogs and fields; empty where the theme has
/// none, which leaves the picture to the base style.
QIcon standardIcon(QStyle::StandardPixmap picture, Qt::LayoutDirection direction);

} // namespace ui::style

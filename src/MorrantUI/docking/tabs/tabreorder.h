// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QString>

#include <optional>

class QMimeData;

/// What a tab carries while it is dragged within its header.
namespace ui::tabs {

/// The MIME type; its data is the tab's index as decimal digits.
MORRANT_UI_EXPORT QString reorderFormat();

/// @param index 0 or more
MORRANT_UI_EXPORT QByteArray reorderData(int index);

/// The index in such data. None when it holds anything but digits (a sign, a space, a terminator),
/// or more than an int.
MORRANT_UI_EXPORT std::optional<int> reorderIndex(const QByteArray& data);

/// The same for what is being dragged; none without the format. Null is ignored.
MORRANT_UI_EXPORT std::optional<int> reorderIndex(const QMimeData* data);

} // namespace ui::tabs

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

namespace ui::presets {

enum class Fault
{
    None,
    Empty,
    HasForbidden, ///< a character that separates folders or means something to a system
    EndsWithDot,
    IsReserved, ///< the name of a device, such as "NUL", also before a dot
    TooLong
};

struct Checked
{
    Fault fault = Fault::Empty;
    QString forbidden; ///< the first character that is; empty if it cannot be shown
};

/// Whether a name can be that of a file on every system that the toolkit runs on, with room for a
/// suffix. Space around it does not count.
Checked checkName(const QString& name);

/// The name in `existing` that is the same but for its case and the space around it; empty if none
/// is. File systems differ in whether they tell the two apart.
QString sameName(const QStringList& existing, const QString& name);

} // namespace ui::presets

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/AccessiblePopover.h"

#include <MorrantUI/menus/PopoverPanel.h>

namespace ui {

AccessiblePopover::AccessiblePopover(PopoverPanel* panel)
    : QAccessibleWidget(panel, QAccessible::Dialog)
{}

QString AccessiblePopover::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty()) {
        return own;
    }
    auto* const anchor = static_cast<PopoverPanel*>(widget())->anchor();
    QAccessibleInterface* const named =
        anchor ? QAccessible::queryAccessibleInterface(anchor) : nullptr;
    return named ? named->text(QAccessible::Name) : QString();
}

} // namespace ui

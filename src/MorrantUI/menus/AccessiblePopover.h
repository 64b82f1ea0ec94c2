// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessibleWidget>

class PopoverPanel;

namespace ui {

/// A popover as assistive tools see it: a dialog.
class AccessiblePopover : public QAccessibleWidget
{
public:
    explicit AccessiblePopover(PopoverPanel* panel);

    QString text(QAccessible::Text kind) const override;
};

} // namespace ui

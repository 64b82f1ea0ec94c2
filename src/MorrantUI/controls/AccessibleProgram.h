// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessibleObject>

class QWidget;

namespace ui {

/// The program as assistive tools see it: its windows, and behind them the menus that are open by
/// themselves. Those of a menu bar, and submenus, are below their rows.
class AccessibleProgram : public QAccessibleApplication
{
public:
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* child(int index) const override;

private:
    static QList<QWidget*> menus();
};

} // namespace ui

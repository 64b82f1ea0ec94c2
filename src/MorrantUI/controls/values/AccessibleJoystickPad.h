// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

#include <Core/num2.h>

class JoystickPad;

namespace ui {

/// A joystick pad as assistive tools see it: a group of two sliders, one for each axis.
class AccessibleJoystickPad : public AccessibleGrouping
{
public:
    explicit AccessibleJoystickPad(JoystickPad* pad);
    ~AccessibleJoystickPad() override;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    mutable QAccessible::Id m_axes[2] = {
        0, 0}; ///< Qt's cache owns the interfaces; 0 before they are made
};

/// Tells assistive tools about the axes whose numbers are others than before.
void notifyAccessibleAxes(JoystickPad* pad, const num2<double>& before);

} // namespace ui

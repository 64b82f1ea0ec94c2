#pragma once

#include "MorrantUI/controls/accessibility.h"

namespace ui {

/// What assistive tools see of a control of one number that is dragged in place.
class AccessibleValueControl : public AccessibleNumberControl
{
public:
    using AccessibleNumberControl::AccessibleNumberControl;

    /// Without a name or a label the tool tip names the control, or else that of the control that
    /// it is a part of.
    QString text(QAccessible::Text kind) const override;
};

} // namespace ui

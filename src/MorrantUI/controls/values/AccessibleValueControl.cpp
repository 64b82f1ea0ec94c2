#include "MorrantUI/controls/values/AccessibleValueControl.h"

#include <QWidget>

namespace ui {

QString AccessibleValueControl::text(QAccessible::Text kind) const
{
    const QString own = AccessibleNumberControl::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty()) {
        return own;
    }
    const QString tip = nameFromToolTip(*widget());
    const QWidget* const whole = widget()->parentWidget();
    if (!tip.isEmpty() || whole == nullptr || whole->focusProxy() != widget()) {
        return tip;
    }
    QAccessibleInterface* const outer = parent();
    return outer != nullptr ? outer->text(kind) : QString();
}

} // namespace ui

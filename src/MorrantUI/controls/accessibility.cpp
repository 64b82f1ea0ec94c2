// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/accessibility.h"

#include <QTextDocumentFragment>
#include <QWidget>

#include <cmath>
#include <utility>

namespace ui {

std::optional<double> numberIn(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

AccessibleNumberControl::AccessibleNumberControl(
    QWidget* widget, QAccessible::Role role, AccessibleNumber number)
    : QAccessibleWidget(widget, role)
    , m_number(std::move(number))
{}

void* AccessibleNumberControl::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleNumberControl::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name || !own.isEmpty()) {
        return own;
    }
    const QString tip = nameFromToolTip(*widget());
    const QWidget* const whole = widget()->parentWidget();
    QAccessibleInterface* const outer = tip.isEmpty() && whole ? parent() : nullptr;
    const bool isPart =
        outer
        && (whole->focusProxy() == widget() || dynamic_cast<const AccessibleGrouping*>(outer));
    return isPart ? outer->text(kind) : tip;
}

QVariant AccessibleNumberControl::currentValue() const
{
    return m_number.value();
}

void AccessibleNumberControl::setCurrentValue(const QVariant& value)
{
    const std::optional<double> number = numberIn(value);
    if (number && widget()->isEnabled()) {
        m_number.setValue(*number);
    }
}

QVariant AccessibleNumberControl::maximumValue() const
{
    return m_number.maximum();
}

QVariant AccessibleNumberControl::minimumValue() const
{
    return m_number.minimum();
}

QVariant AccessibleNumberControl::minimumStepSize() const
{
    return m_number.step();
}

AccessibleGrouping::AccessibleGrouping(QWidget* group)
    : QAccessibleWidget(group, QAccessible::Grouping)
{}

QString AccessibleGrouping::text(QAccessible::Text kind) const
{
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && own.isEmpty() ? nameFromToolTip(*widget()) : own;
}

int AccessibleParts::childCount() const
{
    return static_cast<int>(parts().size());
}

QAccessibleInterface* AccessibleParts::child(int index) const
{
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleParts::indexOfChild(const QAccessibleInterface* child) const
{
    auto* const part = child ? qobject_cast<QWidget*>(child->object()) : nullptr;
    return static_cast<int>(parts().indexOf(part));
}

QString nameFromToolTip(const QWidget& widget)
{
    const QString tip = widget.toolTip();
    return Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
}

void notifyAccessible(QObject* object, QAccessible::Event what)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(object, what);
        QAccessible::updateAccessibility(&event);
    }
}

void notifyAccessibleValue(QObject* object, const QVariant& value)
{
    if (!QAccessible::isActive()) {
        return;
    }
    QAccessibleValueChangeEvent event(object, value);
    QAccessible::updateAccessibility(&event);
}

} // namespace ui

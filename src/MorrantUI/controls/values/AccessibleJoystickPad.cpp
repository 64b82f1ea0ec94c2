// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/values/AccessibleJoystickPad.h"

#include <MorrantUI/controls/values/JoystickPad.h>

#include <QPointer>

#include <optional>

namespace ui {

namespace {

double& part(num2<double>& pair, int axis)
{
    return axis == 0 ? pair.x : pair.y;
}

/// One axis: a slider without a widget of its own.
class AccessibleAxis : public QAccessibleInterface, public QAccessibleValueInterface
{
public:
    AccessibleAxis(JoystickPad* pad, int axis)
        : m_pad(pad)
        , m_axis(axis)
    {}

    bool isValid() const override { return !m_pad.isNull(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_pad.data());
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QRect rect() const override { return isValid() ? parent()->rect() : QRect(); }
    QAccessible::Role role() const override { return QAccessible::Slider; }
    QAccessible::State state() const override
    {
        QAccessible::State state = isValid() ? parent()->state() : QAccessible::State();
        state.focusable = false;
        state.focused = false;
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name) {
            return {};
        }
        return m_axis == 0 ? JoystickPad::tr("Horizontal") : JoystickPad::tr("Vertical");
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : nullptr;
    }

    QVariant currentValue() const override { return number(&JoystickPad::value); }
    QVariant minimumValue() const override { return number(&JoystickPad::minimum); }
    QVariant maximumValue() const override { return number(&JoystickPad::maximum); }
    QVariant minimumStepSize() const override { return isValid() ? m_pad->step() : QVariant(); }
    void setCurrentValue(const QVariant& value) override
    {
        const std::optional<double> wanted = numberIn(value);
        if (isValid() && m_pad->isEnabled() && wanted) {
            num2<double> pair = m_pad->value();
            part(pair, m_axis) = *wanted;
            m_pad->enterValue(pair);
        }
    }

private:
    QVariant number(num2<double> (JoystickPad::*question)() const) const
    {
        if (!isValid()) {
            return {};
        }
        num2<double> pair = (m_pad->*question)();
        return part(pair, m_axis);
    }

    QPointer<JoystickPad> m_pad;
    int m_axis;
};

} // namespace

AccessibleJoystickPad::AccessibleJoystickPad(JoystickPad* pad)
    : AccessibleGrouping(pad)
{}

AccessibleJoystickPad::~AccessibleJoystickPad()
{
    for (const QAccessible::Id axis : m_axes) {
        if (axis != 0) {
            QAccessible::deleteAccessibleInterface(axis);
        }
    }
}

QString AccessibleJoystickPad::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value) {
        const auto* const pad = static_cast<JoystickPad*>(widget());
        return QStringLiteral("%1, %2").arg(pad->value().x).arg(pad->value().y);
    }
    return AccessibleGrouping::text(kind);
}

int AccessibleJoystickPad::childCount() const
{
    return 2;
}

QAccessibleInterface* AccessibleJoystickPad::child(int index) const
{
    if (index < 0 || index > 1) {
        return nullptr;
    }
    if (m_axes[index] == 0) {
        m_axes[index] = QAccessible::registerAccessibleInterface(
            new AccessibleAxis(static_cast<JoystickPad*>(widget()), index));
    }
    return QAccessible::accessibleInterface(m_axes[index]);
}

int AccessibleJoystickPad::indexOfChild(const QAccessibleInterface* child) const
{
    for (int i = 0; child && i < 2; ++i) {
        if (m_axes[i] != 0 && QAccessible::accessibleInterface(m_axes[i]) == child) {
            return i;
        }
    }
    return -1;
}

void notifyAccessibleAxes(JoystickPad* pad, const num2<double>& before)
{
    QAccessibleInterface* const whole =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(pad) : nullptr;
    if (!whole) {
        return;
    }
    const num2<double> now = pad->value();
    const auto notify = [whole](int axis, double value) {
        QAccessibleValueChangeEvent event(whole->child(axis), value);
        QAccessible::updateAccessibility(&event);
    };
    if (now.x != before.x) {
        notify(0, now.x);
    }
    if (now.y != before.y) {
        notify(1, now.y);
    }
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

#include <functional>
#include <optional>

namespace ui {

/// Makes Qt build an Interface from a T* for every object whose class is T, or derives from it
/// without an interface of its own. Called from T's constructor; only the first call does anything.
template <class T, class Interface>
void installAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(
            [](const QString& key, QObject* object) -> QAccessibleInterface* {
                auto* widget = key == QLatin1String(T::staticMetaObject.className())
                                   ? qobject_cast<T*>(object)
                                   : nullptr;
                return widget ? new Interface(widget) : nullptr; // QAccessible's cache owns it
            });
        return true;
    }();
    Q_UNUSED(installed)
}

/// What assistive tools may ask of a number, and do to it. Every function must be set.
struct AccessibleNumber
{
    std::function<double()> value;
    std::function<void(double)> setValue; ///< as the user would: the control's signals go out
    std::function<double()> minimum;
    std::function<double()> maximum;
    std::function<double()> step;
};

/// The finite number in a value that an assistive tool wants to set; nothing when there is none.
std::optional<double> numberIn(const QVariant& value);

/// A widget with a number that assistive tools read and set.
class AccessibleNumberControl : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    AccessibleNumberControl(QWidget* widget, QAccessible::Role role, AccessibleNumber number);

    void* interface_cast(QAccessible::InterfaceType type) override;
    /// Without a name or a label the tool tip names the control, or else the group or the widget
    /// that it is a part of.
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    /// Ignores what is not a finite number, and everything while the widget is disabled.
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    AccessibleNumber m_number;
};

/// Controls that belong together, named as a group by their own name or label, or else the tool
/// tip.
class AccessibleGrouping : public QAccessibleWidget
{
public:
    explicit AccessibleGrouping(QWidget* group);

    QString text(QAccessible::Text kind) const override;
};

/// A widget whose children are some of its widgets, in the order in which they are read.
class AccessibleParts : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    virtual QWidgetList parts() const = 0;
};

/// The accessible name of a widget that has none of its own: its tool tip, without mark-up.
QString nameFromToolTip(const QWidget& widget);

/// Tells assistive tools what has happened to an object; next to nothing when none listens.
void notifyAccessible(QObject* object, QAccessible::Event what);

/// Tells assistive tools that the value of a control has changed; next to nothing when none
/// listens.
void notifyAccessibleValue(QObject* object, const QVariant& value);

} // namespace ui

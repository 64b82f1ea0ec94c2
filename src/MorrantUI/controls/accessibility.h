// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessible>
#include <QAccessibleWidget>

#include <functional>
#include <initializer_list>
#include <optional>
#include <vector>

namespace ui {

/// Mends what Qt's own classes lack for assistive tools: open menus are in the tree, scroll areas
/// and tab widgets have roles and names. Only the first call does anything.
void mendForReaders();

/// Makes Qt build an Interface from a T* for every object whose class is T, or derives from it
/// without an interface of its own. To be called once.
template <class T, class Interface>
void addAccessible()
{
    QAccessible::installFactory([](const QString& key, QObject* object) -> QAccessibleInterface* {
        auto* known = key == QLatin1String(T::staticMetaObject.className())
                          ? qobject_cast<T*>(object)
                          : nullptr;
        return known ? new Interface(known) : nullptr; // QAccessible's cache owns it
    });
}

/// The same, called from T's constructor; only the first call does anything.
template <class T, class Interface>
void installAccessible()
{
    static const bool installed = [] {
        mendForReaders();
        addAccessible<T, Interface>();
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

/// A widget with a role of its own, named by its own name or label, or else the tool tip, and
/// described by what the tool tip says beyond that.
class AccessibleNamed : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QString text(QAccessible::Text kind) const override;
};

/// An AccessibleNamed to hand to installAccessible().
template <QAccessible::Role kRole>
class AccessibleAs : public AccessibleNamed
{
public:
    explicit AccessibleAs(QWidget* widget)
        : AccessibleNamed(widget, kRole)
    {}
};

/// Controls that belong together.
using AccessibleGrouping = AccessibleAs<QAccessible::Grouping>;

/// A widget whose children are some of its widgets, in the order in which they are read.
class AccessibleParts : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QString text(QAccessible::Text kind) const override;

protected:
    virtual QWidgetList parts() const = 0;
};

/// A text as it is read out: without mark-up.
QString plainText(const QString& text);

/// The accessible name of a widget that has none of its own: its tool tip, without mark-up.
QString nameFromToolTip(const QWidget& widget);

/// The accessible description without mark-up, or else the tool tip; nothing that the name has
/// said.
QString plainDescription(const QWidget& widget, const QString& name);

/// Tells assistive tools what has happened to an object; next to nothing when none listens.
void notifyAccessible(QObject* object, QAccessible::Event what);

/// Tells assistive tools that the value of a control has changed; nothing of a control that nobody
/// sees, and next to nothing when none listens.
void notifyAccessibleValue(QObject* object, const QVariant& value);

/// Tells assistive tools that a check box is on, off or mixed now.
void notifyAccessibleCheck(QWidget* box);

inline constexpr std::initializer_list<QAccessible::Event> kTextChanges{
    QAccessible::TextInserted,
    QAccessible::TextRemoved,
    QAccessible::TextUpdated,
    QAccessible::TextCaretMoved,
    QAccessible::TextSelectionChanged};
inline constexpr std::initializer_list<QAccessible::Event> kStateChanges{
    QAccessible::NameChanged, QAccessible::DescriptionChanged, QAccessible::StateChanged};

/// Keeps to itself, as long as it lives, what Qt would tell assistive tools of an object and its
/// descendants by events of these types: where one other event says it all, or nobody sees them
/// yet. All other events go where they went before.
class QuietReaders
{
public:
    /// @param object null keeps nothing
    QuietReaders(const QObject* object, std::initializer_list<QAccessible::Event> types);
    ~QuietReaders();
    Q_DISABLE_COPY_MOVE(QuietReaders)

private:
    static void pass(QAccessibleEvent* event);
    bool keeps(const QAccessibleEvent& event) const;

    const QObject* m_object; ///< only compared
    std::vector<QAccessible::Event> m_types;
    QuietReaders* m_outer;
    bool m_isInstalled = false;
};

} // namespace ui

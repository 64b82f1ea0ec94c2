#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace ui {

/// What assistive tools see of a button of ours. Unlike Qt's own interface it names a button
/// without a text by its tool tip, and it knows mixed states.
class AccessibleButton : public QAccessibleWidget
{
public:
    AccessibleButton(QAbstractButton* button, QAccessible::Role role);

    /// A button of an exclusive group is a radio button, one with a menu a menu button, whatever it
    /// was made as.
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

    QStringList actionNames() const override;
    /// Clicks through the event queue, since a slot may open a dialog or a menu.
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    QAbstractButton* button() const;
};

/// An AccessibleButton to hand to installAccessible().
template <QAccessible::Role kRole>
class AccessibleButtonAs : public AccessibleButton
{
public:
    explicit AccessibleButtonAs(QAbstractButton* button)
        : AccessibleButton(button, kRole)
    {}
};

/// The accessible name of a widget that has none of its own: its tool tip, without mark-up.
QString nameFromToolTip(const QWidget& widget);

} // namespace ui

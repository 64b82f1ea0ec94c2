// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/controls/accessibility.h"

class QAbstractButton;

namespace ui {

/// What assistive tools see of a button of ours. Unlike Qt's own interface it names a button
/// without a text by its label or else its tool tip, and it knows mixed states.
class AccessibleButton : public QAccessibleWidget
{
public:
    AccessibleButton(QAbstractButton* button, QAccessible::Role role);

    /// A button of an exclusive group is a radio button, one with a menu a menu button, whatever it
    /// was made as.
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

    /// Pressing or switching, and showing the menu where there is one.
    QStringList actionNames() const override;
    /// Acts through the event queue, since a slot may open a dialog or a menu.
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& name) const override;

private:
    QAbstractButton* button() const;
    QString labelText() const;
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

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/AccessibleButton.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace ui {

namespace {

bool hasMenu(const QAbstractButton* button)
{
    if (const auto* push = qobject_cast<const QPushButton*>(button)) {
        return push->menu() != nullptr;
    }
    const auto* tool = qobject_cast<const QToolButton*>(button);
    return tool && tool->menu();
}

void showMenu(QAbstractButton* button)
{
    if (!button->isEnabled() || !hasMenu(button)) {
        return;
    }
    if (auto* push = qobject_cast<QPushButton*>(button)) {
        push->showMenu();
    } else if (auto* tool = qobject_cast<QToolButton*>(button)) {
        tool->showMenu();
    }
}

bool isMixed(const QAbstractButton* button)
{
    const auto* box = qobject_cast<const QCheckBox*>(button);
    return box && box->checkState() == Qt::PartiallyChecked;
}

/// A button's text as displayed: "Save && E&xit" is "Save & Exit".
QString withoutMnemonic(const QString& text)
{
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && ++i == text.size()) {
            break;
        }
        shown += text[i];
    }
    return shown;
}

} // namespace

AccessibleButton::AccessibleButton(QAbstractButton* button, QAccessible::Role role)
    : QAccessibleWidget(button, role)
{}

QAbstractButton* AccessibleButton::button() const
{
    return static_cast<QAbstractButton*>(object());
}

QAccessible::Role AccessibleButton::role() const
{
    if (button()->group() && button()->group()->exclusive()) {
        return QAccessible::RadioButton;
    }
    return hasMenu(button()) ? QAccessible::ButtonMenu : QAccessibleWidget::role();
}

QAccessible::State AccessibleButton::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button()->isCheckable();
    state.checkStateMixed = isMixed(button());
    state.checked = button()->isChecked() && !state.checkStateMixed;
    state.pressed = button()->isDown();
    state.hasPopup = hasMenu(button());
    const auto* push = qobject_cast<const QPushButton*>(button());
    state.linked = role() == QAccessible::Link;
    state.defaultButton = push && push->isDefault();
    return state;
}

QString AccessibleButton::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Description) {
        return plainDescription(*button(), text(QAccessible::Name));
    }
    if (kind != QAccessible::Name || !button()->accessibleName().isEmpty()) {
        return QAccessibleWidget::text(kind);
    }
    for (const QString& name :
         {withoutMnemonic(button()->text()), labelText(), nameFromToolTip(*button())})
    {
        if (!name.isEmpty()) {
            return name;
        }
    }
    return QAccessibleWidget::text(kind);
}

/// Of the label beside the button. What else Qt takes for one, the title of a group box, tells
/// less of a button than its tool tip.
QString AccessibleButton::labelText() const
{
    for (const auto& [label, relation] : relations(QAccessible::Label)) {
        if (qobject_cast<QLabel*>(label->object())) {
            return label->text(QAccessible::Name);
        }
    }
    return {};
}

QStringList AccessibleButton::actionNames() const
{
    QStringList names;
    if (button()->isEnabled()) {
        names << (button()->isCheckable() ? toggleAction() : pressAction());
        if (hasMenu(button())) {
            names << showMenuAction();
        }
    }
    return names + QAccessibleWidget::actionNames();
}

void AccessibleButton::doAction(const QString& name)
{
    if (name == pressAction() || name == toggleAction()) {
        QMetaObject::invokeMethod(button(), &QAbstractButton::click, Qt::QueuedConnection);
    } else if (name == showMenuAction()) {
        QAbstractButton* const opener = button();
        QMetaObject::invokeMethod(
            opener, [opener] { showMenu(opener); }, Qt::QueuedConnection);
    } else {
        QAccessibleWidget::doAction(name);
    }
}

QStringList AccessibleButton::keyBindingsForAction(const QString& name) const
{
    if ((name == pressAction() || name == toggleAction()) && !button()->shortcut().isEmpty()) {
        return {button()->shortcut().toString()};
    }
    return QAccessibleWidget::keyBindingsForAction(name);
}

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/PushButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"

#include <QKeyEvent>
#include <QStyleOptionButton>

PushButton::PushButton(QWidget* parent)
    : PushButton(QString(), parent)
{}

PushButton::PushButton(const QString& text, QWidget* parent)
    : QPushButton(text, parent)
{
    ui::installAccessible<PushButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
}

PushButton::~PushButton() = default;

void PushButton::setIconName(const QString& name)
{
    m_iconName = name;
    setIcon(ui::namedIcon(name));
}

void PushButton::setPrimary(bool primary)
{
    if (primary != m_primary) {
        m_primary = primary;
        update();
    }
}

void PushButton::initStyleOption(QStyleOptionButton* option) const
{
    QPushButton::initStyleOption(option);
    if (option) {
        option->features.setFlag(
            QStyleOptionButton::DefaultButton,
            m_primary || option->features.testFlag(QStyleOptionButton::DefaultButton));
    }
}

void PushButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down && menu()) {
        showMenu();
    } else if (!ui::clickOnReturn(*this, *event)) {
        QPushButton::keyPressEvent(event);
    }
}

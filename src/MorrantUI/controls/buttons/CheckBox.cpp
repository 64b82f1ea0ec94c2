// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/CheckBox.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"

#include <QKeyEvent>

CheckBox::CheckBox(QWidget* parent)
    : CheckBox(QString(), parent)
{}

CheckBox::CheckBox(const QString& text, QWidget* parent)
    : QCheckBox(text, parent)
{
    ui::installAccessible<CheckBox, ui::AccessibleButtonAs<QAccessible::CheckBox>>();
    ui::keepSpace(*this);
    connect(this, &QCheckBox::stateChanged, this, &CheckBox::changed);
}

CheckBox::~CheckBox() = default;

void CheckBox::setMixed()
{
    setCheckState(Qt::PartiallyChecked);
}

bool CheckBox::isMixed() const
{
    return checkState() == Qt::PartiallyChecked;
}

void CheckBox::setMixedOffered(bool offered)
{
    m_mixedOffered = offered;
    if (offered) {
        setTristate(true);
    }
}

void CheckBox::nextCheckState()
{
    if (m_mixedOffered) {
        QCheckBox::nextCheckState();
    } else {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
}

void CheckBox::keyPressEvent(QKeyEvent* event)
{
    if (!ui::switchOnReturn(*this, *event)) {
        QCheckBox::keyPressEvent(event);
    }
}

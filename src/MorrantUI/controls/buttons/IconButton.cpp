// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/IconButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"

#include <QKeyEvent>
#include <QStyleOptionToolButton>

#include <algorithm>

namespace {

constexpr int kPadding = 3; ///< around the icon, at least

} // namespace

IconButton::IconButton(QWidget* parent)
    : QToolButton(parent)
{
    ui::installAccessible<IconButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
}

IconButton::IconButton(const QString& iconName, QWidget* parent)
    : IconButton(parent)
{
    setIconName(iconName);
}

IconButton::~IconButton() = default;

void IconButton::setIconName(const QString& name)
{
    m_iconName = name;
    setIcon(ui::namedIcon(name));
}

void IconButton::setCheckedIconName(const QString& name)
{
    m_checkedIconName = name;
    m_checkedIcon = ui::namedIcon(name);
    if (!name.isEmpty()) {
        setCheckable(true);
    }
    update();
}

QSize IconButton::sizeHint() const
{
    const int icon = std::max(iconSize().width(), iconSize().height());
    const int side = std::max(ui::rowHeight(*this), icon + 2 * kPadding);
    return {side, side};
}

QSize IconButton::minimumSizeHint() const
{
    return sizeHint();
}

void IconButton::initStyleOption(QStyleOptionToolButton* option) const
{
    QToolButton::initStyleOption(option);
    if (option && isChecked() && !m_checkedIcon.isNull()) {
        option->icon = m_checkedIcon;
        option->state.setFlag(QStyle::State_On, false);
    }
}

void IconButton::mouseReleaseEvent(QMouseEvent* event)
{
    // Past QToolButton, which goes on with a button that a slot of the click may have deleted.
    QAbstractButton::mouseReleaseEvent(event);
}

void IconButton::keyPressEvent(QKeyEvent* event)
{
    if (!ui::clickOnReturn(*this, *event)) {
        QToolButton::keyPressEvent(event);
    }
}

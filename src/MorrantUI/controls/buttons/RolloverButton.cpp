// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/RolloverButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/theme/colors.h>

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kPadding = 2; ///< around the icon

const QIcon& firstWithPicture(const QIcon& icon, const QIcon& standIn)
{
    return icon.isNull() ? standIn : icon;
}

} // namespace

RolloverButton::RolloverButton(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<RolloverButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

RolloverButton::RolloverButton(const QString& iconName, QWidget* parent)
    : RolloverButton(parent)
{
    setIcons({.rest = iconName});
}

RolloverButton::~RolloverButton() = default;

void RolloverButton::setIcons(const Icons& icons)
{
    m_names = icons;
    setIcon(ui::namedIcon(icons.rest));
    m_hovered = ui::namedIcon(icons.hovered);
    m_pressed = ui::namedIcon(icons.pressed);
    m_checked = ui::namedIcon(icons.checked);
    update();
}

void RolloverButton::setTints(const Tints& tints)
{
    m_tints = tints;
    update();
}

QSize RolloverButton::sizeHint() const
{
    return iconSize() + QSize(2 * kPadding, 2 * kPadding);
}

QSize RolloverButton::minimumSizeHint() const
{
    return sizeHint();
}

RolloverButton::Face RolloverButton::face(bool hovered, bool pressed, bool checked) const
{
    const QIcon over = firstWithPicture(m_hovered, icon());
    if (pressed) {
        return {firstWithPicture(m_pressed, over), m_tints.pressed};
    }
    if (hovered) {
        return {over, m_tints.hovered};
    }
    return checked ? Face{firstWithPicture(m_checked, icon()), m_tints.checked}
                   : Face{icon(), m_tints.rest};
}

void RolloverButton::paintEvent(QPaintEvent*)
{
    const QStyleOption option = ui::buttonOption(*this);
    const ui::style::WidgetState state = ui::style::stateOf(option);
    const Face shown = face(state.hovered, state.pressed, state.on);
    const QColor tint = shown.tint.isEmpty() ? QColor() : ui::colorQt(shown.tint);
    QPainter painter(this);

    if (state.hovered || state.pressed) {
        const QColor ground = ui::style::groundOf(option, QPalette::Button, this);
        ui::style::fillRounded(
            painter,
            rect(),
            ui::style::kSmallRadius,
            state.pressed ? ui::style::shade(ground, state) : ground);
    }
    QRectF place({}, iconSize());
    place.moveCenter(QRectF(rect()).center());
    ui::drawMasked(painter, place, shown.icon, tint, state.enabled);
    if (state.keyboard) {
        ui::style::drawFocusRing(painter, rect(), ui::style::kSmallRadius);
    }
}

void RolloverButton::keyPressEvent(QKeyEvent* event)
{
    if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/ToolButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"

#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr int kPadding = 3;          ///< on every side of icon and text, as the style adds it
constexpr int kTextPadding = 4;      ///< beyond that beside a text
constexpr int kArrowColumn = 16;     ///< behind icon and text, when the arrow is no button itself
constexpr int kDividerInset = 5;     ///< above and below the line before an arrow that is one
constexpr double kDividerInk = 0.22; ///< of the text colour's strength

} // namespace

ToolButton::ToolButton(QWidget* parent)
    : QToolButton(parent)
{
    ui::installAccessible<ToolButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
    setAutoRaise(true);
    setPopupMode(InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

ToolButton::ToolButton(const QString& iconName, const QString& text, QWidget* parent)
    : ToolButton(parent)
{
    setIconName(iconName);
    setText(text);
}

ToolButton::~ToolButton() = default;

void ToolButton::setIconName(const QString& name)
{
    m_iconName = name;
    setIcon(ui::namedIcon(name));
}

void ToolButton::setMenuArrowVisible(bool visible)
{
    if (visible != m_menuArrowVisible) {
        m_menuArrowVisible = visible;
        updateGeometry();
        update();
    }
}

int ToolButton::arrowColumn() const
{
    if (!menu()) {
        return 0;
    }
    if (popupMode() == MenuButtonPopup) {
        return style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
    }
    return m_menuArrowVisible ? kArrowColumn : 0;
}

QSize ToolButton::sizeHint() const
{
    const QSize base = QToolButton::sizeHint(); // with the column of an arrow that is a button
    const int arrow = popupMode() == MenuButtonPopup ? 0 : arrowColumn();
    const int beside = text().isEmpty() ? 0 : 2 * kTextPadding;
    const int height = std::max(base.height(), ui::rowHeight(*this));
    return {std::max(base.width() + beside + arrow, height), height};
}

QSize ToolButton::minimumSizeHint() const
{
    return sizeHint();
}

void ToolButton::initStyleOption(QStyleOptionToolButton* option) const
{
    QToolButton::initStyleOption(option);
    const bool isBeside = option && option->toolButtonStyle == Qt::ToolButtonTextBesideIcon;
    if (isBeside && option->text.isEmpty()) {
        option->toolButtonStyle = Qt::ToolButtonIconOnly;
    }
}

void ToolButton::paintEvent(QPaintEvent*)
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    QStylePainter painter(this);

    painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
    paintLabel(painter, option);
    paintArrow(painter, option);
    if (ui::style::stateOf(option).keyboard) {
        ui::style::drawFocusRing(painter, rect());
    }
}

void ToolButton::paintLabel(QStylePainter& painter, const QStyleOptionToolButton& option) const
{
    QStyleOptionToolButton label(option);
    const int beside = option.text.isEmpty() ? kPadding : kPadding + kTextPadding;
    const QRect place = rect().adjusted(beside, kPadding, -beside - arrowColumn(), -kPadding);
    label.rect = QStyle::visualRect(layoutDirection(), rect(), place);
    label.icon = ui::style::sharpened(option.icon);
    label.features.setFlag(QStyleOptionToolButton::HasMenu, false); // or it draws an arrow as well
    painter.drawControl(QStyle::CE_ToolButtonLabel, label);
}

void ToolButton::paintArrow(QStylePainter& painter, const QStyleOptionToolButton& option) const
{
    const int column = arrowColumn();
    if (column == 0) {
        return;
    }
    const ui::style::WidgetState state = ui::style::stateOf(option);
    const QColor ink = ui::style::ink(option.palette.color(QPalette::ButtonText), state);
    const bool isButton = popupMode() == MenuButtonPopup;
    const QRect place(width() - column - (isButton ? 0 : 3), 0, column, height());
    const QRect arrow = QStyle::visualRect(layoutDirection(), rect(), place);
    if (isButton) {
        const QRect line(width() - column, kDividerInset, 1, height() - 2 * kDividerInset);
        ui::style::fillSharp(
            painter,
            QStyle::visualRect(layoutDirection(), rect(), line),
            ui::style::translucent(ink, kDividerInk));
    }
    ui::style::drawChevron(painter, arrow, Qt::DownArrow, ink);
}

void ToolButton::mouseReleaseEvent(QMouseEvent* event)
{
    // Past QToolButton, which goes on with a button that a slot of the click may have deleted.
    QAbstractButton::mouseReleaseEvent(event);
}

void ToolButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down && menu()) {
        showMenu();
    } else if (!ui::clickOnReturn(*this, *event)) {
        QToolButton::keyPressEvent(event);
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/GroupButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/pixelgrid.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include "MorrantUI/theme/style/sharpicons.h"
#include <MorrantUI/controls/buttons/segmentgeometry.h>

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kTextPadding = 9; ///< beside the contents of a button with a text
constexpr int kIconPadding = 5; ///< beside an icon alone
constexpr int kGap = 5;         ///< from icon to text

} // namespace

GroupButton::GroupButton(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<GroupButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

GroupButton::GroupButton(const QString& iconName, QWidget* parent)
    : GroupButton(parent)
{
    setIconName(iconName);
}

GroupButton::~GroupButton() = default;

void GroupButton::setIconName(const QString& name)
{
    m_iconName = name;
    setIcon(ui::namedIcon(name));
}

void GroupButton::setPlace(int index, int count)
{
    m_count = std::max(count, 1);
    m_index = std::clamp(index, 0, m_count - 1);
    update();
}

QSize GroupButton::sizeHint() const
{
    const int height = std::max(ui::rowHeight(*this), iconSize().height() + 4);
    const int iconWidth = icon().isNull() ? 0 : iconSize().width();
    if (text().isEmpty()) {
        return {iconWidth + 2 * kIconPadding, height};
    }
    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    const int gap = iconWidth > 0 ? kGap : 0;
    return {iconWidth + gap + textWidth + 2 * kTextPadding, height};
}

QSize GroupButton::minimumSizeHint() const
{
    const int iconWidth = icon().isNull() ? 0 : iconSize().width();
    return {std::max(iconWidth, 2 * fontMetrics().averageCharWidth()) + 4, sizeHint().height()};
}

void GroupButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintGround(painter);
    paintContents(painter);
}

void GroupButton::paintGround(QPainter& painter) const
{
    const QStyleOption option = ui::buttonOption(*this);
    const ui::style::WidgetState state = ui::style::stateOf(option);
    const ui::SegmentEnds ends = ui::segmentEnds(m_index, m_count, layoutDirection());
    const ui::style::PixelGrid grid(painter);
    const double line = grid.line();
    // What divides two segments is left out of the one to the left of it.
    const QRectF outer = grid.snap(rect()).adjusted(0, 0, ends.right ? 0 : -line, 0);
    const QPainterPath shape = ui::segmentShape(outer, ends, ui::style::kRadius);

    const ui::style::PainterState saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = state.on ? ui::style::quietHighlight()
                                   : ui::style::groundOf(option, QPalette::Button, this);
    painter.fillPath(shape, ui::style::shade(ground, state));

    const auto stroke = [&](const QColor& color, double width) {
        const QRectF inner = outer.adjusted(width, width, -width, -width);
        painter.fillPath(shape - ui::segmentShape(inner, ends, ui::style::kRadius - width), color);
    };
    if (state.keyboard) {
        stroke(ui::style::accentColor(), grid.line(2.0));
    } else if (state.on && state.enabled) {
        stroke(option.palette.color(QPalette::Highlight), line);
    }
}

void GroupButton::paintContents(QPainter& painter) const
{
    const QStyleOption option = ui::buttonOption(*this);
    const int iconWidth = icon().isNull() ? 0 : iconSize().width();
    const int gap = iconWidth > 0 && !text().isEmpty() ? kGap : 0;
    const int room = std::max(0, width() - iconWidth - gap - 4);
    const QString shown =
        fontMetrics().elidedText(text(), Qt::ElideRight, room, Qt::TextShowMnemonic);
    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, shown).width();
    const int left = (width() - iconWidth - gap - textWidth) / 2;

    if (iconWidth > 0) {
        const QRect place(left, 0, iconWidth, height());
        ui::style::drawSharp(
            painter,
            ui::style::centeredSquare(
                QStyle::visualRect(layoutDirection(), rect(), place), iconWidth),
            icon(),
            isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
    const bool underlines = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    const QRect place(left + iconWidth + gap, 0, textWidth, height());
    style()->drawItemText(
        &painter,
        QStyle::visualRect(layoutDirection(), rect(), place),
        Qt::AlignCenter | (underlines ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
        option.palette,
        isEnabled(),
        shown,
        QPalette::ButtonText);
}

void GroupButton::keyPressEvent(QKeyEvent* event)
{
    if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/buttons/RowButton.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/controls/buttons/AccessibleButton.h"
#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QPainter>
#include <QStyleOption>

RowButton::RowButton(QWidget* parent)
    : QAbstractButton(parent)
{
    ui::installAccessible<RowButton, ui::AccessibleButtonAs<QAccessible::Button>>();
    ui::keepSpace(*this);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

RowButton::~RowButton() = default;

QSize RowButton::sizeHint() const
{
    const int side = ui::rowHeight(*this);
    return {side, side};
}

QSize RowButton::minimumSizeHint() const
{
    return sizeHint();
}

void RowButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOption option = ui::buttonOption(*this);
    option.state.setFlag(QStyle::State_AutoRaise);
    style()->drawPrimitive(QStyle::PE_PanelButtonTool, &option, &painter, this);
    paintMark(painter);
    if (ui::style::stateOf(option).keyboard) {
        ui::style::drawFocusRing(painter, rect());
    }
}

void RowButton::keyPressEvent(QKeyEvent* event)
{
    if (!ui::clickOnReturn(*this, *event)) {
        QAbstractButton::keyPressEvent(event);
    }
}

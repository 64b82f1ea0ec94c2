// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/text/fieldlook.h"

#include <QFrame>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace ui {

void paintField(QFrame& field)
{
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.frameWidth();
    QPainter painter(&field);
    field.style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, &field);
}

} // namespace ui

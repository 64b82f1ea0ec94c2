// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockableHeader.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleDocking.h"
#include "MorrantUI/docking/tabs/tablook.h"
#include "MorrantUI/theme/style/shapes.h"

#include <QPainter>

DockableHeader::DockableHeader(QWidget* parent)
    : Widget(parent)
{
    ui::installAccessible<DockableHeader, ui::AccessibleDockHeader>();
    setFocusPolicy(Qt::TabFocus);
}

DockableHeader::~DockableHeader() = default;

QWidget* DockableHeader::setHandler(QObject* handler)
{
    if (handler) {
        installEventFilter(handler);
    }
    return this;
}

void DockableHeader::setText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
}

void DockableHeader::paintEvent(QPaintEvent* event)
{
    Widget::paintEvent(event);
    QPainter painter(this);
    paintFocus(painter);
}

void DockableHeader::paintFocus(QPainter& painter)
{
    if (ui::style::stateOf(*this).keyboard) {
        ui::style::drawFocusRing(painter, rect());
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/DockTabStrip.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/AccessibleDocking.h"
#include "MorrantUI/docking/tabs/TabRow.h"
#include "MorrantUI/docking/tabs/tabkeys.h"
#include "MorrantUI/docking/tabs/tablook.h"
#include <MorrantUI/docking/DockableTabWidget.h>

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>

using ui::tabs::Command;

namespace {

constexpr int kWidestFade = 24; ///< logical pixels
constexpr int kLeastWidth = 40; ///< of the strip, whatever its tabs need

} // namespace

DockTabStrip::DockTabStrip(QWidget* group)
    : QWidget(group)
    , m_row(new TabRow(this, kWidestFade))
    , m_tabs(m_row->tabs())
{
    ui::installAccessible<DockTabStrip, ui::AccessibleDockTabStrip>();
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
}

DockTabStrip::~DockTabStrip() = default;

int DockTabStrip::count() const
{
    return m_tabs->count();
}

DockableTabWidget* DockTabStrip::tabAt(int index) const
{
    QLayoutItem* item = m_tabs->itemAt(index);
    return item ? qobject_cast<DockableTabWidget*>(item->widget()) : nullptr;
}

int DockTabStrip::indexOf(QWidget* tab) const
{
    return tab ? m_tabs->indexOf(tab) : -1;
}

int DockTabStrip::activeIndex() const
{
    for (int index = 0; index < count(); ++index) {
        if (tabAt(index)->isActive()) {
            return index;
        }
    }
    return -1;
}

void DockTabStrip::insertTab(int index, DockableTabWidget* tab)
{
    m_tabs->setEnabled(false); // as it shows, the others would first be squeezed to make room
    m_tabs->insertWidget(index, tab);
    tab->show();
    m_tabs->setEnabled(true);
    m_row->place();
}

void DockTabStrip::removeTab(int index)
{
    DockableTabWidget* tab = tabAt(index);
    if (!tab) {
        return;
    }
    m_tabs->removeWidget(tab);
    tab->hide();
    tab->deleteLater();
    m_row->place();
}

void DockTabStrip::reveal(int index)
{
    if (index >= 0 && index < count()) {
        m_row->reveal(index);
    }
}

QSize DockTabStrip::sizeHint() const
{
    return m_row->wantedSize();
}

QSize DockTabStrip::minimumSizeHint() const
{
    return m_row->leastSize(kLeastWidth);
}

void DockTabStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), ui::tabs::rowGround());
}

void DockTabStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_row->place();
    reveal(activeIndex());
}

void DockTabStrip::wheelEvent(QWheelEvent* event)
{
    event->setAccepted(m_row->scrollByWheel(*event));
}

/// Keys that the tab with the focus has left over.
void DockTabStrip::keyPressEvent(QKeyEvent* event)
{
    const int active = activeIndex();
    int wanted = -1;
    switch (ui::tabs::commandOf(*event, layoutDirection())) {
    case Command::SelectPrevious: wanted = active - 1; break;
    case Command::SelectNext: wanted = active + 1; break;
    case Command::SelectFirst: wanted = 0; break;
    case Command::SelectLast: wanted = count() - 1; break;
    default: QWidget::keyPressEvent(event); return;
    }
    wanted = std::clamp(wanted, 0, std::max(count() - 1, 0));
    if (wanted == active) {
        return;
    }
    const QPointer<DockTabStrip> self(this);
    Q_EMIT chosen(wanted);
    if (DockableTabWidget* tab = self ? tabAt(wanted) : nullptr) {
        tab->setFocus(Qt::TabFocusReason); // shows the ring
    }
}

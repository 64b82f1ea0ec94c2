// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ContextMenuItemWidget.h"

#include "MorrantUI/menus/ContextMenuRow.h"
#include "MorrantUI/menus/menurows.h"
#include "MorrantUI/menus/menusearch.h"
#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/ContextMenuLabel.h>
#include <MorrantUI/theme/icons.h>

#include <QLabel>

#include <algorithm>

namespace {

constexpr int kIconSide = 16; ///< logical pixels, of icons in plain rows

} // namespace

ContextMenuItemWidget::ContextMenuItemWidget(const QString& text, ContextMenu* menu)
    : WidgetMenuAction(nullptr, new ContextMenuRow(*this))
    , m_row(static_cast<ContextMenuRow*>(defaultWidget()))
{
    connect(this, &QAction::changed, m_row, &ContextMenuRow::followAction);
    connect(this, &QAction::changed, this, &ContextMenuItemWidget::followIcon);
    setLabelText(text);
    setContextMenu(menu);
}

ContextMenuItemWidget::~ContextMenuItemWidget()
{
    // Nobody must look at what is left of this.
    disconnect(this, &QAction::changed, nullptr, nullptr);
    if (m_childMenu) {
        m_childMenu->deleteLater(); // one of its rows may have led here
        m_childMenu->hide();
    }
}

void ContextMenuItemWidget::setLabelText(const QString& text)
{
    setText(text);
}

void ContextMenuItemWidget::setLabelColor(QColor color)
{
    if (m_row) {
        m_row->label().setColor(color);
    }
}

void ContextMenuItemWidget::setAccentedLabel(bool accented)
{
    if (m_row) {
        m_row->label().setAccented(accented);
        m_row->measureAgain();
    }
}

void ContextMenuItemWidget::setPixmap(QString iconName)
{
    setPixmap(ui::getCachedPixmap(iconName));
}

void ContextMenuItemWidget::setPixmap(const QPixmap& pixmap)
{
    if (!m_row) {
        return;
    }
    m_row->setPicture(pixmap);
    const QPixmap shown = m_row->picture();
    const QIcon icon = shown.isNull() ? QIcon() : QIcon(shown);
    m_iconKey = icon.cacheKey();
    setIcon(icon); // the menu measures its rows again
}

void ContextMenuItemWidget::followIcon()
{
    if (m_row && icon().cacheKey() != m_iconKey) {
        m_iconKey = icon().cacheKey();
        m_row->setPicture(icon().pixmap(QSize(kIconSide, kIconSide)));
    }
}

QLabel* ContextMenuItemWidget::getRowImageLabel() const
{
    return m_row ? &m_row->image() : nullptr;
}

RolloverButton* ContextMenuItemWidget::addSubAction(QString iconName)
{
    if (!m_row) {
        return nullptr;
    }
    auto* const button = new RolloverButton(iconName);
    connect(button, &QAbstractButton::clicked, this, [this] {
        if (!m_staysOpen && m_row) {
            // Before the host's own slots, which connect later.
            ui::menus::closeAll(qobject_cast<QMenu*>(m_row->parentWidget()));
        }
    });
    m_row->addSubAction(button);
    return button;
}

ContextMenu* ContextMenuItemWidget::makeChildMenu()
{
    if (!m_childMenu) {
        m_childMenu = new ContextMenu(contextMenu());
        const auto follow = [this] {
            m_childMenu->setAccessibleName(ui::menus::displayedText(text()));
        };
        follow();
        connect(this, &QAction::changed, m_childMenu, follow);
    }
    if (menu() != m_childMenu) {
        setMenu(m_childMenu);
    }
    return m_childMenu;
}

ContextMenuItemWidget* ContextMenuItemWidget::addToChildMenu(QString text)
{
    return new ContextMenuItemWidget(text, makeChildMenu());
}

void ContextMenuItemWidget::addSeparatorToChildMenu()
{
    makeChildMenu()->addSeparator();
}

int ContextMenuItemWidget::childCount() const
{
    if (!m_childMenu) {
        return 0;
    }
    const QList<QAction*> rows = m_childMenu->actions();
    return static_cast<int>(std::count_if(
        rows.begin(), rows.end(), [](const QAction* row) { return !row->isSeparator(); }));
}

void ContextMenuItemWidget::setContextMenu(ContextMenu* menu)
{
    for (const QObject* above = menu; above && m_childMenu; above = above->parent()) {
        if (above == m_childMenu) {
            return;
        }
    }
    auto* const shownIn = m_row ? m_row->parentWidget() : nullptr;
    if (menu == shownIn && menu == parent()) {
        return;
    }
    if (shownIn && shownIn != menu) {
        shownIn->removeAction(this);
    }
    setParent(menu);
    if (m_childMenu) {
        m_childMenu->setParent(menu, m_childMenu->windowFlags());
    }
    if (menu && menu != shownIn) {
        menu->addAction(this);
    }
}

ContextMenu* ContextMenuItemWidget::contextMenu() const
{
    return m_row ? qobject_cast<ContextMenu*>(m_row->parentWidget()) : nullptr;
}

void ContextMenuItemWidget::disableMainTrigger(bool trigger, bool highlight)
{
    m_triggerDisabled = trigger;
    m_highlightDisabled = highlight;
    highlightChanged(isHighlighted());
}

void ContextMenuItemWidget::highlightChanged(bool highlighted)
{
    if (!m_row) {
        return;
    }
    m_row->setLit(highlighted && !isStrip());
    if (!highlighted) {
        m_row->leaveSubActions();
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/TabItem.h"

#include "MorrantUI/controls/accessibility.h"
#include "MorrantUI/docking/tabs/AccessibleTabs.h"
#include "MorrantUI/docking/tabs/TabCloseButton.h"
#include "MorrantUI/docking/tabs/TabLabel.h"
#include "MorrantUI/docking/tabs/tablook.h"
#include "MorrantUI/docking/tabs/tabmenus.h"
#include <MorrantUI/docking/tabs/TabBarHeader.h>
#include <MorrantUI/menus/ModalDialog.h>
#include <MorrantUI/menus/dialogs.h>

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include <utility>

namespace {

constexpr int kSidePadding = 8;   ///< logical pixels, beside the contents
constexpr int kSpacing = 2;       ///< between decorator, text and close button
constexpr int kNarrowest = 56;    ///< logical pixels, for texts of a letter or two
constexpr int kRenameDelay = 100; ///< milliseconds from the release to the dialog

} // namespace

TabItem::TabItem(const QString& text, TabBarHeader* header)
    : Widget(header)
    , m_header(header)
    , m_row(new QHBoxLayout(this))
    , m_label(new TabLabel(this))
{
    ui::installAccessible<TabItem, ui::AccessibleTab>();
    setMinimumWidth(kNarrowest);
    m_row->setContentsMargins(kSidePadding, 0, kSidePadding, 0);
    m_row->setSpacing(kSpacing);
    m_row->addWidget(m_label);
    setText(text);
}

TabItem::~TabItem()
{
    const auto menus = findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu* const menu : menus) { // whose entry may have led here: it still needs itself
        menu->setParent(nullptr, menu->windowFlags());
        menu->deleteLater();
    }
    if (m_page) {
        m_page->deleteLater(); // one of its own slots may be running
    }
}

QString TabItem::text() const
{
    return m_label->wholeText();
}

void TabItem::setText(const QString& text)
{
    m_label->showText(text);
    ui::notifyAccessible(this, QAccessible::NameChanged);
}

void TabItem::setActive(bool active)
{
    if (active != m_active) {
        m_active = active;
        m_label->setActive(active);
        update();
    }
}

TabBarHeader* TabItem::header() const
{
    return m_header;
}

void TabItem::setPage(QWidget* page)
{
    m_page = page;
    m_hasPage = page != nullptr;
}

void TabItem::setDecorator(QWidget* decorator)
{
    if (decorator == m_decorator || decorator == this) {
        return;
    }
    if (m_decorator && m_decorator->parentWidget() == this) {
        m_decorator->hide();
        m_row->removeWidget(m_decorator);
        m_decorator->deleteLater(); // may ask for it itself
    }
    m_decorator = decorator;
    if (decorator) {
        m_row->insertWidget(0, decorator);
        decorator->show();
    }
}

void TabItem::addCloseButton()
{
    if (m_closeButton) {
        return;
    }
    m_closeButton = new TabCloseButton(this);
    m_row->addWidget(m_closeButton);
    m_row->setContentsMargins(kSidePadding, 0, kSidePadding / 2, 0);
    m_closeButton->show();
    connect(m_closeButton, &QAbstractButton::clicked, this, &TabItem::closed);
}

void TabItem::setCloseButtonVisibility(bool visible)
{
    if (m_closeButton) {
        m_closeButton->setVisible(visible);
        m_row->setContentsMargins(kSidePadding, 0, visible ? kSidePadding / 2 : kSidePadding, 0);
    }
}

bool TabItem::isRenamable() const
{
    return isEnabled() && m_menuKind == ContextMenu && m_menuType == Renamable;
}

void TabItem::askForName()
{
    stopTimer();
    const std::optional<QString> name =
        ui::getStringInput(tr("Rename Tab"), tr("New Name:"), text(), this);
    if (name) { // never after the tab has gone
        setText(*name);
        Q_EMIT renamed();
    }
}

void TabItem::askToDelete()
{
    const ModalDialog::Button answer = ModalDialog::getChoice(
        tr("Delete Script Tab?"),
        tr("This is not undoable."),
        QDialogButtonBox::Yes | QDialogButtonBox::No,
        QDialogButtonBox::No,
        this);
    if (answer == QDialogButtonBox::Yes) { // never after the tab has gone
        Q_EMIT deleted();
    }
}

void TabItem::startTimer()
{
    if (!m_renameTimer) {
        m_renameTimer = new QTimer(this);
        m_renameTimer->setSingleShot(true);
        m_renameTimer->setInterval(kRenameDelay);
        connect(m_renameTimer, &QTimer::timeout, this, &TabItem::askForName);
    }
    m_renameTimer->start();
}

void TabItem::stopTimer()
{
    m_renamesAfterRelease = false;
    if (m_renameTimer) {
        m_renameTimer->stop();
    }
}

void TabItem::mousePressEvent(QMouseEvent* event)
{
    stopTimer();
    event->ignore(); // drags are the header's
}

void TabItem::mouseReleaseEvent(QMouseEvent* event)
{
    // Accepted, also because a slot may delete the tab.
    event->accept();
    const bool renames = std::exchange(m_renamesAfterRelease, false);
    if (event->button() == Qt::LeftButton && m_header) {
        m_header->endPress();
    }
    if (!rect().contains(event->position().toPoint())) {
        return;
    }
    if (event->button() == Qt::MiddleButton) {
        closeByMiddleClick();
    } else if (event->button() == Qt::LeftButton) {
        const QPointer<TabItem> self(this);
        Q_EMIT clicked();
        if (self && renames) {
            startTimer();
        }
    }
}

void TabItem::closeByMiddleClick()
{
    if (m_closeButton && !m_closeButton->isHidden()) {
        Q_EMIT closed();
    }
}

void TabItem::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    m_renamesAfterRelease = event->button() == Qt::LeftButton && isRenamable();
}

void TabItem::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    ui::tabs::paintTab(painter, rect(), m_active, ui::style::stateOf(*this));
    if (m_active && m_header && ui::style::stateOf(*m_header).keyboard) {
        ui::tabs::paintFocus(painter, rect());
    }
}

void TabItem::contextMenuEvent(QContextMenuEvent* event)
{
    if (m_menuKind != ContextMenu) {
        event->ignore();
        return;
    }
    stopTimer();
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_menuType == Closable) {
        ui::tabs::fillClosableMenu(*menu, *this);
    } else if (m_menuType == Renamable) {
        ui::tabs::fillRenamableMenu(*menu, *this);
    }
    const QPointer<TabItem> self(this);
    Q_EMIT menuAboutToShow(menu);
    if (!self) {
        return; // and the menu goes too
    }
    if (menu->isEmpty()) {
        menu->deleteLater();
    } else {
        menu->popup(event->globalPos());
    }
}

void TabItem::showEvent(QShowEvent* event)
{
    Widget::showEvent(event);
    m_label->followState();
}

void TabItem::hideEvent(QHideEvent* event)
{
    stopTimer();
    Widget::hideEvent(event);
}

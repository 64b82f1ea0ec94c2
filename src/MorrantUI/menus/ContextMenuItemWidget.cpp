#include "MorrantUI/menus/ContextMenuItemWidget.h"

#include "MorrantUI/menus/ContextMenuRow.h"
#include "MorrantUI/menus/menurows.h"
#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/ContextMenuLabel.h>
#include <MorrantUI/theme/icons.h>

#include <QLabel>

#include <algorithm>

namespace {

constexpr int kLargestPicture = 48; ///< logical pixels, either side

QPixmap limited(const QPixmap& pixmap)
{
    const QSizeF size = pixmap.deviceIndependentSize();
    const double larger = std::max(size.width(), size.height());
    if (larger <= kLargestPicture) {
        return pixmap;
    }
    const QSize smaller = pixmap.size() * (kLargestPicture / larger);
    return pixmap.scaled(
        smaller.expandedTo({1, 1}), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

ContextMenuItemWidget::ContextMenuItemWidget(const QString& text, ContextMenu* menu)
    : WidgetMenuAction(nullptr, new ContextMenuRow(*this))
    , m_row(static_cast<ContextMenuRow*>(defaultWidget()))
{
    connect(this, &QAction::changed, m_row, &ContextMenuRow::followAction);
    setLabelText(text);
    setContextMenu(menu);
}

ContextMenuItemWidget::~ContextMenuItemWidget()
{
    disconnect(this, nullptr, m_row, nullptr); // which must not look at what is left of this
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
    m_row->label().setColor(color);
}

void ContextMenuItemWidget::setAccentedLabel(bool accented)
{
    m_row->label().setAccented(accented);
    m_row->measureAgain();
}

void ContextMenuItemWidget::setPixmap(QString iconName)
{
    setPixmap(ui::getCachedPixmap(iconName));
}

void ContextMenuItemWidget::setPixmap(const QPixmap& pixmap)
{
    const QPixmap shown = limited(pixmap);
    m_row->image().setPixmap(shown);
    setIcon(shown.isNull() ? QIcon() : QIcon(shown)); // the menu measures its rows again
}

QLabel* ContextMenuItemWidget::getRowImageLabel() const
{
    return &m_row->image();
}

RolloverButton* ContextMenuItemWidget::addSubAction(QString iconName)
{
    auto* const button = new RolloverButton(iconName);
    connect(button, &QAbstractButton::clicked, this, [this] {
        if (!m_staysOpen) {
            ui::menus::closeAll(m_menu); // before the host's own slots, which connect later
        }
    });
    m_row->addSubAction(button);
    return button;
}

ContextMenu* ContextMenuItemWidget::makeChildMenu()
{
    if (!m_childMenu) {
        m_childMenu = new ContextMenu(m_menu);
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
    for (const QObject* above = menu; above != nullptr && m_childMenu; above = above->parent()) {
        if (above == m_childMenu) {
            return;
        }
    }
    if (menu == m_menu) {
        return;
    }
    if (m_menu) {
        m_menu->removeAction(this);
    }
    m_menu = menu;
    setParent(menu);
    if (m_childMenu) {
        m_childMenu->setParent(menu, m_childMenu->windowFlags());
    }
    if (menu != nullptr) {
        menu->addAction(this);
    }
}

ContextMenu* ContextMenuItemWidget::contextMenu() const
{
    return m_menu;
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

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ContextMenuRow.h"

#include "MorrantUI/controls/buttons/buttonlook.h"
#include "MorrantUI/menus/menurows.h"
#include "MorrantUI/menus/menusearch.h"
#include "MorrantUI/menus/rowgeometry.h"
#include "MorrantUI/theme/style/metrics.h"
#include "MorrantUI/theme/style/shades.h"
#include "MorrantUI/theme/style/shapes.h"
#include <MorrantUI/menus/ContextMenu.h>
#include <MorrantUI/menus/ContextMenuItemWidget.h>
#include <MorrantUI/menus/ContextMenuLabel.h>
#include <MorrantUI/theme/colors.h>

#include <QChildEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionMenuItem>

#include <algorithm>

namespace {

constexpr int kSubActionSide = 20; ///< logical pixels
constexpr int kSubActionEdge = 4;  ///< from the last button to the row's end
constexpr int kPictureMargin = 3;  ///< above and below a picture

constexpr int kLargestPicture = 48;    ///< logical pixels, either side
constexpr int kCheckedMargin = 2;      ///< of the ground around the picture of a checked row
constexpr double kCheckedShare = 0.18; ///< of the text's colour

/// As many device pixels as the sharpest screen shows of a picture's limit, never more than it has.
QPixmap limited(const QPixmap& pixmap)
{
    const QSizeF size = pixmap.deviceIndependentSize();
    if (std::max(size.width(), size.height()) <= kLargestPicture) {
        return pixmap;
    }
    const double larger = std::max(pixmap.width(), pixmap.height());
    const double kept = std::min(larger, kLargestPicture * qGuiApp->devicePixelRatio());
    const QSize smaller = (pixmap.size() * (kept / larger)).expandedTo({1, 1});
    QPixmap scaled = pixmap.scaled(smaller, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(kept / kLargestPicture);
    return scaled;
}

} // namespace

ContextMenuRow::ContextMenuRow(const ContextMenuItemWidget& item)
    : m_item(item)
    , m_label(new ContextMenuLabel(this))
{}

ContextMenuRow::~ContextMenuRow() = default;

QLabel& ContextMenuRow::image()
{
    if (!m_image) {
        m_image = new QLabel(this);
        m_image->setAlignment(Qt::AlignCenter);
        m_image->setMouseTracking(true);
        m_image->show();
        arrangeIfShown();
    }
    return *m_image;
}

QPixmap ContextMenuRow::picture() const
{
    return m_image ? m_image->pixmap(Qt::ReturnByValue) : QPixmap();
}

QSize ContextMenuRow::pictureSize() const
{
    return picture().deviceIndependentSize().toSize();
}

void ContextMenuRow::setPicture(const QPixmap& picture)
{
    if (picture.isNull() && !m_image) {
        return;
    }
    image().setPixmap(limited(picture));
    m_pictureKey = this->picture().cacheKey();
    measureAgain();
}

void ContextMenuRow::followPicture()
{
    if (picture().cacheKey() != m_pictureKey) {
        setPicture(picture());
    }
}

bool ContextMenuRow::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        followPicture(); // the only child that asks for another size by itself
    }
    return ContextMenuButton::event(event);
}

void ContextMenuRow::addSubAction(RolloverButton* button)
{
    button->setParent(this);
    button->setFocusPolicy(Qt::NoFocus); // keys lead to it through the menu
    button->setFixedSize(kSubActionSide, kSubActionSide);
    button->setMouseTracking(true);
    button->setAccessibleDescription(ui::menus::displayedText(m_item.text()));
    button->installEventFilter(this);
    m_subActions.append({button, button->tints()});
    button->show();
}

RolloverButton* ContextMenuRow::subActionAt(QPoint position) const
{
    const auto buttons = shownButtons();
    const auto hit = std::find_if(buttons.begin(), buttons.end(), [position](const auto* button) {
        return button->geometry().contains(position);
    });
    return hit == buttons.end() ? nullptr : *hit;
}

QList<RolloverButton*> ContextMenuRow::shownButtons() const
{
    QList<RolloverButton*> shown;
    for (const SubAction& action : m_subActions) {
        if (action.button && !action.button->isHidden()) {
            shown << action.button;
        }
    }
    return shown;
}

QList<RolloverButton*> ContextMenuRow::usableButtons() const
{
    QList<RolloverButton*> usable = shownButtons();
    usable.removeIf([](const RolloverButton* button) { return !button->isEnabled(); });
    return usable;
}

bool ContextMenuRow::stepSubAction(int step, int least)
{
    const auto buttons = usableButtons();
    const int current = static_cast<int>(buttons.indexOf(chosenSubAction()));
    const auto next =
        ui::menus::steppedSubAction(current, static_cast<int>(buttons.size()), step, least);
    if (!next) {
        return false;
    }
    if (*next < 0) {
        leaveSubActions();
    } else {
        window()->setAttribute(Qt::WA_KeyboardFocusChange); // shows the focus ring
        // Not as by Tab: a field of the window behind would take that as the end of its edit.
        buttons.at(*next)->setFocus(Qt::PopupFocusReason);
    }
    return true;
}

RolloverButton* ContextMenuRow::chosenSubAction() const
{
    const auto buttons = shownButtons();
    const auto chosen = std::find_if(
        buttons.begin(), buttons.end(), [](const auto* button) { return button->hasFocus(); });
    return chosen == buttons.end() ? nullptr : *chosen;
}

void ContextMenuRow::leaveSubActions()
{
    for (RolloverButton* const button : shownButtons()) {
        button->clearFocus(); // also where only the closed menu remembers it
    }
}

void ContextMenuRow::setLit(bool lit)
{
    setHighlighted(lit);
    if (lit == m_lit) {
        return;
    }
    m_lit = lit;
    for (SubAction& action : m_subActions) {
        if (!action.button) {
            continue;
        }
        if (!lit) {
            action.button->setTints(action.tints);
            continue;
        }
        action.tints = action.button->tints();
        RolloverButton::Tints onHighlight = action.tints;
        onHighlight.rest = QStringLiteral("Light");
        onHighlight.checked = QStringLiteral("HighlightedText");
        action.button->setTints(onHighlight);
    }
}

void ContextMenuRow::followAction()
{
    m_label->setText(m_item.text().section(u'\t', 0, 0));
    const QString name = ui::menus::displayedText(m_item.text());
    setAccessibleName(name);
    for (RolloverButton* const button : shownButtons()) {
        button->setAccessibleDescription(name);
    }
    arrangeIfShown();
    update();
}

void ContextMenuRow::measureAgain()
{
    if (auto* const menu = qobject_cast<QMenu*>(parentWidget())) {
        ui::menus::layOutAgain(*menu);
    }
    arrangeIfShown();
}

void ContextMenuRow::arrangeIfShown()
{
    if (isVisible()) { // otherwise the menu does so when it opens
        arrange();
    }
}

QString ContextMenuRow::shortcutText() const
{
    if (m_item.text().contains(u'\t')) {
        return m_item.text().section(u'\t', 1);
    }
    return m_item.isShortcutVisibleInContextMenu()
               ? m_item.shortcut().toString(QKeySequence::NativeText)
               : QString();
}

QStyleOptionMenuItem ContextMenuRow::option() const
{
    QStyleOptionMenuItem option;
    if (const auto* const menu = qobject_cast<const ContextMenu*>(parentWidget())) {
        menu->initStyleOption(&option, &m_item);
    } else {
        option.initFrom(this);
    }
    option.rect = rect();
    option.icon = QIcon();
    option.text.clear();
    option.state.setFlag(QStyle::State_Selected, isHighlighted());
    return option;
}

ui::menus::RowParts ContextMenuRow::parts(const QStyleOptionMenuItem& option) const
{
    const int buttons = static_cast<int>(shownButtons().size());
    const QString shortcut = shortcutText();
    int trailing = ui::style::kMenuArrowColumn;
    if (option.menuItemType != QStyleOptionMenuItem::SubMenu) {
        // Where plain rows have their shortcuts.
        trailing =
            buttons > 0 ? kSubActionEdge : ui::style::kMenuArrowColumn - ui::style::kMenuRowPadding;
    }
    return {
        .row = size(),
        .textOffset = ui::style::menuTextOffset(option),
        .shortcutWidth = shortcut.isEmpty() ? 0 : fontMetrics().horizontalAdvance(shortcut) + 1,
        .shortcutGap = ui::style::kMenuShortcutGap,
        .subActions = buttons,
        .subActionSide = kSubActionSide,
        .trailing = trailing,
        .rightToLeft = layoutDirection() == Qt::RightToLeft,
    };
}

void ContextMenuRow::arrange()
{
    const ui::menus::RowPlaces places = ui::menus::rowPlaces(parts(option()));
    m_label->setGeometry(places.label);
    if (m_image) {
        m_image->setGeometry(places.image);
    }
    const auto buttons = shownButtons();
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        buttons.at(i)->setGeometry(places.subActions.at(i));
    }
}

/// What the widest menu of the narrowest screen has between its frames.
int ContextMenuRow::roomInMenu() const
{
    const QWidget* const menu = parentWidget();
    if (!menu) {
        return QWIDGETSIZE_MAX;
    }
    const int frame = style()->pixelMetric(QStyle::PM_MenuPanelWidth, nullptr, menu)
                      + style()->pixelMetric(QStyle::PM_MenuHMargin, nullptr, menu);
    return menu->maximumWidth() - 2 * frame;
}

QSize ContextMenuRow::sizeHint() const
{
    const QStyleOptionMenuItem option = this->option();
    const QSize text = m_label->sizeHint();
    const int width = ui::menus::rowWidth(parts(option), text.width());
    const QSize plain = style()->sizeFromContents(QStyle::CT_MenuItem, &option, text, this);
    const int picture = pictureSize().height();
    const int pictured = picture > 0 ? picture + 2 * kPictureMargin : 0;
    return {
        std::min(width, roomInMenu()), std::max({plain.height(), pictured, ui::rowHeight(*this)})};
}

QSize ContextMenuRow::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

bool ContextMenuRow::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
        // A button that keys have led to leaves them to the menu, which knows what they mean.
        if (QWidget* const menu = parentWidget()) {
            QCoreApplication::sendEvent(menu, event);
            return true;
        }
        break;
    case QEvent::ShowToParent:
    case QEvent::HideToParent: measureAgain(); break;
    default: break;
    }
    return ContextMenuButton::eventFilter(watched, event);
}

void ContextMenuRow::childEvent(QChildEvent* event)
{
    ContextMenuButton::childEvent(event);
    if (event->removed()
        && m_subActions.removeIf([](const auto& gone) { return !gone.button; }) > 0) {
        measureAgain();
    }
}

void ContextMenuRow::enterEvent(QEnterEvent* /*event*/)
{
    // The menu decides which row is lit: one that opens below a resting pointer lights none.
}

void ContextMenuRow::mousePressEvent(QMouseEvent* event)
{
    event->ignore();
}

void ContextMenuRow::mouseReleaseEvent(QMouseEvent* event)
{
    event->ignore();
}

void ContextMenuRow::resizeEvent(QResizeEvent* event)
{
    ContextMenuButton::resizeEvent(event);
    arrange();
}

void ContextMenuRow::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOptionMenuItem option = this->option();
    const bool pictured = !pictureSize().isEmpty();
    if (pictured) {
        option.checkType = QStyleOptionMenuItem::NotCheckable; // a tick would lie behind it
    }
    QPainter painter(this);
    style()->drawControl(QStyle::CE_MenuItem, &option, &painter, this);
    if (pictured && option.checked) {
        paintCheckedGround(painter, option);
    }

    const QString shortcut = shortcutText();
    if (shortcut.isEmpty()) {
        return;
    }
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, ui::colorQt(QStringLiteral("HelperHints")));
    style()->drawItemText(
        &painter,
        ui::menus::rowPlaces(parts(option)).shortcut,
        Qt::AlignVCenter | Qt::AlignHCenter | Qt::TextSingleLine,
        colors,
        isEnabled(),
        shortcut,
        isHighlighted() ? QPalette::HighlightedText : QPalette::WindowText);
}

/// As behind the icon of a checked plain row.
void ContextMenuRow::paintCheckedGround(QPainter& painter, const QStyleOptionMenuItem& option) const
{
    const bool lit = option.state.testFlag(QStyle::State_Selected);
    const QColor text =
        option.palette.color(lit ? QPalette::HighlightedText : QPalette::WindowText);
    QRectF ground({}, pictureSize() + 2 * QSize(kCheckedMargin, kCheckedMargin));
    ground.moveCenter(QRectF(m_image->geometry()).center());
    ui::style::fillRounded(
        painter, ground, ui::style::kSmallRadius, ui::style::translucent(text, kCheckedShare));
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/ContextMenu.h"

#include "MorrantUI/menus/ContextMenuRow.h"
#include "MorrantUI/menus/menurows.h"
#include "MorrantUI/menus/menusearch.h"
#include <MorrantUI/controls/buttons/RolloverButton.h>
#include <MorrantUI/menus/ContextMenuItemWidget.h>

#include <QActionEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionMenuItem>
#include <QTimer>

#include <algorithm>
#include <utility>

using ui::menus::MenuKey;

namespace {

constexpr int kSearchPause = 1000; ///< milliseconds, after which typing starts anew
constexpr int kPictureMargin = 4;  ///< that QMenu adds to the width of an icon

bool isSelectable(const QAction& row)
{
    return row.isVisible() && row.isEnabled() && !row.isSeparator();
}

/// Takes the submenu from a row and gives it back once, unless the row has got another.
class LentSubmenu
{
public:
    explicit LentSubmenu(QAction& row)
        : m_row(&row)
        , m_submenu(row.menu())
    {
        if (m_submenu) {
            row.setMenu(nullptr);
        }
    }
    ~LentSubmenu() { giveBack(); }
    Q_DISABLE_COPY_MOVE(LentSubmenu)

    void giveBack()
    {
        const QPointer<QMenu> submenu = std::exchange(m_submenu, nullptr);
        if (m_row && submenu && !m_row->menu()) {
            m_row->setMenu(submenu);
        }
    }

private:
    QPointer<QAction> m_row;
    QPointer<QMenu> m_submenu;
};

MenuKey keyOf(const QKeyEvent& event)
{
    return ui::menus::menuKey(event.key(), event.modifiers(), event.text());
}

} // namespace

ContextMenu::ContextMenu(QWidget* parent)
    : QMenu(parent)
{
    m_searchTimer = new QTimer(this); // once there is all that event() asks for
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    m_searchTimer->setSingleShot(true);
    m_searchTimer->setTimerType(Qt::PreciseTimer);
    m_searchTimer->setInterval(kSearchPause);
    connect(m_searchTimer, &QTimer::timeout, this, [this] { m_searchText.clear(); });
    connect(this, &QMenu::aboutToShow, this, &ContextMenu::aboutToOpen);
}

ContextMenu::~ContextMenu()
{
    ui::menus::moveHighlight(m_highlighted, nullptr); // rows of other owners live on
}

void ContextMenu::aboutToOpen()
{
    m_searchTimer->stop();
    m_searchText.clear();
    m_pressed = false;
    m_ledByKeys = false;
    ui::menus::limitToScreens(*this);
    ui::menus::closeWith(*this, parentWidget() ? parentWidget()->window() : nullptr);
    ui::menus::updateRows(*this);
    const QList<QAction*> rows = actions();
    for (QAction* const row : rows) {
        auto* const item = qobject_cast<ContextMenuItemWidget*>(row);
        if (item && item->m_row) {
            item->m_row->followPicture();
        }
    }
}

// Keys

void ContextMenu::keyPressEvent(QKeyEvent* event)
{
    const QList<QAction*> rows = actions();
    if (rows.isEmpty()) {
        QMenu::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Alt) {
        event->accept(); // goes before a mnemonic, and QMenu would close
        return;
    }
    m_currentIndex = static_cast<int>(rows.indexOf(activeAction()));
    switch (keyOf(*event)) {
    case MenuKey::Trigger: triggerActive(event); break;
    case MenuKey::Next: highlightNext(m_currentIndex); break;
    case MenuKey::Previous: highlightPrevious(m_currentIndex); break;
    case MenuKey::Search: extendSearch(event->text()); break;
    case MenuKey::Other:
        if (!stepSubAction(*event) && !answerMnemonic(*event)) {
            const QPointer<ContextMenu> alive(this);
            QMenu::keyPressEvent(event);
            if (alive) {
                enterStrip(); // Tab, Home and the like move on, too
            }
        }
        break;
    }
}

void ContextMenu::highlightNext(int start)
{
    step(start, 1);
}

void ContextMenu::highlightPrevious(int start)
{
    step(start, -1);
}

void ContextMenu::step(int start, int by)
{
    const QList<QAction*> rows = actions();
    const int index = ui::menus::firstRow(static_cast<int>(rows.size()), start, by, [&rows](int i) {
        return isSelectable(*rows[i]);
    });
    if (index < 0) {
        return;
    }
    const QPointer<QAction> row = rows.at(index);
    const QPointer<ContextMenu> alive(this);
    m_ledByKeys = true;
    ui::menus::claimFocus(*this); // which what loses it may answer in any way
    if (alive && row && start >= 0 && activeAction() == rows.at(start)) {
        // QMenu's own step scrolls no further than it must, and opens no submenu.
        QKeyEvent key(QEvent::KeyPress, by > 0 ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QMenu::keyPressEvent(&key);
    }
    if (alive && row && activeAction() != row) {
        makeActive(row);
        if (alive && row && activeAction() == row) {
            ui::menus::focusRow(*row);
        }
    }
    if (alive) {
        enterStrip();
    }
}

void ContextMenu::highlightBySubstring(const QString& text, int start)
{
    const QList<QAction*> rows = actions();
    const int index =
        ui::menus::firstRow(static_cast<int>(rows.size()), start, 1, [&rows, &text](int i) {
            return isSelectable(*rows[i]) && ui::menus::isFoundBy(rows[i]->text(), text);
        });
    if (index < 0) {
        return;
    }
    const QPointer<ContextMenu> alive(this);
    m_ledByKeys = true;
    makeActive(rows.at(index));
    if (alive) {
        enterStrip();
    }
}

void ContextMenu::extendSearch(const QString& text)
{
    if (m_searchTimer->remainingTime() <= 0) { // also while it is late to tell
        m_searchText.clear();
    }
    m_searchTimer->start();
    m_searchText += text.toLower();
    highlightBySubstring(m_searchText, m_currentIndex);
}

/// From outside, QMenu opens the submenu of a row that it makes active: the row goes without for
/// that moment.
void ContextMenu::makeActive(QAction* row)
{
    if (!row->menu()) {
        setActiveAction(row);
        return;
    }
    const QPointer<ContextMenu> alive(this);
    m_leavesChanges = true;
    LentSubmenu lent(*row);
    setActiveAction(row);
    lent.giveBack();
    if (alive) {
        m_leavesChanges = false;
    }
}

void ContextMenu::enterStrip()
{
    followHighlight();
    auto* const item = qobject_cast<ContextMenuItemWidget*>(activeAction());
    if (item && item->m_row && item->isStrip() && !item->m_row->chosenSubAction()) {
        item->m_row->stepSubAction(1, 0);
    }
}

bool ContextMenu::stepSubAction(const QKeyEvent& event)
{
    auto* const item = qobject_cast<ContextMenuItemWidget*>(activeAction());
    if (!item || !item->m_row || (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
    {
        return false;
    }
    const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
    const int least = item->isStrip() ? 0 : -1;
    switch (event.key()) {
    case Qt::Key_Tab: return item->m_row->stepSubAction(1, least);
    case Qt::Key_Backtab: return item->m_row->stepSubAction(-1, least);
    case Qt::Key_Left:
    case Qt::Key_Right: break;
    default: return false;
    }
    const bool onward = (event.key() == Qt::Key_Right) != rightToLeft;
    const bool opensMenu = onward && item->menu() && !item->m_row->chosenSubAction();
    return !opensMenu && item->m_row->stepSubAction(onward ? 1 : -1, least);
}

bool ContextMenu::answerMnemonic(const QKeyEvent& event)
{
    if (!event.modifiers().testFlag(Qt::AltModifier)) {
        return false;
    }
    const QKeySequence typed(Qt::ALT | Qt::Key(event.key()));
    const QList<QAction*> rows = actions();
    const auto meant = std::find_if(rows.begin(), rows.end(), [&typed](const QAction* row) {
        const auto* const item = qobject_cast<const ContextMenuItemWidget*>(row);
        return item && isSelectable(*row) && (!item->hasMainTrigger() || item->menu())
               && QKeySequence::mnemonic(item->text()) == typed;
    });
    if (meant == rows.end()) {
        return false; // QMenu knows what to do with any other row
    }
    const QPointer<ContextMenu> alive(this);
    makeActive(*meant);
    if (alive) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        triggerActive(&enter);
    }
    return true;
}

// Triggering

/// Lets QMenu close everything and note the row for exec(), and triggers the row when QMenu is
/// done: a slot may then delete the menu, which QMenu would go on using. Where a menu above takes
/// part, all of it is QMenu's.
void ContextMenu::activate(QAction& row)
{
    const QPointer<QAction> action(&row);
    const bool checked = row.isChecked();
    const bool alone = ui::menus::openerOf(*this) == nullptr;
    const bool wasBlocked = alone && row.blockSignals(true);
    LentSubmenu lent(row); // QMenu triggers no row that has one
    const auto hiding = connect(this, &QMenu::aboutToHide, this, [&lent] { lent.giveBack(); });
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QMenu::keyPressEvent(&enter);
    disconnect(hiding);
    if (alone && action) {
        action->setChecked(checked);
        action->blockSignals(wasBlocked);
    }
    lent.giveBack();
    if (alone && action) {
        action->trigger();
    }
}

void ContextMenu::triggerActive(QKeyEvent* event)
{
    QAction* const row = activeAction();
    if (!row || !isSelectable(*row)) {
        return;
    }
    const auto* const item = qobject_cast<ContextMenuItemWidget*>(row);
    RolloverButton* const chosen = item && item->m_row ? item->m_row->chosenSubAction() : nullptr;
    if (chosen) {
        if (!event->isAutoRepeat()) {
            chosen->click();
        }
    } else if (item ? item->hasMainTrigger() : !row->menu()) {
        activate(*row);
    } else if (row->menu()) {
        QMenu::keyPressEvent(event); // opens it
    }
}

void ContextMenu::mousePressEvent(QMouseEvent* event)
{
    m_pressed = true;
    m_ledByKeys = false;
    if (!ui::menus::isOnSeparator(*this, event->position().toPoint())) {
        QMenu::mousePressEvent(event);
    }
}

void ContextMenu::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pressed = std::exchange(m_pressed, false);
    const QPoint position = event->position().toPoint();
    if (ui::menus::isOnSeparator(*this, position)) {
        return;
    }
    const bool overArrow = !ui::menus::freeOfArrows(*this).contains(position);
    QAction* const row = overArrow ? nullptr : actionAt(position);
    const auto* const item = qobject_cast<ContextMenuItemWidget*>(row);
    if (item && item->m_row && item->m_row->parentWidget() == this) {
        const QPoint inRow = position - item->m_row->pos();
        if (RolloverButton* const button = item->m_row->subActionAt(inRow)) {
            if (pressed && event->button() == Qt::LeftButton) {
                button->click(); // the press was elsewhere in the menu, or a submenu passed it on
            }
            return;
        }
    }
    if (item && !item->hasMainTrigger()) {
        return;
    }
    const bool triggers = item || (row && !row->menu());
    if (pressed && triggers && row == activeAction() && isSelectable(*row)) {
        activate(*row);
    } else {
        QMenu::mouseReleaseEvent(event);
    }
}

/// QMenu's timers do what the resting pointer meant, and would open the submenu of a row that keys
/// have led to since.
void ContextMenu::timerEvent(QTimerEvent* event)
{
    if (!m_ledByKeys) {
        QMenu::timerEvent(event);
    }
}

// Rows

bool ContextMenu::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        // What is typed belongs to the search, also where it is the shortcut of a command.
        if (keyOf(*static_cast<QKeyEvent*>(event)) == MenuKey::Search) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::LayoutRequest) {
        ui::menus::layOutAgain(*this);
    } else if (event->type() == QEvent::UpdateRequest) {
        ui::menus::clipWidgetRows(*this);
    } else if (event->type() == QEvent::Show) {
        ui::menus::bringOntoScreen(*this);
        arrangeRows();
    } else if (event->type() == QEvent::MouseMove) {
        m_ledByKeys = false;
    }
    const QPointer<ContextMenu> alive(this);
    const bool handled = QMenu::event(event);
    if (alive) {
        followHighlight();
    }
    return handled;
}

bool ContextMenu::focusNextPrevChild(bool next)
{
    return ui::menus::stepInRow(activeAction(), next) || QMenu::focusNextPrevChild(next);
}

void ContextMenu::followHighlight()
{
    ui::menus::moveHighlight(m_highlighted, activeAction());
}

void ContextMenu::inputMethodEvent(QInputMethodEvent* event)
{
    const QString text = event->commitString();
    if (ui::menus::searches(Qt::NoModifier, text)) {
        m_currentIndex = static_cast<int>(actions().indexOf(activeAction()));
        extendSearch(text);
    }
    event->accept();
}

void ContextMenu::actionEvent(QActionEvent* event)
{
    if (m_leavesChanges && event->type() == QEvent::ActionChanged) {
        return;
    }
    m_pictureColumn = -1;
    const QPointer<ContextMenu> alive(this);
    const QPointer<QAction> row(event->action());
    QMenu* const submenu = row->menu();
    const bool leads = event->type() != QEvent::ActionRemoved && isSelectable(*row);
    const bool isOpener = isVisible() && activeAction() == row;
    if (submenu && submenu->isVisible() && isOpener && !leads) {
        submenu->hide(); // nothing leads there any more
    }
    if (!alive || !row) {
        return; // by a slot
    }
    QMenu::actionEvent(event);
    if (isVisible()) {
        ui::menus::keepOnScreen(*this);
        arrangeRows();
    }
}

void ContextMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const
{
    QMenu::initStyleOption(option, action);
    measureMarks();
    option->maxIconWidth = std::max(option->maxIconWidth, m_pictureColumn);
    option->menuHasCheckableItems = option->menuHasCheckableItems || m_hasTicks;
}

void ContextMenu::measureMarks() const
{
    if (m_pictureColumn >= 0) {
        return;
    }
    m_pictureColumn = 0;
    m_hasTicks = false;
    const QList<QAction*> rows = actions();
    for (const QAction* const row : rows) {
        const auto* const item = qobject_cast<const ContextMenuItemWidget*>(row);
        if (!item || !item->isVisible() || !item->m_row) {
            continue;
        }
        m_hasTicks = m_hasTicks || item->isCheckable();
        const int width = item->m_row->pictureSize().width();
        if (width > 0) {
            m_pictureColumn = std::max(m_pictureColumn, width + kPictureMargin);
        }
    }
}

void ContextMenu::arrangeRows()
{
    const QList<QAction*> rows = actions();
    for (QAction* const row : rows) {
        const auto* const item = qobject_cast<ContextMenuItemWidget*>(row);
        if (item && item->m_row) {
            item->m_row->arrange();
        }
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/CommandPalette.h"

#include "MorrantUI/menus/commandsearch.h"
#include "MorrantUI/menus/menurows.h"
#include "MorrantUI/menus/menusearch.h"
#include "MorrantUI/theme/style/metrics.h"
#include <MorrantUI/menus/ContextMenuItemWidget.h>
#include <MorrantUI/menus/hostmenus.h>
#include <MorrantUI/theme/colors.h>

#include <QAccessible>
#include <QActionEvent>
#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <limits>
#include <utility>

using ui::menus::matchCommand;

namespace {

constexpr int kWidth = 460;              ///< logical pixels
constexpr double kHeight = 0.12;         ///< of the widget, above the list
constexpr int kLeastShare = 3;           ///< part of the screen that a long list gets
constexpr double kUnderline = 1.5;       ///< logical pixels, below the letters that were found
constexpr double kDisabledOpacity = 0.5; ///< of that line
constexpr qsizetype kMostPasted = 200;   ///< UTF-16 units

/// What a row shows of a command: its name behind the menus that it is in.
struct Words
{
    QString text;
    qsizetype name; ///< where that begins
};

Words wordsOf(const QAction& action, const QString& path)
{
    const QString name = ui::plainMenuText(action.text());
    const QString text = path.isEmpty() ? name : CommandPalette::tr("%1: %2").arg(path, name);
    return {text, std::max<qsizetype>(text.lastIndexOf(name), 0)};
}

/// A row that is a widget without a name, or cannot be triggered, is no command.
bool isCommand(const QAction& action)
{
    const auto* const rich = qobject_cast<const ContextMenuItemWidget*>(&action);
    return !action.isSeparator() && !action.text().isEmpty()
           && (rich ? rich->hasMainTrigger() : !action.menu());
}

/// Whether a key changes what is typed.
bool edits(const QKeyEvent& key)
{
    return key.matches(QKeySequence::DeleteStartOfWord) || key.key() == Qt::Key_Backspace
           || key.matches(QKeySequence::Paste)
           || ui::menus::menuKey(key.key(), key.modifiers(), key.text())
                  == ui::menus::MenuKey::Search;
}

QString pastedText()
{
    QString text = QGuiApplication::clipboard()->text().simplified().left(kMostPasted);
    if (!text.isEmpty() && text.back().isHighSurrogate()) {
        text.chop(1); // the other half was cut off
    }
    return text;
}

} // namespace

CommandPalette::CommandPalette(QWidget* commands, QWidget* parent)
    : ContextMenu(parent)
    , m_commands(commands)
{
    setAccessibleName(tr("Commands"));
}

CommandPalette::~CommandPalette() = default;

void CommandPalette::openOver(const QWidget& widget)
{
    setMinimumWidth(std::min(kWidth, widget.screen()->availableGeometry().width()));
    clear();
    m_listed.clear();
    m_rows.clear();
    m_prompt = new ContextMenuItemWidget(QString(), this);
    m_prompt->setPixmap(QStringLiteral("icons:search.png"));
    m_prompt->setEnabled(false); // not to be chosen
    addSeparator();
    if (m_commands) {
        list(m_commands->actions(), {}, {});
    }
    m_nothing = addAction(tr("No command found"));
    m_nothing->setEnabled(false);
    find({});
    ui::menus::closeWith(*this, widget.window());
    const QPoint top((widget.width() - sizeHint().width()) / 2, qRound(widget.height() * kHeight));
    m_top = widget.mapToGlobal(top);
    const QRect screen = widget.screen()->availableGeometry();
    const int lowest = screen.bottom() - screen.height() / kLeastShare;
    m_top.setY(std::clamp(m_top.y(), screen.top(), lowest));
    m_room = screen.bottom() - m_top.y() + 1;
    popup(m_top);
}

bool CommandPalette::isTooLong() const
{
    const int above = m_prompt ? actionGeometry(m_prompt).top() : 0; // out of sight, below 0
    return m_room > 0 && ContextMenu::sizeHint().height() - std::min(above, 0) > m_room;
}

/// Only a list that is longer than the screen is one that QMenu scrolls; others it moves up, from
/// where typing would bring them down again.
QSize CommandPalette::sizeHint() const
{
    const QSize whole = ContextMenu::sizeHint();
    const int least = isTooLong() ? screen()->geometry().height() + 1 : 0;
    return {whole.width(), std::max(whole.height(), least)};
}

/// With each popup(), which has placed it by then.
void CommandPalette::setVisible(bool visible)
{
    if (visible && isTooLong()) {
        setGeometry(x(), m_top.y(), width(), m_room);
    }
    ContextMenu::setVisible(visible);
}

void CommandPalette::list(
    const QList<QAction*>& actions, const QString& path, const Parents& parents)
{
    for (QAction* const action : actions) {
        if (action != m_leftOut && isCommand(*action)) {
            add(*action, path, parents);
        }
        if (const QMenu* const inner = action->menu()) {
            list(inner->actions(), wordsOf(*action, path).text, parents + Parents{action});
        }
    }
}

void CommandPalette::add(QAction& action, const QString& path, const Parents& parents)
{
    QAction* const row = addAction(QString());
    const std::size_t index = m_listed.size();
    m_rows.append(row);
    m_listed.push_back({row, &action, path, parents, {}, {}});
    const auto follow = [this, index] {
        match(m_listed[index]);
        copy(m_listed[index]);
        sayWhetherFound();
    };
    for (const QAction* source : parents + Parents{&action}) {
        connect(source, &QAction::changed, row, follow);
    }
    connect(&action, &QObject::destroyed, row, follow);
    connect(row, &QAction::triggered, this, [this, row] { run(row); });
}

/// What a command is called now, and how that fits what is typed.
void CommandPalette::match(Command& command) const
{
    const Words words = command.meant ? wordsOf(*command.meant, command.path) : Words{};
    const auto found = matchCommand(words.text, words.name, m_typed);
    command.text = words.text;
    command.match = found ? std::make_shared<const ui::menus::CommandMatch>(*found) : nullptr;
}

/// Makes a row look as what it stands for.
void CommandPalette::copy(const Command& command)
{
    QAction* const row = command.row;
    const QAction* const meant = command.meant;
    if (!row) {
        return;
    }
    if (!meant) {
        row->setVisible(false);
        return;
    }
    const QString key = meant->shortcut().toString(QKeySequence::NativeText);
    const QString text = ui::menuText(command.text);
    const auto allParents = [&command](auto&& are) {
        return std::all_of(command.parents.begin(), command.parents.end(), are);
    };
    row->setText(key.isEmpty() ? text : text + u'\t' + key);
    row->setIcon(meant->icon());
    row->setCheckable(meant->isCheckable());
    row->setChecked(meant->isChecked());
    row->setEnabled(meant->isEnabled() && allParents([](const QPointer<QAction>& menu) {
                        return menu && menu->isEnabled();
                    }));
    row->setVisible(
        meant->isVisible()
        && allParents([](const QPointer<QAction>& menu) { return !menu || menu->isVisible(); })
        && command.match);
}

void CommandPalette::run(const QAction* row)
{
    const auto shown =
        std::find_if(m_listed.begin(), m_listed.end(), [row](const Command& command) {
            return command.row == row;
        });
    if (shown != m_listed.end() && shown->meant) {
        shown->meant->trigger();
    }
}

// Typing

/// What is typed behind a key of these.
QString CommandPalette::edited(const QKeyEvent& key) const
{
    if (key.matches(QKeySequence::DeleteStartOfWord)) {
        return ui::menus::withoutLastWord(m_typed);
    }
    if (key.key() == Qt::Key_Backspace) {
        return ui::menus::withoutLastLetter(m_typed);
    }
    if (key.matches(QKeySequence::Paste)) {
        return m_typed + pastedText();
    }
    return m_typed + key.text();
}

bool CommandPalette::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && edits(*static_cast<QKeyEvent*>(event))) {
        event->accept(); // rather than a command's key
        return true;
    }
    return ContextMenu::event(event);
}

void CommandPalette::keyPressEvent(QKeyEvent* event)
{
    if (edits(*event)) {
        find(edited(*event));
    } else {
        ContextMenu::keyPressEvent(event);
    }
}

/// A pointer beside the list, or one that the list has shrunk away from, leaves Return its row.
void CommandPalette::mouseMoveEvent(QMouseEvent* event)
{
    if (actionAt(event->position().toPoint())) {
        ContextMenu::mouseMoveEvent(event);
    }
}

void CommandPalette::leaveEvent(QEvent* /*event*/)
{}

void CommandPalette::inputMethodEvent(QInputMethodEvent* event)
{
    if (ui::menus::searches(Qt::NoModifier, event->commitString())) {
        find(m_typed + event->commitString());
    }
    showTyped(event->preeditString());
    event->accept();
}

/// @param composed by an input method, and not yet typed
void CommandPalette::showTyped(const QString& composed)
{
    const QString text = m_typed + composed;
    if (m_prompt) {
        m_prompt->setLabelText(text.isEmpty() ? tr("Type to find a command") : ui::menuText(text));
        m_prompt->setAccentedLabel(!text.isEmpty());
    }
}

void CommandPalette::find(const QString& text)
{
    m_typed = text;
    arrange();
    activateFirst();
}

/// The rows stay where they are and change what they stand for: menus are slow at taking rows in
/// and out.
void CommandPalette::arrange()
{
    const bool wasWhole = y() == m_top.y() && ui::menus::freeOfArrows(*this) == rect();
    std::vector<std::pair<int, std::size_t>> ranks;
    for (std::size_t i = 0; i < m_listed.size(); ++i) {
        Command& command = m_listed[i];
        match(command);
        ranks.emplace_back(
            command.match ? command.match->rank : std::numeric_limits<int>::max(), i);
    }
    std::sort(ranks.begin(), ranks.end());
    m_isArranging = true;
    showTyped({});
    for (qsizetype place = 0; place < m_rows.size(); ++place) {
        Command& command = m_listed[ranks[static_cast<std::size_t>(place)].second];
        command.row = m_rows[place];
        copy(command);
    }
    sayWhetherFound();
    m_isArranging = false;
    ui::menus::layOutAgain(*this);
    if (isVisible() && (!wasWhole || isTooLong())) {
        popup(m_top); // Qt forgets only by this how far a longer list was scrolled
    }
}

void CommandPalette::actionEvent(QActionEvent* event)
{
    if (!m_isArranging || event->type() != QEvent::ActionChanged) {
        const QRect place = geometry();
        ContextMenu::actionEvent(event);
        if (isVisible() && isTooLong()) {
            setGeometry(place); // also what QMenu has made higher to scroll
        }
    }
}

void CommandPalette::sayWhetherFound()
{
    if (m_nothing) {
        m_nothing->setVisible(std::none_of(
            m_rows.begin(), m_rows.end(), [](const auto& row) { return row && row->isVisible(); }));
    }
}

void CommandPalette::activateFirst()
{
    const auto first = std::find_if(m_rows.begin(), m_rows.end(), [](const auto& row) {
        return row && row->isVisible() && row->isEnabled();
    });
    setActiveAction(first == m_rows.end() ? nullptr : first->data());
    if (isVisible() && m_nothing && m_nothing->isVisible()) {
        // It cannot be active, but has to be heard.
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(static_cast<int>(actions().indexOf(m_nothing)));
        QAccessible::updateAccessibility(&event);
    }
}

// Painting

void CommandPalette::paintEvent(QPaintEvent* event)
{
    ContextMenu::paintEvent(event);
    if (m_typed.isEmpty()) {
        return;
    }
    QPainter painter(this);
    painter.setClipRect(ui::menus::freeOfArrows(*this));
    const QColor accent = ui::colorQt(QStringLiteral("Accent1"));
    for (const Command& command : m_listed) {
        if (command.row && command.row->isVisible() && command.meant
            && event->rect().intersects(actionGeometry(command.row)))
        {
            const bool isActive = command.row == activeAction();
            underline(
                painter, command, isActive ? palette().color(QPalette::HighlightedText) : accent);
        }
    }
}

/// The letters of a row that were typed.
void CommandPalette::underline(QPainter& painter, const Command& command, const QColor& color) const
{
    QStyleOptionMenuItem option;
    initStyleOption(&option, command.row);
    QTextLayout layout(command.text, option.font);
    QTextOption asDrawn;
    asDrawn.setTextDirection(painter.layoutDirection());
    layout.setTextOption(asDrawn);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    if (!command.match || !line.isValid()) {
        return;
    }
    const QRectF row = actionGeometry(command.row);
    const int offset = ui::style::menuTextOffset(option);
    const bool leftToRight = layoutDirection() == Qt::LeftToRight;
    const double left =
        leftToRight ? row.left() + offset : row.right() - offset - line.naturalTextWidth();
    const double widest = ui::style::widestMenuText(option.fontMetrics);
    const double y = row.center().y() + line.height() / 2 - line.descent() + kUnderline;
    painter.setOpacity(command.row->isEnabled() ? 1.0 : kDisabledOpacity);
    for (const ui::menus::Letters& letters : command.match->marks) {
        const double from = line.cursorToX(static_cast<int>(letters.from));
        const double to = line.cursorToX(static_cast<int>(letters.from + letters.count));
        if (std::max(from, to) <= widest) { // beyond it the text is cut
            painter.fillRect(QRectF(left + from, y, to - from, kUnderline).normalized(), color);
        }
    }
}

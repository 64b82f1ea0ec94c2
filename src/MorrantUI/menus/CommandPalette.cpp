// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/menus/CommandPalette.h"

#include "MorrantUI/menus/menusearch.h"
#include <MorrantUI/menus/ContextMenuItemWidget.h>
#include <MorrantUI/menus/hostmenus.h>

#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

namespace {

constexpr int kWidth = 460;      ///< logical pixels
constexpr double kHeight = 0.12; ///< of the widget, above the list

bool hasAllWords(const QString& text, const QString& typed)
{
    const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

} // namespace

CommandPalette::CommandPalette(QWidget* commands, QWidget* parent)
    : ContextMenu(parent)
    , m_commands(commands)
{
    setMinimumWidth(kWidth);
    setAccessibleName(tr("Commands"));
}

CommandPalette::~CommandPalette() = default;

void CommandPalette::openOver(const QWidget& widget)
{
    clear();
    m_rows.clear();
    m_prompt = new ContextMenuItemWidget(QString(), this);
    m_prompt->setPixmap(QStringLiteral("icons:search.png"));
    m_prompt->setEnabled(false); // not to be chosen
    addSeparator();
    if (m_commands) {
        list(m_commands->actions(), {}, {});
    }
    find({});
    const QPoint top((widget.width() - sizeHint().width()) / 2, qRound(widget.height() * kHeight));
    popup(widget.mapToGlobal(top));
}

void CommandPalette::list(
    const QList<QAction*>& actions, const QString& path, const Parents& parents)
{
    for (QAction* const action : actions) {
        if (const QMenu* const inner = action->menu()) {
            const QString name = ui::plainMenuText(action->text());
            const QString whole = path.isEmpty() ? name : tr("%1: %2").arg(path, name);
            list(inner->actions(), whole, parents + Parents{action});
        } else if (!action->isSeparator() && action != m_leftOut) {
            add(*action, path, parents);
        }
    }
}

void CommandPalette::add(QAction& action, const QString& path, const Parents& parents)
{
    QAction* const shown = addAction(QString());
    const Row row{shown, &action, path, parents};
    m_rows.push_back(row);
    copy(row);
    for (const QAction* source : parents + Parents{&action}) {
        connect(source, &QAction::changed, shown, [this, row] { copy(row); });
    }
    connect(&action, &QObject::destroyed, shown, &QObject::deleteLater);
    connect(shown, &QAction::triggered, &action, &QAction::trigger);
}

/// Makes a row look as what it stands for.
void CommandPalette::copy(const Row& row)
{
    if (!row.shown || !row.meant) {
        return;
    }
    const QString own = ui::plainMenuText(row.meant->text());
    const QString name = row.path.isEmpty() ? own : tr("%1: %2").arg(row.path, own);
    const QString key = row.meant->shortcut().toString(QKeySequence::NativeText);
    row.shown->setText(key.isEmpty() ? ui::menuText(name) : ui::menuText(name) + u'\t' + key);
    row.shown->setIcon(row.meant->icon());
    row.shown->setCheckable(row.meant->isCheckable());
    row.shown->setChecked(row.meant->isChecked());
    row.shown->setEnabled(
        row.meant->isEnabled()
        && std::all_of(row.parents.begin(), row.parents.end(), [](const QPointer<QAction>& menu) {
               return menu && menu->isEnabled();
           }));
    row.shown->setVisible(row.meant->isVisible() && hasAllWords(name, m_typed));
}

void CommandPalette::find(const QString& text)
{
    m_typed = text;
    m_prompt->setLabelText(text.isEmpty() ? tr("Type to find a command") : ui::menuText(text));
    m_prompt->setAccentedLabel(!text.isEmpty());
    QAction* first = nullptr;
    for (const Row& row : m_rows) {
        copy(row);
        if (!first && row.shown && row.shown->isVisible() && row.shown->isEnabled()) {
            first = row.shown;
        }
    }
    setActiveAction(first);
}

void CommandPalette::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Backspace) {
        find(m_typed.chopped(std::min(m_typed.size(), qsizetype(1))));
    } else if (
        ui::menus::menuKey(event->key(), event->modifiers(), event->text())
        == ui::menus::MenuKey::Search)
    {
        find(m_typed + event->text());
    } else {
        ContextMenu::keyPressEvent(event);
    }
}

void CommandPalette::inputMethodEvent(QInputMethodEvent* event)
{
    find(m_typed + event->commitString());
    event->accept();
}

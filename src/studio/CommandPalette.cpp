#include "CommandPalette.h"

#include "commands.h"
#include <MorrantUI/menus/ContextMenuItemWidget.h>

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenuBar>

#include <algorithm>

namespace studio {

namespace {

constexpr int kWidth = 460;      ///< logical pixels
constexpr double kHeight = 0.12; ///< of the window, above the list

bool hasAllWords(const QString& text, const QString& typed)
{
    const QStringList words = typed.split(u' ', Qt::SkipEmptyParts);
    return std::all_of(words.begin(), words.end(), [&text](const QString& word) {
        return text.contains(word, Qt::CaseInsensitive);
    });
}

bool isText(const QKeyEvent& key)
{
    const bool isCommand = key.modifiers().testFlag(Qt::ControlModifier)
                           != key.modifiers().testFlag(Qt::AltModifier); // both together write
    return !isCommand && !key.text().isEmpty() && key.text().at(0).isPrint();
}

} // namespace

CommandPalette::CommandPalette(QMenuBar& commands, QWidget* parent)
    : ContextMenu(parent)
    , m_commands(commands)
{
    setMinimumWidth(kWidth);
    setAccessibleName(tr("Commands"));
}

void CommandPalette::open(const QWidget& window)
{
    clear();
    m_rows.clear();
    m_prompt = new ContextMenuItemWidget(QString(), this);
    m_prompt->setPixmap(u"icons:search.png"_qs);
    m_prompt->setEnabled(false); // not to be chosen
    addSeparator();
    for (QAction* action : m_commands.actions()) {
        if (const QMenu* menu = action->menu()) {
            list(*menu, plainText(action->text()), {action});
        }
    }
    find({});
    const QPoint top((window.width() - sizeHint().width()) / 2, qRound(window.height() * kHeight));
    popup(window.mapToGlobal(top));
}

void CommandPalette::list(const QMenu& menu, const QString& path, const Parents& parents)
{
    for (QAction* action : menu.actions()) {
        if (const QMenu* inner = action->menu()) {
            const QString name = tr("%1: %2").arg(path, plainText(action->text()));
            list(*inner, name, parents + Parents{action});
        } else if (!action->isSeparator() && action != m_leftOut) {
            add(*action, path, parents);
        }
    }
}

void CommandPalette::add(QAction& action, const QString& path, const Parents& parents)
{
    QAction* shown = addAction(QString());
    const Row row{shown, &action, path, parents};
    m_rows.push_back(row);
    copy(row);
    for (const QAction* source : parents + Parents{&action}) {
        connect(source, &QAction::changed, shown, [this, row] { copy(row); });
    }
    connect(&action, &QObject::destroyed, shown, &QObject::deleteLater);
    connect(shown, &QAction::triggered, &action, &QAction::trigger);
}

/// Makes a row look as what it stands for, which is disabled with each of its menus.
void CommandPalette::copy(const Row& row)
{
    const QString name = tr("%1: %2").arg(row.path, plainText(row.meant->text()));
    const QString key = row.meant->shortcut().toString(QKeySequence::NativeText);
    row.shown->setText(key.isEmpty() ? menuText(name) : menuText(name) + u'\t' + key);
    row.shown->setIcon(row.meant->icon());
    row.shown->setCheckable(row.meant->isCheckable());
    row.shown->setChecked(row.meant->isChecked());
    row.shown->setEnabled(
        row.meant->isEnabled()
        && std::all_of(row.parents.begin(), row.parents.end(), [](const QPointer<QAction>& menu) {
               return menu && menu->isEnabled();
           }));
    row.shown->setVisible(row.meant->isVisible() && hasAllWords(name, m_text));
}

void CommandPalette::find(const QString& text)
{
    m_text = text;
    m_prompt->setLabelText(text.isEmpty() ? tr("Type to find a command") : menuText(text));
    m_prompt->setAccentedLabel(!text.isEmpty());
    QAction* first = nullptr;
    for (const Row& row : m_rows) {
        if (row.shown && row.meant) {
            copy(row);
            first = !first && row.shown->isVisible() && row.shown->isEnabled() ? row.shown.data()
                                                                               : first;
        }
    }
    setActiveAction(first);
}

void CommandPalette::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Backspace) {
        find(m_text.chopped(std::min(m_text.size(), qsizetype(1))));
    } else if (isText(*event)) {
        find(m_text + event->text());
    } else {
        ContextMenu::keyPressEvent(event);
    }
}

void CommandPalette::inputMethodEvent(QInputMethodEvent* event)
{
    find(m_text + event->commitString());
    event->accept();
}

} // namespace studio

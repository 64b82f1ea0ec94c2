// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/controls/AccessibleProgram.h"

#include "MorrantUI/controls/accessibility.h"

#include <QApplication>
#include <QMenu>
#include <QScrollArea>
#include <QTabWidget>

namespace ui {

namespace {

bool isOpenByItself(const QMenu& menu)
{
    QAccessibleInterface* const seen =
        menu.isVisible() ? QAccessible::queryAccessibleInterface(const_cast<QMenu*>(&menu))
                         : nullptr;
    QAccessibleInterface* const above = seen ? seen->parent() : nullptr;
    return seen
           && (!above
               || (above->role() != QAccessible::PopupMenu
                   && above->role() != QAccessible::MenuBar));
}

} // namespace

QList<QWidget*> AccessibleProgram::menus()
{
    QList<QWidget*> open;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const auto* const menu = qobject_cast<const QMenu*>(window);
        if (menu && isOpenByItself(*menu)) {
            open.append(window);
        }
    }
    return open;
}

int AccessibleProgram::childCount() const
{
    return QAccessibleApplication::childCount() + static_cast<int>(menus().size());
}

QAccessibleInterface* AccessibleProgram::child(int index) const
{
    const int windows = QAccessibleApplication::childCount();
    return index < windows ? QAccessibleApplication::child(index)
                           : QAccessible::queryAccessibleInterface(menus().value(index - windows));
}

int AccessibleProgram::indexOfChild(const QAccessibleInterface* child) const
{
    const int window = QAccessibleApplication::indexOfChild(child);
    auto* const menu = window < 0 && child ? qobject_cast<QWidget*>(child->object()) : nullptr;
    const auto index = menu ? menus().indexOf(menu) : -1;
    return index < 0 ? window : QAccessibleApplication::childCount() + static_cast<int>(index);
}

namespace {

/// What other widgets lie in: a panel, named as they are together if it has no name of its own.
/// Where it hands the focus on it has none.
class AccessiblePanel : public AccessibleNamed
{
public:
    explicit AccessiblePanel(QWidget* panel)
        : AccessibleNamed(panel, QAccessible::Pane)
    {}

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleNamed::state();
        state.focusable = state.focusable && !widget()->focusProxy();
        return state;
    }
    QString text(QAccessible::Text kind) const override
    {
        QString text = AccessibleNamed::text(kind);
        const bool isUnnamed = kind == QAccessible::Name && text.isEmpty();
        QWidget* above = isUnnamed ? widget()->parentWidget() : nullptr;
        for (; above && text.isEmpty(); above = above->parentWidget()) {
            QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(above);
            text = seen ? seen->text(kind) : QString();
        }
        return text;
    }
};

QAccessibleInterface* accessibleProgram(const QString& key, QObject* object)
{
    const bool isProgram = object == qApp && key == QLatin1String("QApplication");
    return isProgram ? new AccessibleProgram : nullptr; // QAccessible's cache owns it
}

} // namespace

void mendForReaders()
{
    static const bool mended = [] {
        addAccessible<QScrollArea, AccessiblePanel>();
        addAccessible<QTabWidget, AccessiblePanel>();
        QAccessible::installFactory(accessibleProgram);
        // Where an assistive tool came first, the cache has Qt's own.
        QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(qApp);
        if (known && !dynamic_cast<AccessibleProgram*>(known)) {
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
        }
        return true;
    }();
    Q_UNUSED(mended)
}

} // namespace ui

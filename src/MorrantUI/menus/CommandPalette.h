// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/ContextMenu.h>

#include <QPointer>

#include <vector>

class ContextMenuItemWidget;

/// Every command of a menu bar, or of another widget with actions, in one list, "Menu: Command".
///
/// What is typed keeps the rows that have all its words somewhere, in any order, without regard to
/// upper and lower case. Return runs the chosen one, closing gives the focus back. The rows show
/// icon, shortcut, tick and state of their actions and follow them while the list is open; an
/// action is disabled with each of the menus that it is in. Actions and menus may be deleted at any
/// time.
class MORRANT_UI_EXPORT CommandPalette : public ContextMenu
{
    Q_OBJECT

public:
    /// @param commands whose actions are listed as they are when the palette opens; those with a
    /// menu
    ///     stand for its rows. Nothing is listed once it is gone.
    explicit CommandPalette(QWidget* commands, QWidget* parent = nullptr);
    ~CommandPalette() override;

    /// An action that is not listed, such as the one that opens the palette. Null for none.
    void leaveOut(const QAction* action) { m_leftOut = action; }

    /// Opens empty-handed in the upper middle of a widget, usually a window.
    void openOver(const QWidget& widget);

    /// What has been typed since it opened.
    QString typed() const { return m_typed; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    using Parents = QList<QPointer<QAction>>;

    struct Row
    {
        QPointer<QAction> shown;
        QPointer<QAction> meant;
        QString path;    ///< of the menus that it is in; may be empty
        Parents parents; ///< those menus, which disable it too
    };

    void list(const QList<QAction*>& actions, const QString& path, const Parents& parents);
    void add(QAction& action, const QString& path, const Parents& parents);
    void copy(const Row& row);
    void find(const QString& text);

    QPointer<QWidget> m_commands;
    const QAction* m_leftOut = nullptr;        ///< compared, never used
    ContextMenuItemWidget* m_prompt = nullptr; ///< shows what was typed
    QString m_typed;
    std::vector<Row> m_rows;
};

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/menus/ContextMenu.h>

#include <QPoint>
#include <QPointer>

#include <vector>

class ContextMenuItemWidget;

namespace ui::menus {
struct CommandMatch;
}

/// Every command of a menu bar, or of another widget with actions, in one list, "Menu: Command".
///
/// What is typed keeps the rows that have all its words somewhere, in any order, without regard to
/// case and accents. The row that fits best stands first and is the active one: a word counts most
/// at the beginning of a command's name, less at that of another word, still less within a word,
/// and least in the name of a menu. The letters that were found are underlined. Backspace takes a
/// letter back, with Control a word; Paste works, too. Return runs the active row, which stays so
/// when the pointer leaves the list; closing gives the focus back.
///
/// The rows show icon, shortcut, tick and state of their actions and follow them while the list is
/// open; an action is disabled and hidden with each of the menus that it is in. Actions without a
/// text are left out, and a row says "No command found" where there is none. Actions and menus may
/// be deleted at any time.
class MORRANT_UI_EXPORT CommandPalette : public ContextMenu
{
    Q_OBJECT

public:
    /// @param commands whose actions are listed as they are when the palette opens; a menu stands
    ///     for its rows. Nothing is listed once it is gone.
    explicit CommandPalette(QWidget* commands, QWidget* parent = nullptr);
    ~CommandPalette() override;

    /// An action that is not listed, such as the one that opens the palette. Null for none.
    void leaveOut(const QAction* action) { m_leftOut = action; }

    /// Opens empty-handed in the upper middle of a widget, usually a window, and keeps its top
    /// there; closes when the widget's window is hidden.
    void openOver(const QWidget& widget);

    /// What has been typed since it opened.
    QString typed() const { return m_typed; }

    QSize sizeHint() const override;
    void setVisible(bool visible) override;

protected:
    bool event(QEvent* event) override;
    void actionEvent(QActionEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    using Parents = QList<QPointer<QAction>>;

    struct Command
    {
        QPointer<QAction> row; ///< that shows it now; what is typed changes their order
        QPointer<QAction> meant;
        QString path;    ///< of the menus that it is in; may be empty
        Parents parents; ///< those menus, which disable and hide it too
        QString text;    ///< that the row shows
        std::shared_ptr<const ui::menus::CommandMatch> match; ///< null: it is not found
    };

    void list(const QList<QAction*>& actions, const QString& path, const Parents& parents);
    void add(QAction& action, const QString& path, const Parents& parents);
    void match(Command& command) const;
    static void copy(const Command& command);
    void run(const QAction* row);

    QString edited(const QKeyEvent& key) const;
    bool isTooLong() const;
    void find(const QString& text);
    void showTyped(const QString& composed);
    void arrange();
    void sayWhetherFound();
    void activateFirst();
    void underline(QPainter& painter, const Command& command, const QColor& color) const;

    QPointer<QWidget> m_commands;
    const QAction* m_leftOut = nullptr;       ///< compared, never used
    QPointer<ContextMenuItemWidget> m_prompt; ///< shows what was typed
    QPointer<QAction> m_nothing;              ///< says that no command was found
    QString m_typed;
    QPoint m_top;                    ///< where it was to open, on the screen
    int m_room = 0;                  ///< below that, logical pixels
    std::vector<Command> m_listed;   ///< in the order of the menus
    QList<QPointer<QAction>> m_rows; ///< from top to bottom
    bool m_isArranging = false;
};

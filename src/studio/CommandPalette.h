#pragma once

#include <MorrantUI/menus/ContextMenu.h>

#include <vector>

class ContextMenuItemWidget;
class QMenuBar;

namespace studio {

/// Every action of a menu bar in one list, "Menu: Action", in the upper middle of a window. What is
/// typed keeps the rows that have all its words somewhere; Return runs the chosen one, and closing
/// gives the focus back. The rows follow their actions while the list is open.
class CommandPalette : public ContextMenu
{
    Q_OBJECT

public:
    /// @param commands must outlive it
    CommandPalette(QMenuBar& commands, QWidget* parent);

    /// An action that is not listed, such as the one that opens this.
    void leaveOut(const QAction* action) { m_leftOut = action; }

    void open(const QWidget& window);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    using Parents = QList<QPointer<QAction>>;

    struct Row
    {
        QPointer<QAction> shown;
        QPointer<QAction> meant;
        QString path;    ///< of the menus that it is in
        Parents parents; ///< those menus, which disable it too
    };

    void list(const QMenu& menu, const QString& path, const Parents& parents);
    void add(QAction& action, const QString& path, const Parents& parents);
    void copy(const Row& row);
    void find(const QString& text);

    QMenuBar& m_commands;
    const QAction* m_leftOut = nullptr;
    ContextMenuItemWidget* m_prompt = nullptr; ///< shows what was typed
    QString m_text;                            ///< what was typed
    std::vector<Row> m_rows;
};

} // namespace studio

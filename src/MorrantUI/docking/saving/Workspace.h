// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QByteArray>
#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <vector>

class DockableGroup;
class DockableWindow;
class QAction;

/// The panels of an application, by id, in a tree of dockable windows. A panel that is closed,
/// whichever way, leaves its content here and can be shown again, at its place and as large as it
/// was. Windows that float are hidden as long as the workspace is.
///
/// Its root is a tree like any other, in which a host may have windows of its own beside the
/// panels. Panels are arranged only while gMainWindow is that root; a host that has forgotten to
/// set it finds one line in the log whenever nothing is done.
class MORRANT_UI_EXPORT Workspace : public QWidget
{
    Q_OBJECT

public:
    /// Without panels. Set gMainWindow to root() next.
    explicit Workspace(QWidget* parent = nullptr);
    /// The tree goes first and the contents after it, so that whatever they are shown in is whole.
    ~Workspace() override;

    DockableGroup& root() const { return *m_root; } ///< owned by the workspace

    enum class Kind
    {
        Panel,   ///< with its title above it
        Bar,     ///< with a grip before it; docks at top and bottom only
        SideBar, ///< with a grip above it; docks at the sides only
    };
    Q_ENUM(Kind)

    /// Takes a panel, closed at first. Its title is the content's window title, also when that
    /// changes; its share of the room is told by the content's size policy. A content that is
    /// deleted takes its panel along.
    /// @param id names the panel in layouts; one that is empty or known is ignored
    /// @param content owned by the workspace from now on; null, one that is in a panel already and
    ///     what the workspace lies in are ignored
    void addPanel(const QString& id, QWidget* content, Kind kind = Kind::Panel);

    /// The ids, in the order in which the panels came.
    QStringList panels() const;
    /// What is in a panel, whether it is open or not; null for an unknown one.
    QWidget* content(const QString& id) const;
    /// Null while the panel is closed, since it goes then.
    DockableWindow* windowOf(const QString& id) const;

    /// False for an unknown one, too.
    bool isPanelOpen(const QString& id) const { return windowOf(id) != nullptr; }
    /// Shows a panel, at its place in the default layout if it was closed, in front and active; or
    /// closes it. An unknown one is ignored.
    void setPanelOpen(const QString& id, bool open);
    /// Rows for a menu, in the order of panels(): checked while their panel is open, they open and
    /// close it. Each is named after its panel's id, reads as its content's first title, and goes
    /// with the panel. toggled() tells of panels that are opened or closed in whatever way.
    QList<QAction*> panelActions() const;

    /// The layout that reset() brings and that says where a closed panel belongs; none at first.
    void setDefaultLayout(const QByteArray& layout) { m_default = layout; }
    bool reset(QString* error = nullptr); ///< as setLayout()

    /// Replaces the arrangement, see ui::restoreLayout(). A panel that it does not mention, as one
    /// of an older program, comes to its place in the default layout. Before the workspace is shown
    /// the sizes count as proportions.
    /// @param error if not null and this fails: what is wrong, the rest of a translated sentence
    /// @return false, and nothing is changed, for what is no layout
    bool setLayout(const QByteArray& layout, QString* error = nullptr);
    /// The arrangement as ui::saveLayout() has it, panels that are closed included; empty while
    /// gMainWindow is another. Hides the function of QWidget.
    QByteArray layout() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Panel
    {
        QString id;
        QWidget* content; ///< never null: the panel goes with it
        Kind kind;
        QAction* action;
        QPointer<DockableWindow> window; ///< null or on its way out: closed
    };

    bool isMain() const;
    Panel* find(const QString& id);
    const Panel* find(const QString& id) const;
    DockableWindow* makeWindow(const QString& id);
    void forget(const QObject* content);
    void placeUnplaced();
    void hideFloating();
    void showOpen();

    std::unique_ptr<DockableGroup> m_root; ///< dies while this is still a whole widget
    QWidget* m_shelf;                      ///< holds the contents of closed panels, never shown
    std::vector<Panel> m_panels;
    QByteArray m_default;
    QStringList
        m_unplaced; ///< panels that no layout has placed, until there is room to place them in
    std::vector<QPointer<DockableWindow>> m_hidden; ///< that floated
};

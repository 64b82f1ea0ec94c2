// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

class DockableGroup;
class DockableWindow;

namespace studio {

/// The panels of the studio in a tree of dockable windows, whose root it makes gMainWindow while it
/// lives. A panel that is closed, whichever way, leaves its content here, and can be shown again.
/// Floating windows are hidden as long as the workspace is.
class Workspace : public QWidget
{
    Q_OBJECT

public:
    explicit Workspace(QWidget* parent = nullptr);
    ~Workspace() override;

    enum class Header
    {
        Title,
        Grip, ///< of a bar, which can be moved to the top and the bottom only
    };

    /// Takes a panel, closed at first. Its title is the content's window title, also when that
    /// changes.
    /// @param id names the panel in layouts
    void addPanel(const QString& id, QWidget* content, Header header = Header::Title);

    struct Panel
    {
        QString id;
        QWidget* content;
        Header header;
        QString name; ///< the title it came with
    };
    const std::vector<Panel>& panels() const { return m_panels; }

    /// The layout that reset() brings and that says where a closed panel belongs; none at first.
    void setDefaultLayout(const QByteArray& layout);
    QString reset(); ///< as setLayout()

    /// Replaces the arrangement. A panel that it does not know, as one of an older program, comes
    /// to its place in the default layout. Window size, position and state are the main window's
    /// affair.
    /// @return what is wrong with it, the rest of a sentence; empty for nothing
    QString setLayout(const QByteArray& layout);
    /// What there is, panels that are closed included.
    QJsonObject layout() const;

    bool isPanelOpen(const QString& id) const { return windowOf(id) != nullptr; }
    /// Shows a panel, at its place in the default layout if it was closed, or closes it.
    void setPanelOpen(const QString& id, bool open);
    /// Null while the panel is closed.
    DockableWindow* windowOf(const QString& id) const;

    DockableGroup& root() { return *m_root; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void placeUnplaced();
    const Panel* find(const QString& id) const;
    DockableWindow* makeWindow(const QString& id);

    QPointer<DockableGroup> m_previousRoot; ///< gMainWindow before
    std::unique_ptr<DockableGroup> m_root;  ///< dies while this is still a whole widget
    QWidget* m_shelf;                       ///< holds the contents of closed panels, never shown
    std::vector<Panel> m_panels;
    QByteArray m_default;
    QStringList
        m_unplaced; ///< panels that no layout has placed, until there is room to place them in
    std::vector<QPointer<DockableWindow>> m_hidden; ///< that floated
};

} // namespace studio

#pragma once

#include "layout/Layout.h"

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
    void setDefaultLayout(const Layout& layout);
    void reset();

    /// Replaces the arrangement. Panels that it does not mention, as one of an older program, come
    /// to their places in the default layout. Window size, position and state are the main window's
    /// affair.
    void setLayout(const Layout& layout);
    /// What there is, panels that are closed included.
    Layout layout() const;

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
    QStringList ids() const;
    const Panel* find(const QString& id) const;
    DockableWindow* makeWindow(const QString& id);

    QPointer<DockableGroup> m_previousRoot; ///< gMainWindow before
    std::unique_ptr<DockableGroup> m_root;  ///< dies while this is still a whole widget
    QWidget* m_shelf;                       ///< holds the contents of closed panels, never shown
    std::vector<Panel> m_panels;
    Layout m_default;
    std::optional<Layout> m_unshown; ///< set while nobody had a size yet
};

} // namespace studio

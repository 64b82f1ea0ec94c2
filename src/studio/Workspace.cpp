#include "Workspace.h"

#include "PanelWindow.h"
#include "layout/layouttree.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableToolBarHeader.h>

#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace studio {

namespace {

void bringForward(DockableWindow& window)
{
    auto* tabs = qobject_cast<DockableTabGroup*>(window.findDockableParentGroup());
    if (tabs) {
        tabs->setActiveIndex(tabs->indexOfChild(&window));
    }
    window.window()->raise();
    window.window()->activateWindow();
}

void closeWindow(DockableWindow& window)
{
    window.isFloating() ? void(window.close()) : window.undockAndClose();
}

} // namespace

Workspace::Workspace(QWidget* parent)
    : QWidget(parent)
    , m_previousRoot(gMainWindow)
    , m_root(std::make_unique<DockableGroup>())
    , m_shelf(new QWidget(this))
{
    gMainWindow = m_root.get();
    m_shelf->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_root.get());
}

Workspace::~Workspace()
{
    clearTree(*m_root); // while it can still give up what floats above it
    m_root.reset();
    gMainWindow = m_previousRoot;
}

void Workspace::addPanel(const QString& id, QWidget* content, Header header)
{
    m_panels.push_back({id, content, header, content->windowTitle()});
    content->setParent(m_shelf);
}

void Workspace::setDefaultLayout(const Layout& layout)
{
    m_default = fitted(layout, ids());
}

void Workspace::reset()
{
    setLayout(m_default);
}

void Workspace::setLayout(const Layout& layout)
{
    Layout known = layout; // by a program that had fewer panels
    for (const QString& id : ids()) {
        known = withPanel(std::move(known), id, m_default.root);
    }
    const Layout wanted = fitted(known, ids());
    buildTree(wanted, *m_root, [this](const QString& id) { return makeWindow(id); });
    if (!isVisible()) {
        m_unshown = wanted;
    }
}

Layout Workspace::layout() const
{
    // Before it is first shown nothing has a size that could be read.
    Layout layout = m_unshown ? *m_unshown : layoutOf(*m_root);
    layout.closed.clear();
    for (const Panel& panel : m_panels) {
        if (!isPanelOpen(panel.id)) {
            layout.closed.append(panel.id);
        }
    }
    return layout;
}

void Workspace::setPanelOpen(const QString& id, bool open)
{
    DockableWindow* const window = windowOf(id);
    if (!open && window) {
        closeWindow(*window);
    } else if (open && find(id)) {
        DockableWindow* const shown = window ? window : makeWindow(id);
        if (!window) {
            dockAtHome(*shown, m_default.root, *m_root);
        }
        bringForward(*shown);
    }
}

DockableWindow* Workspace::windowOf(const QString& id) const
{
    const auto windows = m_root->findChildren<DockableWindow*>(id);
    const auto open =
        std::find_if(windows.begin(), windows.end(), [](const DockableWindow* window) {
            return !window->isClosing();
        });
    return open != windows.end() ? *open : nullptr;
}

void Workspace::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    for (DockableWindow* window : floatingWindows(*m_root)) {
        window->show();
    }
    if (const auto layout = std::exchange(m_unshown, std::nullopt)) {
        applySizes(*layout, *m_root);
    }
}

void Workspace::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        for (DockableWindow* window : floatingWindows(*m_root)) {
            window->hide();
        }
    }
}

QStringList Workspace::ids() const
{
    QStringList ids;
    for (const Panel& panel : m_panels) {
        ids.append(panel.id);
    }
    return ids;
}

const Workspace::Panel* Workspace::find(const QString& id) const
{
    const auto found = std::find_if(
        m_panels.begin(), m_panels.end(), [&id](const Panel& panel) { return panel.id == id; });
    return found != m_panels.end() ? &*found : nullptr;
}

DockableWindow* Workspace::makeWindow(const QString& id)
{
    const Panel& panel = *find(id);
    const QSize before = panel.content->size();
    const bool wasShown = panel.content->testAttribute(Qt::WA_Resized);
    auto* window = new PanelWindow(id, panel.content, m_shelf);
    if (wasShown) { // it comes back as large as it was
        window->resize(before + QSize(0, window->header()->sizeHint().height()));
    }
    if (panel.header == Header::Grip) {
        window->setHeader(new DockableToolBarHeader(DockableToolBarHeader::Direction::Vertical));
        window->setHeaderDirection(QBoxLayout::LeftToRight);
        window->sideDockingDisabled = true;
    }
    return window;
}

} // namespace studio

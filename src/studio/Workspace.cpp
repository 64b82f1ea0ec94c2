// SPDX-License-Identifier: Apache-2.0
#include "Workspace.h"

#include "PanelWindow.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableToolBarHeader.h>
#include <MorrantUI/docking/saving/savedlayouts.h>

#include <QJsonArray>
#include <QJsonDocument>
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
    for (DockableWindow* panel : ui::allPanels()) {
        delete panel; // while its content can still go to the shelf
    }
    m_root.reset();
    gMainWindow = m_previousRoot;
}

void Workspace::addPanel(const QString& id, QWidget* content, Header header)
{
    m_panels.push_back({id, content, header, content->windowTitle()});
    content->setParent(m_shelf);
}

void Workspace::setDefaultLayout(const QByteArray& layout)
{
    m_default = layout;
}

QString Workspace::reset()
{
    return setLayout(m_default);
}

QString Workspace::setLayout(const QByteArray& layout)
{
    QString error;
    const auto panelFor = [this](const QString& id) {
        DockableWindow* const open = windowOf(id);
        return open || !find(id) ? open : makeWindow(id);
    };
    if (!ui::restoreLayout(layout, panelFor, &error)) {
        return error;
    }
    const QJsonArray closed = QJsonDocument::fromJson(layout)[u"closed"].toArray();
    m_unplaced.clear();
    for (const Panel& panel : m_panels) {
        if (!isPanelOpen(panel.id) && !closed.contains(panel.id)) {
            m_unplaced.append(panel.id);
        }
    }
    if (isVisible()) {
        placeUnplaced();
    }
    return {};
}

void Workspace::placeUnplaced()
{
    for (const QString& id : std::exchange(m_unplaced, {})) {
        if (!isPanelOpen(id)) {
            ui::dockAsInLayout(makeWindow(id), m_default);
        }
    }
}

QJsonObject Workspace::layout() const
{
    QJsonObject layout = QJsonDocument::fromJson(ui::saveLayout()).object();
    QJsonArray closed;
    for (const Panel& panel : m_panels) {
        if (!isPanelOpen(panel.id) && !m_unplaced.contains(panel.id)) {
            closed.append(panel.id);
        }
    }
    layout[u"closed"] = closed;
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
            ui::dockAsInLayout(shown, m_default);
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
    for (const QPointer<DockableWindow>& window : std::exchange(m_hidden, {})) {
        if (window) {
            window->show();
        }
    }
    placeUnplaced();
}

void Workspace::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    for (DockableWindow* window : ui::floatingWindows()) {
        if (window->isVisible()) {
            window->hide();
            m_hidden.emplace_back(window);
        }
    }
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

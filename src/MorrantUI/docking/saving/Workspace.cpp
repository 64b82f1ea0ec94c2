// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/Workspace.h"

#include "MorrantUI/docking/Answers.h"
#include "MorrantUI/docking/afloat.h"
#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/saving/PanelWindow.h"
#include "MorrantUI/docking/saving/layoutjson.h"
#include "MorrantUI/log.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/DockableTabGroup.h>
#include <MorrantUI/docking/DockableToolBarHeader.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/docking/saving/savedlayouts.h>
#include <MorrantUI/menus/hostmenus.h>

#include <QAction>
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

using namespace ui::docking;

bool isOpen(const DockableWindow* window)
{
    return window && !window->isClosing();
}

/// In every group that it is in, whatever it was behind.
void bringForward(DockableWindow& window)
{
    const QPointer<DockableWindow> shown(&window); // pages that come and go may do anything
    if (ui::maximizedPanel() && !window.isVisibleTo(window.window())) {
        ui::restorePanels();
    }
    for (QPointer<DockableWindow> inner = shown; inner;) {
        const QPointer<DockableGroup> group = groupOf(*inner);
        if (auto* tabs = qobject_cast<DockableTabGroup*>(group.data())) {
            tabs->setActiveIndex(tabs->indexOfChild(inner));
        } else if (group && inner->isHidden()) {
            inner->show();
        }
        inner = group.data();
    }
    const DockableGroup* const main = mainWindow();
    if (!shown || !main) {
        return;
    }
    QWidget& top = *shown->window();
    const bool floats = &top != main->window() && main->isVisible();
    if (top.isVisible() || floats) { // whether the host's window is shown is its own affair
        bringToFront(top);
    }
}

void closeWindow(DockableWindow& window)
{
    if (window.isFloating()) {
        window.close();
    } else {
        window.undockAndClose();
    }
}

/// A bar is moved by a grip, and fits only one way.
void makeBar(DockableWindow& window, Workspace::Kind kind)
{
    using Direction = DockableToolBarHeader::Direction;
    const bool isSideBar = kind == Workspace::Kind::SideBar;
    window.setHeader(
        new DockableToolBarHeader(isSideBar ? Direction::Horizontal : Direction::Vertical));
    window.setHeaderDirection(isSideBar ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    window.sideDockingDisabled = !isSideBar;
    window.verticalDockingDisabled = isSideBar;
}

template <typename Panels>
auto* findIn(Panels& panels, const QString& id)
{
    const auto found = std::find_if(
        panels.begin(), panels.end(), [&id](const auto& panel) { return panel.id == id; });
    return found != panels.end() ? &*found : nullptr;
}

/// Every panel that a layout says something about.
QStringList mentionedIn(const SavedLayout& layout)
{
    QStringList names = panelsOf(layout.root) + layout.closed;
    for (const SavedWindow& window : layout.floating) {
        names += panelsOf(window.root);
    }
    return names;
}

} // namespace

Workspace::Workspace(QWidget* parent)
    : QWidget(parent)
    , m_root(std::make_unique<DockableGroup>())
    , m_shelf(new QWidget(this))
{
    m_root->setAttribute(Qt::WA_DeleteOnClose, false);
    m_shelf->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_root.get());
    connect(m_root.get(), &DockableGroup::layoutChanged, this, &Workspace::showOpen);
}

Workspace::~Workspace()
{
    m_root->disconnect(this);
    std::vector<QPointer<DockableWindow>> windows; // contents that are hidden may do anything
    for (const Panel& panel : m_panels) {
        windows.push_back(panel.window);
    }
    for (const QPointer<DockableWindow>& window : windows) {
        delete window; // while its content can still go to the shelf
    }
    for (const Panel& panel : m_panels) {
        panel.content->disconnect(this);
    }
    m_root.reset();
}

void Workspace::addPanel(const QString& id, QWidget* content, Kind kind)
{
    const bool isKnown =
        std::any_of(m_panels.begin(), m_panels.end(), [content](const Panel& panel) {
            return panel.content == content;
        });
    const bool isAround =
        content
        && (content == m_root.get() || content == m_shelf || content->isAncestorOf(m_root.get()));
    if (id.isEmpty() || !content || find(id) || isKnown || isAround) {
        return;
    }
    const QString title = content->windowTitle();
    auto* action = new QAction(ui::menuText(title.isEmpty() ? id : title), this);
    action->setObjectName(id);
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, id](bool open) { setPanelOpen(id, open); });
    connect(content, &QObject::destroyed, this, &Workspace::forget);
    content->setParent(m_shelf);
    m_panels.push_back({id, content, kind, action, nullptr});
}

QStringList Workspace::panels() const
{
    QStringList ids;
    for (const Panel& panel : m_panels) {
        ids.append(panel.id);
    }
    return ids;
}

QWidget* Workspace::content(const QString& id) const
{
    const Panel* const panel = find(id);
    return panel ? panel->content : nullptr;
}

DockableWindow* Workspace::windowOf(const QString& id) const
{
    const Panel* const panel = find(id);
    return panel && isOpen(panel->window) ? panel->window.data() : nullptr;
}

QList<QAction*> Workspace::panelActions() const
{
    QList<QAction*> actions;
    for (const Panel& panel : m_panels) {
        actions.append(panel.action);
    }
    return actions;
}

bool Workspace::reset(QString* error)
{
    return setLayout(m_default, error);
}

bool Workspace::setLayout(const QByteArray& layout, QString* error)
{
    const auto saved = readLayout(layout, error);
    if (!saved || !isMain()) {
        if (saved && error) {
            *error = tr("the panels are not those of the main window");
        }
        return false;
    }
    if (Answers::putOff(*this, [this, layout] { setLayout(layout); })) {
        return true;
    }
    const QStringList mentioned = mentionedIn(*saved);
    m_unplaced.clear();
    for (const QString& id : panels()) {
        if (!mentioned.contains(id)) {
            setPanelOpen(id, false); // and open again where the default layout has it
            m_unplaced.append(id);
        }
    }
    ui::restoreLayout(layout, [this](const QString& id) {
        if (!find(id)) {
            return ui::panelNamed(id);
        }
        DockableWindow* const window = windowOf(id);
        return window ? window : makeWindow(id);
    });
    if (isVisible()) {
        placeUnplaced();
    }
    showOpen();
    return true;
}

void Workspace::placeUnplaced()
{
    for (const QString& id : std::exchange(m_unplaced, {})) {
        if (find(id) && !windowOf(id)) {
            ui::dockAsInLayout(makeWindow(id), m_default);
        }
    }
}

QByteArray Workspace::layout() const
{
    auto saved = readLayout(ui::saveLayout(), nullptr);
    if (!saved || !isMain()) {
        return {};
    }
    const QStringList mentioned = mentionedIn(*saved);
    QSet<QString> left(mentioned.begin(), mentioned.end());
    const qsizetype before = left.size();
    for (const Panel& panel : m_panels) {
        if (!isOpen(panel.window) && !m_unplaced.contains(panel.id)) {
            saved->closed.append(panel.id);
            left.remove(panel.id);
        }
    }
    if (left.size() < before) { // some were closed before they were ever shown
        const QStringList closed = std::exchange(saved->closed, {});
        *saved = withOnly(*saved, left);
        saved->closed = closed;
    }
    return layoutJson(*saved);
}

void Workspace::setPanelOpen(const QString& id, bool open)
{
    if (Answers::putOff(*this, [this, id, open] { setPanelOpen(id, open); })) {
        return;
    }
    m_unplaced.removeAll(id); // the last word counts
    const QPointer<DockableWindow> window = windowOf(id);
    if (!open && window) {
        closeWindow(*window);
    } else if (open && find(id) && isMain()) {
        const QPointer<DockableWindow> shown = window ? window.data() : makeWindow(id);
        if (!window) {
            ui::dockAsInLayout(shown, m_default);
        }
        if (shown) { // unless a slot of the host's has closed it
            bringForward(*shown);
        }
    }
    showOpen();
}

void Workspace::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    for (const QPointer<DockableWindow>& window : std::exchange(m_hidden, {})) {
        if (isOpen(window) && window->isFloating()) { // and has not been docked meanwhile
            window->show();
        }
    }
    placeUnplaced();
    showOpen();
}

void Workspace::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous() && m_root) {
        hideFloating();
    }
}

void Workspace::hideFloating()
{
    std::vector<QPointer<DockableWindow>> floating; // contents that hear of it may delete any
    for (DockableWindow* window :
         m_root->findChildren<DockableWindow*>(QString(), Qt::FindDirectChildrenOnly))
    {
        if (window->isWindow() && window->isVisible()) {
            floating.emplace_back(window);
        }
    }
    for (const QPointer<DockableWindow>& window : floating) {
        if (window) {
            window->hide();
            m_hidden.push_back(window);
        }
    }
}

bool Workspace::isMain() const
{
    const bool isMain = mainWindow() == m_root.get();
    if (!isMain) {
        ui::log::warning("A workspace arranges nothing: its root is not gMainWindow");
    }
    return isMain;
}

Workspace::Panel* Workspace::find(const QString& id)
{
    return findIn(m_panels, id);
}

const Workspace::Panel* Workspace::find(const QString& id) const
{
    return findIn(m_panels, id);
}

/// Null when a slot of the host's has taken the panel away meanwhile; it may also add others.
DockableWindow* Workspace::makeWindow(const QString& id)
{
    const Panel* const panel = find(id);
    const Kind kind = panel->kind;
    const QSize before = panel->content->size();
    const bool wasShown = panel->content->testAttribute(Qt::WA_Resized);
    const QPointer<DockableWindow> window = new PanelWindow(id, panel->content, m_shelf);
    Panel* const now = find(id);
    if (!now || !window) {
        delete window;
        return nullptr;
    }
    now->window = window;
    if (wasShown) { // it comes back as large as it was
        window->resize(before + QSize(0, window->header()->sizeHint().height()));
    }
    if (kind != Kind::Panel) {
        makeBar(*window, kind);
    }
    return window;
}

/// A content is being deleted: its window goes when that is over.
void Workspace::forget(const QObject* content)
{
    const auto found =
        std::find_if(m_panels.begin(), m_panels.end(), [content](const Panel& panel) {
            return panel.content == content;
        });
    if (found == m_panels.end()) {
        return;
    }
    const Panel gone = *found;
    m_panels.erase(found);
    m_unplaced.removeAll(gone.id);
    delete gone.action;
    if (DockableWindow* const window = gone.window) {
        const auto close = [window] { closeWindow(*window); };
        QMetaObject::invokeMethod(window, close, Qt::QueuedConnection);
    }
}

/// Panels come and go by many ways: this is what is there now.
void Workspace::showOpen()
{
    if (m_root && !isVisible()) {
        hideFloating();
    }
    std::vector<std::pair<QPointer<QAction>, bool>> shown; // slots may add panels, and delete them
    for (const Panel& panel : m_panels) {
        shown.emplace_back(panel.action, isOpen(panel.window));
    }
    for (const auto& [action, open] : shown) {
        if (action) {
            action->setChecked(open);
        }
    }
}

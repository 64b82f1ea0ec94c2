// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/panelnavigation.h"

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include "MorrantUI/docking/panelkeys.h"
#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/theme/events.h>

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace ui {

namespace {

/// The innermost dockable window around the focus; for a tab the page that it
/// stands for.
DockableWindow* windowWithFocus()
{
    QWidget* focus = QApplication::focusWidget();
    DockableWindow* window =
        DockableWindow::findDockableParent(focus ? focus : QApplication::activeWindow());
    DockableWindow* front = window ? docking::TreeAccess::frontChild(*window) : nullptr;
    return front ? front : window;
}

/// @param step 1 forwards, -1 backwards
DockableWindow* panelBeside(const DockableWindow* from, int step)
{
    const QList<DockableWindow*> panels = panelsInOrder();
    if (panels.isEmpty()) {
        return nullptr;
    }
    const auto inside = [from](const DockableWindow* panel) {
        return from && (panel == from || from->isAncestorOf(panel));
    };
    const auto first = std::find_if(panels.begin(), panels.end(), inside);
    if (first == panels.end()) {
        return step > 0 ? panels.first() : panels.last();
    }
    const qsizetype index = first - panels.begin();
    if (*first == from) {
        return panels[(index + step + panels.size()) % panels.size()];
    }
    const auto behind = std::find_if_not(first, panels.end(), inside);
    return step > 0 ? *first : *std::prev(behind); // into the group from its own header
}

bool stepTo(int step)
{
    const bool engaged = QApplication::mouseButtons() != Qt::NoButton
                         || QApplication::activePopupWidget() || QApplication::activeModalWidget();
    return !engaged && focusPanel(panelBeside(windowWithFocus(), step));
}

} // namespace

QList<DockableWindow*> panelsInOrder()
{
    QList<DockableWindow*> panels;
    DockableGroup* main = docking::mainWindow();
    if (!main) {
        return panels;
    }
    if (!main->window()->isMinimized()) {
        docking::TreeAccess::listPanels(*main, panels);
    }
    const auto inside = main->findChildren<DockableWindow*>(QString(), Qt::FindDirectChildrenOnly);
    for (DockableWindow* window : inside) { // in the order in which they came to float
        if (window->isWindow() && !window->isMinimized()) {
            docking::TreeAccess::listPanels(*window, panels);
        }
    }
    return panels;
}

bool focusPanel(DockableWindow* panel)
{
    if (!panel || !panelsInOrder().contains(panel)) {
        return false;
    }
    QWidget* top = panel->window();
    top->setAttribute(Qt::WA_KeyboardFocusChange); // for the focus ring, as Tab does
    docking::enterPanel(*panel);
    if (!top->isActiveWindow()) {
        top->raise();
        top->activateWindow();
    }
    return true;
}

bool focusNextPanel()
{
    return stepTo(1);
}

bool focusPreviousPanel()
{
    return stepTo(-1);
}

void addPanelNavigation(QWidget* widget)
{
    const auto filter = [](QObject* /*watched*/, QEvent* event) {
        if (event->type() != QEvent::KeyPress
            || !docking::walkPanels(*static_cast<QKeyEvent*>(event))) {
            return false;
        }
        event->accept();
        return true;
    };
    installEventFilter(widget, filter, widget);
}

} // namespace ui

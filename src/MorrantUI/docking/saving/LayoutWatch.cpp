// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/LayoutWatch.h"

#include "MorrantUI/docking/docktree.h"
#include <MorrantUI/docking/DockableGroup.h>

#include <QEvent>

namespace {

/// Whether an event of a window changes what a layout holds. Whether the host is shown is not saved
/// in it, and what the system hides, as it minimises a window, is still there.
bool isChange(const QEvent& event, bool isHost)
{
    switch (event.type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange: return true;
    case QEvent::Show:
    case QEvent::Hide: return !isHost && !event.spontaneous();
    default: return false;
    }
}

} // namespace

LayoutWatch::LayoutWatch(QWidget* window)
    : QObject(window)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(ui::kLayoutRest);
    connect(&m_rest, &QTimer::timeout, this, &LayoutWatch::settled);
    if (window) {
        window->installEventFilter(this);
    }
    if (DockableGroup* const root = ui::docking::mainWindow()) {
        connect(root, &DockableGroup::layoutChanged, &m_rest, qOverload<>(&QTimer::start));
        root->installEventFilter(this);
        for (QObject* const child : root->children()) {
            child->installEventFilter(this);
        }
    }
}

LayoutWatch::~LayoutWatch() = default;

bool LayoutWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ChildAdded && watched == gMainWindow) {
        static_cast<QChildEvent*>(event)->child()->installEventFilter(this); // it may come to float
    }
    const bool isHost = watched == parent() || watched == gMainWindow;
    const auto* const window = qobject_cast<QWidget*>(watched);
    const bool isWatched = isHost || qobject_cast<DockableWindow*>(watched);
    if (isWatched && window->isWindow() && isChange(*event, isHost)) {
        m_rest.start();
    }
    return QObject::eventFilter(watched, event);
}

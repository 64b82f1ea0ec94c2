// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/saving/LayoutWatch.h"

#include <MorrantUI/docking/DockableGroup.h>
#include <MorrantUI/docking/saving/savedlayouts.h>

#include <QEvent>

LayoutWatch::LayoutWatch(QWidget* window)
    : QObject(window)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(ui::kLayoutRest);
    connect(&m_rest, &QTimer::timeout, this, &LayoutWatch::settled);
    if (window) {
        window->installEventFilter(this);
    }
    if (gMainWindow) {
        connect(gMainWindow, &DockableGroup::layoutChanged, this, [this] {
            watchFloating();
            m_rest.start();
        });
    }
    watchFloating();
}

LayoutWatch::~LayoutWatch() = default;

bool LayoutWatch::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange: {
        const auto* window = qobject_cast<QWidget*>(watched);
        if (window && window->isWindow()) { // what floated may be docked by now
            m_rest.start();
        }
        break;
    }
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

void LayoutWatch::watchFloating()
{
    const QList<DockableWindow*> windows = ui::floatingWindows();
    for (DockableWindow* const window : windows) {
        window->installEventFilter(this); // once, however often it is installed
    }
}

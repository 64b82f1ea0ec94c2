// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/panelkeys.h"

#include "MorrantUI/docking/docktree.h"
#include "MorrantUI/docking/panelfocus.h"
#include <MorrantUI/docking/DockableWindow.h>
#include <MorrantUI/docking/arrangement.h>
#include <MorrantUI/docking/panelnavigation.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QStyle>

namespace ui::docking {

namespace {

bool isKey(const QKeyEvent& event, Qt::Key key, Qt::KeyboardModifiers held)
{
    return event.key() == key && (event.modifiers() & ~Qt::KeypadModifier) == held;
}

} // namespace

bool walkPanels(const QKeyEvent& key)
{
    if (isKey(key, Qt::Key_F6, Qt::NoModifier)) {
        return focusNextPanel();
    }
    return isKey(key, Qt::Key_F6, Qt::ShiftModifier) && focusPreviousPanel();
}

bool maximizeByKey(const QKeyEvent& key, DockableWindow& window)
{
    DockableWindow* front = TreeAccess::frontChild(window);
    DockableWindow* panel = front ? front : &window;
    if (!isKey(key, Qt::Key_F10, Qt::ControlModifier)
        || panel->windowMode() != DockableWindow::WindowMode::Panel)
    {
        return false;
    }
    if (maximizedPanel()) {
        restorePanels();
        return true;
    }
    return maximizePanel(panel);
}

bool requestMenu(QWidget& widget, const QPoint& position)
{
    QContextMenuEvent request(
        QContextMenuEvent::Keyboard, position, widget.mapToGlobal(position), Qt::NoModifier);
    return QCoreApplication::sendEvent(&widget, &request) && request.isAccepted();
}

bool askForMenu(const QKeyEvent& key)
{
    QWidget* focus = QApplication::focusWidget();
    if (!focus || !isKey(key, Qt::Key_F10, Qt::ShiftModifier)) {
        return false;
    }
    // As Qt does.
    return requestMenu(*focus, focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center());
}

QPoint menuPlace(DockableWindow& window)
{
    const QWidget& title = titleWidget(window);
    const QRect rect = title.rect();
    const QPoint corner = &title == &window ? rect.topLeft() : rect.bottomLeft();
    return title.mapToGlobal(QStyle::visualPos(title.layoutDirection(), rect, corner));
}

} // namespace ui::docking

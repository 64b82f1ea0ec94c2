// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/docking/tabs/tabkeys.h"

#include <QKeyEvent>

namespace ui::tabs {

namespace {

Command plainCommand(int key)
{
    switch (key) {
    case Qt::Key_Left: return Command::SelectPrevious;
    case Qt::Key_Right: return Command::SelectNext;
    case Qt::Key_Home: return Command::SelectFirst;
    case Qt::Key_End: return Command::SelectLast;
    case Qt::Key_PageUp: return Command::ScrollBack;
    case Qt::Key_PageDown: return Command::ScrollOn;
    case Qt::Key_F2: return Command::Rename;
    default: return Command::None;
    }
}

Command movingCommand(int key)
{
    switch (key) {
    case Qt::Key_Left: return Command::MoveBack;
    case Qt::Key_Right: return Command::MoveOn;
    default: return Command::None;
    }
}

int mirrored(int key)
{
    switch (key) {
    case Qt::Key_Left: return Qt::Key_Right;
    case Qt::Key_Right: return Qt::Key_Left;
    default: return key;
    }
}

} // namespace

Command commandOf(const QKeyEvent& event, Qt::LayoutDirection direction)
{
    const int key = direction == Qt::RightToLeft ? mirrored(event.key()) : event.key();
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    if (held == Qt::NoModifier) {
        return plainCommand(key);
    }
    return held == (Qt::ControlModifier | Qt::ShiftModifier) ? movingCommand(key) : Command::None;
}

} // namespace ui::tabs

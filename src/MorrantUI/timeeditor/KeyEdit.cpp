// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/KeyEdit.h"

#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>

#include <QGraphicsScene>
#include <QSignalBlocker>

#include <cmath>

namespace ui {

KeyMoves KeyEdit::moves() const
{
    KeyMoves moves;
    for (const Entry& entry : m_entries) {
        auto* const key = qobject_cast<TimeEditorKeyframeItem*>(entry.item.data());
        if (key && key->scenePos().x() != entry.startX) {
            moves.push_back({key, entry.startX, key->scenePos().x()});
        }
    }
    return moves;
}

KeyDrag::KeyDrag(TimeEditorKeyframeItem* pressed, double sceneX)
    : m_pressed(pressed)
    , m_pressX(sceneX)
    , m_pressedFrame(pressed->scenePos().x())
{}

void KeyDrag::start()
{
    m_state = DragState::Dragging;
    QGraphicsScene* const scene = m_pressed ? m_pressed->scene() : nullptr;
    if (!scene) {
        return;
    }
    if (!m_pressed->isSelected()) {
        const QSignalBlocker quiet(scene); // a slot must not end the drag that begins
        m_pressed->setSelected(true);
        QMetaObject::invokeMethod(scene, &QGraphicsScene::selectionChanged, Qt::QueuedConnection);
    }
    for (TimeEditorBaseItem* const item : draggedItems(*m_pressed)) {
        m_edit.add(item);
    }
}

bool KeyDrag::dragTo(double sceneX, double scale)
{
    if (m_state == DragState::Pressed && std::abs(sceneX - m_pressX) * scale < kLeastDrag) {
        return false;
    }
    return moveBy(std::round(m_pressedFrame + sceneX - m_pressX) - m_pressedFrame);
}

bool KeyDrag::snapTo(int frame)
{
    return moveBy(frame - m_pressedFrame);
}

bool KeyDrag::moveBy(double frames)
{
    if (m_state == DragState::Pressed && m_pressed) {
        start();
    }
    if (m_state != DragState::Dragging || !std::isfinite(frames) || frames == m_moved) {
        return false;
    }
    m_moved = frames;
    if (m_pressed && m_pressed->scene()) {
        m_pressed->scene()->update(); // once for all of them
    }
    m_edit.moveBy({frames, 0.0});
    return true;
}

void KeyDrag::cancel()
{
    m_edit.restore();
    m_state = DragState::Cancelled;
}

KeyMoves KeyDrag::moves() const
{
    return m_edit.moves();
}

} // namespace ui

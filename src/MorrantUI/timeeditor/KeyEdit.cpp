// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeeditor/KeyEdit.h"

#include <MorrantUI/timeeditor/TimeEditorKeyframeItem.h>

#include <QGraphicsScene>
#include <QSignalBlocker>

#include <cmath>

namespace ui {

void KeyEdit::add(TimeEditorBaseItem* item)
{
    m_entries.push_back({item, item->pos(), item->scenePos().x()});
}

void KeyEdit::moveBy(double frames)
{
    for (const Entry& entry : m_entries) {
        if (entry.item) {
            entry.item->setPos(entry.start.x() + frames, entry.start.y());
        }
    }
}

void KeyEdit::restore()
{
    for (const Entry& entry : m_entries) {
        if (entry.item) {
            entry.item->forceMove(entry.start); // also between frames
        }
    }
}

KeyMoves KeyEdit::moves() const
{
    KeyMoves moves;
    for (const Entry& entry : m_entries) {
        auto* const key = qobject_cast<TimeEditorKeyframeItem*>(entry.item.data());
        if (key && key->scenePos().x() != entry.startFrame) {
            moves.push_back({key, entry.startFrame, key->scenePos().x()});
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
    m_state = State::Dragging;
    QGraphicsScene* const scene = m_pressed ? m_pressed->scene() : nullptr;
    if (!scene) {
        return;
    }
    if (!m_pressed->isSelected()) {
        const QSignalBlocker quiet(scene); // a slot must not end the drag that begins
        m_pressed->setSelected(true);
        QMetaObject::invokeMethod(scene, &QGraphicsScene::selectionChanged, Qt::QueuedConnection);
    }
    for (QGraphicsItem* const item : scene->selectedItems()) {
        auto* const movable = dynamic_cast<TimeEditorBaseItem*>(item);
        const QGraphicsItem* const parent = item->parentItem();
        const bool goesWithParent = parent != nullptr && parent->isSelected()
                                    && (parent->flags() & QGraphicsItem::ItemIsMovable);
        if (movable && (item->flags() & QGraphicsItem::ItemIsMovable) && !goesWithParent) {
            m_edit.add(movable);
        }
    }
}

bool KeyDrag::dragTo(double sceneX)
{
    return moveBy(std::round(m_pressedFrame + sceneX - m_pressX) - m_pressedFrame);
}

bool KeyDrag::snapTo(int frame)
{
    return moveBy(frame - m_pressedFrame);
}

bool KeyDrag::moveBy(double frames)
{
    if (m_state == State::Pressed && m_pressed) {
        start();
    }
    if (m_state != State::Dragging || !std::isfinite(frames) || frames == m_moved) {
        return false;
    }
    m_moved = frames;
    if (m_pressed && m_pressed->scene()) {
        m_pressed->scene()->update(); // once for all of them
    }
    m_edit.moveBy(frames);
    return true;
}

void KeyDrag::cancel()
{
    m_edit.restore();
    m_state = State::Cancelled;
}

KeyMoves KeyDrag::moves() const
{
    return m_edit.moves();
}

} // namespace ui

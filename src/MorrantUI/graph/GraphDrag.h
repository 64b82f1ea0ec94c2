// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QPointer>

#include <vector>

class TimeEditorBaseItem;

namespace ui {

/// Points and handles that an edit moves, with where they were when it began. They may die
/// meanwhile.
class GraphEdit
{
public:
    /// @param moves whether moveBy() takes it along; otherwise it is only put back
    void add(TimeEditorBaseItem* item, bool moves = true);

    /// Moves what moves to a distance from where it was at the beginning; the items' own rules
    /// decide where they end. @param total in the coordinates of the items' parents
    void moveBy(QPointF total);
    /// Puts everything back exactly; what had moved reports it.
    void restore();
    bool hasChanged() const;
    bool isEmpty() const { return m_entries.empty(); }

private:
    struct Entry
    {
        QPointer<TimeEditorBaseItem> item;
        QPointF start;
        bool moves = true;
    };

    std::vector<Entry> m_entries;
};

/// The drag of a point or a handle and of what is selected with it, from the press to whatever ends
/// it. Distances count from the press, so that many small steps come to the same as a large one.
class GraphDrag
{
public:
    enum class State
    {
        Pressed,
        Dragging,
        Cancelled, ///< the button is still down
    };

    /// @param scenePosition of the press
    GraphDrag(TimeEditorBaseItem* pressed, QPointF scenePosition);

    State state() const { return m_state; }
    TimeEditorBaseItem* pressedItem() const { return m_pressed; }
    bool hasChanged() const { return m_edit.hasChanged(); }

    /// The first call begins the drag.
    void dragTo(QPointF scenePosition);
    /// Everything is where it was; further movements are ignored.
    void cancel();

private:
    void start();

    QPointer<TimeEditorBaseItem> m_pressed;
    QPointF m_pressPosition;
    State m_state = State::Pressed;
    GraphEdit m_edit;
};

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/timeeditor/ItemEdit.h"

#include <QPointF>
#include <QPointer>

#include <vector>

class GraphPointWidget;

namespace ui {

/// Points and handles that a gesture moves.
class GraphEdit : public ItemEdit
{
public:
    /// Takes down what moves along with a handle, too.
    void add(TimeEditorBaseItem* item, bool moves = true);
    /// What had moved reports it.
    void restore();
    std::vector<GraphPointWidget*> points() const; ///< those that live
};

/// The drag of a point or a handle and of what is selected with it, from the press to whatever ends
/// it. Distances count from the press, so that many small steps come to the same as a large one.
class GraphDrag
{
public:
    /// @param scenePosition of the press
    GraphDrag(TimeEditorBaseItem* pressed, QPointF scenePosition);

    DragState state() const { return m_state; }
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
    DragState m_state = DragState::Pressed;
    GraphEdit m_edit;
};

} // namespace ui

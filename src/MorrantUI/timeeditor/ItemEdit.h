// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QPointer>

#include <vector>

class QGraphicsSceneMouseEvent;
class TimeEditorBaseItem;

namespace ui {

/// Items that a gesture moves, with where they were when it began. They may die meanwhile.
class ItemEdit
{
public:
    /// @param moves whether moveBy() takes it along; otherwise it is only put back
    void add(TimeEditorBaseItem* item, bool moves = true);

    /// Moves what moves to a distance from where it was at the beginning; the items' own rules
    /// decide where they end. Nothing happens for one that is not finite.
    /// @param total in the coordinates of the items' parents
    void moveBy(QPointF total);
    /// Puts everything back exactly, also between frames. @return what was elsewhere
    std::vector<QPointer<TimeEditorBaseItem>> restore();

    bool hasChanged() const;
    bool isEmpty() const { return m_entries.empty(); }

protected:
    struct Entry
    {
        bool isElsewhere() const;

        QPointer<TimeEditorBaseItem> item;
        QPointF start; ///< in the item's parent
        double startX; ///< in the scene
        bool moves;
    };

    std::vector<Entry> m_entries;
};

/// What a drag that begins on an item moves: that and the selection, of which each can be moved and
/// does not go along with a parent anyway. @param pressed in a scene; the first where it is moved
std::vector<TimeEditorBaseItem*> draggedItems(TimeEditorBaseItem& pressed);

/// Pixels that the pointer goes before what was pressed goes along: where a pixel is many frames, a
/// click that trembles would be an edit. Less than a key or a clip moves by a frame where those are
/// wide.
inline constexpr double kLeastDrag = 2.5; // two whole pixels are none, three are

/// Makes a release within that distance one at the place of the press, which Qt takes for a click.
void steadyClick(QGraphicsSceneMouseEvent& event);

/// Of the drag of items, from the press to whatever ends it.
enum class DragState
{
    Pressed,
    Dragging,
    Cancelled, ///< the button is still down
};

} // namespace ui

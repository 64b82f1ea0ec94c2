// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QPointer>

#include <vector>

class QEvent;
class QGraphicsSceneMouseEvent;
class QWidget;
class TimeEditorBaseItem;

namespace ui {

/// Which row and key of a scene's stack the pointer is over. Rows find their keys by order; Qt's
/// own hovering would ask every key of the row at every movement. The items hear of it as from Qt.
class RowHover
{
public:
    /// The pointer is over an item, and with it over its row; null for none.
    void moveTo(TimeEditorBaseItem* front, const QGraphicsSceneMouseEvent& event);
    /// The pointer has left the view.
    void leave();

    /// The one whose cursor shows: the foremost that has one, or null.
    const TimeEditorBaseItem* cursorOwner() const;

    /// Whether an event comes from Qt's hovering, after a release, and not from here. Rows of the
    /// stack drop those.
    static bool isForeign(const QEvent& event);

private:
    struct Place
    {
        QPointF scene;
        QPoint screen;
        Qt::KeyboardModifiers modifiers;
        QWidget* widget = nullptr; ///< handed on, never looked at
    };

    static void deliver(
        int type, TimeEditorBaseItem* item, const Place& place, const Place& before);

    std::vector<QPointer<TimeEditorBaseItem>> m_chain; ///< row, key
    Place m_place;
    static inline bool s_delivering = false;
};

} // namespace ui

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/timeeditor/keymoves.h>

#include <QPointF>
#include <QPointer>

#include <vector>

class TimeEditorBaseItem;
class TimeEditorKeyframeItem;

namespace ui {

/// Items whose frames an edit changes, with where they were when it began. They may die meanwhile.
class KeyEdit
{
public:
    void add(TimeEditorBaseItem* item);

    /// Moves all of them, from where they were at the beginning.
    void moveBy(double frames);
    /// Puts them back to where they were.
    void restore();
    /// What has changed, of the keys among them.
    KeyMoves moves() const;

    bool isEmpty() const { return m_entries.empty(); }

private:
    struct Entry
    {
        QPointer<TimeEditorBaseItem> item;
        QPointF start; ///< in the item's parent
        double startFrame = 0.0;
    };

    std::vector<Entry> m_entries;
};

/// The drag of a key and of what is selected with it, from the press to whatever ends it. Distances
/// are rounded as a whole, so that many small steps come to the same as a large one.
class KeyDrag
{
public:
    enum class State
    {
        Pressed,
        Dragging,
        Cancelled, ///< the button is still down
    };

    KeyDrag(TimeEditorKeyframeItem* pressed, double sceneX);

    State state() const { return m_state; }
    TimeEditorKeyframeItem* pressedKey() const { return m_pressed; }

    /// @return whether anything moved
    bool dragTo(double sceneX);
    /// Puts the pressed key onto a frame. @return whether anything moved
    bool snapTo(int frame);
    /// Everything is where it was; further movements are ignored.
    void cancel();
    KeyMoves moves() const;
    /// Frames by which the keys are off their places at the press.
    double moved() const { return m_moved; }

private:
    void start();
    bool moveBy(double frames);

    QPointer<TimeEditorKeyframeItem> m_pressed;
    double m_pressX = 0.0;       ///< scene
    double m_pressedFrame = 0.0; ///< scene, at the press
    double m_moved = 0.0;
    State m_state = State::Pressed;
    KeyEdit m_edit;
};

} // namespace ui

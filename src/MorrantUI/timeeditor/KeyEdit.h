// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/timeeditor/ItemEdit.h"
#include <MorrantUI/timeeditor/keymoves.h>

#include <QPointer>

class TimeEditorKeyframeItem;

namespace ui {

/// Items whose frames a gesture changes.
class KeyEdit : public ItemEdit
{
public:
    /// What has changed, of the keys among them.
    KeyMoves moves() const;
};

/// The drag of a key and of what is selected with it, from the press to whatever ends it. Distances
/// are rounded as a whole, so that many small steps come to the same as a large one.
class KeyDrag
{
public:
    KeyDrag(TimeEditorKeyframeItem* pressed, double sceneX);

    DragState state() const { return m_state; }
    TimeEditorKeyframeItem* pressedKey() const { return m_pressed; }

    /// Nothing moves before the pointer has gone kLeastDrag. @param scale pixels a frame
    /// @return whether anything moved
    bool dragTo(double sceneX, double scale);
    /// Puts the pressed key onto a frame, at once. @return whether anything moved
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
    DragState m_state = DragState::Pressed;
    KeyEdit m_edit;
};

} // namespace ui

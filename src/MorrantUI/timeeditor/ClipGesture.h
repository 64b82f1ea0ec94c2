// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "MorrantUI/timeeditor/clipdrag.h"
#include <MorrantUI/timeeditor/clipmoves.h>

#include <QPointer>

#include <memory>
#include <vector>

class TimeEditorClipItem;
class VisClip;

namespace ui {

/// An area's frames.
ClipSpan spanOf(const VisClip& area);

/// The drag of a clip's area from the press to whatever ends it. A selected area takes the others
/// that are selected along: the same end of each is trimmed as far as it can be, bodies move
/// together and stop together, contents shift alike. Clips and areas may die meanwhile.
class ClipGesture
{
public:
    /// @param slips whether a body's contents shift instead of the area @param sceneX of the press
    ClipGesture(TimeEditorClipItem& clip, int index, EndPointHover part, bool slips, double sceneX);

    double pressX() const { return m_pressX; }
    EndPointHover part() const { return m_part; }
    bool slips() const { return m_slips; }
    /// Whether an area moves with the gesture.
    bool holds(const VisClip& area) const;

    /// The pressed area at the press, and now.
    const ClipSpan& atPress() const { return m_areas.front().held.atPress; }
    ClipSpan now() const;

    /// Whether the pointer has gone kLeastDrag since the press, once. @param pixels that it is off
    bool begins(double pixels);
    bool hasBegun() const { return m_hasBegun; }

    /// Drags everything, from where it was at the press, and tells the clips' steps. Whoever is
    /// told may end this gesture: hold it while you call.
    void dragBy(double frames);
    /// Puts everything back, as far as it lives.
    void cancel();
    /// The same without a word.
    void restore();
    ClipMoves moves() const;

private:
    struct Area
    {
        QPointer<TimeEditorClipItem> clip;
        std::weak_ptr<VisClip> area;
        HeldClip held;
    };

    void takeAlong(TimeEditorClipItem& clip, int index);
    std::vector<Area> set(const std::vector<ClipSpan>& spans);
    void apply(const std::vector<ClipSpan>& spans);
    std::vector<ClipSpan> spansAtPress() const;

    std::vector<Area> m_areas; ///< the pressed one first
    EndPointHover m_part;
    bool m_slips = false;
    bool m_hasBegun = false;
    double m_pressX = 0.0;
};

} // namespace ui

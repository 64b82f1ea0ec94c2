// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

/// One area of a clip: the frames from its start up to, and without, its end, and how far what it
/// shows is shifted within it. Belongs to its TimeEditorClipItem, which draws it.
class MORRANT_UI_EXPORT VisClip
{
public:
    /// Frames beyond a thousand million either way are held there; an end before the start becomes
    /// the start.
    VisClip(int start, int end);

    int getStart() const { return m_start; }
    int getEnd() const { return m_end; }
    void setRange(int start, int end); ///< the item has to be told to repaint

    /// Frames by which the contents begin later than the area.
    int slip() const { return m_slip; }
    void setSlip(int frames) { m_slip = frames; }

    bool isSelected() const { return m_selected; }
    /// The item has to be told to repaint.
    void setSelected(bool selected) { m_selected = selected; }

    bool isWithinRange(int frame) const { return frame >= m_start && frame < m_end; } ///< half open

private:
    int m_start = 0;
    int m_end = 0;
    int m_slip = 0;
    bool m_selected = false;
};

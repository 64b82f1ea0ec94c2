// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>

#include <QObject>
#include <QPointer>

class TimelineScene;

/// One end of the playback range on a time ruler: it knows where it may be, and writes that into
/// the scene, which paints it and tells when the mouse is on it.
class MORRANT_UI_EXPORT PlaybackBookend : public QObject
{
    Q_OBJECT

public:
    /// @param scene whose range it bounds; not owned, and it may die first
    /// @param isStart whether it is the start of the range, or its end
    /// @param flag whether the scene paints it as one that can be dragged
    PlaybackBookend(TimelineScene* scene, bool isStart, bool flag);
    ~PlaybackBookend() override;

    /// Moves the bookend into the timeline's frame range and at least a frame away from the other
    /// one. changedTime() follows if it then is at another frame than before. Nothing happens
    /// without a scene.
    void setFrame(int frame);
    /// As last set, or as the scene's range was last changed by others.
    int frame() const { return m_frame; }

    /// Repaints the whole scene if this is a change.
    void setHoverState(bool hovered);
    bool isHovered() const { return m_hovered; }

    bool isStart() const { return m_isStart; }
    bool flag() const { return m_flag; }
    /// Logical pixels around the bookend, together, in which the mouse takes hold of it.
    int grabSize() const { return m_grabSize; }

Q_SIGNALS:
    /// setFrame() has moved it; the scene has the frame by then.
    void changedTime(int frame);

private:
    void followScene();

    int m_frame = 0;
    bool m_hovered = false;
    bool m_flag;
    int m_grabSize;
    bool m_isStart;
    QPointer<TimelineScene> m_scene;
};

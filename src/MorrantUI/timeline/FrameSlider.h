// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/controls/gestures/GestureDoors.h>
#include <MorrantUI/morrantui_export.h>

#include <QPointer>
#include <QSlider>

#include <memory>

class PlaybackClock;

namespace ui {
class ClockLink;
} // namespace ui

/// A slider over frames. Its handle comes to the pointer with the press, so that a press anywhere
/// seeks, and time runs from left to right in every language.
///
/// A drag ends with the release, or as by one with any other of GestureDoors; Escape, wherever the
/// focus is, ends it with the frame before. Keys and wheel are a QSlider's: arrows step by a frame,
/// Page Up and Page Down by a page, Home and End go to the ends. With the focus it has them before
/// shortcuts of the window. It lies, and is not made to stand.
class MORRANT_UI_EXPORT FrameSlider : public QSlider
{
    Q_OBJECT

public:
    explicit FrameSlider(QWidget* parent = nullptr);
    ~FrameSlider() override;

    /// Shows and moves the clock's frame among all frames, with a second as its page; the user's
    /// frames pause it. Only these are told by valueChanged() then, and assistive tools are not
    /// told of frames that play. Another track, and another clock, end a drag. The clock is not
    /// owned; null, and its death, leave the slider as it is.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// Ends a drag where it is. For hosts that show something else now.
    void finishGesture();

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionSlider* option) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int frameAt(double x) const;
    void cancelDrag();

    QPointer<PlaybackClock> m_clock;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    GestureDoors m_doors;
    QPointer<QObject> m_escapeFilter; ///< during a drag
    int m_before = 0;                 ///< the frame at the press
};

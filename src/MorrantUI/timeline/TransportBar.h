// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/theme/Widget.h>

#include <QPointer>

#include <memory>

class ContextMenu;
class FrameSlider;
class NumericField;
class PendingValue;
class PlaybackClock;
class QAction;
class QHBoxLayout;
class QLabel;
class TimeCodeField;

namespace ui {
class ClockLink;
} // namespace ui

/// A bar below a picture or a dope sheet: a slider over the frames of a PlaybackClock, its current
/// frame as a time code, a number and a time, its rate, and how many frames were dropped; and what
/// the host adds at both ends, such as the buttons of TransportActions and a zoom.
///
/// Time code and frame are typed into, the frame is scrubbed as well; what is being typed waits
/// while the clock plays on, and goes with its track. Scrubbing pauses. Numbers keep their room, so
/// that a running one moves nothing beside it, and a bar that is too narrow scrolls. Parts lie from
/// left to right in every language, as time does.
///
/// Its own context menu has the rows of fillMenu(); a host offers another by
/// ui::offerContextMenu(). Buttons and slider do not take the focus: their keys are the window's,
/// and an action that is to be reached without a mouse needs one.
class MORRANT_UI_EXPORT TransportBar : public Widget
{
    Q_OBJECT

public:
    /// What it shows, from left to right.
    enum Part
    {
        TimeCode = 1,
        FrameNumber = 2,
        Time = 4, ///< minutes, seconds and hundredths
        Slider = 8,
        DroppedFrames = 16, ///< since playing began, if any
        Rate = 32,
        AllParts = 63,
    };
    /// Any of them.
    Q_DECLARE_FLAGS(Parts, Part)
    Q_FLAG(Parts)
    enum class End
    {
        Left,
        Right,
    };
    Q_ENUM(End)

    explicit TransportBar(QWidget* parent = nullptr);
    ~TransportBar() override;

    /// What it shows and moves. Not owned. Without one, and while the clock has no rate, all of the
    /// bar is disabled.
    void setClock(PlaybackClock* clock);
    PlaybackClock* clock() const;

    /// Adds flat buttons behind what is at that end, from left to right. The actions are not owned,
    /// and take their buttons with them. Null is passed over.
    void addButtons(End end, const QList<QAction*>& actions);
    /// Adds a widget, which the bar owns, behind what is at that end. Null is ignored.
    void addWidget(End end, QWidget* widget);

    /// All at first.
    void setShownParts(Parts parts);
    Parts shownParts() const;

    /// Adds rows that copy the time code and begin to edit it, as far as there is one to see.
    void fillMenu(ContextMenu& menu);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* addReadout(const QString& hint);
    void addFields();
    void connectFields();
    void fitFields();
    void seek(int frame);
    void showTrack();
    void showRange();
    void showFrame();

    QPointer<PlaybackClock> m_clock;
    std::unique_ptr<ui::ClockLink> m_clockLink;
    QWidget* m_strip; ///< all that is in the bar
    QHBoxLayout* m_left;
    QHBoxLayout* m_middle;
    QHBoxLayout* m_right;
    TimeCodeField* m_code;
    NumericField* m_frame;
    PendingValue* m_shownFrame;
    FrameSlider* m_slider;
    QLabel* m_time = nullptr;
    QLabel* m_dropped = nullptr;
    QLabel* m_rate = nullptr;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(TransportBar::Parts)

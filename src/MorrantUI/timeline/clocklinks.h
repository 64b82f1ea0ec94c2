// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaObject>
#include <QPointer>

#include <initializer_list>
#include <memory>
#include <vector>

class DopeSheetPane;
class FrameSlider;
class PlaybackClock;
class TimelineView;

namespace ui {

/// What keeps a clock and what shows it in step, as setClock() has it. Either may die before it.
class ClockLink
{
public:
    ClockLink(std::initializer_list<QMetaObject::Connection> connections)
        : m_connections(connections)
    {}
    ClockLink(const ClockLink&) = delete;
    ClockLink& operator=(const ClockLink&) = delete;
    ~ClockLink();

private:
    std::vector<QMetaObject::Connection> m_connections;
};

/// What changes on either side, the other one follows; where they differ, the clock is right.
/// Another track ends what the user is doing.
std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, FrameSlider& slider);
std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, TimelineView& ruler);
/// What the pane has beyond its ruler, which is linked before.
std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, DopeSheetPane& pane);

/// Shows all that the clock has; ruler and pane show no clock without a track, and it is the
/// caller's to end what is under way. Slots of the host's may delete either.
void showClock(const PlaybackClock& clock, FrameSlider& slider);
void showClock(const PlaybackClock& clock, TimelineView& ruler);
void showClock(const PlaybackClock& clock, DopeSheetPane& pane);

/// setClock() of a view whose drags end before it follows another clock; whoever is told of that
/// may delete either.
template <typename View>
void followClock(
    PlaybackClock* wanted,
    View& view,
    QPointer<PlaybackClock>& clock,
    std::unique_ptr<ClockLink>& link)
{
    const QPointer<View> alive(&view);
    const QPointer<PlaybackClock> next(wanted);
    view.finishGesture();
    if (!alive) {
        return;
    }
    clock = next;
    link.reset();
    if (next) {
        link = linkClock(*next, view);
        showClock(*next, view);
    }
}

} // namespace ui

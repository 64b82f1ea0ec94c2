// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/clocklinks.h"

#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeline/DopeSheetPane.h>
#include <MorrantUI/timeline/FrameSlider.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>

namespace ui {

namespace {

/// At each step somebody may be told, and delete either.
template <class Shown>
void showTrack(
    const PlaybackClock& clock, Shown& shown, std::initializer_list<std::function<void()>> steps)
{
    const QPointer<const PlaybackClock> clockAlive(&clock);
    const QPointer<Shown> shownAlive(&shown);
    for (const auto& step : steps) {
        if (clockAlive && shownAlive && clock.hasTrack()) {
            step();
        }
    }
}

template <class Shown>
QMetaObject::Connection followTrack(PlaybackClock& clock, Shown& shown)
{
    return QObject::connect(&clock, &PlaybackClock::trackChanged, &shown, [&clock, &shown] {
        showClock(clock, shown);
    });
}

} // namespace

ClockLink::~ClockLink()
{
    for (const QMetaObject::Connection& connection : m_connections) {
        QObject::disconnect(connection);
    }
}

// A slider

std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, FrameSlider& slider)
{
    const auto showFrame = [&slider](int frame) {
        const QSignalBlocker quiet(&slider);
        slider.setValue(frame);
    };
    const auto scrub = [&clock](int frame) {
        const QPointer<PlaybackClock> alive(&clock);
        clock.pause();
        if (alive) {
            clock.seek(frame);
        }
    };
    return std::unique_ptr<ClockLink>(new ClockLink{
        followTrack(clock, slider),
        QObject::connect(&clock, &PlaybackClock::frameChanged, &slider, showFrame),
        QObject::connect(&slider, &QSlider::sliderPressed, &clock, &PlaybackClock::pause),
        QObject::connect(&slider, &QSlider::valueChanged, &clock, scrub),
    });
}

void showClock(const PlaybackClock& clock, FrameSlider& slider)
{
    const QSignalBlocker quiet(&slider);
    slider.setRange(clock.frameRange().first, clock.frameRange().second);
    slider.setPageStep(nearestFrame(std::max(1.0, clock.rate())));
    slider.setValue(clock.frame());
}

// A ruler

std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, TimelineView& ruler)
{
    using Clock = PlaybackClock;
    using Scene = TimelineScene;
    const Scene* const scene = ruler.getTimelineScene();
    const auto pause = [&clock](bool scrubs) {
        if (scrubs) {
            clock.pause();
        }
    };
    return std::unique_ptr<ClockLink>(new ClockLink{
        followTrack(clock, ruler),
        QObject::connect(&clock, &Clock::frameChanged, &ruler, &TimelineView::setCurrentFrame),
        QObject::connect(
            &clock, &Clock::playbackRangeChanged, &ruler, &TimelineView::setPlaybackRange),
        QObject::connect(&ruler, &TimelineView::frameChanged, &clock, &Clock::seek),
        QObject::connect(&ruler, &TimelineView::scrubbingChanged, &clock, pause),
        QObject::connect(scene, &Scene::playbackRangeChanged, &clock, &Clock::setPlaybackRange),
    });
}

void showClock(const PlaybackClock& clock, TimelineView& ruler)
{
    const auto frames = [&] { return clock.frameRange(); };
    const auto played = [&] { return clock.playbackRange(); };
    showTrack(
        clock,
        ruler,
        {
            [&] { ruler.finishGesture(); }, // it was about the track before
            [&] { ruler.setFrameRange(frames().first, frames().second); },
            [&] { ruler.getTimelineScene()->setFramesPerSecond(clock.rate()); },
            [&] { ruler.setPlaybackRange(played().first, played().second); },
            [&] { ruler.setCurrentFrame(clock.frame()); },
        });
}

// A dope sheet

std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, DopeSheetPane& pane)
{
    return std::unique_ptr<ClockLink>(new ClockLink{
        followTrack(clock, pane),
        QObject::connect(
            &clock, &PlaybackClock::frameChanged, &pane, &DopeSheetPane::setCurrentFrame),
        QObject::connect(&pane.view(), &DopeSheetView::spaceTapped, &clock, &PlaybackClock::toggle),
    });
}

void showClock(const PlaybackClock& clock, DopeSheetPane& pane)
{
    showTrack(
        clock,
        pane,
        {
            [&] { pane.setFrameRange(clock.frameRange().first, clock.frameRange().second); },
            [&] { pane.setRate(clock.rate()); },
            [&] { pane.setCurrentFrame(clock.frame()); },
        });
}

} // namespace ui

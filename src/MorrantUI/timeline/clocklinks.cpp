// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/clocklinks.h"

#include "MorrantUI/controls/accessibility.h"
#include <MorrantUI/timeeditor/DopeSheetView.h>
#include <MorrantUI/timeline/DopeSheetPane.h>
#include <MorrantUI/timeline/FrameSlider.h>
#include <MorrantUI/timeline/PlaybackClock.h>
#include <MorrantUI/timeline/TimelineScene.h>
#include <MorrantUI/timeline/TimelineView.h>

#include <QAccessible>
#include <QPointer>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>

namespace ui {

namespace {

/// At each step somebody may be told, and delete either.
template <class Shown>
void showSteps(
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

/// What is shown is what the clock says by then: a slot that was told before may have changed it.
template <class Shown, class Signal>
QMetaObject::Connection follow(PlaybackClock& clock, Signal signal, Shown& shown)
{
    return QObject::connect(&clock, signal, &shown, [&clock, &shown] { showClock(clock, shown); });
}

void showFrame(const PlaybackClock& clock, FrameSlider& slider)
{
    const QSignalBlocker quiet(&slider);
    const QuietReaders still(clock.isPlaying() ? &slider : nullptr, {QAccessible::ValueChanged});
    slider.setValue(clock.frame());
}

template <class Shown>
void showFrame(const PlaybackClock& clock, Shown& shown)
{
    showSteps(clock, shown, {[&] { shown.setCurrentFrame(clock.frame()); }});
}

void showPlayed(const PlaybackClock& clock, TimelineView& ruler)
{
    const FrameRange played = clock.playbackRange();
    showSteps(clock, ruler, {[&] { ruler.setPlaybackRange(played.first, played.second); }});
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
    using Clock = PlaybackClock;
    const auto show = [&clock, &slider] { showFrame(clock, slider); };
    const auto tellPause = [&clock, &slider](bool plays) {
        if (!plays) {
            notifyAccessibleValue(&slider, clock.frame());
        }
    };
    const auto scrub = [&clock, &slider](int frame) {
        const QPointer<Clock> alive(&clock);
        const QPointer<FrameSlider> shown(&slider);
        clock.pause();
        if (alive) {
            clock.seek(frame);
        }
        if (alive && shown) {
            showFrame(clock, slider);
        }
    };
    return std::unique_ptr<ClockLink>(new ClockLink{
        QObject::connect(&clock, &Clock::trackChanged, &slider, &FrameSlider::finishGesture),
        follow(clock, &Clock::trackChanged, slider),
        follow(clock, &Clock::frameRangeChanged, slider),
        follow(clock, &Clock::rateChanged, slider),
        QObject::connect(&clock, &Clock::playingChanged, &slider, tellPause),
        QObject::connect(&clock, &Clock::frameChanged, &slider, show),
        QObject::connect(&slider, &QSlider::sliderPressed, &clock, &Clock::pause),
        QObject::connect(&slider, &QSlider::valueChanged, &clock, scrub),
    });
}

void showClock(const PlaybackClock& clock, FrameSlider& slider)
{
    {
        const QSignalBlocker quiet(&slider);
        slider.setRange(clock.frameRange().first, clock.frameRange().second);
        slider.setPageStep(nearestFrame(std::max(1.0, clock.rate())));
    }
    showFrame(clock, slider);
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
    // The clock may want it otherwise.
    const auto seek = [&clock, &ruler](int frame) {
        showSteps(clock, ruler, {[&] { clock.seek(frame); }, [&] { showFrame(clock, ruler); }});
    };
    const auto setPlayed = [&clock, &ruler](int first, int last) {
        showSteps(
            clock,
            ruler,
            {[&] { clock.setPlaybackRange(first, last); }, [&] { showPlayed(clock, ruler); }});
    };
    const auto showRange = [&clock, &ruler] { showPlayed(clock, ruler); };
    const auto show = [&clock, &ruler] { showFrame(clock, ruler); };
    return std::unique_ptr<ClockLink>(new ClockLink{
        // It was about the track before.
        QObject::connect(&clock, &Clock::trackChanged, &ruler, &TimelineView::finishGesture),
        follow(clock, &Clock::trackChanged, ruler),
        follow(clock, &Clock::frameRangeChanged, ruler),
        follow(clock, &Clock::rateChanged, ruler),
        QObject::connect(&clock, &Clock::playbackRangeChanged, &ruler, showRange),
        QObject::connect(&clock, &Clock::frameChanged, &ruler, show),
        QObject::connect(&ruler, &TimelineView::frameChanged, &clock, seek),
        QObject::connect(&ruler, &TimelineView::scrubbingChanged, &clock, pause),
        QObject::connect(scene, &Scene::playbackRangeChanged, &clock, setPlayed),
    });
}

void showClock(const PlaybackClock& clock, TimelineView& ruler)
{
    const auto frames = [&] { return clock.frameRange(); };
    showSteps(
        clock,
        ruler,
        {
            [&] { ruler.setFrameRange(frames().first, frames().second); },
            [&] { ruler.getTimelineScene()->setFramesPerSecond(clock.rate()); },
            [&] { showPlayed(clock, ruler); },
            [&] { ruler.setCurrentFrame(clock.frame()); },
        });
}

// A dope sheet

std::unique_ptr<ClockLink> linkClock(PlaybackClock& clock, DopeSheetPane& pane)
{
    using Clock = PlaybackClock;
    const auto show = [&clock, &pane] { showFrame(clock, pane); };
    return std::unique_ptr<ClockLink>(new ClockLink{
        follow(clock, &Clock::trackChanged, pane),
        follow(clock, &Clock::frameRangeChanged, pane),
        follow(clock, &Clock::rateChanged, pane),
        QObject::connect(&clock, &Clock::frameChanged, &pane, show),
        QObject::connect(&pane.ruler(), &TimelineView::frameChanged, &pane, show),
        QObject::connect(&pane.view(), &DopeSheetView::spaceTapped, &clock, &Clock::toggle),
    });
}

void showClock(const PlaybackClock& clock, DopeSheetPane& pane)
{
    showSteps(
        clock,
        pane,
        {
            [&] { pane.setFrameRange(clock.frameRange().first, clock.frameRange().second); },
            [&] { pane.setRate(clock.rate()); },
            [&] { pane.setCurrentFrame(clock.frame()); },
        });
}

} // namespace ui

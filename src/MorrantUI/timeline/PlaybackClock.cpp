// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/PlaybackClock.h"

#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/playbackrules.h"

#include <QPointer>

#include <chrono>
#include <cmath>
#include <utility>

namespace {

double steadySeconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

double usableRate(double framesPerSecond)
{
    return std::isfinite(framesPerSecond) && framesPerSecond > 0.0 ? framesPerSecond : 0.0;
}

ui::FrameRange heldWithin(const ui::FrameRange& range, const ui::FrameRange& frames)
{
    return {ui::frameWithin(range.first, frames), ui::frameWithin(range.second, frames)};
}

} // namespace

PlaybackClock::PlaybackClock(QObject* parent)
    : PlaybackClock(Seconds(), parent)
{}

PlaybackClock::PlaybackClock(Seconds seconds, QObject* parent)
    : QObject(parent)
    , m_seconds(seconds ? std::move(seconds) : steadySeconds)
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PlaybackClock::advance);
}

PlaybackClock::~PlaybackClock() = default;

// What is played

void PlaybackClock::setTrack(int first, int last, double framesPerSecond)
{
    if (first <= last) {
        m_hasTrack = true;
        m_dropped = 0;
        State next;
        next.frames = next.playback = {first, last};
        next.rate = usableRate(framesPerSecond);
        next.loops = m_state.loops;
        next.frame = first;
        change(next, Time::BeginsAnew, true);
    }
}

void PlaybackClock::setFrameRange(int first, int last)
{
    if (first <= last) {
        m_hasTrack = true;
        State next = m_state;
        next.frames = {first, last};
        const bool playsAll = m_state.playback == m_state.frames;
        next.playback = playsAll ? next.frames : heldWithin(m_state.playback, next.frames);
        next.frame = ui::frameWithin(m_state.frame, next.frames);
        change(next, Time::BeginsAnew);
    }
}

void PlaybackClock::setRate(double framesPerSecond)
{
    State next = m_state;
    next.rate = usableRate(framesPerSecond);
    change(next, Time::BeginsAnew);
}

void PlaybackClock::setPlaybackRange(int first, int last)
{
    State next = m_state;
    next.playback = heldWithin({first, last}, m_state.frames);
    if (first <= last && next.playback != m_state.playback) {
        change(next, Time::BeginsAnew);
    }
}

void PlaybackClock::setLooping(bool loops)
{
    if (m_state.loops != loops) {
        State next = m_state;
        next.loops = loops;
        change(next, Time::BeginsAnew);
    }
}

// Time

void PlaybackClock::play()
{
    if (m_state.plays) {
        return;
    }
    m_dropped = 0;
    State next = m_state;
    next.plays = true;
    next.frame = ui::firstPlayed({m_state.playback, m_state.rate, m_state.frame, m_state.loops});
    change(next, Time::BeginsAnew);
}

void PlaybackClock::pause()
{
    State next = m_state;
    next.plays = false;
    change(next, Time::GoesOn);
}

void PlaybackClock::toggle()
{
    m_state.plays ? pause() : play();
}

void PlaybackClock::seek(int frame)
{
    State next = m_state;
    next.frame = ui::frameWithin(frame, m_state.frames);
    change(next, Time::BeginsAnew);
}

void PlaybackClock::step(int frames)
{
    State next = m_state;
    next.plays = false;
    next.frame = ui::steppedFrame(m_state.frame, frames, m_state.frames);
    change(next, Time::GoesOn);
}

void PlaybackClock::advance()
{
    const double elapsed = m_seconds() - m_startTime;
    const ui::PlaybackRun run{m_state.playback, m_state.rate, m_startFrame, m_state.loops};
    const qint64 passed = ui::framesPassed(run, elapsed);
    m_dropped += qMax<qint64>(0, passed - m_passed - 1);
    m_passed = passed;
    startTimer(elapsed);
    State next = m_state;
    next.frame = ui::frameAfter(run, passed);
    next.plays = !ui::isOver(run, passed);
    change(next, Time::GoesOn);
}

void PlaybackClock::startTimer(double elapsed)
{
    if (const auto wait = ui::waitForNextFrame(m_state.rate, elapsed, m_passed)) {
        m_timer.start(*wait);
    }
}

void PlaybackClock::change(const State& next, Time time, bool isOtherTrack)
{
    const State before = std::exchange(m_state, next);
    if (!next.plays) {
        m_timer.stop();
    } else if (time == Time::BeginsAnew) {
        m_timer.stop();
        m_startTime = m_seconds();
        m_startFrame = next.frame;
        m_passed = 0;
        startTimer(0.0);
    }
    tell(before, isOtherTrack);
}

/// What a slot changes meanwhile has been told by then.
void PlaybackClock::tell(const State& before, bool isOtherTrack)
{
    const QPointer<PlaybackClock> alive(this);
    const State now = m_state;
    const auto isNew = [&](auto State::*part) {
        return alive && before.*part != now.*part && m_state.*part == now.*part;
    };
    if (isOtherTrack || isNew(&State::frames) || isNew(&State::rate)) {
        Q_EMIT trackChanged();
    }
    if (isNew(&State::playback)) {
        Q_EMIT playbackRangeChanged(now.playback.first, now.playback.second);
    }
    if (isNew(&State::loops)) {
        Q_EMIT loopingChanged(now.loops);
    }
    if (isNew(&State::plays)) {
        Q_EMIT playingChanged(now.plays);
    }
    if (isNew(&State::frame)) {
        Q_EMIT frameChanged(now.frame);
    }
}

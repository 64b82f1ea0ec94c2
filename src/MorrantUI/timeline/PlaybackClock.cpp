// SPDX-License-Identifier: Apache-2.0
#include "MorrantUI/timeline/PlaybackClock.h"

#include "MorrantUI/timeline/playbackrange.h"
#include "MorrantUI/timeline/playbackrules.h"

#include <QPointer>

#include <algorithm>
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

void PlaybackClock::setTime(Seconds seconds)
{
    m_seconds = seconds ? std::move(seconds) : steadySeconds;
    if (m_state.plays) {
        beginRun({});
    }
}

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
        change(next, true);
    }
}

void PlaybackClock::setFrameRange(int first, int last)
{
    if (first <= last) {
        const bool hadTrack = std::exchange(m_hasTrack, true);
        State next = m_state;
        next.frames = {first, last};
        const bool playsAll = m_state.playback == m_state.frames;
        next.playback = playsAll ? next.frames : ui::playedWithin(m_state.playback, next.frames);
        next.frame = ui::frameWithin(m_state.frame, next.frames);
        change(next, !hadTrack);
    }
}

void PlaybackClock::setRate(double framesPerSecond)
{
    State next = m_state;
    next.rate = usableRate(framesPerSecond);
    next.plays = m_state.plays && next.rate > 0.0;
    change(next);
}

void PlaybackClock::setPlaybackRange(int first, int last)
{
    if (first <= last) {
        State next = m_state;
        next.playback = ui::playedWithin({first, last}, m_state.frames);
        change(next);
    }
}

void PlaybackClock::setLooping(bool loops)
{
    State next = m_state;
    next.loops = loops;
    change(next);
}

// Time

void PlaybackClock::play()
{
    if (m_state.plays || !(m_state.rate > 0.0)) {
        return;
    }
    m_dropped = 0;
    State next = m_state;
    next.plays = true;
    next.frame = ui::firstPlayed({m_state.playback, m_state.rate, m_state.frame, m_state.loops});
    change(next);
}

void PlaybackClock::pause()
{
    State next = m_state;
    next.plays = false;
    change(next);
}

void PlaybackClock::toggle()
{
    m_state.plays ? pause() : play();
}

void PlaybackClock::seek(int frame)
{
    State next = m_state;
    next.frame = ui::frameWithin(frame, m_state.frames);
    change(next);
}

void PlaybackClock::step(int frames)
{
    State next = m_state;
    next.plays = false;
    next.frame = ui::steppedFrame(m_state.frame, frames, m_state.frames);
    change(next);
}

void PlaybackClock::advance()
{
    const double elapsed = m_seconds() - m_startTime;
    if (!ui::canFollow(run(), elapsed, m_passed)) {
        beginRun(m_state);
        return;
    }
    const ui::PlaybackRun played = run();
    const qint64 passed = std::max(m_passed, ui::framesPassed(played, elapsed));
    const qint64 laps = ui::lapOf(played, passed) - ui::lapOf(played, m_passed);
    m_dropped += std::max<qint64>(0, passed - m_passed - 1);
    m_passed = passed;
    State next = m_state;
    next.frame = ui::frameAfter(played, passed);
    next.plays = !ui::isOver(played, passed);
    if (next.plays) {
        startTimer(elapsed);
    }
    tell(std::exchange(m_state, next), {false, laps != 0});
}

ui::PlaybackRun PlaybackClock::run() const
{
    return {m_state.playback, m_state.rate, m_startFrame, m_state.loops};
}

/// With the current frame; where that is the one before, with what has passed of it.
void PlaybackClock::beginRun(const State& before)
{
    const double now = m_seconds();
    const double elapsed = now - m_startTime;
    const bool goesOn = before.plays && before.frame == m_state.frame
                        && ui::canFollow({before.playback, before.rate}, elapsed, m_passed);
    const double sinceFrame = goesOn ? elapsed * before.rate - static_cast<double>(m_passed) : 0.0;
    m_startTime = now - sinceFrame / m_state.rate;
    m_startFrame = m_state.frame;
    m_passed = 0;
    startTimer(now - m_startTime);
}

void PlaybackClock::startTimer(double elapsed)
{
    m_timer.stop();
    if (const auto wait = ui::waitForNextFrame(run(), elapsed, m_passed)) {
        m_timer.start(*wait);
    }
}

/// By whatever is not playing on.
void PlaybackClock::change(const State& next, bool isOtherTrack)
{
    if (next == m_state && !isOtherTrack) {
        return;
    }
    const State before = std::exchange(m_state, next);
    if (next.plays) {
        beginRun(before);
    } else {
        m_timer.stop();
    }
    tell(before, {isOtherTrack, before.frame != next.frame});
}

/// What a slot changes meanwhile has been told by then.
void PlaybackClock::tell(const State& before, News news)
{
    const QPointer<PlaybackClock> alive(this);
    const State now = m_state;
    const auto isNew = [&](auto State::*part) {
        return alive && before.*part != now.*part && m_state.*part == now.*part;
    };
    if (news.isOtherTrack) {
        Q_EMIT trackChanged();
    }
    if (isNew(&State::frames)) {
        Q_EMIT frameRangeChanged(now.frames.first, now.frames.second);
    }
    if (isNew(&State::rate)) {
        Q_EMIT rateChanged(now.rate);
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
    if (alive && news.hasJumped && m_state.frame == now.frame) {
        Q_EMIT jumped(now.frame);
    }
    if (isNew(&State::frame)) {
        Q_EMIT frameChanged(now.frame);
    }
}

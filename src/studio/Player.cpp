// SPDX-License-Identifier: Apache-2.0
#include "Player.h"

#include <chrono>
#include <cmath>
#include <utility>

namespace studio {

namespace {

constexpr double kLongestWait = 3600.0 * 1000.0; ///< ms; the timer counts in 32 bits

double steadySeconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

} // namespace

Player::Player(QObject* parent)
    : Player(steadySeconds, parent)
{}

Player::Player(Clock clock, QObject* parent)
    : QObject(parent)
    , m_clock(std::move(clock))
    , m_timer(this)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &Player::advance);
}

void Player::setTrack(FrameRange range, double rate)
{
    pause();
    m_range = range;
    m_loop = range;
    m_rate = rate > 0 ? rate : 0;
    m_dropped = 0;
    Q_EMIT trackChanged();
    setFrame(range.first);
}

void Player::setLoop(FrameRange loop)
{
    loop = {m_range.clamped(loop.first), m_range.clamped(loop.last)};
    if (m_loop != loop && loop.first <= loop.last) {
        m_loop = loop;
        if (m_playing) {
            startClock();
        }
    }
}

void Player::setLooping(bool loops)
{
    if (m_loops != loops) {
        m_loops = loops;
        if (m_playing) {
            startClock();
        }
        Q_EMIT loopingChanged(loops);
    }
}

void Player::play()
{
    if (m_playing) {
        return;
    }
    m_dropped = 0;
    if (m_loop.clamped(m_frame) != m_frame || (!m_loops && m_frame == m_loop.last)) {
        setFrame(m_loop.first);
    }
    startClock();
    setPlaying(true);
}

void Player::pause()
{
    m_timer.stop();
    setPlaying(false);
}

void Player::toggle()
{
    m_playing ? pause() : play();
}

void Player::seek(int frame)
{
    setFrame(m_range.clamped(frame));
    if (m_playing) {
        startClock();
    }
}

void Player::step(int frames)
{
    pause();
    const int offset = (m_frame - m_range.first + frames % m_range.count()) + m_range.count();
    setFrame(m_range.first + offset % m_range.count());
}

void Player::startClock()
{
    m_startTime = m_clock();
    m_startFrame = m_frame; // counts as the nearest one that is played
    m_passed = 0;
    scheduleNextFrame(0);
}

void Player::advance()
{
    const double elapsed = m_clock() - m_startTime;
    const qint64 passed = framesPassed(elapsed, m_rate);
    m_dropped += qMax<qint64>(0, passed - m_passed - 1);
    m_passed = passed;
    const int frame = frameAt(elapsed, m_rate, m_loop, m_startFrame, m_loops);
    if (!m_loops && frame == m_loop.last) {
        pause();
    } else {
        scheduleNextFrame(elapsed);
    }
    setFrame(frame);
}

void Player::scheduleNextFrame(double elapsed)
{
    if (m_rate <= 0) {
        return;
    }
    const double next = static_cast<double>(m_passed + 1) / m_rate;
    const double wait = std::ceil((next - elapsed) * 1000.0);
    m_timer.start(static_cast<int>(qBound(1.0, wait, kLongestWait)));
}

void Player::setFrame(int frame)
{
    if (m_frame != frame) {
        m_frame = frame;
        Q_EMIT frameChanged(frame);
    }
}

void Player::setPlaying(bool playing)
{
    if (m_playing != playing) {
        m_playing = playing;
        Q_EMIT playingChanged(playing);
    }
}

} // namespace studio

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "playback.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace studio {

/// Plays frames by real elapsed time, looping unless told to stop at the end: a slow repaint drops
/// frames and never slows down. Its timer runs only while it plays.
class Player : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<double()>; ///< seconds since any fixed moment, never going back

    explicit Player(QObject* parent = nullptr);
    Player(Clock clock, QObject* parent);

    /// Pauses, takes over range and rate, plays all of it and goes to the first frame.
    /// @param rate frames a second; a rate that is not above 0 never leaves a frame
    void setTrack(FrameRange range, double rate);

    /// Plays only these of its frames; frames out of range are held at its ends.
    /// Playing goes on from where it is, or begins with the first of them.
    void setLoop(FrameRange loop);

    /// Whether what is played begins again behind its last frame, as at first, or pauses there.
    void setLooping(bool loops);
    bool isLooping() const { return m_loops; }

    FrameRange range() const { return m_range; }
    FrameRange loop() const { return m_loop; }
    double rate() const { return m_rate; }
    int frame() const { return m_frame; }
    bool isPlaying() const { return m_playing; }
    /// Frames that were not shown since play() because their time had passed.
    qint64 droppedFrames() const { return m_dropped; }

    /// From where it is; without looping, from the first frame when it is at the last.
    void play();
    void pause();
    void toggle();
    /// Goes to a frame, or the nearest one in range; playing goes on from there.
    void seek(int frame);
    /// Pauses and moves by so many frames, looping past either end.
    void step(int frames);

Q_SIGNALS:
    void trackChanged();
    void frameChanged(int frame);
    void playingChanged(bool playing);
    void loopingChanged(bool loops);

private:
    void startClock();
    void advance();
    void scheduleNextFrame(double elapsed);
    void setFrame(int frame);
    void setPlaying(bool playing);

    Clock m_clock;
    QTimer m_timer;
    FrameRange m_range;
    FrameRange m_loop;
    double m_rate = 0;
    int m_frame = 0;
    bool m_loops = true;
    bool m_playing = false;

    double m_startTime = 0; ///< on the clock
    int m_startFrame = 0;
    qint64 m_passed = 0; ///< frames since m_startTime
    qint64 m_dropped = 0;
};

} // namespace studio

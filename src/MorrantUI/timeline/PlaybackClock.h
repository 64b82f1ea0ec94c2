// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <MorrantUI/morrantui_export.h>
#include <MorrantUI/scene/framemath.h>

#include <QObject>
#include <QTimer>

#include <functional>

namespace ui {
struct PlaybackRun;
} // namespace ui

/// The current frame of a document, and what plays it by real elapsed time: a slow repaint drops
/// frames and never slows down. Its timer runs only while it plays.
///
/// A track is all frames of a document at a rate. Of these the playback range is played, over and
/// over unless told to stop at its end. Whatever shows the time takes a clock with setClock(), and
/// is in step with all others from then on: TransportBar, TransportActions, FrameSlider,
/// TimelineView, DopeSheetPane, ValueGraphView and ValueGraphPane. All but the first three stay as
/// they are while there is no track.
///
/// A range whose last frame comes before its first one is ignored. What changes nothing is not
/// told, and what leaves the current frame where it is does not hold up playing. Signals come once
/// all is as they say; a slot may change or delete the clock, and then what comes after it may be
/// older than what the clock says: ask the clock.
class MORRANT_UI_EXPORT PlaybackClock : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int frame READ frame WRITE seek NOTIFY frameChanged USER true)
    Q_PROPERTY(bool looping READ isLooping WRITE setLooping NOTIFY loopingChanged)
    Q_PROPERTY(bool playing READ isPlaying NOTIFY playingChanged)

public:
    /// Since any fixed moment. Where it goes back, or is no number, playing goes on from the frame
    /// that is shown.
    using Seconds = std::function<double()>;

    explicit PlaybackClock(QObject* parent = nullptr);
    /// Goes by another time than the system's, such as that of the sound that is heard.
    /// @param seconds asked at every frame; null for the system's
    explicit PlaybackClock(Seconds seconds, QObject* parent = nullptr);
    ~PlaybackClock() override;

    /// Goes by another time from the current frame on. For a host whose sound is the time: it stops
    /// and starts the sound with playingChanged(), moves it with jumped(), and hands its time over
    /// after either, since the one before has leapt. The time is asked before these are told.
    /// @param seconds see the constructor
    void setTime(Seconds seconds);

    /// Another document: pauses, plays all of it and goes to its first frame. trackChanged()
    /// follows, also where nothing is different. Frame 0 at no rate at first.
    /// @param framesPerSecond one that is not above 0 and finite counts as 0, which plays nothing
    void setTrack(int first, int last, double framesPerSecond);

    /// The document has become longer or shorter: the current frame and what is played stay as far
    /// as they can, and all is played if it was before. The first one is a track.
    void setFrameRange(int first, int last);
    /// As in setTrack(). Playing goes on within the frame, and pauses at none.
    void setRate(double framesPerSecond);
    /// False until setTrack() or setFrameRange().
    bool hasTrack() const { return m_hasTrack; }
    ui::FrameRange frameRange() const { return m_state.frames; }
    double rate() const { return m_state.rate; }

    /// Plays only these frames, as far as they are in the frame range, and all of that where none
    /// is. Playing goes on from where it is; from outside with the first of them.
    void setPlaybackRange(int first, int last);
    ui::FrameRange playbackRange() const { return m_state.playback; }

    /// Whether what is played begins again behind its last frame, as at first, or pauses there.
    void setLooping(bool loops);
    bool isLooping() const { return m_state.loops; }

    int frame() const { return m_state.frame; }
    bool isPlaying() const { return m_state.plays; }
    /// Frames that were not shown since play() because their time had passed. May be another number
    /// with every frameChanged(), and is 0 again with playingChanged(true) and trackChanged().
    qint64 droppedFrames() const { return m_dropped; }

public Q_SLOTS:
    /// From where it is; from the first frame of the playback range when it is outside, or, without
    /// looping, at the end. Nothing without a rate.
    void play();
    void pause();  ///< nothing when it does not play
    void toggle(); ///< plays or pauses
    /// Goes to a frame, or the nearest one in the frame range; playing goes on from there, as for
    /// setPlaybackRange().
    void seek(int frame);
    /// Pauses and moves by so many frames, looping past either end of the frame range.
    void step(int frames);

Q_SIGNALS:
    /// There is another document, by setTrack() or the first setFrameRange(): what was under way is
    /// about the one before. Comes before the others, of which those follow that are different.
    void trackChanged();
    void frameRangeChanged(int first, int last); ///< by setFrameRange(), too
    void rateChanged(double framesPerSecond);    ///< by setRate(), too
    /// By the host or by the user, as those below.
    void playbackRangeChanged(int first, int last);
    void loopingChanged(bool loops);   ///< by setLooping()
    void playingChanged(bool playing); ///< also at the end of what is played once
    /// Another frame than the one that playing would have come to: sought, stepped, held by another
    /// range, or the first one again. Comes before frameChanged(), and alone where a loop comes to
    /// the frame that is shown.
    void jumped(int frame);
    void frameChanged(int frame); ///< at every frame that is shown

private:
    struct State
    {
        ui::FrameRange frames{0, 0};
        ui::FrameRange playback{0, 0};
        double rate = 0.0;
        bool loops = true;
        bool plays = false;
        int frame = 0;

        bool operator==(const State&) const = default;
    };
    /// What is told beyond the differences between two states.
    struct News
    {
        bool isOtherTrack = false;
        bool hasJumped = false;
    };

    void change(const State& next, bool isOtherTrack = false);
    void tell(const State& before, News news);
    ui::PlaybackRun run() const;
    void beginRun(const State& before);
    void startTimer(double elapsed);
    void advance();

    Seconds m_seconds;
    QTimer m_timer;
    State m_state;
    bool m_hasTrack = false;
    double m_startTime = 0.0; ///< on m_seconds
    int m_startFrame = 0;
    qint64 m_passed = 0; ///< frames since m_startTime
    qint64 m_dropped = 0;
};

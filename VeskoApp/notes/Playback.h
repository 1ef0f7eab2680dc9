#pragma once

#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/platform/AudioPlayer.h"

#include <QList>

namespace vesko {

// Plays stored recordings, one at a time, and none while the microphone is in use. Main thread.
class Playback : public QObject {
    Q_OBJECT
    // Where what plays is, in seconds, and how long it is; told a few times a second.
    Q_PROPERTY(double position READ position NOTIFY positionChanged)
    Q_PROPERTY(double seconds READ seconds NOTIFY playingChanged)
    // How many times as fast as it was recorded.
    Q_PROPERTY(double rate READ rate NOTIFY rateChanged)
    // How loud each part of it is, 0 to 1; empty until that is known.
    Q_PROPERTY(QList<qreal> wave READ wave NOTIFY waveChanged)

public:
    static constexpr std::size_t waveParts = 96;

    Playback(AudioPlayer& player, EventClock& clock, LibrarySession& library, Capture& capture,
        StatusLine& status);

    // Plays a recording, or stops it if it is the one that plays.
    void play(const Recording& recording);
    void stop();
    std::optional<Uuid> playingID() const { return m_playingID; }

    double position() const;
    double seconds() const { return m_playingID ? m_seconds : 0; }
    double rate() const { return m_rate; }
    QList<qreal> wave() const;
    // What plays goes on from that second.
    Q_INVOKABLE void seek(double seconds);
    // From 1 to 1.5 to 2 and again to 1, for this recording and those after it.
    Q_INVOKABLE void changeRate();

Q_SIGNALS:
    void playingChanged();
    void positionChanged();
    void rateChanged();
    void waveChanged();

private:
    Task<> start(Recording recording, Uuid token);
    Task<> draw(std::filesystem::path file, Uuid recording);
    void goOn(double from);
    void tick();

    EventClock& m_clock;
    AudioPlayer& m_player;
    LibrarySession& m_library;
    const Capture& m_capture;
    StatusLine& m_status;
    std::optional<Uuid> m_playingID;
    std::optional<Uuid> m_token; // tells the latest request from a stale one
    double m_seconds = 0; // of what plays
    double m_from = 0; // where it was when `m_since` was
    double m_since = 0; // uptime
    double m_rate = 1;
    std::optional<Uuid> m_waveID; // of what was drawn last
    QList<qreal> m_wave;
    Timer m_end;
    Timer m_tick;
    TaskScope m_tasks;
};

} // namespace vesko

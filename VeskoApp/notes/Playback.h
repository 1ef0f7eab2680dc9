#pragma once

#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/platform/AudioPlayer.h"

namespace vesko {

// Plays stored recordings, one at a time, and none while the microphone is in use. Main thread.
class Playback : public QObject {
    Q_OBJECT

public:
    Playback(AudioPlayer& player, EventClock& clock, LibrarySession& library, Capture& capture,
        StatusLine& status);

    // Plays a recording, or stops it if it is the one that plays.
    void play(const Recording& recording);
    void stop();
    std::optional<Uuid> playingID() const { return m_playingID; }

Q_SIGNALS:
    void playingChanged();

private:
    Task<> start(Recording recording, Uuid token);

    AudioPlayer& m_player;
    LibrarySession& m_library;
    const Capture& m_capture;
    StatusLine& m_status;
    std::optional<Uuid> m_playingID;
    std::optional<Uuid> m_token; // tells the latest request from a stale one
    Timer m_end;
    TaskScope m_tasks;
};

} // namespace vesko

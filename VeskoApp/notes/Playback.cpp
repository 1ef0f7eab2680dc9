#include "VeskoApp/notes/Playback.h"

#include "VeskoApp/base/Observed.h"

namespace vesko {

namespace {

constexpr double graceAtEnd = 0.2; // seconds

} // namespace

Playback::Playback(AudioPlayer& player, EventClock& clock, LibrarySession& library,
    Capture& capture, StatusLine& status)
    : m_player(player)
    , m_library(library)
    , m_capture(capture)
    , m_status(status)
    , m_end(clock)
{
    connect(&capture, &Capture::starting, this, &Playback::stop);
}

void Playback::play(const Recording& recording)
{
    if (!m_library.ready() || m_capture.phase() == Phase::recording
        || m_capture.phase() == Phase::preparing)
        return;
    const bool isPlaying = m_playingID == recording.id;
    stop();
    if (isPlaying)
        return;
    m_token = Uuid::random();
    m_tasks.spawn(start(recording, *m_token));
}

Task<> Playback::start(Recording recording, Uuid token)
{
    try {
        auto file = co_await m_library.audioFile(recording);
        if (m_token != token)
            co_return;
        const double duration = co_await m_player.play(std::move(file));
        if (m_token != token)
            co_return;
        assign(*this, m_playingID, recording.id, &Playback::playingChanged);
        m_end.start(duration + graceAtEnd, [this] { stop(); });
    } catch (const std::exception&) {
        if (m_token == token)
            m_status.report(std::current_exception());
    }
}

void Playback::stop()
{
    m_player.stop();
    m_end.cancel();
    m_token.reset();
    assign(*this, m_playingID, std::nullopt, &Playback::playingChanged);
}

} // namespace vesko

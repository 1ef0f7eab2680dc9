#include "VeskoApp/notes/Playback.h"

#include "VeskoApp/base/Observed.h"

#include <algorithm>

namespace vesko {

namespace {

constexpr double graceAtEnd = 0.2; // seconds
constexpr double positionIsTold = 0.1; // seconds

} // namespace

Playback::Playback(AudioPlayer& player, EventClock& clock, LibrarySession& library,
    Capture& capture, StatusLine& status)
    : m_clock(clock)
    , m_player(player)
    , m_library(library)
    , m_capture(capture)
    , m_status(status)
    , m_end(clock)
    , m_tick(clock)
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
        m_seconds = co_await m_player.play(file);
        if (m_token != token)
            co_return;
        assign(*this, m_playingID, recording.id, &Playback::playingChanged);
        if (m_rate != 1)
            m_player.seek(0, m_rate);
        goOn(0);
        m_tasks.spawn(draw(std::move(file), recording.id));
    } catch (const std::exception&) {
        if (m_token == token)
            m_status.report(std::current_exception());
    }
}

void Playback::goOn(double from)
{
    m_from = from;
    m_since = m_clock.uptime();
    m_end.start((m_seconds - from) / m_rate + graceAtEnd, [this] { stop(); });
    tick();
}

void Playback::tick()
{
    m_tick.start(positionIsTold, [this] { tick(); });
    Q_EMIT positionChanged();
}

double Playback::position() const
{
    return m_playingID ? std::min(m_seconds, m_from + (m_clock.uptime() - m_since) * m_rate) : 0;
}

void Playback::seek(double seconds)
{
    if (!m_playingID)
        return;
    const double to = std::clamp(seconds, 0.0, m_seconds);
    m_player.seek(to, m_rate);
    goOn(to);
}

void Playback::changeRate()
{
    const double here = position();
    assign(*this, m_rate, m_rate < 1.5 ? 1.5 : m_rate < 2 ? 2.0 : 1.0, &Playback::rateChanged);
    seek(here);
}

QList<qreal> Playback::wave() const
{
    return m_waveID == m_playingID ? m_wave : QList<qreal>();
}

// Nobody misses a wave that can't be drawn: what plays can be heard.
Task<> Playback::draw(std::filesystem::path file, Uuid recording)
{
    if (m_waveID == recording)
        co_return;
    try {
        const auto wave = co_await m_player.wave(std::move(file), waveParts);
        if (m_playingID != recording)
            co_return;
        m_waveID = recording;
        m_wave = QList<qreal>(wave.begin(), wave.end());
        Q_EMIT waveChanged();
    } catch (const std::exception&) {
    }
}

void Playback::stop()
{
    m_player.stop();
    m_end.cancel();
    m_tick.cancel();
    m_token.reset();
    assign(*this, m_playingID, std::nullopt, &Playback::playingChanged);
}

} // namespace vesko

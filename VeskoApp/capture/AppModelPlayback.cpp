#include "VeskoApp/capture/AppModel.h"

namespace vesko {

namespace {

constexpr double graceAtEnd = 0.2; // seconds

} // namespace

void AppModel::play(const Recording& recording)
{
    if (!m_libraryReady || m_phase == Phase::recording || m_phase == Phase::preparing)
        return;
    const bool isPlaying = m_playingID == recording.id;
    stopPlayback();
    if (isPlaying)
        return;
    m_playbackToken = Uuid::random();
    m_tasks.spawn(startPlayback(recording, *m_playbackToken));
}

Task<> AppModel::startPlayback(Recording recording, Uuid token)
{
    try {
        auto file = co_await m_store.run(
            [recording](const LibraryStore& store) { return store.audioURL(recording); });
        if (m_playbackToken != token)
            co_return;
        const double duration = co_await m_platform.player.play(std::move(file));
        if (m_playbackToken != token)
            co_return;
        assign(m_playingID, std::optional(recording.id), &AppModel::playingChanged);
        m_playbackEnd.start(duration + graceAtEnd, [this] { stopPlayback(); });
    } catch (const std::exception&) {
        if (m_playbackToken == token)
            report(std::current_exception());
    }
}

void AppModel::stopPlayback()
{
    m_platform.player.stop();
    m_playbackEnd.cancel();
    m_playbackToken.reset();
    assign(m_playingID, std::optional<Uuid>{}, &AppModel::playingChanged);
}

} // namespace vesko

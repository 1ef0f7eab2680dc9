#include "VeskoLinux/audio/GstPlayer.h"

#include "VeskoLinux/audio/Playback.h"
#include "VeskoLinux/audio/Wave.h"

#include <utility>

namespace vesko {

GstPlayer::GstPlayer() = default;

GstPlayer::~GstPlayer()
{
    m_stop.request_stop();
    m_waveStop.request_stop();
}

Task<double> GstPlayer::play(std::filesystem::path file)
{
    m_stop.request_stop();
    m_stop = {};
    // A caller that no longer waits would not stop it.
    struct Unheard {
        GstPlayer& player;
        const std::stop_source own = player.m_stop;
        bool heard = false;
        ~Unheard()
        {
            if (!heard && player.m_stop == own)
                player.stop();
        }
    } state{ *this };

    const double seconds
        = co_await m_worker.run([this, file = std::move(file), stop = m_stop.get_token()] {
              m_playback.reset();
              m_playback = std::make_unique<Playback>(file, stop);
              return m_playback->seconds();
          });
    state.heard = true;
    co_return seconds;
}

void GstPlayer::seek(double seconds, double rate)
{
    m_tasks.spawn(go(seconds, rate));
}

Task<> GstPlayer::go(double seconds, double rate)
{
    co_await m_worker.run([this, seconds, rate] {
        if (m_playback)
            m_playback->seek(seconds, rate);
    });
}

Task<std::vector<float>> GstPlayer::wave(std::filesystem::path file, std::size_t parts)
{
    m_waveStop.request_stop();
    m_waveStop = {};
    co_return co_await m_drawing.run(
        [file = std::move(file), parts, stop = m_waveStop.get_token()] {
            return loudestParts(file, parts, stop);
        });
}

void GstPlayer::stop()
{
    m_stop.request_stop();
    m_tasks.spawn(end());
}

Task<> GstPlayer::end()
{
    co_await m_worker.run([this] { m_playback.reset(); });
}

} // namespace vesko

#include "VeskoLinux/speech/VoiceSpeechGate.h"

#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/VoiceActivity.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vesko {

namespace {

constexpr std::size_t minute = std::size_t{ 60 } * speechRate; // samples
constexpr auto patience = std::chrono::seconds(2);

// The beginning of a recording, on its way from the recorder's thread to the gate's.
class FirstMinute final : public SoundListener {
public:
    void take(std::span<const std::int16_t> samples) override
    {
        const std::scoped_lock lock(m_mutex);
        const auto taken = std::min(samples.size(), minute - m_samples.size());
        m_samples.insert(m_samples.end(), samples.begin(), samples.begin() + std::ptrdiff_t(taken));
        m_isAll = m_isAll && taken == samples.size();
    }
    void end(bool whole) override
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isAll = m_isAll && whole;
            m_ended = true;
        }
        m_noted.notify_all();
    }

    // Whether somebody may have spoken; nothing if that has to be looked for in the file. Once the
    // recording has ended; blocks until the last of it has come.
    std::optional<bool> mayHoldSpeech(const std::stop_token& stop)
    {
        std::unique_lock lock(m_mutex);
        m_noted.wait_for(lock, stop, patience, [this] { return m_ended; });
        const auto samples = std::exchange(m_samples, {});
        const bool isAll = m_ended && m_isAll;
        lock.unlock();
        if (vesko::mayHoldSpeech(samples))
            return true;
        return isAll ? std::optional(false) : std::nullopt;
    }

private:
    std::mutex m_mutex; // for what follows
    std::condition_variable_any m_noted;
    std::vector<std::int16_t> m_samples;
    bool m_isAll = true; // nothing came that wasn't kept
    bool m_ended = false;
};

bool fileMayHoldSpeech(const std::filesystem::path& audio, const std::stop_token& stop)
{
    try {
        return mayHoldSpeech(speechSamples(audio, stop));
    } catch (const std::runtime_error&) {
        return true; // whoever is to recognise it knows better what is wrong
    }
}

} // namespace

class VoiceSpeechGate::Listening final : public Hearing {
public:
    std::shared_ptr<SoundListener> listener() override { return beginning; }

    const std::shared_ptr<FirstMinute> beginning = std::make_shared<FirstMinute>();
};

std::unique_ptr<Hearing> VoiceSpeechGate::hear()
{
    return std::make_unique<Listening>();
}

Task<bool> VoiceSpeechGate::mayHoldSpeech(
    std::filesystem::path audio, std::unique_ptr<Hearing> heard)
{
    const auto* listening = dynamic_cast<Listening*>(heard.get());
    co_return co_await m_worker.run(
        [audio = std::move(audio), beginning = listening ? listening->beginning : nullptr](
            const std::stop_token& stop) {
            const auto known = beginning ? beginning->mayHoldSpeech(stop) : std::nullopt;
            return known ? *known : fileMayHoldSpeech(audio, stop);
        });
}

} // namespace vesko

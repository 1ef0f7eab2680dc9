#include "VeskoLinux/speech/RecordingRecognition.h"

#include "VeskoLinux/speech/Loudness.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/VoiceActivity.h"

#include <utility>

namespace vesko {

namespace {

constexpr std::size_t longestSpeech = std::size_t{ 3600 } * speechRate;

} // namespace

PieceRecognition::PieceRecognition(
    std::shared_ptr<const SpeechEngine> engine, SpeechEngine::Wish wish, std::stop_token stop)
    : m_engine(std::move(engine))
    , m_wish(std::move(wish))
    , m_stop(std::move(stop))
{
    m_result.model = m_engine->name();
}

void PieceRecognition::prepare()
{
    if (!m_session)
        m_session = m_engine->begin(m_wish, m_stop);
}

void PieceRecognition::take(std::span<const std::int16_t> piece)
{
    if (!mayHoldSpeech(piece))
        return;
    prepare();
    const auto answer = m_session->heard(lifted(piece));
    if (!answer.text.empty())
        m_result.text += (m_result.text.empty() ? "" : " ") + answer.text;
    if (answer.model)
        m_result.model = m_engine->name() + "/" + *answer.model;
    if (!m_result.language)
        m_result.language = answer.language;
}

void SpokenSound::take(std::span<const std::int16_t> samples)
{
    {
        const std::scoped_lock lock(m_mutex);
        // Nobody takes it any more; whoever wants the words finds them in the file.
        if (m_samples.size() + samples.size() > longestSpeech)
            m_whole = false;
        if (m_whole)
            return;
        m_samples.insert(m_samples.end(), samples.begin(), samples.end());
    }
    m_changed.notify_all();
}

void SpokenSound::end(bool whole)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_whole)
            m_whole = whole;
    }
    m_changed.notify_all();
}

std::optional<RecognizedSpeech> SpokenSound::recognized(
    PieceRecognition recognition, int longestPiece, const std::stop_token& stop)
{
    recognition.prepare(); // the model is loaded while the user speaks
    std::vector<std::int16_t> piece;
    while (true) {
        {
            std::unique_lock lock(m_mutex);
            std::optional<std::size_t> cut;
            std::size_t seen = 0;
            m_changed.wait(lock, stop, [&] {
                if (std::exchange(seen, m_samples.size()) != m_samples.size())
                    cut = firstSpeechPiece(m_samples, longestPiece);
                return cut || m_whole;
            });
            if (stop.stop_requested() || m_whole == false)
                return std::nullopt;
            if (!cut)
                break;
            const auto end = m_samples.begin() + static_cast<std::ptrdiff_t>(*cut);
            piece.assign(m_samples.begin(), end);
            m_samples.erase(m_samples.begin(), end);
        }
        recognition.take(piece);
    }
    for (const auto last : speechPieces(m_samples, longestPiece))
        recognition.take(last);
    return std::move(recognition).result();
}

} // namespace vesko

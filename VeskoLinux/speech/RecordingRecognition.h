#pragma once

#include "VeskoApp/platform/SoundListener.h"
#include "VeskoLinux/speech/engines/SpeechEngine.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

// What an engine made of a whole recording.
struct RecognizedSpeech {
    std::string text;
    std::string model; // "whisper.cpp/base"
    std::optional<std::string> language;

    bool operator==(const RecognizedSpeech&) const = default;
};

// Puts together what an engine hears in the pieces of a recording. What holds no speech is not
// given to it; of silence alone it is not even started. One thread.
class PieceRecognition {
public:
    PieceRecognition(
        std::shared_ptr<const SpeechEngine> engine, SpeechEngine::Wish wish, std::stop_token stop);

    // Has the engine begin before there is anything for it. Blocks. Throws EngineFailure.
    void prepare();
    // Blocks. Throws EngineFailure.
    void take(std::span<const std::int16_t> piece);
    // After the last piece.
    RecognizedSpeech result() && { return std::move(m_result); }

private:
    std::shared_ptr<const SpeechEngine> m_engine;
    SpeechEngine::Wish m_wish;
    std::stop_token m_stop;
    std::unique_ptr<SpeechEngine::Session> m_session;
    RecognizedSpeech m_result;
};

// Sound on its way from the recorder's thread to the recognition's.
class SpokenSound final : public SoundListener {
public:
    void take(std::span<const std::int16_t> samples) override;
    void end(bool whole) override;

    // All of it, recognised piece by piece as it comes, cut where speechPieces would cut it;
    // nothing if some of it didn't come. Blocks until the end, or a stop request. Throws
    // EngineFailure.
    std::optional<RecognizedSpeech> recognized(
        PieceRecognition recognition, int longestPiece, const std::stop_token& stop);

private:
    std::mutex m_mutex; // for what follows
    std::condition_variable_any m_changed;
    std::vector<std::int16_t> m_samples; // that no piece has taken yet
    std::optional<bool> m_whole; // once it has ended
};

} // namespace vesko

#include "VeskoCore/library/TranscriptionAttempt.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(TranscriptionAttempt, NamesItsModelAsAPersonWould)
{
    const struct {
        std::string_view provider;
        const char* model;
        const char* words;
    } rows[] = {
        { onDeviceProvider, "whisper.cpp/base", "whisper.cpp, base" },
        { onDeviceProvider, "whisper.cpp/large-v3-turbo-q5_0", "whisper.cpp, large-v3-turbo-q5_0" },
        { onDeviceProvider, "pocketsphinx/en-us", "PocketSphinx, English (United States)" },
        { onDeviceProvider, "pocketsphinx", "PocketSphinx" },
        { onDeviceProvider, "server/Systran/faster-whisper", "server, Systran/faster-whisper" },
        { onDeviceProvider, "command/vosk-transcriber", "vosk-transcriber" },
        { onDeviceProvider, "moonshine", "moonshine" },
        // Older ones, and those that a service names.
        { onDeviceProvider, "apple/on-device/de-DE", "apple/on-device/de-DE" },
        { "OpenRouter", "openai/whisper-large-v3-turbo", "openai/whisper-large-v3-turbo" },
        { "OpenRouter", "whisper", "whisper" },
    };
    for (const auto& [provider, model, words] : rows) {
        TranscriptionAttempt attempt;
        attempt.provider = provider;
        attempt.model = model;
        EXPECT_EQ(attempt.modelInWords(), words);
    }
}

} // namespace
} // namespace vesko

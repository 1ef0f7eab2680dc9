#include "VeskoLinux/doctor/Checks.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

const FoundEngine whisper{ .id = "whisper.cpp/base",
    .name = "whisper.cpp",
    .model = "base",
    .languages = { "en", "ru", "de", "fr", "uk" },
    .detectsLanguage = true };
const FoundEngine ours{ .id = "engine/mine", .name = "mine", .languages = { "de", "fr" } };
const FoundEngine pocketSphinx{
    .id = "pocketsphinx", .name = "pocketsphinx", .languages = { "en-us" }
};

TEST(SpeechChecks, tellOfTheEngineOfTheSettings)
{
    const struct {
        SpeechHere speech;
        Finding::State state;
        const char* seen;
    } rows[] = {
        { { "pocketsphinx", true, true, true, "en-US", { pocketSphinx } }, Finding::State::fine,
            "PocketSphinx (en-us)" },
        { { "whisper.cpp/base", true, true, true, "auto", { whisper, pocketSphinx } },
            Finding::State::fine, "whisper.cpp, base (5 languages, finds out which is spoken)" },
        { { "engine/mine", true, true, true, "de", { ours, pocketSphinx } }, Finding::State::fine,
            "mine (de, fr)" },
        { { "whisper.cpp/large", false, false, true, "auto", { pocketSphinx } },
            Finding::State::wanting, "whisper.cpp, large is chosen and isn't there" },
        { { "engine/mine", false, false, true, "de", {} }, Finding::State::wanting,
            "mine is chosen and isn't there" },
        { { "pocketsphinx", true, false, true, "ru", { pocketSphinx } }, Finding::State::wanting,
            "PocketSphinx (en-us) doesn't speak the language (ru)" },
        // Neither the user's words nor an address.
        { { "command", true, true, true, "auto", { pocketSphinx } }, Finding::State::fine,
            "the program of the settings" },
        { { "server", false, false, true, "auto", { pocketSphinx } }, Finding::State::wanting,
            "the server of the settings is chosen and isn't there" },
        { { "pocketsphinx", true, false, false, "ru", { pocketSphinx } }, Finding::State::fact,
            "speech goes to OpenRouter; on this computer: PocketSphinx (en-us) doesn't speak the "
            "language (ru)" },
    };
    for (const auto& [speech, state, seen] : rows) {
        const auto finding = lookAtRecognizer(speech);
        EXPECT_EQ(finding.state, state) << seen;
        EXPECT_EQ(finding.seen, seen);
        EXPECT_EQ(finding.remedy.empty(), state != Finding::State::wanting) << seen;
    }
}

TEST(SpeechChecks, nameTheOtherEngines)
{
    EXPECT_EQ(
        lookAtOtherEngines({ .chosen = "engine/mine", .found = { whisper, ours, pocketSphinx } })
            .seen,
        "whisper.cpp, base (5 languages, finds out which is spoken); PocketSphinx (en-us)");
    EXPECT_EQ(
        lookAtOtherEngines({ .chosen = "pocketsphinx", .found = { pocketSphinx } }).seen, "none");
    EXPECT_EQ(
        lookAtOtherEngines(
            { .chosen = "server", .found = { { .id = "pocketsphinx", .name = "pocketsphinx" } } })
            .seen,
        "PocketSphinx (no language)");
}

} // namespace
} // namespace vesko

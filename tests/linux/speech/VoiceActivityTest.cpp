#include "VeskoLinux/speech/VoiceActivity.h"

#include "VeskoLinux/speech/SpeechSamples.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/Child.h"
#include "tests/linux/speech/Voice.h"

#include <gtest/gtest.h>

#include <cstring>

namespace vesko {
namespace {

class Sounds : public testing::Test {
private:
    TemporaryFolder m_folder;

protected:
    std::filesystem::path in(const std::string& name) const { return m_folder.path() / name; }

    // What ffmpeg makes of these arguments.
    std::vector<std::int16_t> sound(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.end(), { "-ar", "16000", "-ac", "1", "-f", "s16le" });
        voice::convert(arguments, in("sound"));
        const auto bytes = bytesOf(in("sound"));
        std::vector<std::int16_t> samples(bytes.size() / sizeof(std::int16_t));
        std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(std::int16_t));
        return samples;
    }
    std::vector<std::int16_t> made(const std::string& graph) const
    {
        return sound({ "-f", "lavfi", "-t", "6", "-i", graph });
    }
    // A word, with so many seconds of silence before and behind it.
    std::vector<std::int16_t> word(const std::string& voice, const std::string& text, int decibels,
        int before = 1, int behind = 1) const
    {
        Child::run({ "espeak-ng", "-v", voice, "-w", in("word.wav"), text });
        return sound({ "-i", in("word.wav"), "-af",
            "adelay=" + std::to_string(before) + "s:all=1,apad=pad_dur=" + std::to_string(behind)
                + ",volume=" + std::to_string(decibels) + "dB" });
    }
};

TEST_F(Sounds, ofSilenceAndSteadyNoiseHoldNoSpeech)
{
    for (const char* graph : { "anullsrc=r=16000", "anoisesrc=c=pink:r=16000:a=0.004:s=1",
             "anoisesrc=c=pink:r=16000:a=0.001:s=2", "anoisesrc=c=white:r=16000:a=0.002:s=3",
             "aevalsrc=0.1:s=16000" })
        EXPECT_FALSE(mayHoldSpeech(made(graph))) << graph;
    EXPECT_FALSE(mayHoldSpeech({}));
    EXPECT_FALSE(mayHoldSpeech(std::vector<std::int16_t>(10, 1)));
}

TEST_F(Sounds, ofTheShortestWordsAreNeverTakenForSilence)
{
    for (const auto& [voice, text] :
        { std::pair{ "en-us+f2", "no" }, { "en-us+m3", "no" }, { "ru", "да" }, { "ru+f3", "нет" },
            { "de", "ja" }, { "es", "sí" }, { "en-us+f2", "up" }, { "en-us+whisper", "stop" } })
        for (const int decibels : { 0, -20, -40 })
            EXPECT_TRUE(mayHoldSpeech(word(voice, text, decibels)))
                << text << " at " << decibels << " dB";
}

TEST_F(Sounds, ofALowSentenceAreHeardThoughNoWordOfItStandsOut)
{
    for (const char* voice : { "en-us+f2", "en-us+m3" }) {
        Child::run({ "espeak-ng", "-v", voice, "-s", "140", "-w", in("word.wav"), voice::brother });
        for (const int decibels : { 0, -20, -30, -40, -50 })
            EXPECT_TRUE(mayHoldSpeech(sound(
                { "-i", in("word.wav"), "-af", "volume=" + std::to_string(decibels) + "dB" })))
                << voice << " at " << decibels << " dB";
        EXPECT_TRUE(mayHoldSpeech(sound({ "-i", in("word.wav"), "-f", "lavfi", "-t", "4", "-i",
            "anoisesrc=c=pink:r=16000:a=0.004:s=1", "-filter_complex",
            "[0]volume=-40dB[low];[low][1]amix=normalize=0" })))
            << voice << " in a room's noise";
    }
}

// As a microphone hears it from the loudspeakers of its own machine, with another sound.
std::string toned(int decibels, const std::string& other)
{
    return "[0]asetrate=44100*1.05946,aresample=16000,adelay=0.12s:all=1,volume="
        + std::to_string(decibels) + "dB[tone];[1]" + other
        + "[other];[tone][other]amix=duration=longest:normalize=0";
}

TEST_F(Sounds, ofTheStartToneAloneHoldNoSpeech)
{
    for (const int decibels : { -3, -12, -20, -32, -40 })
        for (const char* noise : { "anullsrc=r=16000", "anoisesrc=c=pink:r=16000:a=0.001:s=2" })
            EXPECT_FALSE(mayHoldSpeech(sound({ "-i", VESKO_RESOURCES "/CaptureStart.wav", "-f",
                "lavfi", "-t", "3", "-i", noise, "-filter_complex", toned(decibels, "anull") })))
                << decibels << " dB, " << noise;
}

TEST_F(Sounds, ofAWordBesideTheStartToneAreHeard)
{
    for (const auto& [voice, text] :
        { std::pair{ "en-us+f2", "no" }, { "ru", "да" }, { "de", "ja" } }) {
        Child::run({ "espeak-ng", "-v", voice, "-w", in("word.wav"), text });
        for (const char* begin : { "0s", "0.1s", "0.4s" })
            EXPECT_TRUE(mayHoldSpeech(sound({ "-i", VESKO_RESOURCES "/CaptureStart.wav", "-i",
                in("word.wav"), "-filter_complex",
                toned(-12,
                    std::string("aresample=16000,adelay=") + begin + ":all=1,apad=pad_dur=1") })))
                << text << " at " << begin;
    }
}

TEST_F(Sounds, ofAWordAtTheVeryEndOrInALongSilenceAreHeard)
{
    EXPECT_TRUE(mayHoldSpeech(word("en-us+f2", "yes", -10, 10, 0)));
    EXPECT_TRUE(mayHoldSpeech(word("en-us+f2", "yes", -10, 0, 10)));
    EXPECT_TRUE(mayHoldSpeech(word("ru", "да", -10, 50, 9)));
    EXPECT_TRUE(mayHoldSpeech(word("ru", "да", -10, 0, 0)));
}

} // namespace
} // namespace vesko

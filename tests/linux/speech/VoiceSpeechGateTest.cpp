#include "VeskoLinux/speech/VoiceSpeechGate.h"

#include "VeskoLinux/speech/SpeechSamples.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/speech/Voice.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

const std::vector<std::int16_t> silence(speechRate, 0);

class Gate : public testing::Test {
private:
    TemporaryFolder m_folder;

protected:
    std::filesystem::path in(const std::string& name) const { return m_folder.path() / name; }
    std::filesystem::path silent() const
    {
        voice::keepSilent(2, in("silence.m4a"));
        return in("silence.m4a");
    }
    std::filesystem::path spoken() const
    {
        voice::speak({ "yes" }, in("yes.m4a"), 1);
        return in("yes.m4a");
    }
    // What is said of a recording that was heard as this, second by second, and stands in the file.
    bool passes(
        const std::vector<std::vector<std::int16_t>>& heard, bool whole, std::filesystem::path file)
    {
        auto hearing = gate.hear();
        const auto listener = hearing->listener();
        for (const auto& second : heard)
            listener->take(second);
        listener->end(whole);
        return await(gate.mayHoldSpeech(std::move(file), std::move(hearing)));
    }

    VoiceSpeechGate gate;
};

TEST_F(Gate, isPassedByEveryFileThatIsNotSilent)
{
    putBytes(in("damaged.m4a"), "no sound");
    EXPECT_FALSE(await(gate.mayHoldSpeech(silent(), nullptr)));
    EXPECT_TRUE(await(gate.mayHoldSpeech(spoken(), nullptr)));
    EXPECT_TRUE(await(gate.mayHoldSpeech(in("damaged.m4a"), nullptr)))
        << "others know what is wrong";
    EXPECT_TRUE(await(gate.mayHoldSpeech(in("missing.m4a"), nullptr)));
}

TEST_F(Gate, asksNoFileAboutWhatItHasHeard)
{
    const auto yes = speechSamples(spoken(), {});
    EXPECT_TRUE(passes({ yes }, true, silent()));
    EXPECT_TRUE(passes({ silence, yes, silence }, true, silent()));
    EXPECT_FALSE(passes({ silence, silence }, true, spoken()));
    EXPECT_FALSE(passes({}, true, spoken()));
}

TEST_F(Gate, asksTheFileAboutWhatItHasNotHeard)
{
    EXPECT_TRUE(passes({ silence }, false, spoken()));
    EXPECT_FALSE(passes({ silence }, false, silent()));
}

TEST_F(Gate, asksTheFileWhereNobodySpokeInAWholeMinute)
{
    const std::vector<std::vector<std::int16_t>> minute(60, silence);
    auto longer = minute;
    longer.emplace_back(1, 0);
    EXPECT_FALSE(passes(minute, true, spoken()));
    EXPECT_TRUE(passes(longer, true, spoken()));
    longer[59] = speechSamples(spoken(), {});
    EXPECT_TRUE(passes(longer, true, silent())) << "that suffices";
}

} // namespace
} // namespace vesko

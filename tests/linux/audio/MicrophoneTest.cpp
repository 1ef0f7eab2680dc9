#include "VeskoLinux/audio/Microphone.h"
#include "tests/linux/audio/SoundServer.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(Microphone, isThereAndOpens)
{
    const SoundServer server;
    const auto listening = SoundServer::list("source-outputs");
    EXPECT_TRUE(microphoneExists());
    EXPECT_TRUE(microphoneOpens());
    EXPECT_EQ(SoundServer::list("source-outputs"), listening); // nothing is left open
}

TEST(Microphone, isAsLoudAsWhatItHears)
{
    const SoundServer server;
    const auto listening = SoundServer::list("source-outputs");
    const auto level = microphoneLevel(); // nobody speaks
    ASSERT_TRUE(level);
    EXPECT_LT(*level, -70);
    EXPECT_EQ(SoundServer::list("source-outputs"), listening);
}

TEST(Microphone, isNoLoudspeakersMonitor)
{
    const SoundServer server(SoundServer::Microphone::absent);
    EXPECT_FALSE(microphoneExists());
}

TEST(Microphone, isNowhereWithoutASoundServer)
{
    SoundServer::keepToOurselves();
    EXPECT_FALSE(microphoneExists());
    EXPECT_FALSE(microphoneOpens());
    EXPECT_EQ(microphoneLevel(), std::nullopt);
}

} // namespace
} // namespace vesko

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
}

} // namespace
} // namespace vesko

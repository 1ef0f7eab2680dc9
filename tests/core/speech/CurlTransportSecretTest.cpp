// The key of an exchange, and where it is left behind.

#include "tests/core/speech/OpenRouterCalls.h"
#include "tests/fakes/OwnMemory.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace vesko {
namespace {

// What the work gives in a process that shares no memory with this one's server.
template <class Work>
int inChild(Work work)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    return WEXITSTATUS(status);
}

// After one dictation it once stood four times on the heap.
TEST(CurlTransportSecret, TheKeyOfAnExchangeStandsInMemoryOnceAndThenNoMore)
{
    const auto turned = OwnMemory::turnedKey();
    LoopbackServer server;
    server.reply(LoopbackServer::answer(200, R"({"text":"hello"})"));
    int during[2];
    ASSERT_EQ(pipe(during), 0);
    const int after = inChild([&] {
        {
            auto text = OwnMemory::freshKey();
            const auto key = Secret::taken(text);
            clientOf(server).transcribe("audio", "m4a", "model", std::nullopt, key, true, {});
            const char found = static_cast<char>(OwnMemory::count(turned));
            if (write(during[1], &found, 1) != 1)
                return 99;
        }
        return OwnMemory::count(turned);
    });
    char found = 0;
    ASSERT_EQ(read(during[0], &found, 1), 1);
    close(during[0]);
    close(during[1]);
    EXPECT_EQ(found, 1);
    EXPECT_EQ(after, 0);
    EXPECT_EQ(server.requests().at(0).header("Authorization"), "Bearer " + OwnMemory::freshKey());
}

} // namespace
} // namespace vesko

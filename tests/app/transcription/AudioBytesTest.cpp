#include "VeskoApp/transcription/AudioBytes.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <system_error>

namespace vesko {

namespace {

TEST(AudioBytes, AreTheFilesOwn)
{
    const TemporaryFolder folder;
    const std::string bytes("\0\xff\r\n m4a", 8);
    putBytes(folder.path() / "a", bytes);
    putBytes(folder.path() / "empty", "");
    EXPECT_EQ(audioBytes(folder.path() / "a"), bytes);
    EXPECT_EQ(audioBytes(folder.path() / "empty"), "");
}

TEST(AudioBytes, OfAFileTooLargeAreOneTooMany)
{
    const TemporaryFolder folder;
    const auto file = folder.path() / "a";
    putBytes(file, "x");
    std::filesystem::resize_file(file, OpenRouterClient::audioLimit);
    EXPECT_EQ(audioBytes(file).size(), OpenRouterClient::audioLimit);
    std::filesystem::resize_file(file, std::uintmax_t{ 1 } << 40); // it would not fit in memory
    EXPECT_EQ(audioBytes(file).size(), OpenRouterClient::audioLimit + 1);
}

TEST(AudioBytes, OfNoFileAreAFailure)
{
    const TemporaryFolder folder;
    EXPECT_THROW(audioBytes(folder.path() / "absent"), std::system_error);
    EXPECT_THROW(audioBytes(folder.path()), std::system_error);
}

// The open of a pipe waits for its other end, and so did the run, and the end of the program.
TEST(AudioBytes, OfAPipeAreAFailureAtOnce)
{
    const TemporaryFolder folder;
    const auto pipe = folder.path() / "a.m4a";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THROW(audioBytes(pipe), std::system_error);
}

} // namespace

} // namespace vesko

#include "VeskoCore/base/Secret.h"
#include "tests/fakes/OwnMemory.h"

#include <gtest/gtest.h>
#include <memory>
#include <sys/wait.h>

namespace vesko {
namespace {

// What the kernel says of the memory at that place.
std::string flagsAt(const void* place)
{
    const auto address = reinterpret_cast<std::uintptr_t>(place);
    std::ifstream maps("/proc/self/smaps");
    bool within = false;
    for (std::string line; std::getline(maps, line);) {
        std::uint64_t begin = 0, end = 0;
        if (std::sscanf(line.c_str(), "%lx-%lx ", &begin, &end) == 2)
            within = begin <= address && address < end;
        if (within && line.starts_with("VmFlags:"))
            return line + " ";
    }
    return "";
}

TEST(Secret, StandsForItsText)
{
    const Secret secret("sk-1234");
    EXPECT_EQ(std::string_view(secret), "sk-1234");
    EXPECT_EQ(secret, std::string("sk-1234"));
    EXPECT_EQ(secret, Secret(std::string_view("sk-1234")));
    EXPECT_NE(secret, "sk-123");
    EXPECT_FALSE(secret.empty());
    EXPECT_TRUE(Secret().empty());
    EXPECT_TRUE(Secret("").empty());
    EXPECT_EQ(Secret(), "");
    const std::string large(100'000, 'x');
    EXPECT_EQ(Secret(large), large);
}

TEST(Secret, IsWipedWithItsLastCopy)
{
    const auto turned = OwnMemory::turnedKey();
    ASSERT_EQ(OwnMemory::count(turned), 0);
    {
        auto text = OwnMemory::freshKey();
        const auto secret = Secret::taken(text);
        EXPECT_EQ(text, "");
        const auto copy = std::make_unique<Secret>(secret);
        EXPECT_EQ(OwnMemory::count(turned), 1);
    }
    EXPECT_EQ(OwnMemory::count(turned), 0);
}

TEST(Secret, IsInNoCoreDumpAndInNoChild)
{
    const Secret secret("sk-1234");
    EXPECT_NE(flagsAt(std::string_view(secret).data()).find(" dd "), std::string::npos);
    const pid_t child = fork();
    if (child == 0)
        _exit(std::string_view(secret)[0]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(Secret, IsTakenFromTheEnvironmentWhereNobodyFindsItAnyMore)
{
    const auto turned = OwnMemory::turnedKey();
    {
        auto key = OwnMemory::freshKey();
        ASSERT_EQ(setenv("VESKO_TEST_SECRET", key.c_str(), 1), 0);
        wipe(key);
        const auto taken = takeFromEnvironment("VESKO_TEST_SECRET");
        EXPECT_EQ(OwnMemory::turnedOver(taken), turned);
        EXPECT_EQ(std::getenv("VESKO_TEST_SECRET"), nullptr);
        EXPECT_EQ(OwnMemory::count(turned), 1);
    }
    EXPECT_EQ(OwnMemory::count(turned), 0);
    EXPECT_TRUE(takeFromEnvironment("VESKO_TEST_SECRET").empty());
}

} // namespace
} // namespace vesko

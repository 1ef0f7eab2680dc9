#include "VeskoApp/shell/KeyInstaller.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSettingsStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace vesko {

namespace {

using Items = std::map<std::string, std::string>;

constexpr const char* failedText = "Vesko could not configure its Keychain key.\n";

class KeyInstallerTest : public testing::Test {
protected:
    int install(const char* key) { return installKey(key, secrets, settings, out, error); }
    void expectRefused(int status)
    {
        EXPECT_EQ(status, 1);
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(error.str(), failedText);
        EXPECT_TRUE(settings.values.empty());
    }

    FakeSecretStore secrets;
    FakeSettingsStore settings;
    std::ostringstream out;
    std::ostringstream error;
};

TEST_F(KeyInstallerTest, StoresTheKeyAndPutsItIntoUse)
{
    settings.set("provider", SettingValue{ std::string("apple") });
    EXPECT_EQ(install("sk-1234"), 0);
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-1234" } }));
    EXPECT_EQ(settings.get<std::string>("provider"), "openrouter");
    EXPECT_EQ(settings.get<std::string>("keySource"), "vesko");
    EXPECT_EQ(out.str(), "Vesko personal key configured in Keychain. No value returned.\n");
    EXPECT_EQ(error.str(), "");
}

TEST_F(KeyInstallerTest, ReplacesAnEarlierKey)
{
    secrets.put("vesko-access", "sk-old");
    EXPECT_EQ(install("sk-new"), 0);
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-new" } }));
}

TEST_F(KeyInstallerTest, RemovesAPersonalKeyThatIsTheSame)
{
    secrets.put("personal", "sk-1234");
    EXPECT_EQ(install("sk-1234"), 0);
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-1234" } }));
}

TEST_F(KeyInstallerTest, LeavesADifferentPersonalKeyAlone)
{
    secrets.put("personal", "sk-mine");
    EXPECT_EQ(install("sk-1234"), 0);
    EXPECT_EQ(secrets.items(), (Items{ { "personal", "sk-mine" }, { "vesko-access", "sk-1234" } }));
}

TEST_F(KeyInstallerTest, RefusesAKeyThatIsAbsentOrEmpty)
{
    expectRefused(install(nullptr));
    error.str("");
    expectRefused(install(""));
    EXPECT_TRUE(secrets.items().empty());
}

TEST_F(KeyInstallerTest, SaysThatTheSecretStoreFailed)
{
    secrets.lock();
    expectRefused(install("sk-1234"));
}

} // namespace

} // namespace vesko

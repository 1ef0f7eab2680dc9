#include "VeskoApp/shell/KeyInstaller.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSettingsStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace vesko {

namespace {

using Items = std::map<std::string, std::string>;

constexpr std::string_view failedText = "Vesko could not configure its Keychain key.\n";

class KeyInstallerTest : public testing::Test {
protected:
    int install(std::string_view key) { return installKey(key, secrets, settings, out, error); }
    void expectFailed(int status, const std::string& why)
    {
        EXPECT_EQ(status, 1);
        EXPECT_EQ(out.str(), "");
        EXPECT_EQ(error.str(), std::string(failedText) + why + "\n");
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

TEST_F(KeyInstallerTest, DropsBlanksAroundTheKey)
{
    secrets.put("personal", "sk-1234");
    EXPECT_EQ(install(" \tsk-1234 "), 0);
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-1234" } }));
}

TEST_F(KeyInstallerTest, RefusesAKeyThatIsEmptyOrMoreThanOneLine)
{
    for (const char* key :
        { "", " ", " \t ", "\n", "sk-12\n34", "sk-1234\n", "sk-1234\r", "\r\nsk" }) {
        SCOPED_TRACE(key);
        error.str("");
        expectFailed(install(key), "Nothing was stored: the key is empty or more than one line.");
        EXPECT_TRUE(secrets.items().empty());
        EXPECT_TRUE(settings.values.empty());
    }
}

TEST_F(KeyInstallerTest, SaysThatTheSecretStoreFailed)
{
    secrets.lock();
    expectFailed(install("sk-1234"), "Nothing was stored: the Keychain could not be used.");
    EXPECT_TRUE(settings.values.empty());
}

TEST_F(KeyInstallerTest, SaysThatAnEqualPersonalKeyMayHaveStayed)
{
    secrets.lockWithSave();
    expectFailed(install("sk-1234"),
        "The key is stored, but perhaps as the personal key too. The settings are as they were.");
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-1234" } }));
    EXPECT_TRUE(settings.values.empty());
}

TEST_F(KeyInstallerTest, SaysThatTheSettingsWereNotWritten)
{
    settings.writable = false;
    expectFailed(install("sk-1234"),
        "The key is stored, but the settings that put it into use could not be written.");
    EXPECT_EQ(secrets.items(), (Items{ { "vesko-access", "sk-1234" } }));
}

} // namespace

} // namespace vesko

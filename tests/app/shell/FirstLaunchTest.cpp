// On a fresh machine a recogniser that is installed is chosen, once.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

class FirstLaunchTest : public AppModelTest {
protected:
    FirstLaunchTest() { machine.settings.values.clear(); }

    std::optional<std::string> storedProvider() const
    {
        return machine.settings.get<std::string>("provider");
    }
    void launch()
    {
        model.reset();
        open();
        ASSERT_TRUE(eventually(
            [&] { return machine.settings.get<bool>("firstLaunchDone").value_or(true); }));
    }
};

TEST(DataRoot, IsTheEnvironmentsIfThatIsAnAbsolutePath)
{
    const std::filesystem::path user = "/home/someone/.local/share";
    EXPECT_EQ(AppModel::dataRoot("/tmp/library", user), "/tmp/library");
    EXPECT_EQ(AppModel::dataRoot("library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("./library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("~/library", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot("", user), user / "Vesko");
    EXPECT_EQ(AppModel::dataRoot(nullptr, user), user / "Vesko");
}

TEST_F(FirstLaunchTest, ChoosesTheRecogniserOfThisMachine)
{
    launch();
    EXPECT_EQ(storedProvider(), "apple");
    EXPECT_EQ(model->preferences().provider.get(), "apple");
    EXPECT_EQ(model->status().message(),
        "Ready to capture. Speech is recognized on this computer, without a key.");
    dictate();
    finish();
    EXPECT_EQ(onlyNote().body, "hello world");
}

FoundEngine whisper(std::vector<std::string> languages)
{
    return { .id = "whisper.cpp/base", .name = "whisper.cpp", .languages = std::move(languages) };
}

TEST_F(FirstLaunchTest, ChoosesTheBestEngineThatSpeaksTheUsersLanguage)
{
    auto& found = machine.speechEngines.found;
    found.insert(found.begin(), whisper({ "ru", "en" }));
    launch();
    EXPECT_EQ(model->preferences().engine.get(), "whisper.cpp/base");
    ASSERT_EQ(machine.speechEngines.used.size(), 1U);
    EXPECT_EQ(machine.speechEngines.used[0].id, "whisper.cpp/base");
}

TEST_F(FirstLaunchTest, PassesOverAnEngineThatDoesNotSpeakIt)
{
    auto& found = machine.speechEngines.found;
    found.insert(found.begin(), whisper({ "ru" }));
    launch();
    EXPECT_EQ(model->preferences().engine.get(), "pocketsphinx");
    EXPECT_TRUE(machine.speechEngines.used.empty());
}

TEST_F(FirstLaunchTest, IsTheOnlyOneThatChoosesAnEngine)
{
    launch();
    auto& found = machine.speechEngines.found;
    found.insert(found.begin(), whisper({ "en" }));
    launch();
    EXPECT_EQ(model->preferences().engine.get(), "pocketsphinx");
}

TEST_F(FirstLaunchTest, LeavesALaterChoiceAlone)
{
    launch();
    model->preferences().provider.set("openrouter");
    launch();
    EXPECT_EQ(storedProvider(), "openrouter");
    EXPECT_EQ(model->status().message(), "Ready to capture");
}

TEST_F(FirstLaunchTest, IsTheOnlyOneThatChooses)
{
    machine.recognizer.installed.clear();
    launch();
    EXPECT_EQ(storedProvider(), std::nullopt);
    machine.recognizer.installed = { "en-US" };
    launch();
    EXPECT_EQ(storedProvider(), std::nullopt);
    EXPECT_EQ(model->preferences().provider.get(), "openrouter");
}

// Asking may make the desktop ask the user for a password, and takes memory.
TEST_F(FirstLaunchTest, IsTheOnlyOneThatAsksTheSecretStore)
{
    launch();
    const int asked = machine.secrets.loads();
    EXPECT_GT(asked, 0);
    launch();
    EXPECT_EQ(machine.secrets.loads(), asked);
}

TEST_F(FirstLaunchTest, ChoosesNothingWhereAKeyOrASettingExists)
{
    using Arrange = void (*)(FakePlatform&);
    const std::vector<std::pair<const char*, Arrange>> cases{
        { "a personal key", [](auto& m) { m.secrets.put("personal", "sk-1"); } },
        { "a Vesko access key", [](auto& m) { m.secrets.put("vesko-access", "sk-2"); } },
        { "a setting of any kind",
            [](auto& m) { m.settings.values.emplace("soundsEnabled", SettingValue{ false }); } },
        { "no recogniser for the user's language", [](auto& m) { m.recognizer.system = "fi-FI"; } },
    };
    for (const auto& [name, arrange] : cases) {
        SCOPED_TRACE(name);
        for (const auto& [account, value] : machine.secrets.items())
            machine.secrets.remove(account);
        machine.settings.values.clear();
        machine.recognizer.system = "en-US";
        arrange(machine);
        launch();
        EXPECT_EQ(storedProvider(), std::nullopt);
        EXPECT_EQ(model->preferences().provider.get(), "openrouter");
        EXPECT_EQ(model->status().message(), "Ready to capture");
    }
}

constexpr const char* waits
    = "Ready to capture. Speech is recognized on this computer until your password store (keyring) "
      "says whether it holds a key.";

TEST_F(FirstLaunchTest, DictatesOnThisMachineWhileTheSecretStoreIsSilent)
{
    machine.secrets.hang();
    open();
    EXPECT_EQ(model->status().message(), waits);
    EXPECT_EQ(model->preferences().provider.get(), "apple");
    EXPECT_EQ(storedProvider(), std::nullopt);
    dictate();
    finish();
    EXPECT_EQ(onlyNote().body, "hello world");
    machine.secrets.answer();
    ASSERT_TRUE(eventually([&] { return storedProvider() == "apple"; }));
}

TEST_F(FirstLaunchTest, TakesItsWordBackWhenTheSecretStoreTurnsOutToHaveAKey)
{
    machine.secrets.put("personal", "sk-1");
    machine.secrets.hang();
    open();
    EXPECT_EQ(model->status().message(), waits);
    machine.secrets.answer();
    ASSERT_TRUE(eventually([&] { return model->preferences().provider.get() == "openrouter"; }));
    EXPECT_EQ(storedProvider(), std::nullopt);
    EXPECT_EQ(model->status().message(), "Ready to capture");
}

TEST_F(FirstLaunchTest, DictatesWhileEnginesAreLookedFor)
{
    machine.speechEngines.finding.close();
    open();
    ASSERT_TRUE(eventually([&] { return machine.speechEngines.finding.waiting(); }));
    dictate();
    finish();
    EXPECT_EQ(onlyNote().body, "hello world");
    auto& found = machine.speechEngines.found;
    found.insert(found.begin(), whisper({ "en" }));
    machine.speechEngines.finding.open();
    ASSERT_TRUE(
        eventually([&] { return model->preferences().engine.get() == "whisper.cpp/base"; }));
}

TEST_F(FirstLaunchTest, LeavesAChoiceThatTheUserMakesMeanwhileAlone)
{
    machine.secrets.hang();
    open();
    model->preferences().provider.set("openrouter");
    machine.secrets.answer();
    ASSERT_TRUE(
        eventually([&] { return machine.settings.get<bool>("firstLaunchDone").value_or(false); }));
    EXPECT_EQ(storedProvider(), "openrouter");
}

TEST_F(FirstLaunchTest, ThatEndsBeforeTheAnswerLeavesTheChoiceToTheNext)
{
    machine.secrets.hang();
    open();
    machine.secrets.answer(); // which comes too late to be heard
    model.reset();
    machine.secrets.put("personal", "sk-1");
    launch();
    ASSERT_TRUE(
        eventually([&] { return machine.settings.get<bool>("firstLaunchDone").value_or(false); }));
    EXPECT_EQ(model->preferences().provider.get(), "openrouter");
}

TEST_F(FirstLaunchTest, IsNotMisledBySettingsThatAreWrittenMeanwhile)
{
    start();
    model->preferences().refresh(); // writes what is in force, as when a window comes up
    ASSERT_EQ(storedProvider(), std::nullopt);
    ASSERT_TRUE(eventually([&] { return storedProvider() == "apple"; }));
}

TEST_F(FirstLaunchTest, ChoosesNothingIfTheUserIsQuickerWithAKey)
{
    start();
    awaited(model->preferences().saveKey("sk-1"));
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    awaited(model->preferences().refreshKeys());
    EXPECT_EQ(storedProvider(), std::nullopt);
}

} // namespace

} // namespace vesko

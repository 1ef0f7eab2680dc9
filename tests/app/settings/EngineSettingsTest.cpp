// What the settings form shows and does about speech on this machine.

#include "VeskoApp/settings/EngineSettings.h"
#include "tests/app/AppModelTest.h"

#include <fstream>

namespace vesko {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class EngineSettingsTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        std::filesystem::create_directories(root());
        view = std::make_unique<EngineSettings>(EngineSettings::Neighbours{ .platform = machine.all,
            .preferences = model->preferences(),
            .keychain = model->keychain(),
            .engines = model->engines(),
            .downloads = model->downloads(),
            .status = model->status(),
            .trial = { .clock = machine.clock,
                .recorder = machine.recorder,
                .preferences = model->preferences(),
                .library = model->library(),
                .capture = model->capture(),
                .engines = model->engines(),
                .onDevice = model->onDevice(),
                .folder = root() } });
        view->look();
        ASSERT_TRUE(eventually([&] { return !view->looking(); }));
    }
    void putWhisper()
    {
        machine.speechEngines.found.insert(machine.speechEngines.found.begin(),
            { .id = "whisper.cpp/base",
                .name = "whisper.cpp",
                .model = "base",
                .licence = "MIT",
                .languages = { "en", "ru", "de", "fr", "uk" },
                .detectsLanguage = true });
    }
    EngineTrial& trial() { return *qobject_cast<EngineTrial*>(view->trial()); }
    void tryIt(const char* id)
    {
        trial().start(QString::fromUtf8(id));
        ASSERT_TRUE(eventually([&] { return trial().listening() || !trial().busy(); }));
    }
    void endTrial()
    {
        trial().stop();
        ASSERT_TRUE(eventually([&] { return !trial().busy(); }));
    }
    static std::vector<std::string> column(const QVariantList& rows, const char* name)
    {
        std::vector<std::string> texts;
        for (const auto& row : rows)
            texts.push_back(row.toMap()[QString::fromUtf8(name)].toString().toStdString());
        return texts;
    }

    std::unique_ptr<EngineSettings> view; // ends before what it shows
};

TEST_F(EngineSettingsTest, theEnginesAreShownWithTheirModelsAndLanguages)
{
    putWhisper();
    open();
    EXPECT_THAT(column(view->engines(), "tag"),
        ElementsAre("whisper.cpp/base", "pocketsphinx", "command", "server"));
    EXPECT_THAT(column(view->engines(), "name"),
        ElementsAre(
            "whisper.cpp, base", "PocketSphinx", "A program of your own", "A server of your own"));
    const auto details = column(view->engines(), "detail");
    EXPECT_EQ(details[0], "5 languages · finds out the language · MIT");
    EXPECT_EQ(details[1], "English · lower case, no punctuation · 5prealpha · BSD-2-Clause");
    EXPECT_TRUE(view->advice().isEmpty());
}

TEST_F(EngineSettingsTest, whatIsMissingIsSaidWithTheWayToIt)
{
    open();
    EXPECT_THAT(view->advice().toStdString(), HasSubstr("whisper-cli"));
}

TEST_F(EngineSettingsTest, anEngineIsChosenByTheUserAlone)
{
    putWhisper();
    open();
    EXPECT_EQ(view->engine(), QStringLiteral("pocketsphinx"));
    EXPECT_THAT(machine.speechEngines.used, IsEmpty());
    view->setEngine(QStringLiteral("whisper.cpp/base"));
    drainEvents();
    EXPECT_EQ(machine.settings.get<std::string>("engine"), "whisper.cpp/base");
    ASSERT_EQ(machine.speechEngines.used.size(), 1U);
    EXPECT_TRUE(view->problem().isEmpty());
}

TEST_F(EngineSettingsTest, anEngineThatIsGoneIsTold)
{
    choose("engine", std::string("whisper.cpp/large"));
    open();
    EXPECT_THAT(view->problem().toStdString(), HasSubstr("isn't there"));
}

TEST_F(EngineSettingsTest, theSpokenLanguagesAreThoseOfTheChosenEngine)
{
    putWhisper();
    open();
    EXPECT_THAT(column(view->languages(), "tag"), ElementsAre("auto", "en-US"));
    view->setEngine(QStringLiteral("whisper.cpp/base"));
    EXPECT_THAT(column(view->languages(), "name"),
        ElementsAre("Automatic", "English", "French", "German", "Russian", "Ukrainian"));
    model->preferences().language.set("sv");
    EXPECT_THAT(column(view->languages(), "tag"), Contains("sv"));
    view->setEngine(QStringLiteral("command"));
    EXPECT_THAT(column(view->languages(), "tag"), Contains("ja-JP"));
}

TEST_F(EngineSettingsTest, whatAutomaticMeansIsSaidForTheChosenEngine)
{
    putWhisper();
    open();
    EXPECT_THAT(view->languageNote().toStdString(), HasSubstr("your Mac's language"));
    view->setEngine(QStringLiteral("whisper.cpp/base"));
    EXPECT_THAT(view->languageNote().toStdString(), HasSubstr("lets the engine find out"));
    for (const auto* id : { "command", "server" }) {
        view->setEngine(QString::fromUtf8(id));
        EXPECT_THAT(view->languageNote().toStdString(), HasSubstr("your program or server")) << id;
    }
}

TEST_F(EngineSettingsTest, aCommandNeedsAPlaceForTheSound)
{
    open();
    view->setEngine(QStringLiteral("command"));
    EXPECT_THAT(view->problem().toStdString(), HasSubstr("{wav}"));
    view->setCommand(QStringLiteral("recognise {wav}"));
    EXPECT_TRUE(view->problem().isEmpty());
}

TEST_F(EngineSettingsTest, plainHttpIsForThisComputer)
{
    open();
    view->setEngine(QStringLiteral("server"));
    for (const auto* address : { "", "http://example.com", "ftp://127.0.0.1" }) {
        view->setServer(QString::fromUtf8(address));
        EXPECT_THAT(view->problem().toStdString(), HasSubstr("https://")) << address;
    }
    for (const auto* address : { "http://127.0.0.1:8080", "https://example.com/v1" }) {
        view->setServer(QString::fromUtf8(address));
        EXPECT_TRUE(view->problem().isEmpty()) << address;
    }
}

TEST_F(EngineSettingsTest, theServersKeyStandsInTheSecretStore)
{
    open();
    view->setServer(QStringLiteral("https://example.com"));
    view->setEngine(QStringLiteral("server"));
    view->setProperty("keyDraft", QStringLiteral(" sk-house "));
    view->saveKey();
    ASSERT_TRUE(eventually([&] { return !view->property("keyDraft").toString().size(); }));
    EXPECT_EQ(machine.secrets.items().at("speech-server"), "sk-house");
    EXPECT_EQ(view->keyStatus(), QStringLiteral("Saved in Keychain"));
    ASSERT_TRUE(awaited(model->engines().isThere()));
    EXPECT_EQ(machine.speechEngines.used.back().serverKey, "sk-house");
    view->saveKey(); // of nothing
    ASSERT_TRUE(eventually([&] { return machine.secrets.items().empty(); }));
    ASSERT_TRUE(eventually([&] { return view->keyStatus() == u"No key saved"; }));
}

TEST_F(EngineSettingsTest, aTrialShowsTheTextAndTheTime)
{
    open();
    machine.recognizer.hears = "good morning";
    tryIt("pocketsphinx");
    EXPECT_TRUE(trial().listening());
    EXPECT_EQ(machine.recognizer.hearings, 1);
    EXPECT_FALSE(std::filesystem::is_empty(root()));
    endTrial();
    EXPECT_EQ(trial().outcome(), QStringLiteral("“good morning”, 0.0 seconds after the end"));
    EXPECT_FALSE(std::filesystem::exists(root() / "trial.m4a"));
    EXPECT_THAT(model->library().contents().notes, IsEmpty());
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(machine.recorder.running());
}

TEST_F(EngineSettingsTest, whatATrialThatWasKilledHasLeftGoesWithTheNextStart)
{
    machine.all.dataFolder = root();
    std::filesystem::create_directories(root());
    std::ofstream(root() / "trial.m4a") << "the user's voice";
    open();
    EXPECT_FALSE(std::filesystem::exists(root() / "trial.m4a"));
}

TEST_F(EngineSettingsTest, aTrialOfAnotherEngineGivesBackTheChosenOne)
{
    putWhisper();
    open();
    tryIt("whisper.cpp/base");
    endTrial();
    ASSERT_TRUE(awaited(model->engines().isThere()));
    std::vector<std::string> used;
    for (const auto& choice : machine.speechEngines.used)
        used.push_back(choice.id);
    EXPECT_THAT(used, ElementsAre("whisper.cpp/base", "pocketsphinx"));
    EXPECT_EQ(view->engine(), QStringLiteral("pocketsphinx"));
}

TEST_F(EngineSettingsTest, aTrialOfWhatIsNotThereSaysSo)
{
    open();
    tryIt("whisper.cpp/base");
    EXPECT_EQ(trial().outcome(), QStringLiteral("This engine isn't there."));
    EXPECT_THAT(machine.recorder.files, IsEmpty());
}

TEST_F(EngineSettingsTest, aTrialEndsByItself)
{
    open();
    tryIt("pocketsphinx");
    machine.clock.turn(12);
    ASSERT_TRUE(eventually([&] { return !trial().busy(); }));
    EXPECT_THAT(trial().outcome().toStdString(), HasSubstr("hello world"));
}

TEST_F(EngineSettingsTest, aTrialWaitsForARecording)
{
    open();
    dictate();
    tryIt("pocketsphinx");
    EXPECT_THAT(trial().outcome().toStdString(), HasSubstr("busy"));
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_TRUE(machine.recorder.running());
}

TEST_F(EngineSettingsTest, aWindowThatGoesEndsItsTrial)
{
    open();
    tryIt("pocketsphinx");
    view.reset();
    EXPECT_FALSE(machine.recorder.running());
    EXPECT_EQ(machine.recognizer.hearings, 0);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(std::filesystem::exists(root() / "trial.m4a"));
}

TEST_F(EngineSettingsTest, whatCannotBeHeardIsSaid)
{
    open();
    machine.recorder.startFails = true;
    tryIt("pocketsphinx");
    EXPECT_THAT(trial().outcome().toStdString(), HasSubstr("microphone could not start"));
    machine.recorder.startFails = false;
    machine.recognizer.hears = "";
    tryIt("pocketsphinx");
    endTrial();
    EXPECT_THAT(trial().outcome().toStdString(), HasSubstr("No speech was heard."));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

} // namespace
} // namespace vesko

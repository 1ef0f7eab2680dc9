// After a dictation whose language was left to automatic detection, the user is asked once.

#include "tests/app/AppModelTest.h"
#include "tests/fakes/LoopbackServer.h"

namespace vesko {

namespace {

using testing::ElementsAre;

class LanguageInquiryTest : public AppModelTest {
protected:
    LanguageInquiryTest()
    {
        machine.recognizer.installed
            = { "en-US", "de-DE", "fr-FR", "es-ES", "pt-BR", "ru-RU", "uk-UA", "sv", "hi" };
        machine.recognizer.hears = "Der Zug hatte schon wieder Verspätung";
        machine.textLanguage.finding = { "de", 0.9 };
    }

    void run()
    {
        dictate();
        finish();
    }
    // A dictation that raises the question, in German unless a test says otherwise.
    void openAndAsk()
    {
        open();
        run();
        ASSERT_TRUE(model->language().question());
    }
    std::vector<std::string> options() const { return model->language().question()->options; }
    QString shown(const char* property) const
    {
        return model->language().property("question").toMap()[QLatin1String(property)].toString();
    }
};

TEST_F(LanguageInquiryTest, IsRaisedFromTheTranscript)
{
    open();
    machine.all.preferredLanguages = { "en-GB", "fr" };
    int changes = 0;
    QObject::connect(
        &model->language(), &LanguageInquiry::questionChanged, [&changes] { ++changes; });
    EXPECT_EQ(model->language().question(), std::nullopt);
    EXPECT_FALSE(model->language().property("question").isValid());
    run();
    ASSERT_TRUE(model->language().question());
    EXPECT_EQ(model->language().question()->detected, "de-DE");
    EXPECT_THAT(options(), ElementsAre("de-DE", "en-US", "fr-FR"));
    EXPECT_EQ(model->language().question()->recording.id, onlyRecording().id);
    EXPECT_THAT(machine.textLanguage.texts, ElementsAre("Der Zug hatte schon wieder Verspätung"));
    EXPECT_EQ(changes, 1);
}

TEST_F(LanguageInquiryTest, OffersWhatTheEngineSpeaks)
{
    machine.all.preferredLanguages = { "en-GB", "fr", "ru" };
    machine.recognizer.installed = { "en-US", "ru-RU" };
    openAndAsk();
    EXPECT_THAT(options(), ElementsAre("en-US", "ru-RU"));
    model->preferences().provider.set("openrouter");
    machine.recognizer.installed.clear();
    model->language().consider("Der Zug hatte schon wieder Verspätung", onlyRecording());
    EXPECT_THAT(options(), ElementsAre("de-DE", "en-US", "fr-FR"));
    model->preferences().provider.set("apple");
    model->language().consider("Der Zug hatte schon wieder Verspätung", onlyRecording());
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, NeedsACertainFinding)
{
    struct Case {
        const char* name;
        const char* heard;
        std::optional<TextLanguageRecognizer::Finding> finding;
        std::optional<std::string> detected;
    };
    const std::vector<Case> cases{
        { "certain", "zwölf Zeichen!", { { "de", 0.8 } }, "de-DE" },
        { "uncertain", "zwölf Zeichen!", { { "de", 0.79 } }, std::nullopt },
        { "nothing", "zwölf Zeichen!", std::nullopt, std::nullopt },
        { "too few letters", "elf Zeichen, 1 2 3", { { "de", 1 } }, std::nullopt },
        { "another script", "дванадцять!!", { { "uk", 1 } }, std::nullopt },
        { "letters with marks", "हिन्दी में लिखा", { { "hi", 1 } }, "hi" },
    };
    machine.all.preferredLanguages = { "en-US" };
    open();
    for (const auto& [name, heard, finding, detected] : cases) {
        SCOPED_TRACE(name);
        machine.recognizer.hears = heard;
        machine.textLanguage.finding = finding;
        run();
        ASSERT_TRUE(model->language().question());
        EXPECT_EQ(model->language().question()->detected, detected);
        EXPECT_EQ(options().size(), detected ? 2U : 1U);
    }
}

TEST_F(LanguageInquiryTest, IsNotRaisedWithoutAnythingToOffer)
{
    machine.all.preferredLanguages.clear();
    machine.textLanguage.finding.reset();
    open();
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, IsNotRaisedWhenALanguageIsSetOrTheUserHasAnswered)
{
    choose("language", std::string("en-US"));
    open();
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
    EXPECT_TRUE(machine.textLanguage.texts.empty());

    model->preferences().language.set("auto");
    model->preferences().languageAnswered.set(true);
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, IsNotRaisedByAFailedRun)
{
    machine.recognizer.hears = " ";
    open();
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
    EXPECT_TRUE(machine.textLanguage.texts.empty());
}

TEST_F(LanguageInquiryTest, IsReplacedByThatOfALaterRunAndClearedByOneThatRaisesNone)
{
    openAndAsk();
    const auto first = model->language().question()->recording.id;
    machine.textLanguage.finding = { "fr", 1 };
    run();
    ASSERT_TRUE(model->language().question());
    EXPECT_EQ(model->language().question()->detected, "fr-FR");
    EXPECT_NE(model->language().question()->recording.id, first);

    machine.all.preferredLanguages.clear();
    machine.textLanguage.finding.reset();
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, StaysThroughARunWhoseLanguageIsSet)
{
    openAndAsk();
    const auto asked = model->language().question();
    model->preferences().language.set("en-US");
    run();
    EXPECT_EQ(model->language().question(), asked);
}

TEST_F(LanguageInquiryTest, IsRaisedBeforeTheCleanupIsAskedFor)
{
    LoopbackServer server;
    server.stopReading();
    openRouterURL = server.url() + "/api/v1/";
    machine.secrets.put("vesko-access", "sk-vesko");
    choose("cleanupEnabled", true);
    open();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return server.connections() == 1; }));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_TRUE(model->language().question());
}

TEST_F(LanguageInquiryTest, AnAnswerThatAgreesIsRememberedAndSaidBack)
{
    openAndAsk();
    int changes = 0;
    QObject::connect(
        &model->language(), &LanguageInquiry::questionChanged, [&changes] { ++changes; });
    model->language().choose(QStringLiteral("de-AT"));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().message(), "German will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "de-AT");
    EXPECT_TRUE(model->preferences().languageAnswered.get());
    EXPECT_EQ(model->language().question(), std::nullopt);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(onlyRecording().attempts.size(), 1U);
    EXPECT_EQ(machine.settings.values.at("language"), SettingValue{ std::string("de-AT") });
    EXPECT_EQ(machine.settings.values.at("languageAnswered"), SettingValue{ true });
}

TEST_F(LanguageInquiryTest, AnAnswerThatDiffersTranscribesAgainAndCopiesButNeverPastes)
{
    openAndAsk();
    machine.pasteKeystroke.sent = 0;
    machine.clipboard.text.reset();
    machine.recognizer.hears = "The train was late again";
    model->language().choose(QStringLiteral("en-US"));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->language().question(), std::nullopt);
    ASSERT_TRUE(reach(Phase::idle));
    ASSERT_EQ(onlyRecording().attempts.size(), 2U);
    EXPECT_EQ(onlyRecording().attempts[1].model, "pocketsphinx");
    EXPECT_EQ(machine.recognizer.languages.back(), "en-US");
    EXPECT_EQ(machine.clipboard.text, "The train was late again");
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(model->status().message(),
        "Copied. No text field was focused when you started. Paste it with Command V.");
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, WithPasteTurnedOffTheNewTextSaysSo)
{
    openAndAsk();
    model->preferences().pasteEnabled.set(false);
    model->language().choose(QStringLiteral("en-US"));
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().message(), "Copied. Paste it when you are ready.");
}

TEST_F(LanguageInquiryTest, WithoutAFindingNoAnswerTranscribesAgain)
{
    machine.textLanguage.finding.reset();
    openAndAsk();
    model->language().choose(QStringLiteral("fr-FR"));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().message(), "French will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "fr-FR");
}

TEST_F(LanguageInquiryTest, AnAnswerDuringAnotherCaptureIsOnlyRemembered)
{
    openAndAsk();
    dictate();
    model->language().choose(QStringLiteral("en-US"));
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_EQ(model->status().message(), "English will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "en-US");
    EXPECT_EQ(model->language().question(), std::nullopt);
    finish();
    // That capture began with automatic detection, but the question has been answered.
    EXPECT_EQ(machine.recognizer.languages.size(), 2U);
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, TheOtherAnswerKeepsTheLanguageAutomaticAndIsRemembered)
{
    openAndAsk();
    model->language().keepAutomatic();
    EXPECT_EQ(model->language().question(), std::nullopt);
    EXPECT_EQ(model->preferences().language.get(), "auto");
    EXPECT_TRUE(model->preferences().languageAnswered.get());
    run();
    EXPECT_EQ(model->language().question(), std::nullopt);
}

TEST_F(LanguageInquiryTest, AnAnswerThatNobodyAskedForDoesNothing)
{
    open();
    const auto message = model->status().message();
    model->language().choose(QStringLiteral("fr-FR"));
    model->language().keepAutomatic();
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(model->preferences().language.get(), "auto");
    EXPECT_FALSE(model->preferences().languageAnswered.get());
}

TEST_F(LanguageInquiryTest, ShowsNamesAndWhatAnAnswerDoes)
{
    machine.all.preferredLanguages = { "en-GB", "sv" };
    openAndAsk();
    const auto rows
        = model->language().property("question").toMap()[QStringLiteral("options")].toList();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].toMap()[QStringLiteral("tag")], QStringLiteral("de-DE"));
    EXPECT_EQ(rows[0].toMap()[QStringLiteral("name")], QStringLiteral("German"));
    EXPECT_EQ(rows[1].toMap()[QStringLiteral("name")], QStringLiteral("English"));
    EXPECT_EQ(rows[2].toMap()[QStringLiteral("name")], QStringLiteral("Swedish"));
    EXPECT_EQ(shown("note"),
        QStringLiteral("Vesko will use it for dictation. Another language transcribes the last "
                       "recording again."));

    machine.textLanguage.finding.reset();
    run();
    EXPECT_EQ(shown("note"), QStringLiteral("Vesko will use it for dictation."));

    machine.all.preferredLanguages = { "de" };
    machine.textLanguage.finding = { "de", 1 };
    run();
    EXPECT_EQ(shown("note"), QStringLiteral("Vesko will use it for dictation."));
}

} // namespace

} // namespace vesko

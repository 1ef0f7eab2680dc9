// After a dictation whose language was left to automatic detection, the user is asked once.

#include "tests/app/capture/AppModelTest.h"
#include "tests/fakes/LoopbackServer.h"

namespace vesko {

namespace {

using testing::ElementsAre;

class LanguageQuestionTest : public AppModelTest {
protected:
    LanguageQuestionTest()
    {
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
        ASSERT_TRUE(model->languageQuestion());
    }
    std::vector<std::string> options() const { return model->languageQuestion()->options; }
    QString shown(const char* property) const
    {
        return model->property("languageQuestion").toMap()[QLatin1String(property)].toString();
    }
};

TEST_F(LanguageQuestionTest, IsRaisedFromTheTranscript)
{
    open();
    machine.all.preferredLanguages = { "en-GB", "fr" };
    int changes = 0;
    QObject::connect(model.get(), &AppModel::languageQuestionChanged, [&changes] { ++changes; });
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    EXPECT_FALSE(model->property("languageQuestion").isValid());
    run();
    ASSERT_TRUE(model->languageQuestion());
    EXPECT_EQ(model->languageQuestion()->detected, "de-DE");
    EXPECT_THAT(options(), ElementsAre("de-DE", "en-US", "fr-FR"));
    EXPECT_EQ(model->languageQuestion()->recording.id, onlyRecording().id);
    EXPECT_THAT(machine.textLanguage.texts, ElementsAre("Der Zug hatte schon wieder Verspätung"));
    EXPECT_EQ(changes, 1);
}

TEST_F(LanguageQuestionTest, NeedsACertainFinding)
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
        ASSERT_TRUE(model->languageQuestion());
        EXPECT_EQ(model->languageQuestion()->detected, detected);
        EXPECT_EQ(options().size(), detected ? 2U : 1U);
    }
}

TEST_F(LanguageQuestionTest, IsNotRaisedWithoutAnythingToOffer)
{
    machine.all.preferredLanguages.clear();
    machine.textLanguage.finding.reset();
    open();
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, IsNotRaisedWhenALanguageIsSetOrTheUserHasAnswered)
{
    choose("language", std::string("en-US"));
    open();
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    EXPECT_TRUE(machine.textLanguage.texts.empty());

    model->preferences().language.set("auto");
    model->preferences().languageAnswered.set(true);
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, IsNotRaisedByAFailedRun)
{
    machine.recognizer.hears = " ";
    open();
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    EXPECT_TRUE(machine.textLanguage.texts.empty());
}

TEST_F(LanguageQuestionTest, IsReplacedByThatOfALaterRunAndClearedByOneThatRaisesNone)
{
    openAndAsk();
    const auto first = model->languageQuestion()->recording.id;
    machine.textLanguage.finding = { "fr", 1 };
    run();
    ASSERT_TRUE(model->languageQuestion());
    EXPECT_EQ(model->languageQuestion()->detected, "fr-FR");
    EXPECT_NE(model->languageQuestion()->recording.id, first);

    machine.all.preferredLanguages.clear();
    machine.textLanguage.finding.reset();
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, StaysThroughARunWhoseLanguageIsSet)
{
    openAndAsk();
    const auto asked = model->languageQuestion();
    model->preferences().language.set("en-US");
    run();
    EXPECT_EQ(model->languageQuestion(), asked);
}

TEST_F(LanguageQuestionTest, IsRaisedBeforeTheCleanupIsAskedFor)
{
    LoopbackServer server;
    server.stopReading();
    openRouterURL = server.url() + "/api/v1/";
    machine.secrets.put("vesko-access", "sk-vesko");
    choose("cleanupEnabled", true);
    open();
    dictate();
    model->toggleDictation();
    ASSERT_TRUE(eventually([&] { return server.connections() == 1; }));
    EXPECT_EQ(model->phase(), Phase::processing);
    EXPECT_TRUE(model->languageQuestion());
}

TEST_F(LanguageQuestionTest, AnAnswerThatAgreesIsRememberedAndSaidBack)
{
    openAndAsk();
    int changes = 0;
    QObject::connect(model.get(), &AppModel::languageQuestionChanged, [&changes] { ++changes; });
    model->chooseLanguage(QStringLiteral("de-AT"));
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_EQ(model->message(), "German will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "de-AT");
    EXPECT_TRUE(model->preferences().languageAnswered.get());
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(onlyRecording().attempts.size(), 1U);
    EXPECT_EQ(machine.settings.values.at("language"), SettingValue{ std::string("de-AT") });
    EXPECT_EQ(machine.settings.values.at("languageAnswered"), SettingValue{ true });
}

TEST_F(LanguageQuestionTest, AnAnswerThatDiffersTranscribesAgainAndCopiesButNeverPastes)
{
    openAndAsk();
    machine.pasteKeystroke.sent = 0;
    machine.clipboard.text.reset();
    machine.recognizer.hears = "The train was late again";
    model->chooseLanguage(QStringLiteral("en-US"));
    EXPECT_EQ(model->phase(), Phase::processing);
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    ASSERT_TRUE(reach(Phase::idle));
    ASSERT_EQ(onlyRecording().attempts.size(), 2U);
    EXPECT_EQ(onlyRecording().attempts[1].model, "apple/on-device/en-US");
    EXPECT_EQ(machine.recognizer.languages.back(), "en-US");
    EXPECT_EQ(machine.clipboard.text, "The train was late again");
    EXPECT_EQ(machine.pasteKeystroke.sent, 0);
    EXPECT_EQ(model->message(),
        "Copied. No text field was focused when you started. Paste it with Command V.");
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, WithPasteTurnedOffTheNewTextSaysSo)
{
    openAndAsk();
    model->preferences().pasteEnabled.set(false);
    model->chooseLanguage(QStringLiteral("en-US"));
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->message(), "Copied. Paste it when you are ready.");
}

TEST_F(LanguageQuestionTest, WithoutAFindingNoAnswerTranscribesAgain)
{
    machine.textLanguage.finding.reset();
    openAndAsk();
    model->chooseLanguage(QStringLiteral("fr-FR"));
    EXPECT_EQ(model->phase(), Phase::idle);
    EXPECT_EQ(model->message(), "French will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "fr-FR");
}

TEST_F(LanguageQuestionTest, AnAnswerDuringAnotherCaptureIsOnlyRemembered)
{
    openAndAsk();
    dictate();
    model->chooseLanguage(QStringLiteral("en-US"));
    EXPECT_EQ(model->phase(), Phase::recording);
    EXPECT_EQ(model->message(), "English will be used for dictation");
    EXPECT_EQ(model->preferences().language.get(), "en-US");
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    finish();
    // That capture began with automatic detection, but the question has been answered.
    EXPECT_EQ(machine.recognizer.languages.size(), 2U);
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, TheOtherAnswerKeepsTheLanguageAutomaticAndIsRemembered)
{
    openAndAsk();
    model->keepAutomaticLanguage();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
    EXPECT_EQ(model->preferences().language.get(), "auto");
    EXPECT_TRUE(model->preferences().languageAnswered.get());
    run();
    EXPECT_EQ(model->languageQuestion(), std::nullopt);
}

TEST_F(LanguageQuestionTest, AnAnswerThatNobodyAskedForDoesNothing)
{
    open();
    const auto message = model->message();
    model->chooseLanguage(QStringLiteral("fr-FR"));
    model->keepAutomaticLanguage();
    EXPECT_EQ(model->message(), message);
    EXPECT_EQ(model->preferences().language.get(), "auto");
    EXPECT_FALSE(model->preferences().languageAnswered.get());
}

TEST_F(LanguageQuestionTest, ShowsNamesAndWhatAnAnswerDoes)
{
    machine.all.preferredLanguages = { "en-GB", "sv" };
    openAndAsk();
    const auto rows
        = model->property("languageQuestion").toMap()[QStringLiteral("options")].toList();
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

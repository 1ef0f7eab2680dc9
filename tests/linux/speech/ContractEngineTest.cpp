#include "VeskoLinux/speech/engines/ContractEngine.h"

#include "tests/linux/speech/StandIn.h"

#include <gmock/gmock.h>

#include <vector>

namespace vesko {
namespace {

using namespace std::chrono_literals;

template <class Action>
std::string failure(const Action& action)
{
    try {
        action();
    } catch (const EngineFailure& error) {
        return error.what();
    }
    return "";
}

class Engines : public testing::Test {
protected:
    StandIns standIns;
    std::vector<std::int16_t> piece = std::vector<std::int16_t>(100'000, 7);

    // What an engine hears that answers each piece so, having read it.
    EngineAnswer answerOf(const std::string& answer) const
    {
        return heard(introduction
            + "while read -r word rest; do if [ $word = piece ]; then head -c \"$rest\" "
              ">/dev/null\n"
            + answer + "\nfi; done");
    }
    EngineAnswer heard(const std::string& script) const
    {
        const ContractEngine engine({ standIns.script(script) }, {});
        return engine.begin({ .language = "ru", .prompt = "Vesko, \n Kubernetes" }, {})
            ->heard(piece);
    }
};

TEST_F(Engines, introduceThemselves)
{
    const auto hello = ContractEngine::introduced({ standIns.script(introduction) }, {});
    EXPECT_EQ(hello,
        (EngineHello{ .name = "stand-in",
            .version = "2.1",
            .licence = "MIT",
            .languages = { "en", "ru", "de-AT" },
            .detectsLanguage = true }));
}

TEST_F(Engines, hearPieceByPiece)
{
    const ContractEngine engine(
        { standIns.script(introduction
            + "while read -r word rest; do case $word in\n"
              "language) language=$rest;;\nprompt) prompt=$rest;;\n"
              "piece) head -c \"$rest\" >\"$dir/sound\"; echo model small\n"
              "echo \"text $language $prompt $(wc -c <\"$dir/sound\")\";;\nesac; done") },
        {});
    const auto session = engine.begin({ .language = "ru", .prompt = "Vesko,\nKubernetes" }, {});
    EXPECT_EQ(session->heard(piece),
        (EngineAnswer{ .text = "ru Vesko, Kubernetes 200000", .language = {}, .model = "small" }));
    EXPECT_EQ(session->heard(std::span(piece).first(3)).text, "ru Vesko, Kubernetes 6");
    EXPECT_EQ(bytesOf(standIns.path() / "sound"), std::string("\7\0\7\0\7\0", 6));
}

TEST_F(Engines, mayFindOutTheLanguage)
{
    EXPECT_EQ(answerOf("echo language de; echo 'text guten Tag'"),
        (EngineAnswer{ .text = "guten Tag", .language = "de", .model = {} }));
}

TEST_F(Engines, thatAreNoneAreToldFromThoseThatAre)
{
    const std::string none = "the program is no engine of this contract";
    const std::string unintroduced = "the engine didn't introduce itself";
    const struct {
        const char* what;
        std::string script, why;
    } rows[] = {
        { "another program", "echo usage: tool FILE", none },
        { "a later contract", "echo vesko-engine 2", none },
        { "nothing", "exit 0", "the engine ended" },
        { "half an introduction", "echo 'vesko-engine 1'; echo 'name x'", "the engine ended" },
        { "no name", "echo 'vesko-engine 1'; echo ready", unintroduced },
        { "no language",
            "echo 'vesko-engine 1'; echo name x; echo version 1; echo licence y; echo ready",
            unintroduced },
        { "a name of the shell's", "echo 'vesko-engine 1'; echo 'name $(id)'",
            "the engine's name is none" },
        { "a name without end", "echo 'vesko-engine 1'; echo name $(seq 1000 | tr -d '\\n')",
            "the engine's name is none" },
        { "no tag", "echo 'vesko-engine 1'; echo 'languages en /etc'",
            "the engine named a language that is none" },
        { "invalid UTF-8", "printf 'vesko-engine 1\\nname \\377\\n'",
            "the engine's words are no text" },
        { "lines for ever", "echo 'vesko-engine 1'; exec yes hello", "the engine said too much" },
        { "a gigabyte", "exec head -c 1000000000 /dev/zero", "the engine said too much" },
        { "garbage", "exec head -c 100000 /dev/urandom; echo", "" },
    };
    for (const auto& row : rows) {
        const auto why
            = failure([&] { ContractEngine::introduced({ standIns.script(row.script) }, {}); });
        if (row.why.empty())
            EXPECT_NE(why, "") << row.what;
        else
            EXPECT_EQ(why, row.why) << row.what;
    }
    EXPECT_EQ(
        failure([&] { ContractEngine::introduced({ standIns.script("sleep 1000") }, {}, 1ms); }),
        "the engine doesn't answer");
}

TEST_F(Engines, failForAnAnswerThatIsNone)
{
    const struct {
        const char* what;
        std::string answer, why;
    } rows[] = {
        { "says that it failed", "echo 'failed no memory'", "the engine failed" },
        { "dies", "exit 1", "the engine ended" },
        { "half a line", "printf 'text hel'; exit 0", "the engine ended" },
        { "something else", "echo hello", "the engine's answer is none" },
        { "an empty line", "echo", "the engine's answer is none" },
        { "invalid UTF-8", "printf 'text \\303\\050\\n'", "the engine's words are no text" },
        { "no language", "echo 'language ../..'; echo text x",
            "the engine named a language that is none" },
        { "no model", "echo model; echo text x", "the engine's model has no name" },
        { "the model again and again", "yes 'model x'", "the engine said too much" },
        { "a gigabyte", "head -c 1000000000 /dev/zero", "the engine said too much" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(failure([&] { answerOf(row.answer); }), row.why) << row.what;
    EXPECT_EQ(failure([&] { heard(introduction + "exit 0"); }), "the engine takes no sound")
        << "dies before the sound";
    EXPECT_EQ(failure([&] { heard(introduction + "head -c 1000 >/dev/null; exit 0"); }),
        "the engine takes no sound")
        << "dies while it is spoken to";
}

TEST_F(Engines, mayPutControlCharactersIntoNoText)
{
    EXPECT_EQ(answerOf("printf 'text  a\\033[1m\\tb\\0c \\r\\n'").text, "a [1m b c");
}

TEST_F(Engines, speakTheLanguagesThatTheyName)
{
    const ContractEngine engine({ "/x" }, { .languages = { "en", "de-AT" } });
    for (const char* tag : { "en", "en-US", "de", "DE-de" })
        EXPECT_TRUE(engine.speaks(tag)) << tag;
    for (const char* tag : { "ru", "auto", "" })
        EXPECT_FALSE(engine.speaks(tag)) << tag;
    EXPECT_TRUE(ContractEngine({ "/x" }, { .detectsLanguage = true }).speaks("auto"));
}

} // namespace
} // namespace vesko

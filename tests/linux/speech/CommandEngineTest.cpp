#include "VeskoLinux/speech/engines/WhisperEngine.h"

#include "VeskoCore/speech/Wave.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "tests/linux/speech/StandIn.h"

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <thread>

namespace vesko {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::IsEmpty;
using testing::Le;

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

class Commands : public testing::Test {
protected:
    StandIns standIns;
    std::vector<std::int16_t> piece = std::vector<std::int16_t>(16'000, -2);

    Commands() { ::setenv("XDG_RUNTIME_DIR", runtime().c_str(), 1); }
    ~Commands() override { ::unsetenv("XDG_RUNTIME_DIR"); }

    std::filesystem::path runtime() const
    {
        std::filesystem::create_directories(standIns.path() / "run");
        return standIns.path() / "run";
    }
    CommandEngine::Command command(const std::string& script, std::vector<std::string> words) const
    {
        words.insert(words.begin(), standIns.script(script));
        return { .name = "command",
            .words = std::move(words),
            .promptWords = { "--prompt={prompt}" },
            .model = "/models/a b.bin",
            .modelName = "a b" };
    }
    EngineAnswer heard(const CommandEngine::Command& of, const SpeechEngine::Wish& wish) const
    {
        return CommandEngine(of).begin(wish, {})->heard(piece);
    }
};

TEST_F(Commands, areGivenTheSoundTheLanguageAndTheModel)
{
    const auto answer = heard(
        command("cp \"$2\" \"$dir/heard.wav\"; shift 2; printf '%s|' \"$@\"",
            { "-f", "{wav}", "-l{language}", "{model}", "$(id)", "{other}", "{model}{language}" }),
        { .language = "de-AT" });
    EXPECT_EQ(answer.text, "-lde|/models/a b.bin|$(id)|{other}|/models/a b.binde|");
    EXPECT_EQ(answer.model, "a b");
    EXPECT_EQ(bytesOf(standIns.path() / "heard.wav"), wave(piece, speechRate));
}

TEST_F(Commands, areGivenAPromptOnlyIfThereIsOne)
{
    const auto echo = command("printf '%s|' \"$@\"", { "x" });
    EXPECT_EQ(heard(echo, { .language = "en" }).text, "x|");
    EXPECT_EQ(heard(echo, { .language = "en", .prompt = "Vesko {model}; $HOME" }).text,
        "x|--prompt=Vesko {model}; $HOME|")
        << "what is put in is not looked at again";
}

TEST_F(Commands, nameLanguagesAsWhisperDoes)
{
    for (const auto& [tag, name] : { std::pair{ "auto", "auto" }, { "en-US", "en" }, { "RU", "ru" },
             { "nb-NO", "no" }, { "fil", "tl" }, { "jv", "jw" } })
        EXPECT_EQ(heard(command("echo \"$1\"", { "{language}" }), { .language = tag }).text, name);
}

TEST_F(Commands, keepTheSoundToThemselvesAndNoLonger)
{
    const auto answer = heard(
        command("stat -c %a \"$(dirname \"$1\")\"; dirname \"$(dirname \"$1\")\"", { "{wav}" }),
        { .language = "en" });
    EXPECT_EQ(answer.text, "700 " + runtime().string());
    EXPECT_TRUE(std::filesystem::is_empty(runtime()));
}

TEST_F(Commands, mayPrintLinesOfText)
{
    EXPECT_EQ(heard(command("printf '\\n One.\\n Two. \\n\\n'", {}), { .language = "en" }).text,
        "One.  Two.");
}

TEST_F(Commands, failWithTheirPrograms)
{
    const struct {
        const char* what;
        std::string script, why;
    } rows[] = {
        { "prints nothing", "exit 0", "" },
        { "fails", "echo half a text; exit 3", "the engine ended badly" },
        { "is killed", "sh -c 'kill -SEGV $PPID'; sleep 0.1; exit 9", "the engine ended badly" },
        { "prints a gigabyte", "exec head -c 1000000000 /dev/zero", "the engine said too much" },
        { "prints garbage", "printf '\\377\\376'", "the engine's words are no text" },
        { "prints half a letter", "printf 'caf\\303'", "the engine's words are no text" },
        { "fills its error output", "head -c 10000000 /dev/zero >&2", "" },
        { "leaves a child", "setsid sleep 1000 & exit 0", "" },
    };
    for (const auto& row : rows) {
        EXPECT_EQ(failure([&] { heard(command(row.script, {}), { .language = "en" }); }), row.why)
            << row.what;
        EXPECT_TRUE(std::filesystem::is_empty(runtime())) << row.what;
    }
    auto missing = command("", {});
    missing.words[0] = standIns.path() / "missing";
    EXPECT_EQ(
        failure([&] { heard(missing, { .language = "en" }); }), "the engine's program isn't there");
}

TEST_F(Commands, thatNeverEndAreEndedByTheStop)
{
    std::stop_source stop;
    const auto session = CommandEngine(command("echo x >\"$dir/begun\"; exec sleep 1000", {}))
                             .begin({ .language = "en" }, stop.get_token());
    const std::jthread other([&] {
        while (!std::filesystem::exists(standIns.path() / "begun"))
            std::this_thread::yield();
        stop.request_stop();
    });
    EXPECT_ANY_THROW(session->heard(piece));
}

// What whisper.cpp's models begin with.
std::string modelOf(std::uint32_t words, std::size_t size = 100)
{
    std::string bytes = "lmgg";
    for (int i = 0; i < 4; ++i)
        bytes += static_cast<char>(words >> (8 * i));
    bytes.resize(size, '\0');
    return bytes;
}

class WhisperModels : public Commands {
protected:
    std::filesystem::path folder(const std::string& name) const
    {
        std::filesystem::create_directories(standIns.path() / name);
        return standIns.path() / name;
    }
    static std::vector<std::string> names(const std::vector<WhisperModel>& models)
    {
        std::vector<std::string> all;
        for (const auto& model : models)
            all.push_back(model.name + (model.multilingual ? "*" : ""));
        return all;
    }
};

TEST_F(WhisperModels, areFoundInTheirFolders)
{
    putBytes(folder("a") / "ggml-small.bin", modelOf(51865, 300));
    putBytes(folder("a") / "ggml-base.en.bin", modelOf(51864, 200));
    putBytes(folder("b") / "ggml-large-v3.bin", modelOf(51866, 400));
    putBytes(folder("b") / "ggml-small.bin", modelOf(51864, 999));
    std::filesystem::create_symlink(folder("a") / "ggml-small.bin", folder("b") / "ggml-link.bin");
    EXPECT_THAT(names(WhisperModel::in({ folder("a"), folder("missing"), folder("b") })),
        ElementsAre("base.en", "link*", "small*", "large-v3*"));
}

TEST_F(WhisperModels, areNotWhatOnlyIsNamedSo)
{
    putBytes(folder("a") / "ggml-empty.bin", "");
    putBytes(folder("a") / "ggml-cut.bin", modelOf(51865).substr(0, 6));
    putBytes(folder("a") / "ggml-random.bin", std::string(1000, '\xA5'));
    putBytes(folder("a") / "ggml-silero-v5.1.2.bin", modelOf(16));
    putBytes(folder("a") / "ggml-.bin", modelOf(51865));
    putBytes(folder("a") / "small.bin", modelOf(51865));
    std::filesystem::create_directory(folder("a") / "ggml-folder.bin");
    ASSERT_EQ(::mkfifo((folder("a") / "ggml-pipe.bin").c_str(), 0600), 0);
    std::filesystem::create_symlink(folder("a") / "nothing", folder("a") / "ggml-link.bin");
    EXPECT_THAT(WhisperModel::in({ folder("a") }), IsEmpty());
}

TEST_F(WhisperModels, speakTheirLanguages)
{
    const WhisperEngine all(
        "/x", { .file = "/m", .name = "base", .size = 1, .multilingual = true });
    for (const char* tag : { "auto", "en-US", "ru-RU", "de", "es-419", "nb-NO" })
        EXPECT_TRUE(all.speaks(tag)) << tag;
    EXPECT_FALSE(all.speaks("tlh"));
    const WhisperEngine english("/x", { .file = "/m", .name = "base.en" });
    EXPECT_TRUE(english.speaks("en-GB"));
    for (const char* tag : { "auto", "ru" })
        EXPECT_FALSE(english.speaks(tag)) << tag;
}

// A program that takes its options as whisper-cli does, and complains of any other.
TEST_F(WhisperModels, workThroughTheCommandLineProgram)
{
    const auto program = standIns.script(R"sh(
while [ $# -gt 0 ]; do case $1 in
--model) model=$2; shift 2;; --file) file=$2; shift 2;; --language) language=$2; shift 2;;
--threads) threads=$2; shift 2;; --prompt) prompt=$2; shift 2;;
--no-timestamps | --no-prints) quiet="$quiet$1"; shift;;
*) echo "error: unknown argument: $1" >&2; exit 1;; esac; done
[ "$(head -c 4 "$file")" = RIFF ] && [ "$(head -c 4 "$model")" = lmgg ] || exit 3
printf '\n Привет, %s %s. %s\n' "$language" "$prompt" "$quiet" )sh",
        "whisper-cli");
    putBytes(folder("a") / "ggml-base.bin", modelOf(51865));
    const WhisperEngine engine(program, WhisperModel::in({ folder("a") }).at(0));
    const auto session = engine.begin({ .language = "ru-RU", .prompt = "Vesko" }, {});
    EXPECT_EQ(session->heard(piece),
        (EngineAnswer{ .text = "Привет, ru Vesko. --no-timestamps--no-prints",
            .language = {},
            .model = "base" }));
    EXPECT_EQ(engine.name(), "whisper.cpp");
    putBytes(folder("a") / "ggml-base.bin", "");
    EXPECT_EQ(failure([&] { session->heard(piece); }), "the engine ended badly");
}

TEST(RecognitionThreads, areAFewOfTheCores)
{
    EXPECT_THAT(recognitionThreads(), AllOf(Ge(1), Le(4)));
}

} // namespace
} // namespace vesko

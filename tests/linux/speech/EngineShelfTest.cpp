#include "VeskoLinux/speech/EngineShelf.h"

#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/speech/StandIn.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace vesko {
namespace {

using testing::ElementsAre;

class Shelf : public testing::Test {
protected:
    StandIns standIns;
    std::vector<std::string> used;

    std::filesystem::path folder(const std::string& name) const
    {
        std::filesystem::create_directories(standIns.path() / name);
        return standIns.path() / name;
    }
    // A model of that size, in as many words as one that knows all languages has.
    void putModel(const std::string& name, std::size_t size) const
    {
        const auto file = folder("models") / ("ggml-" + name + ".bin");
        putBytes(file, std::string("lmgg\x99\xCA\0\0", 8));
        std::filesystem::resize_file(file, size); // no more than a hole
    }
    std::unique_ptr<EngineShelf> shelf()
    {
        return std::make_unique<EngineShelf>(
            EngineShelf::Places{ .pocketSphinx = VESKO_POCKETSPHINX,
                .contractEngines = { folder("engines"), folder("none") },
                .whisperPrograms = { folder("bin") / "whisper-cli" },
                .whisperModels = { folder("models") } },
            [this](std::shared_ptr<const SpeechEngine> engine) { used.push_back(engine->name()); });
    }
    std::vector<std::string> found()
    {
        std::vector<std::string> ids;
        for (const auto& engine : await(shelf()->find()))
            ids.push_back(engine.id);
        return ids;
    }
};

TEST_F(Shelf, holdsAtLeastTheEngineThatCameWithIt)
{
    const auto engines = await(shelf()->find());
    ASSERT_THAT(engines, testing::SizeIs(1));
    EXPECT_EQ(engines[0].id, "pocketsphinx");
    EXPECT_THAT(engines[0].languages, ElementsAre("en-us"));
    EXPECT_FALSE(engines[0].detectsLanguage);
}

TEST_F(Shelf, offersTheBestModelThatKeepsUpFirst)
{
    folder("bin");
    standIns.script("", "bin/whisper-cli");
    EXPECT_THAT(found(), ElementsAre("pocketsphinx")) << "a program without models";
    for (const auto& [name, size] : { std::pair{ "base", 148'000'000UL }, { "tiny", 78'000'000UL },
             { "large-v3", 3'100'000'000UL }, { "small", 488'000'000UL },
             { "medium", 1'530'000'000UL } })
        putModel(name, size);
    EXPECT_THAT(found(),
        ElementsAre("whisper.cpp/small", "whisper.cpp/base", "whisper.cpp/tiny",
            "whisper.cpp/medium", "whisper.cpp/large-v3", "pocketsphinx"));
    EXPECT_TRUE(await(shelf()->find()).front().detectsLanguage);
    ::chmod((folder("bin") / "whisper-cli").c_str(), 0777);
    EXPECT_THAT(found(), ElementsAre("pocketsphinx")) << "anybody may have written it";
}

TEST_F(Shelf, holdsEnginesThatIntroduceThemselves)
{
    folder("engines");
    standIns.script(introduction, "engines/mine");
    standIns.script("echo hello", "engines/other");
    standIns.script("exit 1", "engines/broken");
    putBytes(folder("engines") / "README", "no program");
    const auto engines = await(shelf()->find());
    ASSERT_THAT(engines, testing::SizeIs(2));
    EXPECT_EQ(engines[0],
        (FoundEngine{ .id = "engine/stand-in",
            .name = "stand-in",
            .model = "",
            .version = "2.1",
            .licence = "MIT",
            .languages = { "en", "ru", "de-AT" },
            .detectsLanguage = true }));
}

// Neither would come to its end alone.
TEST_F(Shelf, asksItsEnginesBesideOneAnother)
{
    folder("engines");
    standIns.script(
        "touch \"$dir/first\"; until [ -e \"$dir/second\" ]; do sleep 0.01; done\n" + introduction,
        "engines/a");
    standIns.script(
        "touch \"$dir/second\"; until [ -e \"$dir/first\" ]; do sleep 0.01; done\n" + introduction,
        "engines/b");
    EXPECT_THAT(found(), ElementsAre("engine/stand-in", "engine/stand-in", "pocketsphinx"));
}

TEST_F(Shelf, givesTheChosenEngineWithoutWaitingForOneThatNeverSaysWhoItIs)
{
    folder("engines");
    standIns.script("touch \"$dir/silent\"; sleep 1000", "engines/a-silent");
    standIns.script(
        "until [ -e \"$dir/silent\" ]; do sleep 0.01; done\n" + introduction, "engines/mine");
    const auto all = shelf();
    TaskScope looking;
    bool looked = false;
    looking.spawn([](EngineShelf& engines, bool& done) -> Task<> {
        co_await engines.find();
        done = true;
    }(*all, looked));
    EXPECT_TRUE(await(all->use({ .id = "engine/stand-in" })));
    EXPECT_FALSE(looked);
}

TEST_F(Shelf, givesWhatIsChosenIfItIsThere)
{
    folder("bin");
    standIns.script("", "bin/whisper-cli");
    putModel("base", 148'000'000);
    folder("engines");
    standIns.script(introduction, "engines/mine");
    const auto all = shelf();
    const auto use = [&](EngineChoice choice) { return await(all->use(std::move(choice))); };
    EXPECT_TRUE(use({ .id = "whisper.cpp/base" }));
    EXPECT_TRUE(use({ .id = "engine/stand-in" }));
    EXPECT_TRUE(use({ .id = "pocketsphinx" }));
    EXPECT_TRUE(use({ .id = "command", .command = { "/usr/bin/tool", "{wav}" } }));
    EXPECT_TRUE(use({ .id = "server", .serverAddress = "http://localhost:8080" }));
    EXPECT_THAT(used, ElementsAre("whisper.cpp", "stand-in", "pocketsphinx", "command", "server"));
    EXPECT_FALSE(use({ .id = "whisper.cpp/huge" }));
    EXPECT_FALSE(use({ .id = "" }));
    EXPECT_FALSE(use({ .id = "command" }));
    EXPECT_FALSE(use({ .id = "command", .command = { "/usr/bin/tool" } }));
    EXPECT_FALSE(use({ .id = "server", .serverAddress = "http://example.com" }));
    EXPECT_THAT(used, testing::SizeIs(5));
}

} // namespace
} // namespace vesko

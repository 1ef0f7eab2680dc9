#include "VeskoCore/speech/EngineContract.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

EngineHello helloOf(const std::vector<std::string>& lines)
{
    EngineHelloReader reader;
    for (const auto& line : lines)
        if (reader.take(line))
            return reader.hello();
    throw EngineFailure("no end");
}

std::vector<std::string> introductionWith(const std::string& line)
{
    return { "vesko-engine 1", "name x", "version 1", "licence MIT", "languages en", line,
        "ready" };
}

TEST(EngineContract, AnIntroductionNamesAllThatIsAskedFor)
{
    EXPECT_EQ(helloOf({ "vesko-engine 1", "name whisper-2.x", "version  1.7.4 ", "licence MIT",
                  "languages en  de-AT auto", "later words", "longest 28", "ready" }),
        (EngineHello{ .name = "whisper-2.x",
            .version = "1.7.4",
            .licence = "MIT",
            .languages = { "en", "de-AT" },
            .detectsLanguage = true,
            .longestPiece = 28 }));
    EXPECT_EQ(helloOf(introductionWith("")).longestPiece, 12);
}

TEST(EngineContract, AnIntroductionIsRefusedForWhatItNames)
{
    for (const char* line :
        { "name X", "name ", "name a/b", "longest 4", "longest 61", "longest", "longest 28 s",
            "languages en_US", "languages \xC3\xA9", "languages ../x", "name \xff" })
        EXPECT_THROW(helloOf(introductionWith(line)), EngineFailure) << line;
    for (std::size_t missing = 0; missing < 5; ++missing) {
        auto lines = introductionWith("");
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(missing));
        EXPECT_THROW(helloOf(lines), EngineFailure) << missing;
    }
}

TEST(EngineContract, LanguagesAreSpokenInEveryRegion)
{
    const EngineHello hello{ .languages = { "en-us", "de-AT" } };
    EXPECT_TRUE(hello.speaks("en-GB"));
    EXPECT_TRUE(hello.speaks("de"));
    EXPECT_FALSE(hello.speaks("auto"));
    EXPECT_FALSE(hello.speaks("eng"));
}

TEST(EngineContract, WhatIsSentIsOneLineEach)
{
    EXPECT_EQ(engineLanguageLine("de-AT"), "language de-AT\n");
    EXPECT_EQ(enginePromptLine("Vesko,\nIlyinichna\r\n\t\x7f"), "prompt Vesko, Ilyinichna    \n");
    EXPECT_EQ(enginePieceLine(384'000), "piece 384000\n");
}

TEST(EngineContract, OutputBecomesOneLineOfText)
{
    EXPECT_EQ(spokenText("\n Grüße,\r\n Welt.\x1b \n"), "Grüße,   Welt.");
    EXPECT_EQ(spokenText(""), "");
    EXPECT_THROW(spokenText("caf\xc3"), EngineFailure);
}

} // namespace
} // namespace vesko

#include "VeskoCore/shell/DemoScene.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace vesko {
namespace {

TEST(DemoScene, ReadsItsFourForms)
{
    EXPECT_EQ(
        DemoScene::fromText("note=0"), (DemoScene{ .kind = DemoScene::note, .noteIndex = 0 }));
    EXPECT_EQ(
        DemoScene::fromText("note=12"), (DemoScene{ .kind = DemoScene::note, .noteIndex = 12 }));
    EXPECT_EQ(DemoScene::fromText("project=1,2"),
        (DemoScene{ .kind = DemoScene::project, .projectIndex = 1, .noteIndex = 2 }));
    EXPECT_EQ(DemoScene::fromText("dictionary"), DemoScene{ .kind = DemoScene::dictionary });
    EXPECT_EQ(DemoScene::fromText("settings"), DemoScene{ .kind = DemoScene::settings });
}

TEST(DemoScene, ReadsTheLargestIndexAndNoLarger)
{
    const std::string largest = std::to_string(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(DemoScene::fromText("note=" + largest).has_value());
    EXPECT_FALSE(DemoScene::fromText("note=" + largest + "0").has_value());
}

TEST(DemoScene, KnowsNoOtherText)
{
    const std::string_view texts[] = { "", "note", "note=", "note=-1", "note=+1", "note= 1",
        "note=1 ", "note=1x", "note=0x1", "note=1.0", "note=1,2", "note=\u0661", "Note=1",
        " note=1", "project", "project=", "project=1", "project=1,", "project=,1", "project=1,2,3",
        "project=1,,2", "project=-1,2", "project=1,-2", "project=1, 2", "project=1;2",
        "dictionary ", "Dictionary", "dictionary=1", "settings=", "SETTINGS", "library",
        std::string_view("settings\0", 9) };
    for (const std::string_view text : texts)
        EXPECT_FALSE(DemoScene::fromText(text).has_value()) << '"' << text << '"';
}

} // namespace
} // namespace vesko

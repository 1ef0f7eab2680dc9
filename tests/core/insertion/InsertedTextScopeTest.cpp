#include "VeskoCore/insertion/InsertedTextScope.h"

#include "tests/core/Repeated.h"

#include <gtest/gtest.h>

#include <limits>

namespace vesko {
namespace {

TEST(InsertedTextScope, HoldsWhatStandsAroundTheSelection)
{
    const struct {
        const char* name;
        std::string field;
        TextRange selection;
        std::string prefix, suffix;
    } rows[] = {
        { "an empty field", "", { 0, 0 }, "", "" },
        { "at the beginning", "abc", { 0, 0 }, "", "abc" },
        { "in the middle", "abc", { 1, 0 }, "a", "bc" },
        { "at the end", "abc", { 3, 0 }, "abc", "" },
        { "over a selection", "abcd", { 1, 2 }, "a", "d" },
        { "over everything", "abcd", { 0, 4 }, "", "" },
        { "behind a surrogate pair", "😀é漢x", { 4, 1 }, "😀é漢", "" },
        { "between marks of one character", "e\u0301x", { 1, 1 }, "e", "x" },
    };
    for (const auto& row : rows) {
        const auto scope = InsertedTextScope::from(row.field, row.selection, "new");
        ASSERT_TRUE(scope) << row.name;
        EXPECT_EQ(*scope, (InsertedTextScope{ "new", row.prefix, row.suffix })) << row.name;
        EXPECT_EQ(scope->expectedValue(), row.prefix + "new" + row.suffix) << row.name;
        EXPECT_EQ(scope->editedFragment(scope->expectedValue()), "new") << row.name;
    }
}

TEST(InsertedTextScope, ThereIsNoneWhereNothingCouldBeWatched)
{
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    const struct {
        const char* name;
        std::string field;
        TextRange selection;
        std::string inserted;
        bool exists;
    } rows[] = {
        { "32,768 units", repeated("a", 32'768), { 0, 0 }, "new", true },
        { "32,769 units", repeated("a", 32'769), { 0, 0 }, "new", false },
        { "32,768 units of two each", repeated("😀", 16'384), { 0, 0 }, "new", true },
        { "32,770 units of two each", repeated("😀", 16'385), { 0, 0 }, "new", false },
        { "40,000 units", repeated("a", 40'000), { 0, 0 }, "new", false },
        { "a negative location", "abc", { -1, 0 }, "new", false },
        { "a negative length", "abc", { 1, -1 }, "new", false },
        { "the most negative numbers", "abc", { least, least }, "new", false },
        { "a location behind the end", "abc", { 4, 0 }, "new", false },
        { "a length beyond the end", "abc", { 1, 3 }, "new", false },
        { "numbers that don't add up", "abc", { 1, most }, "new", false },
        { "the largest location", "abc", { most, most }, "new", false },
        { "a location amid a surrogate pair", "😀", { 1, 0 }, "new", false },
        { "an end amid a surrogate pair", "a😀", { 1, 1 }, "new", false },
        { "nothing inserted", "abc", { 0, 0 }, "", false },
        { "8,000 characters inserted", "abc", { 0, 0 }, repeated("👍🏽", 8'000), true },
        { "8,001 characters inserted", "abc", { 0, 0 }, repeated("👍🏽", 8'001), false },
        { "8,001 letters inserted", "abc", { 0, 0 }, repeated("a", 8'001), false },
    };
    for (const auto& row : rows)
        EXPECT_EQ(
            InsertedTextScope::from(row.field, row.selection, row.inserted).has_value(), row.exists)
            << row.name;
}

TEST(InsertedTextScope, TheFragmentIsWhatLiesBetween)
{
    const InsertedTextScope scope{ "new", "say ", " now" };
    const InsertedTextScope bare{ "new", "", "" };
    const InsertedTextScope alike{ "new", "aba", "aba" };
    const struct {
        const char* name;
        const InsertedTextScope& scope;
        std::string value;
        std::optional<std::string> expected;
    } rows[] = {
        { "as inserted", scope, "say new now", "new" },
        { "edited", scope, "say something 😀 now", "something 😀" },
        { "emptied", scope, "say  now", "" },
        { "the prefix changed", scope, "Say new now", std::nullopt },
        { "the suffix changed", scope, "say new now!", std::nullopt },
        { "the field is empty", scope, "", std::nullopt },
        { "the two overlap", alike, "aba", std::nullopt },
        { "the two overlap by one", alike, "ababa", std::nullopt },
        { "the two meet", alike, "abaaba", "" },
        { "nothing around it", bare, "anything", "anything" },
        { "nothing around it and emptied", bare, "", "" },
        { "another encoding of the prefix", { "new", "e\u0301", "" }, "\u00E9new", std::nullopt },
        { "8,000 characters", bare, repeated("👍🏽", 8'000), repeated("👍🏽", 8'000) },
        { "8,001 characters", bare, repeated("a", 8'001), std::nullopt },
        { "a value of 32,768 characters", { "new", repeated("a", 32'767), "" },
            repeated("a", 32'767) + "b", "b" },
        { "of several code points each", { "new", repeated("👍🏽", 32'767), "" },
            repeated("👍🏽", 32'767) + "b", "b" },
        { "a value of 32,769 characters", { "new", repeated("a", 32'768), "" },
            repeated("a", 32'768) + "b", std::nullopt },
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.scope.editedFragment(row.value), row.expected) << row.name;
}

} // namespace
} // namespace vesko

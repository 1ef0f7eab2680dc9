#include "VeskoCore/base/JsonWriter.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace vesko {

namespace {

enum class Colour { red, blueish };

struct Leaf {
    std::string text;
    bool operator==(const Leaf&) const = default;
};

struct Tree {
    std::optional<std::string> absent;
    bool flag = false;
    std::vector<Leaf> leaves;
    SharedArray<Leaf> shared;
};

struct Values {
    std::int64_t count = 0;
    Colour colour = Colour::red;
    Date date;
    Uuid id;
    double number = 0;
};

// An object and a list for each, around nothing.
template <int levels>
struct Nest {
    std::vector<Nest<levels - 1>> inner{ 1 };
};
template <>
struct Nest<0> {
    std::vector<Leaf> inner;
};

struct Nothing {
    std::optional<bool> none;
};

} // namespace

template <>
inline constexpr auto jsonNames<Colour> = std::to_array<std::string_view>({ "red", "blue_ish" });
template <>
inline constexpr std::tuple jsonFields<Leaf>{ JsonField{ "text", &Leaf::text } };
template <>
inline constexpr std::tuple jsonFields<Tree>{
    JsonField{ "absent", &Tree::absent },
    JsonField{ "flag", &Tree::flag },
    JsonField{ "leaves", &Tree::leaves },
    JsonField{ "shared", &Tree::shared },
};
template <>
inline constexpr std::tuple jsonFields<Values>{
    JsonField{ "colour", &Values::colour },
    JsonField{ "count", &Values::count },
    JsonField{ "date", &Values::date },
    JsonField{ "id", &Values::id },
    JsonField{ "number", &Values::number },
};
template <int levels>
inline constexpr std::tuple jsonFields<Nest<levels>>{ JsonField{ "inner", &Nest<levels>::inner } };
template <>
inline constexpr std::tuple jsonFields<Nothing>{ JsonField{ "none", &Nothing::none } };

namespace {

template <class T>
std::string pretty(const T& value)
{
    return JsonWriter::write(value, JsonWriter::Form::pretty);
}

template <class T>
std::string compact(const T& value)
{
    return JsonWriter::write(value, JsonWriter::Form::compact);
}

std::string written(std::string text)
{
    return compact(text);
}

TEST(JsonWriter, PrettyTextHasTwoBlanksALevelAndALineInAnEmptyArray)
{
    Tree tree;
    tree.absent = "there";
    tree.leaves = { { "a" }, { "b" } };
    EXPECT_EQ(pretty(tree), R"({
  "absent" : "there",
  "flag" : false,
  "leaves" : [
    {
      "text" : "a"
    },
    {
      "text" : "b"
    }
  ],
  "shared" : [

  ]
})");
}

TEST(JsonWriter, AnObjectOfNothingHasAnEmptyLine)
{
    EXPECT_EQ(pretty(Nothing()), "{\n\n}");
    EXPECT_EQ(pretty(std::vector<Nothing>(1)), "[\n  {\n\n  }\n]");
}

TEST(JsonWriter, CompactTextIsOneLineWithoutBlanks)
{
    Tree tree;
    tree.flag = true;
    tree.leaves = { { "a\nb" }, { "" } };
    EXPECT_EQ(compact(tree), R"({"flag":true,"leaves":[{"text":"a\nb"},{"text":""}],"shared":[]})");
    EXPECT_EQ(compact(Nothing()), "{}");
}

TEST(JsonWriter, WritesEachKindOfValue)
{
    Values values;
    values.count = std::numeric_limits<std::int64_t>::min();
    values.colour = Colour::blueish;
    values.date = *Date::parse("2026-11-21T10:52:00Z");
    values.number = 1.5;
    EXPECT_EQ(compact(values),
        R"({"colour":"blue_ish","count":-9223372036854775808,"date":"2026-11-21T10:52:00Z",)"
        R"("id":"00000000-0000-0000-0000-000000000000","number":1.5})");
}

TEST(JsonWriter, NumbersTakeTheirShortestExactForm)
{
    struct Case {
        double number;
        const char* text;
    };
    for (const auto& [number, text] : {
             Case{ 0, "0" },
             Case{ -0.0, "-0" },
             Case{ 1, "1" },
             Case{ -2.5, "-2.5" },
             Case{ 0.1, "0.1" },
             Case{ 0.1 + 0.2, "0.30000000000000004" },
             Case{ 100000, "100000" },
             Case{ 12.34, "12.34" },
             Case{ 0.0001, "0.0001" },
             Case{ 0.00001, "1e-05" },
             Case{ 9007199254740992, "9007199254740992" },
             Case{ 1e16, "1e+16" },
             Case{ 1e300, "1e+300" },
             Case{ 5e-324, "5e-324" },
         })
        EXPECT_EQ(compact(number), text);
}

TEST(JsonWriter, EscapesWhatItMustAndTheSlash)
{
    struct Case {
        const char* name;
        std::string text, expected;
    };
    for (const auto& [name, text, expected] : {
             Case{ "quotes", "a\"b", R"("a\"b")" },
             Case{ "backslash", "a\\b", R"("a\\b")" },
             Case{ "slash", "a/b", R"("a\/b")" },
             Case{ "short escapes", "\b\f\n\r\t", R"("\b\f\n\r\t")" },
             Case{ "NUL", std::string(1, '\0'), R"("\u0000")" },
             Case{ "other control characters", "\x01\x0b\x1f", R"("\u0001\u000b\u001f")" },
             Case{ "delete is none", "\x7f", "\"\x7f\"" },
             Case{ "beyond ASCII", "é会😀", "\"é会😀\"" },
             Case{ "line separator", "\u2028", "\"\u2028\"" },
             Case{ "nothing", "", "\"\"" },
         })
        EXPECT_EQ(written(text), expected) << name;
}

TEST(JsonWriter, FindsAnEscapeAtEveryPositionOfATextOfEveryLength)
{
    for (std::size_t length = 1; length <= 50; ++length)
        for (std::size_t at = 0; at < length; ++at)
            for (const char special : { '/', '"', '\\', '\n', '\x1f', '\0' }) {
                std::string text(length, 'x');
                text[at] = special;
                auto expected = '"' + text + '"';
                expected.replace(at + 1, 1, written(std::string(1, special)), 1,
                    written(std::string(1, special)).size() - 2);
                ASSERT_EQ(written(text), expected) << length << ' ' << at;
            }
}

TEST(JsonWriter, WritesTextsThatAreLongerThanAPiece)
{
    // Every split of a character over the ends of pieces comes up with one of the beginnings.
    for (const std::string beginning : { "", "a", "ab", "abc" }) {
        std::string text = beginning;
        while (text.size() < 1'000'000)
            text += "😀é/";
        const auto out = written(text);
        std::string back;
        for (std::size_t at = 1; at + 1 < out.size(); ++at)
            if (out[at] != '\\')
                back += out[at];
        EXPECT_EQ(back, text);
    }
    EXPECT_EQ(written(std::string(100'000, '\x01')).size(), 600'002U);
}

TEST(JsonWriter, WritesBytesAsTheirBase64)
{
    std::string bytes;
    for (unsigned i = 0; i < 200'000; ++i)
        bytes += static_cast<char>(i * 2654435761U >> 24);
    for (const std::size_t size : { 0U, 1U, 2U, 3U, 12'287U, 12'288U, 12'289U, 200'000U }) {
        const auto part = std::string_view(bytes).substr(0, size);
        EXPECT_EQ(compact(Base64{ part }), written(base64(part))) << size;
        EXPECT_GE(Base64{ part }.roomInDocument(), compact(Base64{ part }).size()) << size;
    }
}

TEST(JsonWriter, IndentsEachLevelAndRefusesTheSixtyFifth)
{
    const auto text = JsonWriter::write(Nest<31>(), JsonWriter::Form::pretty);
    for (std::size_t level = 1; level < 64; ++level)
        EXPECT_NE(text.find('\n' + std::string(2 * level, ' ') + (level % 2 == 1 ? "\"" : "{")),
            std::string::npos)
            << level;
    EXPECT_THROW(JsonWriter::write(Nest<32>(), JsonWriter::Form::pretty), JsonError);
}

TEST(JsonWriter, ADocumentOfManyPiecesIsTheSumOfItsElements)
{
    const std::vector<Leaf> leaves(
        40'000, Leaf{ "about a hundred bytes of text " + std::string(70, 'x') });
    std::string expected = "[";
    for (const auto& leaf : leaves)
        expected += (expected.size() > 1 ? "," : "")
            + JsonWriter::write(leaf, JsonWriter::Form::compact);
    std::string text;
    std::size_t pieces = 0;
    JsonWriter::write(leaves, JsonWriter::Form::compact, [&](std::string_view piece) {
        text += piece;
        ++pieces;
    });
    EXPECT_TRUE(text == expected + "]");
    EXPECT_GT(pieces, 3u);
}

TEST(JsonWriter, RefusesWhatJsonCannotHold)
{
    EXPECT_THROW(compact(std::numeric_limits<double>::infinity()), JsonError);
    EXPECT_THROW(compact(-std::numeric_limits<double>::infinity()), JsonError);
    EXPECT_THROW(compact(std::numeric_limits<double>::quiet_NaN()), JsonError);
    for (const std::string text :
        { "\xff", "\xc3", "a\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xc0\xaf" })
        EXPECT_THROW(written(text), JsonError);
    EXPECT_THROW(written(std::string(100'000, '\x80')), JsonError);
    using namespace std::chrono;
    EXPECT_THROW(compact(Date{ sys_days{ year{ 10000 } / 1 / 1 } }), JsonError);
    EXPECT_THROW(compact(Date{ sys_days{ year{ 0 } / 1 / 1 } - microseconds(1) }), JsonError);
    EXPECT_EQ(compact(Date{ sys_days{ year{ 10000 } / 1 / 1 } - microseconds(1) }),
        "\"9999-12-31T23:59:59Z\"");
}

TEST(JsonWriter, NeighboursDoNotMakeBrokenCharactersWhole)
{
    EXPECT_THROW(compact(std::vector<std::string>{ "\xc3", "\xa9" }), JsonError);
}

TEST(JsonWriter, ACacheChangesNothingInTheText)
{
    JsonCache cache;
    const auto cached = [&](const Tree& tree) {
        std::string text;
        JsonWriter::write(
            tree, JsonWriter::Form::pretty, [&](std::string_view piece) { text += piece; }, &cache);
        return text;
    };
    Tree tree;
    const std::string longText(300'000, '/');
    tree.shared = { { "a" }, { longText }, { "c" } };
    EXPECT_EQ(cached(tree), pretty(tree));
    EXPECT_EQ(cached(tree), pretty(tree));
    tree.shared.set(0, { "changed" });
    EXPECT_EQ(cached(tree), pretty(tree));
    tree.shared.removeIf([](const Leaf& leaf) { return leaf.text == "c"; });
    tree.shared.append({ "d" });
    EXPECT_EQ(cached(tree), pretty(tree));
    tree.shared = {};
    EXPECT_EQ(cached(tree), pretty(tree));
}

TEST(JsonWriter, ACacheForgetsElementsThatAreGone)
{
    JsonCache cache;
    Tree tree;
    tree.shared = { { "a" } };
    const std::weak_ptr<const Leaf> gone = tree.shared.shared(0);
    const auto write
        = [&] { JsonWriter::write(tree, JsonWriter::Form::pretty, [](auto) { }, &cache); };
    write();
    tree.shared = {};
    EXPECT_FALSE(gone.expired());
    write();
    EXPECT_TRUE(gone.expired());
}

TEST(JsonWriter, ARefusedElementIsNotRemembered)
{
    JsonCache cache;
    Tree tree;
    tree.shared = { { "\xff" } };
    const auto write
        = [&] { JsonWriter::write(tree, JsonWriter::Form::pretty, [](auto) { }, &cache); };
    EXPECT_THROW(write(), JsonError);
    EXPECT_THROW(write(), JsonError);
}

} // namespace
} // namespace vesko

#include "VeskoCore/exchange/DictionaryCsv.h"

#include "VeskoCore/library/VeskoError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

DictionaryEntry entry(std::string original, std::string replacement, bool enabled = true)
{
    return { .id = Uuid::random(),
        .original = std::move(original),
        .replacement = std::move(replacement),
        .enabled = enabled,
        .source = DictionaryEntry::Source::manual,
        .createdAt = {} };
}

TEST(DictionaryCsv, isATable)
{
    SharedArray<DictionaryEntry> entries;
    entries.append(entry("tallki", "Vesko"));
    entries.append(entry("one, two", "say \"two\"", false));
    entries.append(entry("ел", "ёл"));
    EXPECT_EQ(dictionaryCsv(entries),
        "original,replacement,enabled\r\n"
        "tallki,Vesko,true\r\n"
        "\"one, two\",\"say \"\"two\"\"\",false\r\n"
        "ел,ёл,true\r\n");
    EXPECT_EQ(dictionaryCsv({}), "original,replacement,enabled\r\n");
}

TEST(DictionaryCsv, isReadAsItWasWritten)
{
    SharedArray<DictionaryEntry> entries;
    entries.append(entry("a\"b", "c;d"));
    entries.append(entry("original", "replacement", false));
    EXPECT_THAT(readDictionaryCsv(dictionaryCsv(entries)),
        ElementsAre(DictionaryRow{ "a\"b", "c;d", true },
            DictionaryRow{ "original", "replacement", false }));
}

TEST(DictionaryCsv, isReadAsOtherProgramsWriteIt)
{
    const DictionaryRow row{ "seeder", "cedar", true };
    const struct {
        const char* described;
        const char* text;
    } rows[] = {
        { "without a heading", "seeder,cedar\n" },
        { "without a last line end", "seeder,cedar" },
        { "with a heading of two columns", "Original,Replacement\nseeder,cedar\n" },
        { "with a byte order mark", "\xef\xbb\xbforiginal,replacement\r\nseeder,cedar\r\n" },
        { "with semicolons", "original;replacement;enabled\nseeder;cedar;TRUE\n" },
        { "with lines of an old kind", "original,replacement\rseeder,cedar\r" },
        { "with blanks around", " seeder , cedar ,yes\n" },
        { "all in quotes", "\"original\",\"replacement\"\n\"seeder\",\"cedar\"\n" },
        { "with empty lines", "\n\nseeder,cedar\n\n" },
        { "with more columns", "seeder,cedar,1,learned,2026\n" },
        { "with rows that are not whole", "lonely\n,x\nx,\nseeder,cedar\n" },
    };
    for (const auto& [described, text] : rows)
        EXPECT_THAT(readDictionaryCsv(text), ElementsAre(row)) << described;
}

TEST(DictionaryCsv, aRuleCanBeOff)
{
    for (const auto* off : { "false", "FALSE", "0", "no" })
        EXPECT_FALSE(readDictionaryCsv("a,b," + std::string(off)).front().enabled) << off;
}

TEST(DictionaryCsv, quotesMayHoldAnything)
{
    EXPECT_THAT(readDictionaryCsv("\"a\r\nb\",\"c,d\"\n"),
        ElementsAre(DictionaryRow{ "a\r\nb", "c,d", true }));
    EXPECT_THAT(readDictionaryCsv("\"never closed,b\nc,d"), IsEmpty());
    EXPECT_THAT(readDictionaryCsv(""), IsEmpty());
}

TEST(DictionaryCsv, refusesWhatIsNoTable)
{
    const auto fails = [](const std::string& text) {
        try {
            readDictionaryCsv(text);
            return false;
        } catch (const VeskoError& error) {
            return error == VeskoError(VeskoError::invalidDictionary);
        }
    };
    EXPECT_TRUE(fails("a,\xff\n"));
    std::string endless;
    for (int row = 0; row < 100'002; ++row)
        endless += "\n";
    EXPECT_TRUE(fails(endless));
}

TEST(DictionaryCsv, takesAnyText)
{
    std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts each time
    const std::string letters = "a\",;\r\n ";
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (auto length = random() % 24; length > 0; --length)
            text += letters[random() % letters.size()];
        for (const auto& row : readDictionaryCsv(text)) {
            EXPECT_FALSE(row.original.empty() || row.replacement.empty()) << text;
        }
    }
}

} // namespace
} // namespace vesko

#include "VeskoCore/library/LibraryReader.h"

#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/VeskoError.h"
#include "tests/core/library/Replaced.h"
#include "tests/fakes/FailingFileSystem.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <random>

namespace vesko {
namespace {

// What is read out of a text, or why nothing is.
template <class Read>
std::string outcome(Read read)
{
    try {
        return JsonWriter::write(read(), JsonWriter::Form::compact);
    } catch (const VeskoError& error) {
        return error == VeskoError(VeskoError::unsupportedSchema) ? "later" : "other";
    } catch (const JsonError&) {
        return "damaged";
    }
}

std::string outcomeOf(const std::string& text)
{
    static const TemporaryFolder folder;
    const auto path = folder.path() / "library.json";
    putBytes(path, text);
    return outcome(
        [&] { return readLibrary(*InputFile::open(FileSystem::posix(), path, text.size())); });
}

// The same by a look at the document as a whole.
std::string plainOutcomeOf(const std::string& text)
{
    return outcome([&] {
        const JsonDocument document(text);
        std::int64_t version = 0;
        if (document.root()["schemaVersion"].get(version) != simdjson::SUCCESS || version != 1)
            throw VeskoError(VeskoError::unsupportedSchema);
        return document.as<Library>();
    });
}

const std::string& fullLibrary()
{
    static const auto text = bytesOf(VESKO_TEST_DATA "/library/full.json");
    return text;
}

TEST(LibraryReader, ReadsEveryLayout)
{
    const auto& full = fullLibrary();
    const auto compact = outcomeOf(full);
    EXPECT_EQ(compact.front(), '{');
    EXPECT_EQ(compact, plainOutcomeOf(full));
    EXPECT_EQ(outcomeOf(compact), compact);
    EXPECT_EQ(outcomeOf(replaced(full, "    },\n    {\n", "    }, {\n")), compact);
    EXPECT_EQ(outcomeOf(replaced(full, "  \"notes\" : [\n", "  \"notes\" : [\n\n")), compact);
    const auto empty = bytesOf(VESKO_TEST_DATA "/library/empty.json");
    EXPECT_EQ(outcomeOf(empty), plainOutcomeOf(empty));
}

// A dictionary and notes that each are longer than what is read at once, among many short ones.
std::string longLibrary(std::mt19937& random)
{
    const JsonDocument document(fullLibrary());
    auto library = document.as<Library>();
    std::vector<DictionaryEntry> terms(2'000, library.dictionary[0]);
    library.dictionary = SharedArray(std::move(terms));
    std::vector<Note> notes;
    for (int count = 0; count < 100; ++count) {
        auto note = library.notes[random() % library.notes.size()];
        note.body = std::string(random() % 7'000, '}');
        notes.push_back(std::move(note));
    }
    for (const std::size_t length : { 262'144, 262'143, 900'000, 0 }) {
        notes[random() % notes.size()].body = std::string(length, '}');
        notes.back().body = std::string(length, '\n');
    }
    library.notes = SharedArray(std::move(notes));
    return JsonWriter::write(library, JsonWriter::Form::pretty);
}

TEST(LibraryReader, ReadsALibraryThatIsLongerThanWhatItLooksAt)
{
    std::mt19937 random(20260611);
    const auto text = longLibrary(random);
    const auto expected = plainOutcomeOf(text);
    ASSERT_EQ(expected.front(), '{');
    EXPECT_TRUE(outcomeOf(text) == expected);
    EXPECT_TRUE(outcomeOf(text + std::string(300'000, ' ')) == expected);
    EXPECT_EQ(outcomeOf(text.substr(0, random() % text.size())), "damaged");
}

TEST(LibraryReader, SaysWhenTheFileCannotBeRead)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "library.json";
    std::mt19937 random(1);
    putBytes(path, longLibrary(random));
    FailingFileSystem files;
    readLibrary(*InputFile::open(files, path, UINT64_MAX));
    const int closing = files.calls - 1;
    ASSERT_GT(closing, 5);
    files.fault = FailingFileSystem::Fault::error;
    files.number = EIO;
    for (files.at = 0; files.at < closing; ++files.at) {
        files.calls = 0;
        EXPECT_THROW(readLibrary(*InputFile::open(files, path, UINT64_MAX)), std::system_error);
    }
}

TEST(LibraryReader, IsNotMisledByWhatLooksLikeItsNotes)
{
    const auto& full = fullLibrary();
    const auto begin = full.find("\n  \"notes\" : [");
    const auto end = full.find("\n  ],", begin) + 5;
    const auto list = full.substr(begin, end - begin - 1);
    const auto none = full.substr(0, begin) + "\n  \"notes\" : []," + full.substr(end);
    ASSERT_EQ(outcomeOf(none), plainOutcomeOf(none));
    const std::string decoys[] = {
        // The notes in an object that no one reads, before and behind the real ones.
        "{\"other\" : {" + list + "\n}," + none.substr(1),
        replaced(
            none, "\n  \"schemaVersion\"", "\n\"other\" : {" + list + "},\n  \"schemaVersion\""),
        "{\"other\" : {" + list + "\n}," + full.substr(1),
        // Twice.
        "{" + list + "," + full.substr(1),
        // In the notes themselves.
        replaced(full, "\n      \"body\"", "\n      \"other\" : {" + list + "},\n      \"body\""),
        // A text for a note, several documents, half of one.
        "{\"notes\" : [\"a\"]," + full.substr(1),
        full + full,
        full.substr(0, full.size() / 2),
        full.substr(0, end),
        "[" + full + "]",
        list,
        "",
    };
    for (const auto& text : decoys)
        EXPECT_EQ(outcomeOf(text), plainOutcomeOf(text)) << text;
}

TEST(LibraryReader, TellsALaterSchemaFromDamage)
{
    const auto later = replaced(fullLibrary(), "\"schemaVersion\" : 1", "\"schemaVersion\" : 2");
    EXPECT_EQ(outcomeOf(later), "later");
    EXPECT_EQ(outcomeOf(replaced(later, "\"kind\"", "\"sort\"")), "later");
    EXPECT_EQ(outcomeOf(replaced(later, "\"kind\"", "kind")), "damaged");
    EXPECT_EQ(outcomeOf(replaced(fullLibrary(), "\"kind\"", "\"sort\"")), "damaged");
}

// However long, none takes more memory than for a piece, or is read again as a whole.
TEST(LibraryReader, RefusesWhatIsTooLongToBeLookedAtAsAWhole)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "library.json";
    constexpr std::uint64_t length = 1 << 30;
    const auto& full = fullLibrary();
    const auto list = full.find("\n  \"notes\" : [") + 14;
    const auto behind = full.find("\n  ],", list);
    const auto later = replaced(full, "\"schemaVersion\" : 1", "\"schemaVersion\" : 2");
    const struct {
        const char* what;
        std::string begin, end;
        std::string expected;
    } rows[] = {
        { "nothing of ours", "", "", "damaged" },
        { "a note without end", full.substr(0, list) + "\n    {\n", "", "damaged" },
        { "notes and then none", full.substr(0, behind) + ",\n    {\n", "", "damaged" },
        { "blanks behind", full, "", "damaged" },
        { "a later schema", later.substr(0, list), later.substr(behind), "later" },
        { "this schema", full.substr(0, list), full.substr(behind), "damaged" },
    };
    for (const auto& [what, begin, end, expected] : rows) {
        SCOPED_TRACE(what);
        putBytes(path, begin);
        std::filesystem::resize_file(path, length - end.size());
        std::ofstream(path, std::ios::binary | std::ios::app) << end;
        FailingFileSystem files;
        EXPECT_EQ(
            outcome([&] { return readLibrary(*InputFile::open(files, path, length)); }), expected);
        EXPECT_LT(files.bytesRead, 64U << 20);
    }
}

TEST(LibraryReader, ReadsTheLongestNoteThatTheStoreWrites)
{
    auto library = JsonDocument(fullLibrary()).as<Library>();
    Note note = library.notes[0];
    note.body = std::string((40 << 20) - 20'000, 'x');
    library.notes.append(note);
    const auto text = JsonWriter::write(library, JsonWriter::Form::pretty)
        + std::string(10 << 20, ' '); // too long to be looked at as a whole
    const TemporaryFolder folder;
    putBytes(folder.path() / "library.json", text);
    EXPECT_TRUE(readLibrary(*InputFile::open(
                    FileSystem::posix(), folder.path() / "library.json", UINT64_MAX))
        == library);
}

TEST(LibraryReader, PassesOverNumbersThatNo64BitsHold)
{
    const auto& full = fullLibrary();
    for (const std::string number : { "18446744073709551616", "1e400" })
        for (const std::string at :
            { "\n      \"body\"", "\n  \"notes\"", "\n  \"schemaVersion\"" }) {
            const auto other = "\n \"other\" : [" + number + "]," + at;
            EXPECT_EQ(outcomeOf(replaced(full, at, other)), outcomeOf(full));
            const auto later = replaced(full, "\"schemaVersion\" : 1", "\"schemaVersion\" : 2");
            EXPECT_EQ(outcomeOf(replaced(later, at, other)), "later");
        }
}

TEST(LibraryReader, GivesForEveryTextWhatALookAtTheWholeGives)
{
    const std::vector<std::string> pieces{ "{", "}", "[", "]", ",", ":", "\"", "\n", " ", "\\", "0",
        "\n    }", "\n    {\n", "\n  ]", ",\n    {\n", "\n  \"notes\" : [", "\"a\" : 1,", "null",
        "\xC3", "" };
    std::mt19937 random(20260101);
    const auto below = [&](std::size_t end) { return random() % end; };
    int readable = 0;
    for (int round = 0; round < 4'000; ++round) {
        auto text = fullLibrary();
        for (auto changes = below(3) + 1; changes > 0; --changes)
            text.replace(below(text.size()), below(4), pieces[below(pieces.size())]);
        const auto expected = plainOutcomeOf(text);
        ASSERT_EQ(outcomeOf(text), expected) << text;
        readable += expected.front() == '{';
    }
    EXPECT_GT(readable, 100);
}

} // namespace
} // namespace vesko

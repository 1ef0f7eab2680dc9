#include "VeskoCore/exchange/LibraryExport.h"
#include "VeskoCore/exchange/LibraryImport.h"
#include "tests/core/library/LibraryFixture.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <gmock/gmock.h>
#include <zip.h>

#include <algorithm>
#include <csignal>
#include <map>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

std::size_t importLibrary(LibraryStore& store, const std::filesystem::path& archive,
    const ExchangeWatch& watch = {}, const ImportLimits& limits = {})
{
    const auto audio = store.audioURL(Recording::make({}, {}, {}));
    return LibraryImport(store.snapshot(), audio.parent_path(), archive, watch, limits)
        .joinTo(store);
}

class LibraryZipTest : public LibraryFixture {
protected:
    std::filesystem::path recordings() const { return root / "recordings"; }

    // A library with a note in a project, one in the Trash, a recording with its sound, a term.
    std::unique_ptr<LibraryStore> filled()
    {
        auto store = std::make_unique<LibraryStore>(root, clock);
        const auto garden = store->createProject("Garden/Beds");
        const auto note = store->createNote(NoteKind::voice, garden.id);
        store->editNote(note.id, "Boxes: deep?", "They are deep.", std::nullopt);
        const auto recording = store->beginRecording(note.id);
        putBytes(store->audioURL(recording), "sound");
        store->finishRecording(recording.id, 3);
        store->trashNotes({ store->createNote(NoteKind::text, std::nullopt).id });
        store->saveDictionaryEntry({ .id = Uuid::random(),
            .original = "seeder",
            .replacement = "cedar",
            .enabled = true,
            .source = DictionaryEntry::Source::manual,
            .createdAt = clock.now() });
        return store;
    }
    std::unique_ptr<LibraryStore> empty()
    {
        return std::make_unique<LibraryStore>(folder.path() / "other" / "Vesko", clock);
    }
    void exportFrom(const LibraryStore& store, const ExchangeWatch& watch = {}) const
    {
        exportLibrary(store.snapshot(), recordings(), archive, watch);
    }
    static std::map<std::string, std::string> contentOfZip(const std::filesystem::path& file)
    {
        std::map<std::string, std::string> content;
        zip_t* const zip = zip_open(file.c_str(), ZIP_RDONLY, nullptr);
        for (zip_int64_t index = 0; index < zip_get_num_entries(zip, 0); ++index) {
            zip_stat_t stat;
            zip_stat_index(zip, index, 0, &stat);
            std::string bytes(stat.size, ' ');
            zip_file_t* const entry = zip_fopen_index(zip, index, 0);
            EXPECT_EQ(zip_fread(entry, bytes.data(), bytes.size()), zip_int64_t(bytes.size()));
            zip_fclose(entry);
            content[stat.name] = bytes;
        }
        zip_discard(zip);
        return content;
    }
    void putZip(const std::map<std::string, std::string>& content) const
    {
        zip_t* const zip = zip_open(archive.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const auto& [name, bytes] : content)
            zip_file_add(zip, name.c_str(), zip_source_buffer(zip, bytes.data(), bytes.size(), 0),
                ZIP_FL_OVERWRITE);
        ASSERT_EQ(zip_close(zip), 0);
    }
    static void expectNothingBeside(const std::filesystem::path& file)
    {
        for (const auto& entry : std::filesystem::directory_iterator(file.parent_path()))
            EXPECT_FALSE(entry.path().filename().string().starts_with(".vesko-")) << entry.path();
    }
    // Nothing comes of it, and nothing is left of it.
    void expectRefused(LibraryStore& store, ExchangeFailure::Kind kind,
        const ExchangeWatch& watch = {}, const ImportLimits& limits = {}) const
    {
        const auto before = contentOf(folder.path());
        const auto library = store.snapshot();
        try {
            importLibrary(store, archive, watch, limits);
            ADD_FAILURE() << "not refused";
        } catch (const ExchangeFailure& failure) {
            EXPECT_EQ(failure.kind, kind);
        }
        EXPECT_EQ(store.snapshot(), library);
        EXPECT_EQ(contentOf(folder.path()), before);
    }

    const std::filesystem::path archive = folder.path() / "all.zip";
};

TEST_F(LibraryZipTest, anExportIsForPeopleAndForImports)
{
    const auto store = filled();
    exportFrom(*store);
    const auto content = contentOfZip(archive);
    const auto audio = "recordings/" + store->snapshot().notes[0].recordings[0].fileName;
    EXPECT_THAT(content,
        UnorderedElementsAre(
            Key("library.json"), Key("notes/Garden-Beds/Boxes- deep-.md"), Key(audio)));
    EXPECT_EQ(content.at(audio), "sound");
    EXPECT_EQ(content.at("notes/Garden-Beds/Boxes- deep-.md"),
        "# Boxes: deep?\n\nProject: Garden/Beds\n\nThey are deep.\n");
    EXPECT_EQ(content.at("library.json"), textOf(store->snapshot()));
}

TEST_F(LibraryZipTest, notesOfOneNameEachHaveAFile)
{
    LibraryStore store(root, clock);
    for (const auto* title : { "Same", "same", "..", "\x01" })
        store.editNote(store.createNote(NoteKind::text, std::nullopt).id, title, "", std::nullopt);
    exportFrom(store);
    EXPECT_THAT(contentOfZip(archive),
        UnorderedElementsAre(Key("library.json"), Key("notes/Same.md"),
            Key("notes/same (" + store.snapshot().notes[1].id.text() + ").md"),
            Key("notes/untitled.md"), Key("notes/-.md")));
}

TEST_F(LibraryZipTest, anEmptyLibraryTakesAll)
{
    const auto from = filled();
    exportFrom(*from);
    const auto to = empty();
    EXPECT_EQ(importLibrary(*to, archive), 2U);
    EXPECT_EQ(textOf(to->snapshot()), textOf(from->snapshot()));
    EXPECT_EQ(bytesOf(to->audioURL(to->snapshot().notes[0].recordings[0])), "sound");
}

TEST_F(LibraryZipTest, nothingIsDoubled)
{
    const auto store = filled();
    exportFrom(*store);
    const auto before = store->snapshot();
    EXPECT_EQ(importLibrary(*store, archive), 0U);
    EXPECT_EQ(store->snapshot(), before);

    const auto other = empty();
    const auto project = other->createProject("GARDEN/beds");
    EXPECT_EQ(importLibrary(*other, archive), 2U);
    EXPECT_EQ(importLibrary(*other, archive), 0U);
    EXPECT_EQ(other->snapshot().projects.size(), 1U);
    EXPECT_EQ(other->snapshot().notes[0].projectID, project.id);
    EXPECT_EQ(other->snapshot().dictionary.size(), 1U);
}

TEST_F(LibraryZipTest, whatIsHereStaysAsItIs)
{
    const auto store = filled();
    exportFrom(*store);
    const auto note = store->snapshot().notes[0];
    store->editNote(note.id, "Newer", "They are shallow.", std::nullopt);
    putBytes(store->audioURL(note.recordings[0]), "other sound");
    importLibrary(*store, archive);
    EXPECT_EQ(store->snapshot().notes[0].title, "Newer");
    EXPECT_EQ(bytesOf(store->audioURL(note.recordings[0])), "other sound");
}

TEST_F(LibraryZipTest, whatWasGoingOnThereIsInterruptedHere)
{
    const auto from = filled();
    from->beginAttempt(
        from->snapshot().notes[0].recordings[0].id, "OpenRouter", "model", std::nullopt);
    exportFrom(*from);
    const auto to = empty();
    importLibrary(*to, archive);
    const auto& recording = to->snapshot().notes[0].recordings[0];
    EXPECT_EQ(recording.status, RecordingStatus::interrupted);
    EXPECT_EQ(recording.attempts[0].status, AttemptStatus::interrupted);
}

TEST_F(LibraryZipTest, aRecordingThatStillGrowsStaysOut)
{
    const auto store = filled();
    const auto recording = store->beginRecording(store->snapshot().notes[0].id);
    putBytes(store->audioURL(recording), "half a sou");
    exportFrom(*store);
    EXPECT_FALSE(contentOfZip(archive).contains("recordings/" + recording.fileName));
}

TEST_F(LibraryZipTest, theFilesBesideAnExportStay)
{
    const auto store = filled();
    const auto neighbour = archive.string() + ".partial";
    putBytes(neighbour, "mine");
    putBytes(archive, "old");
    std::filesystem::permissions(archive, std::filesystem::perms(0640));
    exportFrom(*store);
    EXPECT_EQ(bytesOf(neighbour), "mine");
    EXPECT_EQ(permissionsOf(archive), 0640);
    EXPECT_TRUE(contentOfZip(archive).contains("library.json"));
}

TEST_F(LibraryZipTest, whatAKilledImportLeftIsNotTakenForAWholeOne)
{
    const auto from = filled();
    exportFrom(*from);
    const auto to = empty();
    const auto name = from->snapshot().notes[0].recordings[0].fileName;
    const auto place = folder.path() / "other" / "Vesko" / "recordings";
    std::filesystem::create_directories(place / ".import");
    putBytes(place / ".import" / name, "so");
    EXPECT_EQ(importLibrary(*to, archive), 2U);
    EXPECT_EQ(bytesOf(place / name), "sound");
    EXPECT_FALSE(std::filesystem::exists(place / ".import"));
}

TEST_F(LibraryZipTest, anExportThatIsCancelledLeavesTheOldFile)
{
    const auto store = filled();
    putBytes(archive, "old");
    double furthest = -1;
    const ExchangeWatch watch{ [&](double done) { furthest = done; }, [] { return true; } };
    EXPECT_THROW(exportFrom(*store, watch), ExchangeFailure);
    EXPECT_EQ(bytesOf(archive), "old");
    expectNothingBeside(archive);
    exportFrom(*store, { [&](double done) { furthest = done; }, [] { return false; } });
    EXPECT_EQ(furthest, 1);
}

TEST_F(LibraryZipTest, aFullDiskLeavesTheOldFile)
{
    const auto store = filled();
    putBytes(store->audioURL(store->snapshot().notes[0].recordings[0]), std::string(1 << 20, 's'));
    putBytes(archive, "old");
    const rlimit none{ 1 << 16, RLIM_INFINITY };
    std::signal(SIGXFSZ, SIG_IGN); // the call fails instead, as at a full disk
    setrlimit(RLIMIT_FSIZE, &none);
    EXPECT_THROW(exportFrom(*store), std::system_error);
    const rlimit all{ RLIM_INFINITY, RLIM_INFINITY };
    setrlimit(RLIMIT_FSIZE, &all);
    EXPECT_EQ(bytesOf(archive), "old");
    expectNothingBeside(archive);

    exportFrom(*store);
    const auto to = empty();
    const auto before = contentOf(folder.path());
    setrlimit(RLIMIT_FSIZE, &none);
    EXPECT_THROW(importLibrary(*to, archive), std::system_error);
    setrlimit(RLIMIT_FSIZE, &all);
    EXPECT_EQ(contentOf(folder.path()), before);
    EXPECT_THAT(to->snapshot().notes, IsEmpty());
}

TEST_F(LibraryZipTest, anImportThatIsCancelledLeavesNothing)
{
    exportFrom(*filled());
    const auto to = empty();
    for (int allowed = 0; allowed < 4; ++allowed) {
        int asked = 0;
        expectRefused(
            *to, ExchangeFailure::cancelled, { [](double) {}, [&] { return asked++ >= allowed; } });
    }
}

TEST_F(LibraryZipTest, whatIsNoArchiveOfOursIsRefused)
{
    const auto to = empty();
    const struct {
        const char* described;
        std::string bytes;
    } files[] = {
        { "an empty file", "" },
        { "no archive", "words" },
        { "the beginning of one", std::string("PK\x03\x04", 4) },
    };
    for (const auto& [described, bytes] : files) {
        SCOPED_TRACE(described);
        putBytes(archive, bytes);
        expectRefused(*to, ExchangeFailure::notALibrary);
    }
    const struct {
        const char* described;
        std::map<std::string, std::string> content;
        ExchangeFailure::Kind kind;
    } archives[] = {
        { "without a document", { { "notes/a.md", "a" } }, ExchangeFailure::notALibrary },
        { "no JSON", { { "library.json", "words" } }, ExchangeFailure::notALibrary },
        { "no library", { { "library.json", "{\"schemaVersion\" : 1}" } },
            ExchangeFailure::notALibrary },
        { "of a later version", { { "library.json", "{\"schemaVersion\" : 99}" } },
            ExchangeFailure::laterVersion },
    };
    for (const auto& [described, content, kind] : archives) {
        SCOPED_TRACE(described);
        putZip(content);
        expectRefused(*to, kind);
    }
    EXPECT_THROW(importLibrary(*to, folder.path() / "nowhere.zip"), std::system_error);
    std::filesystem::remove(archive);
    ASSERT_EQ(mkfifo(archive.c_str(), 0600), 0);
    expectRefused(*to, ExchangeFailure::notALibrary);
    std::filesystem::remove(archive);
    std::filesystem::create_directory(archive);
    expectRefused(*to, ExchangeFailure::notALibrary);
}

TEST_F(LibraryZipTest, aDamagedArchiveIsRefused)
{
    exportFrom(*filled());
    const auto whole = bytesOf(archive);
    const auto to = empty();
    for (std::size_t at = 0; at < whole.size(); at += 7) {
        auto damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        putBytes(archive, damaged);
        const auto before = contentOf(folder.path() / "other");
        try {
            importLibrary(*to, archive);
            break; // what was hit says nothing of the content; that it came whole is seen elsewhere
        } catch (const ExchangeFailure&) {
            EXPECT_EQ(contentOf(folder.path() / "other"), before);
        }
    }
}

TEST_F(LibraryZipTest, aBombIsNotUnpacked)
{
    const auto to = empty();
    putZip({ { "library.json", std::string(10 << 20, ' ') } });
    EXPECT_LT(std::filesystem::file_size(archive), 100'000U);
    expectRefused(*to, ExchangeFailure::tooLarge, {}, { .document = 1 << 20, .recording = 1 });

    const auto from = filled();
    exportFrom(*from);
    expectRefused(*to, ExchangeFailure::tooLarge, {}, { .document = 1 << 20, .recording = 4 });
    // Many small ones make a large one.
    expectRefused(*to, ExchangeFailure::tooLarge, {}, { .growth = 0 });
}

// What is written is read again.
TEST_F(LibraryZipTest, aDocumentMayBeAsLargeAsThatOfALibrary)
{
    EXPECT_EQ(ImportLimits().document, largestDocument);
}

TEST_F(LibraryZipTest, aRecordingThatGrowsBeyondMeasureIsNotUnpacked)
{
    const auto from = filled();
    const auto library = from->snapshot();
    const auto name = library.notes[0].recordings[0].fileName;
    putZip({ { "library.json", textOf(library) },
        { "recordings/" + name, std::string(30 << 20, '\0') } });
    EXPECT_LT(std::filesystem::file_size(archive), 100'000U);
    expectRefused(*empty(), ExchangeFailure::tooLarge);
}

TEST_F(LibraryZipTest, aLibraryThatSaysTheSameAgainAndAgainComesBack)
{
    std::string said;
    while (said.size() < 1 << 20)
        said += "The same again. ";
    auto library = filled()->snapshot();
    for (int count = 0; count < 25; ++count) {
        Note note;
        note.id = Uuid::random();
        note.body = said;
        library.notes.append(note);
    }
    exportLibrary(library, recordings(), archive);
    constexpr std::uint64_t growth = 50;
    EXPECT_LT(std::filesystem::file_size(archive) * growth, textOf(library).size());
    const auto to = empty();
    EXPECT_EQ(importLibrary(*to, archive), library.notes.size());
    const auto& notes = to->snapshot().notes;
    EXPECT_EQ(std::ranges::count_if(
                  notes, [&](const Note& note) { return std::string_view(note.body) == said; }),
        25);
}

TEST_F(LibraryZipTest, anArchiveIsAsOpenAsOtherFilesOfTheUsers)
{
    const auto store = filled();
    const auto permissions
        = [this] { return static_cast<unsigned>(std::filesystem::status(archive).permissions()); };
    for (const mode_t mask : { 022U, 077U }) {
        std::filesystem::remove(archive);
        const auto before = umask(mask);
        exportFrom(*store);
        umask(before);
        EXPECT_EQ(permissions(), 0666U & ~mask);
    }
    std::filesystem::permissions(archive, std::filesystem::perms(0640));
    exportFrom(*store);
    EXPECT_EQ(permissions(), 0640U);
}

TEST_F(LibraryZipTest, namesLeadNowhereElse)
{
    const auto from = filled();
    auto library = from->snapshot();
    const auto text = textOf(library);
    const auto name = library.notes[0].recordings[0].fileName;
    for (const std::string elsewhere : { "../../../escaped", "/tmp/escaped", "x" }) {
        library.notes.edit(0, [&](Note& note) { note.recordings[0].fileName = elsewhere; });
        putZip({ { "library.json", textOf(library) }, { "recordings/" + elsewhere, "bad" },
            { elsewhere, "bad" } });
        expectRefused(*empty(), ExchangeFailure::notALibrary);
    }
    // What else is in it isn't looked at.
    putZip({ { "library.json", text }, { "../../escaped", "bad" }, { "recordings/" + name, "s" } });
    const auto to = empty();
    EXPECT_EQ(importLibrary(*to, archive), 2U);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "escaped"));
}

TEST_F(LibraryZipTest, aLinkInTheWayIsNotFollowed)
{
    const auto from = filled();
    exportFrom(*from);
    const auto to = empty();
    const auto victim = folder.path() / "victim";
    const auto place = folder.path() / "other" / "Vesko" / "recordings"
        / from->snapshot().notes[0].recordings[0].fileName;
    std::filesystem::create_symlink(victim, place);
    EXPECT_THROW(importLibrary(*to, archive), VeskoError);
    EXPECT_FALSE(std::filesystem::exists(victim));
    EXPECT_THAT(to->snapshot().notes, IsEmpty());
}

TEST_F(LibraryZipTest, termsThatNobodyCouldTypeStayOut)
{
    Library library;
    for (const std::string& original : { std::string(), std::string(" "), std::string("two\nlines"),
             std::string(81, 'a'), std::string("fine") })
        library.dictionary.append({ .id = Uuid::random(),
            .original = original,
            .replacement = "x",
            .enabled = true,
            .source = DictionaryEntry::Source::manual,
            .createdAt = clock.now() });
    putZip({ { "library.json", textOf(library) } });
    const auto to = empty();
    importLibrary(*to, archive);
    ASSERT_EQ(to->snapshot().dictionary.size(), 1U);
    EXPECT_EQ(to->snapshot().dictionary[0].original, "fine");
}

} // namespace
} // namespace vesko

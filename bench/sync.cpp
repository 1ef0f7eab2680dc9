// What a journal costs that is as large as it may be: a local change, merging what arrived, opening
// and saving it.

#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/sync/TextSyncStore.h"
#include "bench/BenchFolder.h"
#include "bench/Budget.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <simdjson.h>

using namespace vesko;

namespace {

// Histories of some thousand notes, in revisions of about the size that fills both limits at once:
// 50,000 of them make a file of nearly 32 MiB.
class History {
public:
    TextSyncRevision next()
    {
        if (m_notes.size() < 5'000)
            m_notes.push_back({ id(), std::nullopt });
        auto& note = m_notes[m_random() % m_notes.size()];
        TextSyncRevision revision{ id(), { TextSyncID::Kind::note, note.id }, {},
            content(note.id) };
        if (note.head)
            revision.parents.insert(*note.head);
        note.head = revision.id;
        return revision;
    }

    SyncedNote content(const Uuid& id)
    {
        SyncedNote note;
        note.id = id;
        note.title = "Notes of a meeting";
        note.body
            = "We went on to the next point on the list,\nand then to \"the one after it\" and "
              "so on, and/or back again to where we were before all that.";
        note.body.resize(50 + m_random() % 72);
        note.createdAt = *Date::parse("2026-11-21T10:52:00Z");
        return note;
    }

    Uuid id()
    {
        std::array<char, 37> text{};
        std::snprintf(text.data(), text.size(), "%08X-%04X-4%03X-8%03X-%04X%08X", word(),
            word() >> 16, word() >> 20, word() >> 20, word() >> 16, word());
        return *Uuid::parse({ text.data(), 36 });
    }

private:
    struct Line {
        Uuid id;
        std::optional<Uuid> head;
    };

    unsigned word() { return static_cast<unsigned>(m_random()); }

    std::mt19937 m_random{ 1 };
    std::vector<Line> m_notes;
};

using Revisions = std::vector<std::shared_ptr<const TextSyncRevision>>;

SharedArray<TextSyncRevision> part(const Revisions& all, std::size_t from, std::size_t to)
{
    const auto begin = all.begin();
    return SharedArray<TextSyncRevision>(Revisions(
        begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(to)));
}

} // namespace

int main()
{
    History history;
    Revisions all;
    while (all.size() < TextSyncJournal::mostRevisions)
        all.push_back(std::make_shared<const TextSyncRevision>(history.next()));

    TextSyncJournal most;
    most.merge(part(all, 0, 49'000));
    const auto arrived = part(all, 49'000, 50'000);
    bench::compare(
        "merging 1,000 revisions into 49,000, vs encoding those 1,000",
        [&] {
            auto journal = most;
            return bench::seconds([&] { journal.merge(arrived); });
        },
        [&] {
            return bench::seconds([&] {
                for (const auto& revision : arrived)
                    if (JsonWriter::write(revision, JsonWriter::Form::pretty).empty())
                        std::abort();
            });
        },
        3);
    TextSyncJournal almost;
    almost.merge(part(all, 0, 49'999));
    const auto note = history.content(history.id());
    std::vector<Uuid> ids;
    for (const auto& revision : almost.revisions())
        ids.push_back(revision.id);
    std::vector<double> writes;
    bench::compare(
        "a local write among 50,000 revisions, vs copying their ids",
        [&] {
            auto journal = almost;
            writes.push_back(bench::seconds([&] { journal.write(note); }));
            return writes.back();
        },
        [&] {
            std::vector<Uuid> copy;
            const double taken = bench::seconds([&] { copy = ids; });
            if (copy.size() != ids.size())
                std::abort();
            return taken;
        },
        3);
    bench::report("the same, vs 5 ms", bench::median(writes), 0.005, 1);

    const bench::BenchFolder folder;
    auto& files = FileSystem::posix();
    auto store = std::make_unique<TextSyncStore>(folder.path(), "account");
    store->mergeRemote(part(all, 0, 50'000));
    const auto path
        = std::filesystem::directory_iterator(folder.path() / "text-sync")->path() / "journal.json";
    const auto bytes = InputFile::open(files, path, TextSyncState::mostBytes)->text();
    std::fprintf(stderr, "%zu bytes\n", bytes.size());

    // As a store mostly is when it saves: opened, not filled.
    store.reset();
    store = std::make_unique<TextSyncStore>(folder.path(), "account");
    AtomicFile plain(files, folder.path() / "plain.json");
    bench::compare(
        "saving 32 MiB, vs writing the same bytes atomically",
        [&] { return bench::seconds([&] { store->acknowledge({}); }); },
        [&] { return bench::seconds([&] { plain.write(bytes); }); }, 1.5);

    store.reset();
    bench::compare(
        "opening 32 MiB, vs parsing the same bytes with simdjson",
        [&] {
            const double taken = bench::seconds(
                [&] { store = std::make_unique<TextSyncStore>(folder.path(), "account"); });
            store.reset();
            return taken;
        },
        [&] {
            return bench::seconds([&] {
                simdjson::dom::parser parser;
                if (parser.parse(bytes).error())
                    std::abort();
            });
        },
        3);
}

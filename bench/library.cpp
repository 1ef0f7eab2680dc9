// What a library of 10,000 notes costs: a change, opening it, handing out a snapshot.

#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/library/LibraryStore.h"
#include "bench/BenchFolder.h"
#include "bench/Budget.h"
#include "bench/SampleLibrary.h"

#include <cstdlib>
#include <memory>
#include <simdjson.h>

using namespace vesko;

int main()
{
    const bench::BenchFolder folder;
    const auto root = folder.path() / "library";
    const SystemClock clock;
    auto& files = FileSystem::posix();
    const auto text = JsonWriter::write(bench::sampleLibrary(), JsonWriter::Form::pretty);
    makeFolders(files, root);
    AtomicFile(files, root / "library.json").write(text);

    auto store = std::make_unique<LibraryStore>(root, clock);
    const auto note = store->createNote(NoteKind::text, std::nullopt);
    const auto recording = store->beginRecording(note.id);

    AtomicFile plain(files, folder.path() / "plain.json");
    bench::compare(
        "a change, saved with its backup, vs writing the same bytes atomically",
        [&] { return bench::seconds([&] { store->finishRecording(recording.id, 1.5); }); },
        [&] { return bench::seconds([&] { plain.write(text); }); }, 1.5);

    constexpr int copies = 1000;
    double sum = 0;
    for (int copy = 0; copy < copies; ++copy) {
        std::vector<Library> snapshots(1);
        sum += bench::seconds([&] { snapshots[0] = store->snapshot(); });
    }
    bench::report("a snapshot, vs 0.2 ms", sum / copies, 0.0002, 1);

    store.reset();
    const auto bytes = InputFile::open(files, root / "library.json", UINT64_MAX)->text();
    bench::compare(
        "opening, vs parsing the same bytes with simdjson",
        [&] {
            const double taken
                = bench::seconds([&] { store = std::make_unique<LibraryStore>(root, clock); });
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
        2);
}

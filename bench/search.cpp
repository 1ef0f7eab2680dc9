// What a keystroke in the search field costs in a library of 10,000 notes and 50 MB, and what the
// export of a long note does.

#include "VeskoCore/library/Library.h"
#include "bench/Budget.h"
#include "bench/SampleLibrary.h"

#include <cstdlib>
#include <fstream>
#include <memory>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>
#include <unistd.h>

using namespace vesko;

namespace {

constexpr std::size_t searchedBytes = 50'000'000;

template <class Visit>
void eachText(const Note& note, Visit visit)
{
    visit(note.title);
    visit(note.body);
    for (const auto& recording : note.recordings)
        for (const auto& attempt : recording.attempts)
            if (attempt.rawText)
                visit(*attempt.rawText);
}

std::size_t bytesOf(const Library& library)
{
    std::size_t bytes = 0;
    for (const auto& note : library.notes)
        eachText(note, [&](const std::string& text) { bytes += text.size(); });
    return bytes;
}

// The sample library with more in the body of each note.
Library longLibrary()
{
    const auto sample = bench::sampleLibrary();
    const auto missing = (searchedBytes - bytesOf(sample)) / sample.notes.size();
    std::vector<Note> notes;
    for (std::size_t index = 0; index < sample.notes.size(); ++index) {
        auto note = sample.notes[index];
        std::string body = note.body;
        const auto size = body.size() + missing;
        for (auto next = index; body.size() < size; ++next)
            (body += '\n') += std::string_view(sample.notes[next % sample.notes.size()].body);
        const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
        auto end = size;
        while (isContinuation(body[end]))
            --end;
        body.resize(end);
        note.body = std::move(body);
        notes.push_back(std::move(note));
    }
    Library library;
    library.notes = SharedArray(std::move(notes));
    return library;
}

// ICU's own search over the same texts, which are in its encoding already. The yardstick takes
// seconds, so a tenth of the notes stands for all.
class Yardstick {
public:
    static constexpr std::size_t share = 10;

    explicit Yardstick(const Library& library)
        : m_collator(icu::Collator::createInstance(m_status))
    {
        m_collator->setStrength(icu::Collator::PRIMARY);
        for (std::size_t index = 0; index < library.notes.size(); index += share) {
            m_notes.emplace_back();
            eachText(library.notes[index], [&](const std::string& text) {
                m_notes.back().push_back(icu::UnicodeString::fromUTF8(text));
            });
        }
    }

    // How many notes have the query.
    std::size_t count(const std::string& query)
    {
        icu::StringSearch search(icu::UnicodeString::fromUTF8(query), icu::UnicodeString(" "),
            dynamic_cast<icu::RuleBasedCollator*>(m_collator.get()), nullptr, m_status);
        return static_cast<std::size_t>(std::ranges::count_if(m_notes, [&](const auto& texts) {
            return std::ranges::any_of(texts, [&](const icu::UnicodeString& text) {
                search.setText(text, m_status);
                return search.first(m_status) != USEARCH_DONE;
            });
        }));
    }

private:
    UErrorCode m_status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> m_collator;
    std::vector<std::vector<icu::UnicodeString>> m_notes;
};

// The resident memory of this process in bytes.
std::size_t residentBytes()
{
    std::size_t pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

int main()
{
    const auto library = longLibrary();
    const auto before = residentBytes();
    bench::report("the first keystroke of all, vs 30 ms",
        bench::seconds([&] { library.filtered(std::nullopt, "x", false); }), 0.03, 1);
    bench::report("memory for the search, bytes, vs the text's",
        static_cast<double>(residentBytes() - before), static_cast<double>(bytesOf(library)), 0.3);

    Yardstick yardstick(library);
    for (const std::string query : { "th", "zebra", "meeting budget", "uberall", "the notf" }) {
        Library found;
        std::vector<double> times;
        for (int round = 0; round < bench::rounds; ++round)
            times.push_back(bench::seconds(
                [&] { found.notes = library.filtered(std::nullopt, query, false); }));
        std::size_t expected = 0;
        const double theirs = bench::seconds([&] { expected = yardstick.count(query); });
        std::size_t ours = 0;
        for (std::size_t index = 0; index < library.notes.size(); index += Yardstick::share)
            ours += static_cast<std::size_t>(
                std::ranges::count(found.notes, library.notes[index].id, &Note::id));
        if (ours != expected)
            std::abort();
        const auto name = "a keystroke that makes \"" + query + '"';
        bench::report(
            name + ", vs ICU's search", bench::median(times), theirs * Yardstick::share, 0.05);
        bench::report(name + ", vs 30 ms", bench::median(times), 0.03, 1);
    }

    Note note;
    while (note.body.size() < 1'000'000)
        note.body += library.notes[0].body;
    std::vector<double> times;
    for (int round = 0; round < bench::rounds; ++round)
        times.push_back(bench::seconds([&] { note.markdown("Work"); }));
    bench::report("Markdown of a note of 1 MB, vs 5 ms", bench::median(times), 0.005, 1);
}

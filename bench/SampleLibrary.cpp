#include "bench/SampleLibrary.h"

#include <array>
#include <chrono>
#include <random>

namespace vesko::bench {

namespace {

constexpr int notes = 10'000;
constexpr int projects = 40;
constexpr int entries = 300;

// Our own arithmetic on the generator's numbers: the library's distributions may differ between
// standard libraries.
class Source {
public:
    std::size_t below(std::size_t limit) { return m_generator() % limit; }

    Uuid id()
    {
        std::string text = "00000000-0000-4000-8000-000000000000";
        for (char& digit : text)
            if (digit == '0')
                digit = "0123456789ABCDEF"[below(16)];
        return *Uuid::parse(text);
    }

    Date date()
    {
        using namespace std::chrono;
        return { sys_days{ year{ 2024 } / 1 / 1 } + seconds{ below(60'000'000) } };
    }

    // Speech as people dictate it: words, now and then a mark, a quotation, a paragraph.
    std::string prose(std::size_t bytes)
    {
        static constexpr std::array words{ "the", "meeting", "is", "on", "Thursday", "please",
            "send", "me", "a", "note", "about", "our", "budget", "for", "autumn", "and", "don't",
            "forget", "Müller", "café", "naïve", "überall", "会議", "yes", "tomorrow", "morning",
            "it", "was", "great", "to", "see", "you", "again" };
        std::string text;
        while (text.size() < bytes) {
            text += words[below(words.size())];
            const auto mark = below(300);
            text += mark < 4 ? ".\n\n"
                : mark < 6   ? " \"and so on\" "
                : mark < 7   ? " and/or "
                : mark < 25  ? ". "
                             : " ";
        }
        return text;
    }

private:
    std::mt19937 m_generator{ 20260101 };
};

Recording recording(Source& source, const Note& note)
{
    auto recording = Recording::make(source.id(), note.id, note.createdAt);
    recording.duration = static_cast<double>(source.below(300'000)) / 1000;
    recording.status = RecordingStatus::ready;
    recording.appendedToNote = true;
    recording.appliedBodyRevision = note.updatedAt;
    TranscriptionAttempt attempt;
    attempt.id = source.id();
    attempt.provider = "OpenRouter";
    attempt.model = "openai/whisper-large-v3-turbo";
    attempt.startedAt = note.createdAt;
    attempt.completedAt = note.updatedAt;
    attempt.status = AttemptStatus::ready;
    attempt.rawText = note.body;
    attempt.text = note.body;
    attempt.cost = static_cast<double>(source.below(1000)) / 100'000;
    recording.attempts.push_back(std::move(attempt));
    return recording;
}

} // namespace

Library sampleLibrary()
{
    Source source;
    Library library;
    std::vector<Project> folders;
    for (int count = 0; count < projects; ++count)
        folders.push_back({ source.id(), "Project " + std::to_string(count), source.date() });
    std::vector<DictionaryEntry> dictionary;
    for (int count = 0; count < entries; ++count)
        dictionary.push_back({ source.id(), source.prose(10), source.prose(12), true,
            DictionaryEntry::Source::manual, source.date() });
    std::vector<Note> list;
    for (int count = 0; count < notes; ++count) {
        Note note;
        note.id = source.id();
        note.createdAt = source.date();
        note.updatedAt = { note.createdAt.time + std::chrono::minutes{ 5 } };
        note.title = source.prose(20);
        note.projectID = folders[source.below(projects)].id;
        if (source.below(5) == 0) {
            note.body = source.prose(500 + source.below(6000));
        } else {
            note.kind = NoteKind::dictation;
            note.body = source.prose(200 + source.below(2400));
            note.recordings.push_back(recording(source, note));
        }
        list.push_back(std::move(note));
    }
    library.projects = SharedArray(std::move(folders));
    library.dictionary = SharedArray(std::move(dictionary));
    library.notes = SharedArray(std::move(list));
    return library;
}

} // namespace vesko::bench

#include "tests/core/sync/SampleRevisions.h"

#include "VeskoCore/base/JsonWriter.h"

#include <ostream>

namespace vesko {

Uuid idNumber(unsigned number)
{
    std::string text = "00000000-0000-0000-0000-000000000000";
    for (auto at = text.rbegin(); number > 0; ++at, number /= 16)
        *at = "0123456789ABCDEF"[number % 16];
    return *Uuid::parse(text);
}

Date atSecond(double seconds)
{
    auto date = *Date::parse("2026-11-21T10:52:00Z");
    date.time += std::chrono::duration_cast<std::chrono::microseconds>(
        std::chrono::duration<double>(seconds));
    return date;
}

Note sampleNote(const Uuid& id)
{
    Note note;
    note.id = id;
    note.kind = NoteKind::dictation;
    note.title = "Shopping";
    note.body = "Bread and butter";
    note.projectID = idNumber(77);
    note.createdAt = atSecond(0);
    note.updatedAt = atSecond(60);
    return note;
}

SyncedNote noteWithBody(const Uuid& id, const std::string& body)
{
    auto note = sampleNote(id);
    note.body = body;
    return SyncedNote(note);
}

Project projectNamed(const Uuid& id, const std::string& name)
{
    return { id, name, atSecond(0) };
}

DictionaryEntry entryFor(const Uuid& id, const std::string& original)
{
    return { id, original, "Vesko", true, DictionaryEntry::Source::learned, atSecond(0) };
}

TextSyncID projectID(const Uuid& project)
{
    return { TextSyncID::Kind::project, project };
}

TextSyncRevision projectRevision(const Uuid& id, std::vector<Uuid> parents, const Uuid& project)
{
    return { id, projectID(project), { parents.begin(), parents.end() },
        projectNamed(project, id.text()) };
}

TextSyncRevision tombstone(const Uuid& id, std::vector<Uuid> parents, const Uuid& project)
{
    return { id, projectID(project), { parents.begin(), parents.end() }, std::nullopt };
}

std::vector<TextSyncRevision> chain(unsigned length)
{
    std::vector<TextSyncRevision> revisions{ projectRevision(idNumber(1)) };
    while (revisions.size() < length)
        revisions.push_back(projectRevision(
            idNumber(static_cast<unsigned>(revisions.size()) + 1), { revisions.back().id }));
    return revisions;
}

TextSyncRevision revisionOfSize(const Uuid& id, std::size_t bytes)
{
    const auto note = idNumber(900'001);
    TextSyncRevision revision{ id, { TextSyncID::Kind::note, note }, {}, noteWithBody(note, "") };
    const auto empty = JsonWriter::write(revision, JsonWriter::Form::pretty).size();
    std::get<SyncedNote>(*revision.value).body = std::string(bytes - empty, 'x');
    return revision;
}

std::string textOf(const TextSyncState& state)
{
    std::string text;
    state.encode([&](std::string_view piece) { text += piece; });
    return text;
}

std::vector<Uuid> idsOf(const SharedArray<TextSyncRevision>& revisions)
{
    std::vector<Uuid> ids;
    for (const auto& revision : revisions)
        ids.push_back(revision.id);
    return ids;
}

void PrintTo(const TextSyncRevision& revision, std::ostream* out)
{
    *out << JsonWriter::write(revision, JsonWriter::Form::compact);
}

void PrintTo(const Uuid& id, std::ostream* out)
{
    *out << id.text();
}

} // namespace vesko

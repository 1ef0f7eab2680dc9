#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"
#include "tests/core/sync/SampleRevisions.h"

#include <gmock/gmock.h>
#include <unordered_set>

using namespace vesko;

namespace {

std::string pretty(const auto& value)
{
    return JsonWriter::write(value, JsonWriter::Form::pretty);
}

std::string compact(const auto& value)
{
    return JsonWriter::write(value, JsonWriter::Form::compact);
}

template <class T>
T decoded(const std::string& text)
{
    return JsonDocument(text).as<T>();
}

const std::string project
    = R"({"createdAt":"2026-11-21T10:52:00Z","id":"00000000-0000-0000-0000-000000000005","name":"Home"})";

} // namespace

TEST(TextSyncRecordsTest, aSyncedNoteLeavesRecordingsAndTheDateOfChangeBehind)
{
    const auto bare = sampleNote(idNumber(1));
    auto full = bare;
    full.recordings.push_back(Recording::make(idNumber(2), full.id, atSecond(1)));
    full.updatedAt = atSecond(500);
    EXPECT_EQ(SyncedNote(full), SyncedNote(bare));
}

TEST(TextSyncRecordsTest, aSyncedNoteHasTheNotesSevenOtherFields)
{
    auto note = sampleNote(idNumber(1));
    note.deletedAt = atSecond(90);
    const SyncedNote synced(note);
    EXPECT_EQ(synced.id, note.id);
    EXPECT_EQ(synced.kind, note.kind);
    EXPECT_EQ(synced.title, note.title);
    EXPECT_EQ(synced.body, note.body);
    EXPECT_EQ(synced.projectID, note.projectID);
    EXPECT_EQ(synced.createdAt, note.createdAt);
    EXPECT_EQ(synced.deletedAt, note.deletedAt);
}

TEST(TextSyncRecordsTest, aNoteRevisionReadsLikeThisInAFile)
{
    auto note = sampleNote(idNumber(1));
    note.body = "a/b";
    note.deletedAt = atSecond(5);
    const TextSyncRevision revision{ idNumber(2), { TextSyncID::Kind::note, note.id },
        { idNumber(4), idNumber(3) }, SyncedNote(note) };
    EXPECT_EQ(pretty(revision), R"({
  "entity" : {
    "id" : "00000000-0000-0000-0000-000000000001",
    "kind" : "note"
  },
  "id" : "00000000-0000-0000-0000-000000000002",
  "parents" : [
    "00000000-0000-0000-0000-000000000003",
    "00000000-0000-0000-0000-000000000004"
  ],
  "value" : {
    "note" : {
      "_0" : {
        "body" : "a\/b",
        "createdAt" : "2026-11-21T10:52:00Z",
        "deletedAt" : "2026-11-21T10:52:05Z",
        "id" : "00000000-0000-0000-0000-000000000001",
        "kind" : "dictation",
        "projectID" : "00000000-0000-0000-0000-00000000004D",
        "title" : "Shopping"
      }
    }
  }
})");
    EXPECT_EQ(decoded<TextSyncRevision>(pretty(revision)), revision);
}

TEST(TextSyncRecordsTest, aTombstoneHasNoValueKeyAndAFirstRevisionAnEmptyListOfParents)
{
    const auto revision = tombstone(idNumber(2), {}, idNumber(1));
    EXPECT_EQ(pretty(revision), R"({
  "entity" : {
    "id" : "00000000-0000-0000-0000-000000000001",
    "kind" : "project"
  },
  "id" : "00000000-0000-0000-0000-000000000002",
  "parents" : [

  ]
})");
    EXPECT_EQ(decoded<TextSyncRevision>(pretty(revision)), revision);
}

TEST(TextSyncRecordsTest, aNoteWithoutProjectAndOutsideTheTrashHasNeitherKey)
{
    SyncedNote note;
    const auto text = compact(note);
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("projectID")));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("deletedAt")));
    EXPECT_EQ(decoded<SyncedNote>(text), note);
}

TEST(TextSyncRecordsTest, aValueStandsUnderTheKeyOfItsKind)
{
    const auto named = projectNamed(idNumber(5), "Home");
    EXPECT_EQ(compact(TextSyncValue(named)), R"({"project":{"_0":)" + project + "}}");
    const auto entry = entryFor(idNumber(6), "vesco");
    EXPECT_EQ(compact(TextSyncValue(entry)), R"({"dictionary":{"_0":)" + compact(entry) + "}}");
    for (const TextSyncValue& value :
        { TextSyncValue(named), TextSyncValue(entry), TextSyncValue(SyncedNote()) })
        EXPECT_EQ(decoded<TextSyncValue>(pretty(value)), value);
}

TEST(TextSyncRecordsTest, aValueKnowsItsEntity)
{
    using Kind = TextSyncID::Kind;
    EXPECT_EQ(TextSyncValue(SyncedNote(sampleNote(idNumber(1)))).entity(),
        (TextSyncID{ Kind::note, idNumber(1) }));
    EXPECT_EQ(TextSyncValue(projectNamed(idNumber(2), "Home")).entity(),
        (TextSyncID{ Kind::project, idNumber(2) }));
    EXPECT_EQ(TextSyncValue(entryFor(idNumber(3), "vesco")).entity(),
        (TextSyncID{ Kind::dictionary, idNumber(3) }));
}

TEST(TextSyncRecordsTest, aValueNeedsExactlyOneKeyOfAKind)
{
    struct Case {
        const char* name;
        std::string text;
        const char* message;
    };
    const char* const wrongNumber = "Invalid number of keys found, expected one.";
    const std::string payload = R"({"_0":)" + project + "}";
    const std::vector<Case> cases{
        { "no key", "{}", wrongNumber },
        { "two kinds", R"({"note":)" + payload + R"(,"project":)" + payload + "}", wrongNumber },
        { "two kinds, neither of them readable", R"({"note":1,"project":2})", wrongNumber },
        { "one kind twice", R"({"project":)" + payload + R"(,"project":)" + payload + "}",
            wrongNumber },
        { "an unknown kind", R"({"folder":)" + payload + "}", wrongNumber },
        { "no payload", R"({"project":{}})", "JsonError" },
        { "two payloads", R"({"project":{"_0":)" + project + R"(,"_0":)" + project + "}}",
            "JsonError" },
        { "another kind's payload", R"({"note":)" + payload + "}", "JsonError" },
        { "a payload without its wrapping", R"({"project":)" + project + "}", "JsonError" },
        { "null for the kind", R"({"project":null})", "JsonError" },
        { "null for the payload", R"({"project":{"_0":null}})", "JsonError" },
        { "a list", "[]", "JsonError" },
        { "null", "null", "JsonError" },
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        try {
            decoded<TextSyncValue>(given.text);
            ADD_FAILURE() << "was read";
        } catch (const JsonError& error) {
            EXPECT_STREQ(error.what(), given.message);
        }
    }
}

TEST(TextSyncRecordsTest, keysThatNobodyKnowsAreIgnoredBesideTheOneOfTheKind)
{
    const auto text = R"({"folder":1,"project":{"_0":)" + project + R"(,"_1":2},"x":{}})";
    EXPECT_EQ(decoded<TextSyncValue>(text), TextSyncValue(projectNamed(idNumber(5), "Home")));
}

TEST(TextSyncRecordsTest, aDamagedRevisionIsRefused)
{
    struct Case {
        const char* name;
        std::string from, to;
    };
    const auto whole = compact(projectRevision(idNumber(2), { idNumber(1) }, idNumber(3)));
    const std::vector<Case> cases{
        { "no entity", R"("entity":)", R"("other":)" },
        { "no id", R"("id":"00000000-0000-0000-0000-000000000002")", R"("x":0)" },
        { "no parents", R"("parents":)", R"("parent":)" },
        { "a null for the value", R"("value":{)", R"("value":null,"x":{)" },
        { "a null for the parents", R"(["00000000-0000-0000-0000-000000000001"])", "null" },
        { "a parent that is no id", R"(["0)", R"(["G)" },
        { "an unknown kind of entity", R"("kind":"project")", R"("kind":"folder")" },
        { "a date with a fraction", ":00Z", ":00.5Z" },
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        auto text = whole;
        ASSERT_NE(text.find(given.from), std::string::npos);
        text.replace(text.find(given.from), given.from.size(), given.to);
        EXPECT_THROW(decoded<TextSyncRevision>(text), JsonError);
    }
}

TEST(TextSyncRecordsTest, parentsAreReadInAnyOrderAndWithRepeats)
{
    const auto first = idNumber(1).text(), second = idNumber(2).text();
    const auto revision = decoded<TextSyncRevision>(R"({"entity":{"id":")" + idNumber(9).text()
        + R"(","kind":"note"},"id":")" + idNumber(3).text() + R"(","parents":[")" + second
        + R"(",")" + first + R"(",")" + second + R"("]})");
    EXPECT_EQ(revision.parents, (std::set<Uuid>{ idNumber(1), idNumber(2) }));
}

TEST(TextSyncRecordsTest, revisionsHashByTheirIdAndCompareByAllFields)
{
    const auto revision = projectRevision(idNumber(1));
    auto other = revision;
    other.parents.insert(idNumber(2));
    const std::hash<TextSyncRevision> hash;
    EXPECT_EQ(hash(revision), hash(other));
    EXPECT_NE(revision, other);
    EXPECT_NE(hash(revision), hash(projectRevision(idNumber(2))));

    auto otherValue = revision;
    otherValue.value = projectNamed(revision.entity.id, "Another name");
    EXPECT_NE(revision, otherValue);
    auto otherEntity = revision;
    otherEntity.entity.kind = TextSyncID::Kind::note;
    EXPECT_NE(revision, otherEntity);
}

TEST(TextSyncRecordsTest, entitiesCompareAndHashByKindAndId)
{
    const TextSyncID note{ TextSyncID::Kind::note, idNumber(1) };
    const TextSyncID project{ TextSyncID::Kind::project, idNumber(1) };
    const TextSyncID other{ TextSyncID::Kind::note, idNumber(2) };
    EXPECT_EQ((std::unordered_set<TextSyncID>{ note, project, other, note }.size()), 3u);
    const std::hash<TextSyncID> hash;
    EXPECT_NE(hash(note), hash(project));
    EXPECT_NE(hash(note), hash(other));
}

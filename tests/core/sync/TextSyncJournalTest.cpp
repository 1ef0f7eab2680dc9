#include "VeskoCore/base/JsonError.h"
#include "tests/core/sync/SampleRevisions.h"

#include <gmock/gmock.h>

using namespace vesko;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

using Failure = TextSyncFailure;

// Whether the failure is this one and the journal is left as it was.
void expectRefused(TextSyncJournal& journal, const std::vector<TextSyncRevision>& batch,
    TextSyncFailure::Kind failure)
{
    const auto before = journal;
    EXPECT_THAT(failureOf([&] { journal.merge(SharedArray(batch)); }), Optional(failure));
    EXPECT_EQ(journal, before);
    EXPECT_EQ(journal.isComplete(), before.isComplete());
    EXPECT_EQ(journal.heads(projectID()), before.heads(projectID()));
}

TextSyncRevision withParents(TextSyncRevision revision, unsigned first, unsigned count)
{
    for (unsigned number = first; number < first + count; ++number)
        revision.parents.insert(idNumber(number));
    return revision;
}

} // namespace

TEST(TextSyncJournalTest, aNewJournalIsEmptyAndComplete)
{
    const TextSyncJournal journal;
    EXPECT_TRUE(journal.revisions().empty());
    EXPECT_TRUE(journal.isComplete());
    EXPECT_TRUE(journal.heads(projectID()).empty());
    EXPECT_EQ(journal, TextSyncJournal());
}

TEST(TextSyncJournalTest, writingAddsARevisionOnTopOfTheOneBefore)
{
    TextSyncJournal journal;
    const auto first = journal.write(projectNamed(idNumber(1), "Home"));
    EXPECT_EQ(first.entity, projectID(idNumber(1)));
    EXPECT_THAT(first.parents, IsEmpty());
    EXPECT_EQ(first.value, TextSyncValue(projectNamed(idNumber(1), "Home")));

    const auto second = journal.write(projectNamed(idNumber(1), "House"));
    EXPECT_NE(second.id, first.id);
    EXPECT_THAT(second.parents, ElementsAre(first.id));
    EXPECT_EQ(journal.heads(first.entity), SharedArray{ second });
    EXPECT_EQ(journal.size(), 2u);
    EXPECT_EQ(*journal.find(first.id), first);
}

TEST(TextSyncJournalTest, entitiesOfOneIdAndTwoKindsAreTwo)
{
    TextSyncJournal journal;
    const auto project = journal.write(projectNamed(idNumber(1), "Home"));
    const auto note = journal.write(noteWithBody(idNumber(1), "Bread"));
    EXPECT_THAT(note.parents, IsEmpty());
    EXPECT_EQ(journal.heads(project.entity), SharedArray{ project });
    EXPECT_EQ(journal.heads(note.entity), SharedArray{ note });
}

TEST(TextSyncJournalTest, whatIsWrittenHasWholeSecondsAtOnce)
{
    TextSyncJournal journal;
    auto note = noteWithBody(idNumber(1), "Bread");
    note.createdAt = atSecond(3.75);
    note.deletedAt = atSecond(9.999);
    const auto revision = journal.write(note);
    const auto& stored = std::get<SyncedNote>(*revision.value);
    EXPECT_EQ(stored.createdAt, atSecond(3));
    EXPECT_EQ(stored.deletedAt, atSecond(9));
    EXPECT_EQ(*journal.find(revision.id), revision);
}

TEST(TextSyncJournalTest, contentThatJsonCannotHoldIsNotWritten)
{
    TextSyncJournal journal;
    EXPECT_THROW(journal.write(noteWithBody(idNumber(1), "\xFF")), JsonError);
    auto early = noteWithBody(idNumber(1), "Bread");
    early.createdAt.time = std::chrono::sys_days{ std::chrono::year{ -1 } / 1 / 1 };
    EXPECT_THROW(journal.write(early), JsonError);
    EXPECT_EQ(journal.size(), 0u);
}

TEST(TextSyncJournalTest, contentThatJsonCannotHoldIsNotMerged)
{
    struct Case {
        const char* name;
        SyncedNote note;
    };
    auto early = noteWithBody(idNumber(1), "Bread");
    early.createdAt.time = std::chrono::sys_days{ std::chrono::year{ -1 } / 1 / 1 };
    auto late = noteWithBody(idNumber(1), "Bread");
    late.deletedAt.emplace().time = std::chrono::sys_days{ std::chrono::year{ 10000 } / 1 / 1 };
    auto title = noteWithBody(idNumber(1), "Bread");
    title.title = "\xC3";
    const std::vector<Case> cases{ { "a body that is no UTF-8", noteWithBody(idNumber(1), "\xFF") },
        { "a title that is no UTF-8", title }, { "a date before the years", early },
        { "a date after them", late } };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        TextSyncJournal journal;
        const TextSyncRevision bad{ idNumber(2), { TextSyncID::Kind::note, idNumber(1) }, {},
            given.note };
        EXPECT_THROW(journal.merge({ projectRevision(idNumber(3)), bad }), JsonError);
        EXPECT_EQ(journal.size(), 0u);
    }
}

TEST(TextSyncJournalTest, unusualButPossibleDatesAreMerged)
{
    using namespace std::chrono;
    TextSyncJournal journal;
    unsigned number = 1;
    for (const auto year : { 0y, 1969y, 9000y, 9999y }) {
        auto project = projectNamed(idNumber(900'000), "Home");
        project.createdAt.time = sys_days{ year / 12 / 31 };
        journal.merge({ { idNumber(number++), projectID(), {}, project } });
    }
    EXPECT_EQ(journal.size(), 4u);
}

TEST(TextSyncJournalTest, removingAddsATombstoneAndKeepsEverything)
{
    TextSyncJournal journal;
    const auto written = journal.write(projectNamed(idNumber(1), "Home"));
    const auto removed = journal.remove(written.entity);
    EXPECT_EQ(removed.value, std::nullopt);
    EXPECT_THAT(removed.parents, ElementsAre(written.id));
    EXPECT_EQ(journal.heads(written.entity), SharedArray{ removed });
    EXPECT_EQ(*journal.find(written.id), written);
}

TEST(TextSyncJournalTest, whatWasNeverThereCanBeRemoved)
{
    TextSyncJournal journal;
    const auto removed = journal.remove(projectID());
    EXPECT_THAT(removed.parents, IsEmpty());
    EXPECT_EQ(journal.heads(projectID()), SharedArray{ removed });
}

TEST(TextSyncJournalTest, writingBringsARemovedEntityBack)
{
    TextSyncJournal journal;
    const auto removed = journal.remove(projectID(idNumber(1)));
    const auto written = journal.write(projectNamed(idNumber(1), "Home"));
    EXPECT_THAT(written.parents, ElementsAre(removed.id));
    EXPECT_EQ(journal.heads(written.entity), SharedArray{ written });
}

TEST(TextSyncJournalTest, revisionsComeInTheOrderOfTheirIdsTexts)
{
    TextSyncJournal journal;
    const auto id = [](const char* text) { return *Uuid::parse(text); };
    const auto nine = id("90000000-0000-0000-0000-00000000000F");
    const auto ten = id("A0000000-0000-0000-0000-000000000000");
    const auto last = id("ff000000-0000-0000-0000-000000000000");
    journal.merge({ projectRevision(last), projectRevision(nine), projectRevision(ten) });
    EXPECT_THAT(idsOf(journal.revisions()), ElementsAre(nine, ten, last));
    EXPECT_THAT(idsOf(journal.heads(projectID())), ElementsAre(nine, ten, last));
}

TEST(TextSyncJournalTest, twoReplicasShowTheSameForkAndTheNextChangeClosesIt)
{
    TextSyncJournal here, there;
    const auto start = here.write(projectNamed(idNumber(1), "Home"));
    there.merge({ start });
    const auto mine = here.write(projectNamed(idNumber(1), "Mine"));
    const auto yours = there.write(projectNamed(idNumber(1), "Yours"));
    here.merge(there.revisions());
    there.merge(here.revisions());

    EXPECT_EQ(here, there);
    const auto fork = here.heads(start.entity);
    EXPECT_THAT(idsOf(fork), ElementsAre(std::min(mine.id, yours.id), std::max(mine.id, yours.id)));
    EXPECT_EQ(fork, there.heads(start.entity));

    for (const bool removal : { false, true }) {
        SCOPED_TRACE(removal ? "a removal" : "a write");
        auto journal = here;
        const auto closing = removal ? journal.remove(start.entity)
                                     : journal.write(projectNamed(idNumber(1), "Both"));
        EXPECT_EQ(closing.parents, (std::set<Uuid>{ mine.id, yours.id }));
        EXPECT_EQ(journal.heads(start.entity), SharedArray{ closing });
        const auto next = journal.write(projectNamed(idNumber(1), "Next"));
        EXPECT_THAT(next.parents, ElementsAre(closing.id));
        EXPECT_EQ(journal.heads(start.entity), SharedArray{ next });
    }
}

TEST(TextSyncJournalTest, aForkOfATombstoneAndAValueHasTwoHeads)
{
    TextSyncJournal journal;
    journal.merge({ projectRevision(idNumber(1)), projectRevision(idNumber(2), { idNumber(1) }),
        tombstone(idNumber(3), { idNumber(1) }) });
    EXPECT_THAT(idsOf(journal.heads(projectID())), ElementsAre(idNumber(2), idNumber(3)));
}

TEST(TextSyncJournalTest, mergingNothingChangesNothing)
{
    TextSyncJournal journal;
    journal.merge({});
    EXPECT_EQ(journal.size(), 0u);
    journal.merge(SharedArray(chain(3)));
    const auto before = journal;
    journal.merge({});
    EXPECT_EQ(journal, before);
}

TEST(TextSyncJournalTest, mergingTheSameTwiceIsMergingItOnce)
{
    auto batch = chain(3);
    TextSyncJournal journal;
    journal.merge(SharedArray(batch));
    const auto before = journal;
    journal.merge(SharedArray(batch));
    EXPECT_EQ(journal, before);
    // Also within one batch.
    batch.push_back(batch[1]);
    TextSyncJournal other;
    other.merge(SharedArray(batch));
    EXPECT_EQ(other, before);
    EXPECT_EQ(other.size(), 3u);
}

TEST(TextSyncJournalTest, aRevisionMayComeBeforeItsParent)
{
    const auto parent = projectRevision(idNumber(1));
    const auto child = projectRevision(idNumber(2), { idNumber(1) });
    TextSyncJournal journal;
    journal.merge({ child });
    EXPECT_FALSE(journal.isComplete());
    EXPECT_EQ(journal.heads(projectID()), SharedArray{ child });

    const auto before = journal;
    const auto write = [&] { journal.write(projectNamed(idNumber(900'000), "Home")); };
    EXPECT_THAT(failureOf(write), Optional(Failure::incompleteHistory));
    EXPECT_THAT(
        failureOf([&] { journal.remove(projectID()); }), Optional(Failure::incompleteHistory));
    EXPECT_THAT(failureOf([&] { journal.remove(projectID(idNumber(5))); }),
        Optional(Failure::incompleteHistory))
        << "another entity's history is as incomplete";
    EXPECT_EQ(journal, before);

    journal.merge({ parent });
    EXPECT_TRUE(journal.isComplete());
    EXPECT_EQ(journal.heads(projectID()), SharedArray{ child });
    EXPECT_EQ(failureOf(write), std::nullopt);
}

TEST(TextSyncJournalTest, historyIsIncompleteUntilTheLastParentHasCome)
{
    TextSyncJournal journal;
    journal.merge({ projectRevision(idNumber(9), { idNumber(1), idNumber(2) }),
        projectRevision(idNumber(8), { idNumber(2) }) });
    journal.merge({ projectRevision(idNumber(2)) });
    EXPECT_FALSE(journal.isComplete());
    journal.merge({ projectRevision(idNumber(1)) });
    EXPECT_TRUE(journal.isComplete());
    EXPECT_THAT(idsOf(journal.heads(projectID())), ElementsAre(idNumber(8), idNumber(9)));
}

TEST(TextSyncJournalTest, aRevisionThatBreaksARuleIsRefused)
{
    auto otherKind = projectRevision(idNumber(1));
    otherKind.entity.kind = TextSyncID::Kind::note;
    auto otherID = projectRevision(idNumber(1));
    otherID.entity.id = idNumber(800'000);
    struct Case {
        const char* name;
        TextSyncRevision revision;
        TextSyncFailure::Kind failure;
    };
    const std::vector<Case> cases{
        { "content of another kind than its entity", otherKind, Failure::invalidRevision },
        { "content of another thing than its entity", otherID, Failure::invalidRevision },
        { "its own parent", projectRevision(idNumber(1), { idNumber(1) }),
            Failure::invalidRevision },
        { "65 parents", withParents(projectRevision(idNumber(1)), 2, 65),
            Failure::invalidRevision },
        { "65 parents of a tombstone", withParents(tombstone(idNumber(1)), 2, 65),
            Failure::invalidRevision },
        { "a byte too many", revisionOfSize(idNumber(1), 512'001), Failure::tooLarge },
    };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        TextSyncJournal journal;
        journal.merge({ projectRevision(idNumber(99)) });
        expectRefused(journal, { given.revision }, given.failure);
        expectRefused(journal,
            { projectRevision(idNumber(50)), projectRevision(idNumber(51)), given.revision },
            given.failure);
    }
}

TEST(TextSyncJournalTest, whatIsJustWithinALimitPasses)
{
    TextSyncJournal journal;
    journal.merge({ withParents(projectRevision(idNumber(1)), 2, 64) });
    journal.merge({ revisionOfSize(idNumber(100), 512'000) });
    EXPECT_EQ(journal.size(), 2u);
}

// Each of these takes six bytes in JSON, and the estimate may not take them for one.
TEST(TextSyncJournalTest, theLimitCountsEscapes)
{
    const auto entity = idNumber(1);
    const TextSyncRevision fits{ idNumber(2), { TextSyncID::Kind::note, entity }, {},
        noteWithBody(entity, std::string(85'000, '\x01')) };
    auto large = fits;
    std::get<SyncedNote>(*large.value).body += std::string(334, '\x01');
    TextSyncJournal journal;
    expectRefused(journal, { large }, Failure::tooLarge);
    journal.merge({ fits });
    EXPECT_EQ(journal.size(), 1u);
}

TEST(TextSyncJournalTest, aNoteTooLongForARevisionIsNotWritten)
{
    TextSyncJournal journal;
    journal.merge({ projectRevision(idNumber(99)) });
    const auto before = journal;
    EXPECT_THAT(
        failureOf([&] { journal.write(noteWithBody(idNumber(1), std::string(512'000, 'x'))); }),
        Optional(Failure::tooLarge));
    EXPECT_EQ(journal, before);
}

TEST(TextSyncJournalTest, theFirstRevisionThatFailsDecidesTheFailure)
{
    TextSyncJournal journal;
    const auto large = revisionOfSize(idNumber(1), 600'000);
    const auto ownParent = projectRevision(idNumber(2), { idNumber(2) });
    expectRefused(journal, { large, ownParent }, Failure::tooLarge);
    expectRefused(journal, { ownParent, large }, Failure::invalidRevision);
    // Rules of a revision come before rules of the graph.
    const auto one = projectRevision(idNumber(3), { idNumber(4) });
    const auto two = projectRevision(idNumber(4), { idNumber(3) });
    expectRefused(journal, { one, two, large }, Failure::tooLarge);
    // Within a revision, the rules come in their order.
    auto both = large;
    both.parents.insert(both.id);
    expectRefused(journal, { both }, Failure::invalidRevision);
    // The size comes before the comparison with what is known.
    journal.merge({ projectRevision(idNumber(1)) });
    expectRefused(journal, { large }, Failure::tooLarge);
}

TEST(TextSyncJournalTest, aKnownRevisionNeverChanges)
{
    const auto known = projectRevision(idNumber(1));
    auto otherValue = known;
    otherValue.value = projectNamed(known.entity.id, "Another name");
    auto otherParents = known;
    otherParents.parents.insert(idNumber(9));
    struct Case {
        const char* name;
        TextSyncRevision revision;
    };
    const std::vector<Case> cases{ { "another value", otherValue },
        { "other parents", otherParents }, { "no value", tombstone(idNumber(1)) },
        { "another entity", projectRevision(idNumber(1), {}, idNumber(800'000)) } };
    for (const auto& given : cases) {
        SCOPED_TRACE(given.name);
        TextSyncJournal journal;
        expectRefused(journal, { known, given.revision }, Failure::invalidRevision);
        journal.merge({ known });
        expectRefused(journal, { given.revision }, Failure::invalidRevision);
    }
}

TEST(TextSyncJournalTest, aParentBelongsToTheSameEntity)
{
    const auto other = idNumber(800'000);
    const auto parent = projectRevision(idNumber(1), {}, other);
    const auto child = projectRevision(idNumber(2), { idNumber(1) });
    {
        SCOPED_TRACE("in one batch");
        TextSyncJournal journal;
        expectRefused(journal, { parent, child }, Failure::invalidRevision);
    }
    {
        SCOPED_TRACE("the parent first");
        TextSyncJournal journal;
        journal.merge({ parent });
        expectRefused(journal, { child }, Failure::invalidRevision);
    }
    {
        SCOPED_TRACE("the child first");
        TextSyncJournal journal;
        journal.merge({ child });
        expectRefused(journal, { parent }, Failure::invalidRevision);
    }
}

TEST(TextSyncJournalTest, aCycleIsRefused)
{
    const auto one = projectRevision(idNumber(1), { idNumber(2) });
    const auto two = projectRevision(idNumber(2), { idNumber(1) });
    {
        SCOPED_TRACE("in one batch");
        TextSyncJournal journal;
        expectRefused(journal, { one, two }, Failure::invalidRevision);
    }
    {
        SCOPED_TRACE("closed by the second batch");
        TextSyncJournal journal;
        journal.merge({ one });
        expectRefused(journal, { two }, Failure::invalidRevision);
        EXPECT_EQ(journal.revisions(), SharedArray{ one });
    }
    {
        SCOPED_TRACE("long, and closed by its last revision, with a branch that is none of it");
        auto ring = chain(100);
        ring.front().parents.insert(ring.back().id);
        ring.push_back(projectRevision(idNumber(500), { ring[50].id }));
        for (std::size_t last = 0; last < 100; ++last) {
            TextSyncJournal journal;
            auto rest = ring;
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(last));
            journal.merge(SharedArray(rest));
            expectRefused(journal, { ring[last] }, Failure::invalidRevision);
        }
    }
}

TEST(TextSyncJournalTest, anEntityWithMoreThan64HeadsCannotBeChangedHere)
{
    TextSyncJournal journal;
    for (unsigned number = 1; number <= 64; ++number)
        journal.merge({ projectRevision(idNumber(number)) });
    auto closed = journal;
    EXPECT_EQ(closed.remove(projectID()).parents.size(), 64u);

    journal.merge({ projectRevision(idNumber(65)) });
    const auto before = journal;
    EXPECT_THAT(failureOf([&] { journal.write(projectNamed(idNumber(900'000), "Home")); }),
        Optional(Failure::invalidRevision));
    EXPECT_THAT(
        failureOf([&] { journal.remove(projectID()); }), Optional(Failure::invalidRevision));
    EXPECT_EQ(journal, before);
    EXPECT_EQ(journal.heads(projectID()).size(), 65u);
}

TEST(TextSyncJournalTest, aCopyStaysAsItWas)
{
    TextSyncJournal journal;
    journal.write(projectNamed(idNumber(1), "Home"));
    const auto copy = journal;
    const auto second = journal.write(projectNamed(idNumber(1), "House"));
    EXPECT_EQ(copy.size(), 1u);
    EXPECT_EQ(copy.find(second.id), nullptr);
    EXPECT_EQ(copy.heads(second.entity).size(), 1u);
    EXPECT_FALSE(copy == journal);
}

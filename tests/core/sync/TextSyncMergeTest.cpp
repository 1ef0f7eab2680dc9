#include "tests/core/sync/LiteralJournal.h"
#include "tests/core/sync/SampleRevisions.h"

#include <gmock/gmock.h>
#include <random>

using namespace vesko;

namespace {

// Makes batches over few ids and few entities, so that repeats, conflicts, missing parents, foreign
// parents and cycles, closed at once or much later, all come up often.
class BatchMaker {
public:
    explicit BatchMaker(unsigned seed)
        : m_random(seed)
        , m_ids(2 + below(30))
        , m_entities(1 + below(3))
        , m_mostParents(1 + below(4))
        , m_orderly(below(4) > 0)
    {
    }

    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    TextSyncID entity(unsigned number) const { return projectID(idNumber(1000 + number)); }
    unsigned entities() const { return m_entities; }

    std::vector<TextSyncRevision> next()
    {
        std::vector<TextSyncRevision> batch;
        for (auto count = below(below(3) == 0 ? 12 : 3); count > 0; --count)
            batch.push_back(revision());
        return batch;
    }

private:
    TextSyncRevision revision()
    {
        if (!m_made.empty() && below(3) == 0) {
            auto known = m_made[below(static_cast<unsigned>(m_made.size()))];
            if (below(8) == 0)
                known.parents.insert(idNumber(1 + below(m_ids)));
            return known;
        }
        const unsigned id = 1 + below(m_ids);
        // Mostly an id always belongs to the same entity, and a parent too, and parents have lower
        // ids: otherwise hardly anything would ever fit together.
        const bool odd = !m_orderly && below(10) == 0;
        const unsigned group = odd ? below(m_entities) : id % m_entities;
        TextSyncRevision revision{ idNumber(id), entity(group), {}, std::nullopt };
        if (below(4) > 0)
            revision.value = projectNamed(entity(odd && below(4) == 0 ? 0 : group).id, "Home");
        for (auto count = below(m_mostParents + 1); count > 0; --count) {
            const unsigned parent = m_orderly && id > 1 ? 1 + below(id - 1) : 1 + below(m_ids);
            if (!m_orderly || parent % m_entities == group)
                revision.parents.insert(idNumber(parent));
        }
        m_made.push_back(revision);
        return revision;
    }

    std::mt19937 m_random;
    unsigned m_ids;
    unsigned m_entities;
    unsigned m_mostParents;
    bool m_orderly;
    std::vector<TextSyncRevision> m_made;
};

struct Outcomes {
    int taken = 0, refused = 0, incomplete = 0, forks = 0;
};

// Every answer of the journal, against going through the whole graph.
void expectSame(const TextSyncJournal& journal, const LiteralJournal& literal,
    const BatchMaker& maker, Outcomes& outcomes)
{
    ASSERT_EQ(journal.revisions(), SharedArray(literal.revisions()));
    ASSERT_EQ(journal.isComplete(), literal.isComplete());
    outcomes.incomplete += journal.isComplete() ? 0 : 1;
    for (unsigned number = 0; number < maker.entities(); ++number) {
        const auto heads = journal.heads(maker.entity(number));
        ASSERT_EQ(heads, SharedArray(literal.heads(maker.entity(number))));
        outcomes.forks += heads.size() > 1 ? 1 : 0;
    }
}

} // namespace

// The journal keeps books of heads and missing parents and looks only at what a batch touches. Here
// that is held against computing everything anew, for verdicts, revisions, heads and completeness.
TEST(TextSyncMergeTest, theKeptBooksTellWhatTheWholeGraphTells)
{
    Outcomes outcomes;
    for (unsigned seed = 1; seed <= 400; ++seed) {
        SCOPED_TRACE(seed);
        BatchMaker maker(seed);
        TextSyncJournal journal;
        LiteralJournal literal;
        for (int step = 0; step < 25; ++step) {
            const auto batch = maker.next();
            const auto expected = failureOf([&] { literal.merge(batch); });
            ASSERT_EQ(failureOf([&] { journal.merge(SharedArray(batch)); }), expected);
            (expected ? outcomes.refused : outcomes.taken) += 1;
            ASSERT_NO_FATAL_FAILURE(expectSame(journal, literal, maker, outcomes));
        }
    }
    // The makers of batches have to meet all of this, or nothing was compared.
    EXPECT_GT(outcomes.taken, 1000);
    EXPECT_GT(outcomes.refused, 1000);
    EXPECT_GT(outcomes.incomplete, 1000);
    EXPECT_GT(outcomes.forks, 1000);
}

// The size of a revision is mostly estimated. Around the limit, and around where the estimate gives
// way to measuring, the verdict has to be that of measuring.
TEST(TextSyncMergeTest, theEstimatedSizeJudgesAsTheMeasuredOne)
{
    struct Case {
        const char* name;
        std::string character;
        std::size_t inJson;
    };
    const std::vector<Case> cases{ { "a letter", "x", 1 }, { "a slash", "/", 2 },
        { "a line end", "\n", 2 }, { "a control character", "\x01", 6 },
        { "a character of four bytes", "\xF0\x9F\x98\x80", 4 } };
    int taken = 0, refused = 0;
    for (const auto& given : cases)
        for (const std::size_t bytes : { 500'000u, 511'000u, 511'400u, 512'000u, 530'000u }) {
            SCOPED_TRACE(testing::Message() << given.name << ", about " << bytes);
            TextSyncRevision revision{ idNumber(1), { TextSyncID::Kind::note, idNumber(2) }, {},
                noteWithBody(idNumber(2), "") };
            auto& body = std::get<SyncedNote>(*revision.value).body;
            for (std::size_t count = 0; count < bytes / given.inJson; ++count)
                body += given.character;

            TextSyncJournal journal;
            LiteralJournal literal;
            const auto expected = failureOf([&] { literal.merge({ revision }); });
            ASSERT_EQ(failureOf([&] { journal.merge({ revision }); }), expected);
            (expected ? refused : taken) += 1;
        }
    EXPECT_GT(taken, 5);
    EXPECT_GT(refused, 5);
}

#include "tests/core/sync/TextSyncStoreFixture.h"

#include <csignal>
#include <random>
#include <sys/wait.h>

using namespace vesko;

namespace {

using Fault = FailingFileSystem::Fault;

class TextSyncStoreFaultTest : public TextSyncStoreFixture {
protected:
    TextSyncStoreFaultTest() { files.syncs = false; }

    struct Operation {
        const char* name;
        std::function<void(TextSyncStore&)> run;
    };

    // An account with a few revisions, one of them pending, or one that has no file yet.
    void given(bool fresh)
    {
        std::filesystem::remove_all(root);
        if (fresh)
            return;
        TextSyncState state;
        state.journal.merge(SharedArray(chain(3)));
        state.pending.change({}, { idNumber(2) });
        putJournal(textOf(state));
    }

    // Lets one of the calls from now on go wrong, counted from 0.
    void inject(Fault fault, int at, int number = 0)
    {
        files.fault = fault;
        files.at = at;
        files.number = number;
        files.calls = 0;
    }

    const std::vector<Operation> operations{
        { "write",
            [](TextSyncStore& store) { store.write(projectNamed(idNumber(900'000), "Home")); } },
        { "remove", [](TextSyncStore& store) { store.remove(projectID()); } },
        { "mergeRemote",
            [](TextSyncStore& store) { store.mergeRemote({ projectRevision(idNumber(50)) }); } },
        { "acknowledge", [](TextSyncStore& store) { store.acknowledge({ idNumber(2) }); } },
    };

    TextSyncState memory(const TextSyncStore& store) const
    {
        TextSyncState state{ store.snapshot(), {} };
        state.pending.change({}, idsOf(store.pending()));
        return state;
    }
    TextSyncState disk() const
    {
        return std::filesystem::exists(journal) ? saved() : TextSyncState();
    }
};

} // namespace

TEST_F(TextSyncStoreFaultTest, memoryAndDiskAgreeWhicheverCallOfACommitFails)
{
    for (const bool fresh : { false, true })
        for (const auto& operation : operations)
            for (const int number : { ENOSPC, EIO, EACCES })
                for (int at = 0;; ++at) {
                    SCOPED_TRACE(testing::Message()
                        << operation.name << (fresh ? " to no file, call " : ", call ") << at);
                    given(fresh);
                    auto store = opened();
                    const auto before = memory(store);
                    inject(Fault::error, at, number);
                    bool told = false;
                    try {
                        operation.run(store);
                    } catch (const std::system_error& error) {
                        told = true;
                        EXPECT_EQ(error.code().value(), number);
                    }
                    EXPECT_EQ(disk(), memory(store));
                    if (told)
                        EXPECT_EQ(memory(store), before);
                    const bool over = files.calls <= at; // before the fault's turn came
                    // And the store goes on as if nothing had been.
                    files.fault = Fault::none;
                    if (told)
                        EXPECT_NO_THROW(operation.run(store));
                    EXPECT_EQ(disk(), memory(store));
                    EXPECT_FALSE(std::filesystem::exists(account / "journal.json.tmp"));
                    if (over) {
                        EXPECT_FALSE(told);
                        break;
                    }
                }
}

TEST_F(TextSyncStoreFaultTest, openingFailsCleanlyWhicheverCallFails)
{
    int failures = 0;
    for (int at = 0;; ++at) {
        SCOPED_TRACE(at);
        given(false);
        const auto before = bytesOf(journal);
        inject(Fault::error, at, EIO);
        bool sizeUnknown = false;
        try {
            opened();
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code().value(), EIO);
            ++failures;
        } catch (const TextSyncFailure& failure) {
            EXPECT_EQ(failure.kind(), TextSyncFailure::tooLarge);
            sizeUnknown = true;
            ++failures;
        }
        EXPECT_EQ(sizeUnknown, at == 0) << "the size is asked for first";
        EXPECT_EQ(bytesOf(journal), before);
        const bool over = files.calls <= at;
        files.fault = Fault::none;
        EXPECT_NO_THROW(opened()) << "the lock was let go";
        if (over)
            break;
    }
    EXPECT_GT(failures, 2);
}

// A child dies at each call of a commit in turn; what opens afterwards is the state before the
// operation or after it, and the next operation works.
TEST_F(TextSyncStoreFaultTest, aDeathDuringACommitLeavesTheOldStateOrTheNew)
{
    for (const bool fresh : { false, true })
        for (const auto& operation : operations)
            for (const auto fault : { Fault::deathBefore, Fault::deathWithin })
                for (int at = 0;; ++at) {
                    SCOPED_TRACE(testing::Message() << operation.name << ", call " << at);
                    given(fresh);
                    const auto before = disk();
                    const pid_t child = fork();
                    if (child == 0) {
                        auto store = opened();
                        inject(fault, at);
                        operation.run(store);
                        _exit(1);
                    }
                    int status = 0;
                    waitpid(child, &status, 0);
                    ASSERT_TRUE(WIFEXITED(status));
                    {
                        auto store = opened();
                        const auto found = memory(store);
                        const bool grown = found.journal.size() == before.journal.size() + 1
                            || found.pending.size() + 1 == before.pending.size();
                        EXPECT_TRUE(found == before || grown);
                        EXPECT_NO_THROW(operation.run(store));
                        EXPECT_EQ(disk(), memory(store));
                    }
                    if (WEXITSTATUS(status) == 1)
                        break;
                }
}

// A child writes one revision after the other and reports each that went well; it is killed at some
// moment. Whatever it reported must be there, and at most the revision that it was about.
TEST_F(TextSyncStoreFaultTest, nothingThatWasReportedIsLostInManyKills)
{
    constexpr int kills = 200;
    std::mt19937 random(20'261'121);
    std::size_t last = 0;
    for (int round = 0; round < kills; ++round) {
        int reports[2];
        ASSERT_EQ(pipe(reports), 0);
        const pid_t child = fork();
        if (child == 0) {
            close(reports[0]);
            auto store = opened();
            for (;;) {
                store.write(projectNamed(idNumber(1), "Home"));
                const auto size = store.snapshot().size();
                if (write(reports[1], &size, sizeof size) != sizeof size)
                    _exit(1);
            }
        }
        close(reports[1]);
        std::size_t reported = last;
        ASSERT_EQ(read(reports[0], &reported, sizeof reported), ssize_t(sizeof reported));
        const auto idleFor = random() % 200'000;
        for (volatile unsigned spin = 0; spin < idleFor;)
            spin = spin + 1;
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        while (read(reports[0], &reported, sizeof reported) == ssize_t(sizeof reported))
            ;
        close(reports[0]);

        auto store = opened();
        const auto found = store.snapshot().size();
        ASSERT_GE(found, reported) << "lost in round " << round;
        ASSERT_LE(found, reported + 1);
        ASSERT_EQ(store.pending().size(), found);
        last = found;
    }
    EXPECT_GE(last, std::size_t(kills));
}

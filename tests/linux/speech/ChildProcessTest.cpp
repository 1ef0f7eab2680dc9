#include "VeskoLinux/speech/engines/ChildProcess.h"

#include "VeskoCore/speech/EngineContract.h"
#include "tests/linux/speech/StandIn.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace vesko {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr auto patience = 20s;

// Why it failed; empty if it didn't.
template <class Action>
std::string failure(const Action& action)
{
    try {
        action();
    } catch (const EngineFailure& error) {
        return error.what();
    }
    return "";
}

class Children : public testing::Test {
protected:
    StandIns standIns;

    std::string outputOf(const std::string& script, ChildProcess::Options options = {}) const
    {
        ChildProcess process({ standIns.script(script) }, {}, options);
        return process.rest();
    }
};

TEST_F(Children, takeWhatIsSentAndSayTheirLines)
{
    ChildProcess process(
        { standIns.script("while read -r line; do echo \"<$line>\"; done") }, {}, {});
    process.send("one\ntwo\n");
    EXPECT_EQ(process.line(patience), "<one>");
    EXPECT_EQ(process.line(patience), "<two>");
    process.endInput();
    EXPECT_EQ(failure([&] { process.line(patience); }), "the engine ended");
}

TEST_F(Children, areGivenTheirArgumentsWithoutAShell)
{
    const auto program = standIns.script("printf '%s|' \"$@\"");
    ChildProcess process({ program, "a b", "$(id)", "'", ";" }, {}, {});
    EXPECT_EQ(process.rest(), "a b|$(id)|'|;|");
}

// More than a pipe holds, both ways at once.
TEST_F(Children, mayAnswerWhileTheyAreSpokenTo)
{
    ChildProcess process({ standIns.script("exec cat") }, {}, {});
    const std::string sent(500'000, 'x');
    process.send(sent);
    EXPECT_EQ(process.rest(), sent);
}

TEST_F(Children, knowNothingButWhatLocatesFilesAndWords)
{
    for (const char* name : { "OPENROUTER_API_KEY", "DBUS_SESSION_BUS_ADDRESS", "DISPLAY",
             "SSH_AUTH_SOCK", "ANYTHING" })
        ::setenv(name, "secret-of-the-user", 1);
    const auto told
        = outputOf("env; ls /proc/self/fd | tr '\\n' ' '; cut -d' ' -f7 /proc/self/stat;"
                   "test -t 0 || echo no terminal");
    for (const char* name : { "OPENROUTER_API_KEY", "ANYTHING" })
        ::unsetenv(name);
    EXPECT_THAT(told,
        AllOf(HasSubstr("PATH="), Not(HasSubstr("secret")), HasSubstr("0 1 2 3"), // 3 is ls's own
            Not(HasSubstr(" 4 ")), HasSubstr("no terminal")));
}

// The loopback, which is down, is the only way out that is left.
TEST_F(Children, haveNoNetwork)
{
    EXPECT_EQ(outputOf("tail -n +3 /proc/self/net/dev | cut -d: -f1 | tr -d ' '"), "lo\n");
}

TEST_F(Children, areOfTheSameUser)
{
    EXPECT_EQ(outputOf("id -u"), std::to_string(::geteuid()) + "\n");
}

TEST_F(Children, giveWayWhenNobodyWaits)
{
    EXPECT_EQ(outputOf("nice", { .lowPriority = true }), "19\n");
    EXPECT_EQ(outputOf("nice"), std::to_string(::getpriority(PRIO_PROCESS, 0)) + "\n");
}

TEST_F(Children, leaveNoProcessBehind)
{
    const struct {
        const char* what;
        std::string script;
    } rows[] = {
        { "one that goes on", "echo ready; exec sleep 1000" },
        { "one that ignores the end and every signal",
            "trap '' TERM HUP INT; echo ready; while :; do sleep 1; done" },
        { "one with a child", "sleep 1000 & echo ready; wait" },
        { "one with a child that left its group", "setsid sleep 1000 & echo ready; wait" },
        { "one that has ended, but not its child", "setsid sleep 1000 & echo ready" },
    };
    const auto holders = [&] {
        // All of them hold its folder as their working one, whatever they have become.
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::error_code gone;
            const auto place = std::filesystem::read_symlink(entry.path() / "cwd", gone);
            count += !gone && place == standIns.path() ? 1 : 0;
        }
        return count;
    };
    for (const auto& row : rows) {
        {
            ChildProcess process({ standIns.script("cd \"$dir\"\n" + row.script) }, {}, {});
            EXPECT_EQ(process.line(patience), "ready") << row.what;
        }
        // The rest of a namespace goes with its first process, though not in the same moment.
        while (holders() > 0)
            std::this_thread::yield();
        EXPECT_EQ(holders(), 0) << row.what;
    }
}

TEST_F(Children, failWithWhatTheySayOrDont)
{
    const struct {
        const char* what;
        std::string script, why;
    } rows[] = {
        { "nothing, and the end", "exit 0", "the engine ended" },
        { "half a line", "printf half", "the engine ended" },
        { "dies", "kill -9 0; exit 3", "the engine ended" },
        { "a gigabyte", "exec head -c 1000000000 /dev/zero", "the engine said too much" },
        { "its end, and a child that keeps its output open", "setsid sleep 1000 & exit 0",
            "the engine ended" },
    };
    for (const auto& row : rows) {
        ChildProcess process({ standIns.script(row.script) }, {}, {});
        EXPECT_EQ(failure([&] { process.line(patience); }), row.why) << row.what;
    }
    ChildProcess silent({ standIns.script("exec sleep 1000") }, {}, {});
    EXPECT_EQ(failure([&] { silent.line(0ms); }), "the engine doesn't answer");
}

TEST_F(Children, mayFillTheirErrorOutput)
{
    EXPECT_EQ(outputOf("head -c 10000000 /dev/zero >&2; echo done"), "done\n");
}

TEST_F(Children, areToEndWellWhereAllOfTheirOutputIsWanted)
{
    EXPECT_EQ(outputOf("echo some"), "some\n");
    EXPECT_EQ(failure([&] { outputOf("echo some; exit 1"); }), "the engine ended badly");
    EXPECT_EQ(
        failure([&] { outputOf("exec head -c 2000000 /dev/zero"); }), "the engine said too much");
    EXPECT_EQ(outputOf("exec >&-; read -r line; exit 0"), "") << "closed its output first";
}

TEST_F(Children, thatTakeNothingFailTheSending)
{
    const std::string much(1'000'000, 'x');
    ChildProcess gone({ standIns.script("exit 0") }, {}, {});
    EXPECT_EQ(failure([&] { gone.send(much); }), "the engine takes no sound");
    ChildProcess deaf({ standIns.script("exec <&-; sleep 1000") }, {}, {});
    EXPECT_EQ(failure([&] { deaf.send(much); }), "the engine takes no sound");
}

TEST_F(Children, areLeftAtOnceWhenTheStopIsAskedFor)
{
    const auto waiting = standIns.script("echo $$ >\"$dir/begun\"; exec sleep 1000");
    const std::string much(1'000'000, 'x');
    const std::function<void(ChildProcess&)> calls[] = {
        [](ChildProcess& process) { process.line(1h); },
        [](ChildProcess& process) { process.rest(); },
        [&](ChildProcess& process) { process.send(much); },
    };
    for (const auto& call : calls) {
        std::stop_source stop;
        ChildProcess process({ waiting }, stop.get_token(), {});
        const std::jthread other([&] {
            while (!std::filesystem::exists(standIns.path() / "begun"))
                std::this_thread::yield();
            stop.request_stop();
        });
        EXPECT_THROW(call(process), ChildProcess::Stopped);
        std::filesystem::remove(standIns.path() / "begun");
    }
}

TEST_F(Children, areNeverProgramsThatOthersMayHaveChanged)
{
    const auto good = standIns.script("echo hello");
    const auto why = [](const std::filesystem::path& program) {
        return failure([&] { ChildProcess({ program }, {}, {}); });
    };
    EXPECT_EQ(why(good), "");
    EXPECT_EQ(why(standIns.path() / "missing"), "the engine's program isn't there");
    EXPECT_EQ(why(standIns.path()), "the engine's program can't be executed") << "a folder";
    ASSERT_EQ(::mkfifo((standIns.path() / "pipe").c_str(), 0700), 0);
    EXPECT_EQ(why(standIns.path() / "pipe"), "the engine's program can't be executed");
    EXPECT_EQ(why(standIns.program("no program at all", "text")),
        "the engine's program can't be started");

    std::filesystem::create_symlink(good, standIns.path() / "link");
    EXPECT_EQ(why(standIns.path() / "link"), "");
    ::chmod(good.c_str(), 0600);
    EXPECT_EQ(why(good), "the engine's program can't be executed");
    ::chmod(good.c_str(), 0707);
    EXPECT_EQ(why(standIns.path() / "link"), "others may have changed the engine's program");
    ::chmod(good.c_str(), 0700);
    ::chmod(standIns.path().c_str(), 0777);
    EXPECT_EQ(why(good), "others may have changed the engine's program") << "or put it there";
    ::chmod(standIns.path().c_str(), 0700);
    if (::geteuid() == 0) {
        constexpr uid_t somebody = 12345;
        ASSERT_EQ(::chown(good.c_str(), somebody, somebody), 0);
        EXPECT_EQ(why(good), "others may have changed the engine's program") << "another user's";
    }
}

} // namespace
} // namespace vesko

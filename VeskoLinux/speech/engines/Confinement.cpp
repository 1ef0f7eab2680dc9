#include "VeskoLinux/speech/engines/Confinement.h"

#include "VeskoCore/speech/EngineContract.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/close_range.h>
#include <linux/sched.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace vesko {

namespace {

// What locates files and words. No key, no bus, no display, no agent.
constexpr std::array inherited{ "PATH", "HOME", "LANG", "LC_ALL", "LC_CTYPE", "TMPDIR",
    "XDG_DATA_HOME", "XDG_CACHE_HOME", "LD_LIBRARY_PATH" };

class Pipe {
public:
    Pipe()
    {
        if (::pipe2(m_ends.data(), O_CLOEXEC) != 0)
            throw EngineFailure("no pipe can be had");
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe()
    {
        for (const int end : m_ends)
            if (end >= 0)
                ::close(end);
    }
    int readEnd() const { return m_ends[0]; }
    int writeEnd() const { return m_ends[1]; }
    void closeWriteEnd() { ::close(std::exchange(m_ends[1], -1)); }
    int takeReadEnd() { return taken(m_ends[0]); }
    int takeWriteEnd() { return taken(m_ends[1]); }

private:
    static int taken(int& end)
    {
        ::fcntl(end, F_SETFL, ::fcntl(end, F_GETFL) | O_NONBLOCK);
        return std::exchange(end, -1);
    }
    std::array<int, 2> m_ends{ -1, -1 };
};

// All that the new process needs: between its birth and its program it may neither allocate nor
// lock, since the threads that hold the locks are not in it.
struct Plan {
    char* const* arguments;
    char* const* environment;
    int input, output, trouble;
    const char* userMap;
    const char* groupMap;
    bool apart; // in namespaces of its own
    bool lowPriority;
};

void write(const char* file, const char* text)
{
    const int descriptor = ::open(file, O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    [[maybe_unused]] const auto written = ::write(descriptor, text, std::strlen(text));
    ::close(descriptor);
}

[[noreturn]] void become(const Plan& plan)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::setsid(); // no terminal, and a group of its own
    if (plan.apart) {
        // The user stays the same, and so do the files that he may read.
        write("/proc/self/setgroups", "deny");
        write("/proc/self/uid_map", plan.userMap);
        write("/proc/self/gid_map", plan.groupMap);
    }
    write("/proc/self/oom_score_adj", "1000");
    const rlimit none{ 0, 0 };
    ::setrlimit(RLIMIT_CORE, &none);
    if (plan.lowPriority) {
        ::setpriority(PRIO_PROCESS, 0, 19);
        const sched_param nothing{};
        ::sched_setscheduler(0, SCHED_BATCH, &nothing);
    }
    sigset_t all;
    ::sigemptyset(&all);
    ::sigprocmask(SIG_SETMASK, &all, nullptr);
    ::signal(SIGPIPE, SIG_DFL);
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (::dup2(plan.input, STDIN_FILENO) >= 0 && ::dup2(plan.output, STDOUT_FILENO) >= 0
        && ::dup2(nowhere, STDERR_FILENO) >= 0) {
        ::syscall(SYS_close_range, 3U, ~0U, CLOSE_RANGE_CLOEXEC);
        ::execve(plan.arguments[0], plan.arguments, plan.environment);
    }
    const int reason = errno;
    [[maybe_unused]] const auto written = ::write(plan.trouble, &reason, sizeof reason);
    ::_exit(127);
}

// The number of the new process, or -1; `end` becomes what tells its end.
pid_t born(const Plan& plan, int& end)
{
    clone_args arguments{};
    arguments.flags
        = CLONE_PIDFD | (plan.apart ? CLONE_NEWUSER | CLONE_NEWNET | CLONE_NEWPID : 0ULL);
    arguments.pidfd = reinterpret_cast<std::uintptr_t>(&end);
    arguments.exit_signal = SIGCHLD;
    const auto id = static_cast<pid_t>(::syscall(SYS_clone3, &arguments, sizeof arguments));
    if (id == 0)
        become(plan);
    return id;
}

std::vector<char*> pointersTo(const std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (const auto& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environment()
{
    std::vector<std::string> variables;
    for (const char* name : inherited)
        if (const char* value = std::getenv(name))
            variables.push_back(std::string(name) + "=" + value);
    return variables;
}

std::string mapOf(unsigned id)
{
    const auto number = std::to_string(id);
    return number + " " + number + " 1";
}

} // namespace

ConfinedProcess startConfined(const std::vector<std::string>& command, bool lowPriority)
{
    Pipe input, output, trouble;
    const auto variables = environment();
    const auto arguments = pointersTo(command), names = pointersTo(variables);
    const auto users = mapOf(::geteuid()), groups = mapOf(::getegid());
    Plan plan{ arguments.data(), names.data(), input.readEnd(), output.writeEnd(),
        trouble.writeEnd(), users.c_str(), groups.c_str(), true, lowPriority };
    ConfinedProcess confined;
    confined.process = born(plan, confined.end);
    if (confined.process < 0) {
        plan.apart = false; // some systems keep namespaces from ordinary users
        confined.process = born(plan, confined.end);
    }
    if (confined.process < 0)
        throw EngineFailure("no process can be had");
    trouble.closeWriteEnd();
    int reason = 0;
    ssize_t told = 0;
    do
        told = ::read(trouble.readEnd(), &reason, sizeof reason);
    while (told < 0 && errno == EINTR);
    if (told != 0) {
        ::waitpid(confined.process, nullptr, 0);
        ::close(confined.end);
        throw EngineFailure("the engine's program can't be started");
    }
    confined.input = input.takeWriteEnd();
    confined.output = output.takeReadEnd();
    return confined;
}

} // namespace vesko

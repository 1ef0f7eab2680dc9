#include "VeskoLinux/speech/engines/ChildProcess.h"

#include "VeskoCore/speech/EngineContract.h"
#include "VeskoLinux/speech/engines/Confinement.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace vesko {

namespace {

using namespace std::chrono_literals;

// Writing to a program that has ended would end this one.
class WithoutPipeSignal {
public:
    WithoutPipeSignal()
    {
        ::sigemptyset(&m_pipe);
        ::sigaddset(&m_pipe, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;
    ~WithoutPipeSignal()
    {
        const timespec now{};
        ::sigtimedwait(&m_pipe, nullptr, &now);
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }

private:
    sigset_t m_pipe, m_before;
};

void close(int& descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

bool writableByAll(const struct stat& status)
{
    return (status.st_mode & S_IWOTH) != 0;
}

} // namespace

void requireTrusted(const std::filesystem::path& program)
{
    std::error_code error;
    const auto file = std::filesystem::canonical(program, error);
    struct stat status{}, folder{};
    if (error || ::stat(file.c_str(), &status) != 0
        || ::stat(file.parent_path().c_str(), &folder) != 0)
        throw EngineFailure("the engine's program isn't there");
    if (!S_ISREG(status.st_mode) || ::access(file.c_str(), X_OK) != 0)
        throw EngineFailure("the engine's program can't be executed");
    const bool foreign = status.st_uid != 0 && status.st_uid != ::geteuid();
    // In a folder such as /tmp only the owner may replace a file.
    const bool replaceable = writableByAll(folder) && (folder.st_mode & S_ISVTX) == 0;
    if (foreign || writableByAll(status) || replaceable)
        throw EngineFailure("others may have changed the engine's program");
}

ChildProcess::ChildProcess(
    const std::vector<std::string>& command, std::stop_token stop, const Options& options)
    : m_stop(std::move(stop))
    , m_outputLimit(options.outputLimit)
{
    requireTrusted(command.at(0));
    auto confined = startConfined(command, options.lowPriority);
    m_process = confined.process;
    m_end = confined.end;
    m_input = confined.input;
    m_output = confined.output;
    m_wake = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
}

ChildProcess::~ChildProcess()
{
    // Its number, and with it the group's, stays taken until it has been waited for.
    ::kill(-m_process, SIGKILL);
    ::kill(m_process, SIGKILL);
    close(m_input);
    close(m_output);
    // A file server that hangs can keep even a killed process; not this thread, though.
    pollfd end{ m_end, POLLIN, 0 };
    constexpr int patience = 2000; // milliseconds
    ::poll(&end, 1, patience);
    ::waitpid(m_process, nullptr, WNOHANG);
    close(m_end);
    close(m_wake);
}

void ChildProcess::send(std::string_view bytes)
{
    const WithoutPipeSignal blocked;
    while (!bytes.empty()) {
        wait(true, std::nullopt);
        if (m_input < 0)
            fail("the engine's input is closed");
        const ssize_t written = ::write(m_input, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EAGAIN && errno != EINTR)
            fail("the engine takes no sound");
    }
}

void ChildProcess::endInput()
{
    close(m_input);
}

std::string ChildProcess::line(std::chrono::milliseconds patience)
{
    const Deadline deadline = std::chrono::steady_clock::now() + patience;
    while (true) {
        if (const auto end = m_said.find('\n', m_searched); end != std::string::npos) {
            std::string line = m_said.substr(0, end);
            m_said.erase(0, end + 1);
            m_searched = 0;
            if (line.ends_with('\r'))
                line.pop_back();
            return line;
        }
        m_searched = m_said.size();
        if (m_output < 0)
            fail("the engine ended");
        wait(false, deadline);
    }
}

std::string ChildProcess::rest()
{
    endInput();
    while (m_output >= 0)
        wait(false, std::nullopt);
    siginfo_t end{};
    pollfd ended{ m_end, POLLIN, 0 };
    // It may close its output long before it ends.
    while (::poll(&ended, 1, 0) == 0)
        wait(false, std::nullopt);
    if (::waitid(P_PID, static_cast<id_t>(m_process), &end, WEXITED | WNOWAIT) != 0
        || end.si_code != CLD_EXITED || end.si_status != 0)
        fail("the engine ended badly");
    return std::exchange(m_said, {});
}

void ChildProcess::wait(bool toWrite, const Deadline& deadline)
{
    const std::stop_callback wake(m_stop, [this] {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = ::write(m_wake, &one, sizeof one);
    });
    if (m_stop.stop_requested())
        throw Stopped();
    int milliseconds = -1;
    if (deadline) {
        const auto left = *deadline - std::chrono::steady_clock::now();
        if (left <= 0ms)
            fail("the engine doesn't answer");
        milliseconds = static_cast<int>(
            std::chrono::ceil<std::chrono::milliseconds>(std::min<decltype(left)>(left, 1h))
                .count());
    }
    std::array<pollfd, 4> watched{ { { m_wake, POLLIN, 0 }, { m_end, POLLIN, 0 },
        { m_output, POLLIN, 0 }, { toWrite ? m_input : -1, POLLOUT, 0 } } };
    if (::poll(watched.data(), watched.size(), milliseconds) < 0 && errno != EINTR)
        fail("the engine can't be waited for");
    if (m_stop.stop_requested())
        throw Stopped();
    if (m_output >= 0 && watched[2].revents != 0)
        readAvailable();
    // What it has left behind may still hold its output open.
    if (watched[1].revents != 0) {
        if (m_output >= 0)
            readAvailable();
        close(m_output);
        if (toWrite)
            fail("the engine takes no sound");
    }
}

void ChildProcess::readAvailable()
{
    std::array<char, 16384> bytes;
    while (true) {
        const ssize_t count = ::read(m_output, bytes.data(), bytes.size());
        if (count == 0) {
            close(m_output);
            return;
        }
        if (count < 0) {
            if (errno == EINTR)
                continue;
            if (errno != EAGAIN)
                fail("the engine can't be heard");
            return;
        }
        m_total += static_cast<std::size_t>(count);
        if (m_total > m_outputLimit)
            fail("the engine said too much");
        m_said.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

void ChildProcess::fail(const char* why) const
{
    throw EngineFailure(why);
}

} // namespace vesko

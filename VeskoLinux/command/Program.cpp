#include "VeskoLinux/command/Program.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>
#include <system_error>

namespace vesko {

namespace {

std::string programFile()
{
    return std::filesystem::canonical("/proc/self/exe").parent_path() / "vesko-app";
}

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

void Program::become(char** arguments)
{
    execv(programFile().c_str(), arguments);
    fail("vesko-app");
}

Program::Program()
{
    const auto file = programFile();
    std::string name = "vesko";
    std::string option = "--background";
    const std::array<char*, 3> arguments{ name.data(), option.data(), nullptr };
    const pid_t child = fork();
    if (child < 0)
        fail("fork");
    if (child == 0) {
        // Nobody is to wait for its output, nor to end it with the terminal.
        setsid();
        const int nowhere = open("/dev/null", O_RDWR);
        for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
            dup2(nowhere, stream);
        execv(file.c_str(), arguments.data());
        _exit(127);
    }
    m_ended = static_cast<int>(syscall(SYS_pidfd_open, child, 0));
    if (m_ended < 0)
        fail("pidfd_open");
}

Program::~Program()
{
    close(m_ended);
}

} // namespace vesko

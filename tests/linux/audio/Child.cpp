#include "tests/linux/audio/Child.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vesko {

Child::Child(const std::vector<std::string>& command)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("pipe");
    std::vector<char*> arguments;
    for (const auto& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    m_id = ::fork();
    if (m_id == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::dup2(ends[1], STDOUT_FILENO);
        ::execvp(arguments[0], arguments.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    m_output = ends[0];
    if (m_id < 0)
        throw std::runtime_error("fork");
}

Child::~Child()
{
    kill();
    ::close(m_output);
}

std::string Child::line()
{
    while (true) {
        if (const auto end = m_read.find('\n'); end != std::string::npos) {
            std::string line = m_read.substr(0, end);
            m_read.erase(0, end + 1);
            return line;
        }
        const auto more = bytes(4096);
        if (more.empty())
            return {};
        m_read += more;
    }
}

std::string Child::bytes(std::size_t most)
{
    std::string buffer(most, 0);
    const ssize_t count = ::read(m_output, buffer.data(), buffer.size());
    buffer.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return buffer;
}

void Child::signal(int number) const
{
    if (m_id > 0)
        ::kill(m_id, number);
}

void Child::kill()
{
    signal(SIGKILL);
    wait();
}

int Child::wait()
{
    if (m_id <= 0)
        return -1;
    int status = 0;
    ::waitpid(m_id, &status, 0);
    m_id = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Child::run(const std::vector<std::string>& command)
{
    Child child(command);
    std::string output;
    for (auto more = child.bytes(65536); !more.empty(); more = child.bytes(65536))
        output += more;
    if (child.wait() != 0)
        throw std::runtime_error(command.front() + " failed: " + output);
    return output;
}

} // namespace vesko

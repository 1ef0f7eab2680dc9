#include "VeskoLinux/console/Terminal.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>

namespace vesko {

namespace {

volatile std::sig_atomic_t interrupted = 0; // the signal
constexpr int endedBySignal = 128; // and the signal's number

} // namespace

Terminal::Terminal()
{
    struct sigaction ask{};
    ask.sa_handler = [](int signal) { interrupted = signal; };
    for (const int signal : { SIGINT, SIGTERM, SIGHUP })
        sigaction(signal, &ask, nullptr);
}

bool Terminal::isInterrupted() const
{
    return interrupted != 0;
}

void Terminal::showProgress(double done)
{
    const int percent = static_cast<int>(done * 100);
    if (percent == m_shown || isatty(STDERR_FILENO) == 0)
        return;
    m_shown = percent;
    std::fprintf(stderr, "\r%3d %%", percent);
    std::fflush(stderr);
}

void Terminal::clear()
{
    if (m_shown >= 0)
        std::fputs("\r      \r", stderr);
    m_shown = -1;
}

int Terminal::complain(std::string_view why)
{
    clear();
    if (isInterrupted()) // what failed, failed of it
        why = "interrupted";
    std::fprintf(stderr, "vesko: %s\n", std::string(why).c_str());
    return isInterrupted() ? endedBySignal + interrupted : 1;
}

} // namespace vesko

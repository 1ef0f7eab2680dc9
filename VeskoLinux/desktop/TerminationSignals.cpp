#include "VeskoLinux/desktop/TerminationSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace vesko {

namespace {

constexpr std::array<int, 3> requests{ SIGTERM, SIGINT, SIGHUP };

int wakeup = -1; // the handler can reach nothing but a global

void handle(int)
{
    const int kept = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeup, &one, sizeof one);
    errno = kept;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onRequest)
{
    wakeup = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeup < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
    m_notifier = std::make_unique<QSocketNotifier>(wakeup, QSocketNotifier::Read);
    QObject::connect(
        m_notifier.get(), &QSocketNotifier::activated, [onRequest = std::move(onRequest)] {
            std::uint64_t count = 0;
            if (read(wakeup, &count, sizeof count) > 0)
                onRequest();
        });
    struct sigaction action{};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    for (const int request : requests)
        sigaction(request, &action, nullptr);
}

TerminationSignals::~TerminationSignals()
{
    for (const int request : requests)
        std::signal(request, SIG_DFL);
    m_notifier.reset();
    close(wakeup);
}

} // namespace vesko

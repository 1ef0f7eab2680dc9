#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace vesko {

// Turns the requests to end that a desktop or a terminal sends (SIGTERM, SIGINT, SIGHUP) into a
// call on the main thread, so that a running dictation can be kept first. One at a time.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onRequest);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vesko

#pragma once

#include "VeskoApp/async/EventClock.h"

#include <QObject>

#include <memory>
#include <unordered_map>

class QTimer;

namespace vesko {

// The machine's clocks, calling back through Qt's event loop.
class QtClock final : public EventClock {
public:
    QtClock();
    ~QtClock() override;

    Date now() const override { return m_system.now(); }
    double uptime() const override { return m_system.uptime(); }
    TimerId arm(double seconds, std::function<void()> callback) override;
    void disarm(TimerId id) override;

private:
    SystemClock m_system;
    TimerId m_last = 0;
    std::unordered_map<TimerId, std::unique_ptr<QTimer>> m_timers;
};

} // namespace vesko

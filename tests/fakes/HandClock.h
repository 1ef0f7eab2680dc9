#pragma once

#include "VeskoCore/base/Clock.h"

namespace vesko {

// A clock that stands still until a test turns it.
class HandClock final : public Clock {
public:
    Date now() const override { return m_date; }
    double uptime() const override { return 0; }

    void turn(std::chrono::microseconds by) { m_date.time += by; }

private:
    // Not on a whole second: a fraction gets lost in the file, and tests should notice.
    Date m_date{ Date::parse("2026-11-21T10:52:00Z")->time + std::chrono::milliseconds(250) };
};

} // namespace vesko

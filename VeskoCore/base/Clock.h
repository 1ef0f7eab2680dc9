#pragma once

#include "VeskoCore/base/Date.h"

namespace vesko {

// Where time comes from. Every thread may read it at once.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Date now() const = 0;
    // Seconds since an arbitrary moment; never goes back, whatever is done to the date.
    virtual double uptime() const = 0;
};

// The machine's own clocks.
class SystemClock : public Clock {
public:
    Date now() const override;
    double uptime() const override;
};

} // namespace vesko

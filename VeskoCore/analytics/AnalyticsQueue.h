#pragma once

#include "VeskoCore/analytics/UsageEnvelope.h"

#include <cstddef>
#include <vector>

namespace vesko {

// The events that wait to be sent, bounded in number and age.
struct AnalyticsQueue {
    static constexpr std::size_t limit = 250;
    static constexpr std::size_t batchLimit = 25;
    static constexpr double longestWait = 86'400; // seconds

    // A full queue drops it and keeps what it has.
    void append(UsageEnvelope envelope);
    // Drops what has waited too long, and gives the oldest of the rest; they stay in the queue
    // until they are removed.
    std::vector<UsageEnvelope> batch(Date now);
    // The oldest so many, or all if there are fewer.
    void removeFirst(std::size_t count);
    void clear() { items.clear(); }

    // Whether what was answered by this HTTP status is worth another try.
    static bool shouldRetry(int status);

    std::vector<UsageEnvelope> items; // oldest first

    bool operator==(const AnalyticsQueue&) const = default;
};

} // namespace vesko

#include "VeskoCore/analytics/AnalyticsQueue.h"

#include <algorithm>

namespace vesko {

namespace {

auto after(std::vector<UsageEnvelope>& items, std::size_t count)
{
    return items.begin() + static_cast<std::ptrdiff_t>(std::min(count, items.size()));
}

} // namespace

void AnalyticsQueue::append(UsageEnvelope envelope)
{
    if (items.size() < limit)
        items.push_back(std::move(envelope));
}

std::vector<UsageEnvelope> AnalyticsQueue::batch(Date now)
{
    std::erase_if(
        items, [now](const auto& item) { return now.since(item.timestamp) >= longestWait; });
    return { items.begin(), after(items, batchLimit) };
}

void AnalyticsQueue::removeFirst(std::size_t count)
{
    items.erase(items.begin(), after(items, count));
}

bool AnalyticsQueue::shouldRetry(int status)
{
    return status == 429 || (status >= 500 && status <= 599);
}

} // namespace vesko

#pragma once

#include "VeskoApp/analytics/Analytics.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>

namespace vesko {

// Stands for the service and the network before it. Any thread.
class FakeAnalyticsService {
public:
    static constexpr int unreachable = -1;

    // What the next requests get, each in its turn; after them, 200.
    void answer(std::initializer_list<int> statuses)
    {
        const std::scoped_lock lock(m_mutex);
        m_statuses.insert(m_statuses.end(), statuses);
    }
    // Keeps every answer back, whatever the program does meanwhile.
    void hold() { m_held = true; }
    void release()
    {
        m_held = false;
        m_held.notify_all();
    }
    std::vector<HttpRequest> requests() const
    {
        const std::scoped_lock lock(m_mutex);
        return m_requests;
    }
    std::size_t count() const { return requests().size(); }

    HttpTransport transport()
    {
        return [this](const HttpRequest& request, const std::stop_token&) {
            int status = 200;
            {
                const std::scoped_lock lock(m_mutex);
                m_requests.push_back(request);
                if (!m_statuses.empty()) {
                    status = m_statuses.front();
                    m_statuses.pop_front();
                }
            }
            m_held.wait(true);
            if (status == unreachable)
                throw URLError(URLError::notConnectedToInternet);
            return HTTPResult{ .data = {}, .status = status, .requestID = std::nullopt };
        };
    }

private:
    mutable std::mutex m_mutex;
    std::deque<int> m_statuses;
    std::vector<HttpRequest> m_requests;
    std::atomic<bool> m_held = false;
};

// Analytics of a build with an app key, over settings and a service in memory.
class AnalyticsFixture : public testing::Test {
protected:
    ~AnalyticsFixture() override { service.release(); }

    void agree() { settings.set("analyticsConsent", SettingValue{ true }); }
    void start(Analytics::EnvironmentResolver resolver = {})
    {
        analytics = std::make_unique<Analytics>(
            settings, clock, bundle, std::move(resolver), service.transport());
    }
    void track(UsageEvent event = UsageEvent::textCopied) { analytics->track(event, clock.now()); }
    // Until the answer to the request of that number, counted from 1, has been taken in and the
    // loop waits for its next turn.
    [[nodiscard]] bool answered(std::size_t number)
    {
        return eventually([&] { return service.count() == number && clock.armed() == 1; });
    }
    // Until nothing is under way any more: the queue was empty when the loop looked.
    [[nodiscard]] bool settled()
    {
        return eventually([&] {
            clock.turn(1);
            return clock.armed() == 0 && analytics->queue().items.empty();
        });
    }
    std::optional<std::string> storedIdentifier() const
    {
        return settings.get<std::string>("analyticsIID");
    }
    std::vector<UsageEvent> queued() const
    {
        std::vector<UsageEvent> events;
        for (const auto& item : analytics->queue().items)
            events.push_back(item.eventName);
        return events;
    }

    TestClock clock;
    FakeSettingsStore settings;
    FakeAnalyticsService service;
    AnalyticsBundle bundle{ .appKey = "A-EU-1",
        .baseURL = "https://analytics.example",
        .environment = AnalyticsEnvironment::production,
        .version = "1.2.3",
        .build = "45" };
    std::unique_ptr<Analytics> analytics; // ends before what it uses
};

} // namespace vesko

#include "VeskoApp/analytics/Analytics.h"

#include "VeskoApp/async/Sleep.h"
#include "VeskoCore/base/JsonWriter.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/speech/CurlTransport.h"

#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace vesko {

namespace {

constexpr const char* consentKey = "analyticsConsent";
constexpr const char* identifierKey = "analyticsIID";

// Seconds.
constexpr double idleTime = 15;
constexpr double exchangeTime = 60;
constexpr double pauseBetweenBatches = 1;
constexpr double longestRetryPause = 300;

constexpr std::size_t replyLimit = std::size_t{ 1 } << 20; // bytes; only the status matters

// Grows with each failure in a row, of which `retry` have gone before.
double retryPause(int retry)
{
    return std::min(std::exp2(std::min(retry, 7) + 1), longestRetryPause);
}

std::optional<Uuid> storedIdentifier(const SettingsStore& defaults)
{
    return Uuid::parse(defaults.get<std::string>(identifierKey).value_or(""));
}

} // namespace

Analytics::Analytics(SettingsStore& defaults, EventClock& clock, AnalyticsBundle bundle,
    EnvironmentResolver resolver, HttpTransport transport)
    : m_defaults(defaults)
    , m_clock(clock)
    , m_bundle(std::move(bundle))
    , m_transport(transport ? std::move(transport) : curlTransport(replyLimit))
    , m_enabled(defaults.get<bool>(consentKey).value_or(false))
    , m_state(resolver ? std::nullopt : std::optional(m_bundle.environment), m_enabled,
          storedIdentifier(defaults))
{
    m_state.appVersion = m_bundle.version;
    m_state.appBuildNumber = m_bundle.build;
    storeIdentifier();
    if (resolver)
        m_environmentResolution.spawn(resolveEnvironment(std::move(resolver)));
    track(UsageEvent::appStarted, m_clock.now());
}

// One that nobody agreed to goes, whoever left it there. Consent outlives a build without a
// service, and so does who it was given as.
void Analytics::storeIdentifier()
{
    if (m_state.iid)
        m_defaults.set(identifierKey, SettingValue{ lowercased(m_state.iid->text()) });
    else
        m_defaults.remove(identifierKey);
}

void Analytics::track(UsageEvent event, Date date)
{
    if (!configured() || !m_enabled)
        return;
    if (!m_state.environment) {
        if (m_pendingEnvironment.size() < AnalyticsQueue::limit)
            m_pendingEnvironment.push_back({ event, date });
        return;
    }
    if (auto envelope = m_state.event(event, date)) {
        m_queue.append(std::move(*envelope));
        schedule();
    }
}

void Analytics::setEnabled(bool on)
{
    if (on == m_enabled)
        return;
    m_delivery.reset();
    m_queue.clear();
    m_pendingEnvironment.clear();
    m_enabled = on;
    m_state.setConsent(on);
    m_defaults.set(consentKey, SettingValue{ on });
    storeIdentifier();
    if (on)
        track(UsageEvent::appStarted, m_clock.now());
    Q_EMIT enabledChanged();
}

QString Analytics::host() const
{
    return QUrl(QString::fromStdString(m_bundle.baseURL)).host();
}

Task<> Analytics::resolveEnvironment(EnvironmentResolver resolver)
{
    auto environment = AnalyticsEnvironment::sandbox;
    try {
        environment = co_await resolver();
    } catch (...) { // NOLINT(bugprone-empty-catch): the sandbox is for builds of unknown kind
    }
    m_state.environment = environment;
    flushPendingEnvironment();
}

void Analytics::flushPendingEnvironment()
{
    for (const auto& [event, date] : std::exchange(m_pendingEnvironment, {}))
        if (auto envelope = m_state.event(event, date))
            m_queue.append(std::move(*envelope));
    schedule();
}

void Analytics::schedule()
{
    if (m_delivery && !m_delivery->idle())
        return;
    m_delivery.emplace();
    m_delivery->spawn(deliver());
}

// Ends with its queue. A withdrawal of consent destroys it wherever it waits, so what it finds
// after a wait is always its own; only new events may have come, behind the batch.
Task<> Analytics::deliver()
{
    int retry = 0;
    while (true) {
        const auto batch = m_queue.batch(m_clock.now());
        auto next = request(batch);
        if (!next)
            co_return;
        const auto status = co_await send(std::move(*next));
        if (!status || AnalyticsQueue::shouldRetry(*status)) {
            co_await sleepFor(m_clock, retryPause(retry++));
        } else {
            // Also a batch that the service will never take, so that it blocks nothing.
            m_queue.removeFirst(batch.size());
            retry = 0;
            co_await sleepFor(m_clock, pauseBetweenBatches);
        }
    }
}

// Nothing if there is nothing to send, or it can't be written.
std::optional<HttpRequest> Analytics::request(const std::vector<UsageEnvelope>& batch) const
{
    if (batch.empty())
        return std::nullopt;
    try {
        return HttpRequest{ .url = serviceURL(m_bundle.baseURL, "api/v0/events"),
            .method = "POST",
            .headers = { { "Content-Type", "application/json" }, { "App-Key", *m_bundle.appKey } },
            .body = JsonWriter::write(batch, JsonWriter::Form::pretty),
            .timeout = idleTime,
            .resourceTimeout = exchangeTime };
    } catch (const JsonError&) {
        return std::nullopt; // a date that no calendar writes; the events wait
    }
}

// The status of the reply, or nothing if there was none.
Task<std::optional<int>> Analytics::send(HttpRequest request)
{
    try {
        co_return co_await m_network.run(
            [transport = m_transport, request = std::move(request)](
                const std::stop_token& stop) { return transport(request, stop).status; });
    } catch (const std::exception&) { // the next try is the answer to whatever it was
        co_return std::nullopt;
    }
}

} // namespace vesko

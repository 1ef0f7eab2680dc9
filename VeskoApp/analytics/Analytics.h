#pragma once

#include "VeskoApp/analytics/AnalyticsBundle.h"
#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoCore/analytics/AnalyticsQueue.h"
#include "VeskoCore/analytics/AnalyticsState.h"
#include "VeskoCore/speech/HttpTransport.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace vesko {

// The user's consent to usage analytics, the events that wait to be sent, and their delivery. Best
// effort: it may lose events, tells nobody of a failure and never makes anyone wait. Without
// consent, or in a build without an app key or a service, nothing is queued or sent; the random
// identifier is stored only while there is consent. Unsent events live in memory alone and end
// with the program. Main thread.
class Analytics : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool configured READ configured CONSTANT)
    Q_PROPERTY(QString host READ host CONSTANT)

public:
    // Finds out where the events belong, for a build that can't say; sandbox if it throws.
    using EnvironmentResolver = std::function<Task<AnalyticsEnvironment>()>;

    // With a resolver, the bundle's environment does not count. Without a transport it uses
    // libcurl: 15 seconds without progress, 60 for the whole exchange.
    Analytics(SettingsStore& defaults, EventClock& clock, AnalyticsBundle bundle,
        EnvironmentResolver resolver = {}, HttpTransport transport = {});

    // The one entry for all that happens; dropped unless it may be told.
    void track(UsageEvent event) { track(event, m_clock.now()); }
    void track(UsageEvent event, Date date);
    // Grants or withdraws consent. A withdrawal drops what is unsent, a request under way with it,
    // and the stored identifier; each grant makes a new identity.
    void setEnabled(bool on);

    bool enabled() const { return m_enabled; }
    // Whether the build has a service to send to.
    bool configured() const { return m_bundle.appKey && !m_bundle.baseURL.empty(); }
    QString host() const; // of the service, for the user to read
    const AnalyticsBundle& bundle() const { return m_bundle; }
    const AnalyticsState& state() const { return m_state; }
    const AnalyticsQueue& queue() const { return m_queue; }

Q_SIGNALS:
    void enabledChanged();

private:
    struct PendingUsage {
        UsageEvent event;
        Date date;
    };

    void storeIdentifier();
    Task<> resolveEnvironment(EnvironmentResolver resolver);
    void flushPendingEnvironment();
    void schedule();
    Task<> deliver();
    std::optional<HttpRequest> request(const std::vector<UsageEnvelope>& batch) const;
    Task<std::optional<int>> send(HttpRequest request);

    SettingsStore& m_defaults;
    EventClock& m_clock;
    const AnalyticsBundle m_bundle;
    HttpTransport m_transport;

    bool m_enabled;
    AnalyticsState m_state;
    AnalyticsQueue m_queue;
    std::vector<PendingUsage> m_pendingEnvironment; // events that wait for the environment

    Worker m_network;
    TaskScope m_environmentResolution;
    std::optional<TaskScope> m_delivery; // holds one loop at most; a withdrawal destroys it
};

} // namespace vesko

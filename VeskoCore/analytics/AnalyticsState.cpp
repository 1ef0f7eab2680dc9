#include "VeskoCore/analytics/AnalyticsState.h"

#include "VeskoCore/base/Text.h"

namespace vesko {

namespace {

std::string newSessionID()
{
    return lowercased(Uuid::random().text());
}

} // namespace

AnalyticsState::AnalyticsState(
    std::optional<AnalyticsEnvironment> where, bool mayExist, std::optional<Uuid> known)
    : environment(where)
    , consent(mayExist)
    , sessionID(newSessionID())
{
    if (consent)
        iid = known ? known : Uuid::random();
}

void AnalyticsState::setConsent(bool on)
{
    if (on == consent)
        return;
    consent = on;
    iid = on ? std::optional(Uuid::random()) : std::nullopt;
    sessionID = newSessionID();
}

std::optional<UsageEnvelope> AnalyticsState::event(UsageEvent event, Date at) const
{
    if (!consent || !iid || !environment)
        return std::nullopt;
    UsageEnvelope envelope;
    envelope.timestamp = at;
    envelope.sessionId = sessionID;
    envelope.eventName = event;
    envelope.systemProps.isDebug = environment == AnalyticsEnvironment::sandbox;
    envelope.systemProps.appVersion = appVersion;
    envelope.systemProps.appBuildNumber = appBuildNumber;
    envelope.props = { .iid = lowercased(iid->text()), .environment = *environment };
    return envelope;
}

} // namespace vesko

#pragma once

#include "VeskoCore/analytics/UsageEnvelope.h"
#include "VeskoCore/base/Uuid.h"

#include <optional>
#include <string>

namespace vesko {

// Whether an event may exist at all, and who it then comes from. Each grant of consent makes a new
// identity: what is sent after it can't be linked to what was sent before a withdrawal.
struct AnalyticsState {
    // Without consent a given identifier is dropped; with it, a missing one is made.
    AnalyticsState(
        std::optional<AnalyticsEnvironment> environment, bool consent, std::optional<Uuid> iid);

    // Changes nothing if this is what holds already.
    void setConsent(bool on);
    // Nothing without consent, identifier and environment.
    std::optional<UsageEnvelope> event(UsageEvent event, Date at) const;

    std::optional<AnalyticsEnvironment> environment; // none until it is resolved
    std::optional<Uuid> iid; // of this installation, as long as there is consent
    bool consent = false;
    std::string sessionID; // lower-case UUID
    std::string appVersion = "0.0.0";
    std::string appBuildNumber = "0";

    bool operator==(const AnalyticsState&) const = default;
};

} // namespace vesko

#pragma once

#include "VeskoCore/analytics/UsageEnvelope.h"

#include <optional>
#include <string>

namespace vesko {

// What the build says of usage analytics; by default, that it has none.
struct AnalyticsBundle {
    std::optional<std::string> appKey; // by which the service knows the program
    std::string baseURL; // of the service; empty for none
    AnalyticsEnvironment environment = AnalyticsEnvironment::sandbox;
    std::string version = "0.0.0";
    std::string build = "0";
};

} // namespace vesko

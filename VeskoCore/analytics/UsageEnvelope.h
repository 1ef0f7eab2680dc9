#pragma once

#include "VeskoCore/analytics/UsageEvent.h"
#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonFields.h"

#include <string>

namespace vesko {

enum class AnalyticsEnvironment { sandbox, production };

// One event on the wire, in the form of Aptabase's event API. What has no field here can't be sent.
struct UsageEnvelope {
    struct SystemProps {
        bool isDebug = false; // not of a build that people run
        std::string sdkVersion = "vesko-aptabase@1";
        std::string osName = "Linux"; // by the service's names for kinds of systems
        std::string appVersion;
        std::string appBuildNumber;

        bool operator==(const SystemProps&) const = default;
    };
    struct Props {
        std::string iid; // lower-case UUID, made for analytics alone
        AnalyticsEnvironment environment = AnalyticsEnvironment::sandbox;

        bool operator==(const Props&) const = default;
    };

    Date timestamp; // goes out in whole seconds
    std::string sessionId; // lower-case UUID
    UsageEvent eventName = UsageEvent::appStarted;
    SystemProps systemProps;
    Props props;

    bool operator==(const UsageEnvelope&) const = default;
};

template <>
inline constexpr auto jsonNames<AnalyticsEnvironment>
    = std::to_array<std::string_view>({ "sandbox", "production" });

template <>
inline constexpr std::tuple jsonFields<UsageEnvelope::SystemProps>{
    JsonField{ "appBuildNumber", &UsageEnvelope::SystemProps::appBuildNumber },
    JsonField{ "appVersion", &UsageEnvelope::SystemProps::appVersion },
    JsonField{ "isDebug", &UsageEnvelope::SystemProps::isDebug },
    JsonField{ "osName", &UsageEnvelope::SystemProps::osName },
    JsonField{ "sdkVersion", &UsageEnvelope::SystemProps::sdkVersion },
};

template <>
inline constexpr std::tuple jsonFields<UsageEnvelope::Props>{
    JsonField{ "environment", &UsageEnvelope::Props::environment },
    JsonField{ "iid", &UsageEnvelope::Props::iid },
};

template <>
inline constexpr std::tuple jsonFields<UsageEnvelope>{
    JsonField{ "eventName", &UsageEnvelope::eventName },
    JsonField{ "props", &UsageEnvelope::props },
    JsonField{ "sessionId", &UsageEnvelope::sessionId },
    JsonField{ "systemProps", &UsageEnvelope::systemProps },
    JsonField{ "timestamp", &UsageEnvelope::timestamp },
};

} // namespace vesko

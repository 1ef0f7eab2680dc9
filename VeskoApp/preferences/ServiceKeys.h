#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/preferences/Keychain.h"
#include "VeskoCore/base/Secret.h"

#include <exception>
#include <optional>
#include <string>

namespace vesko {

// What the secret store gives for a service's key.
struct KeyOutcome {
    std::optional<Secret> key;
    std::exception_ptr failure;
};
// A key that is being asked for.
using ServiceKey = Eventual<KeyOutcome>;

// The keys of services, asked for before they are needed: the secret store takes time, in which the
// user speaks. Main thread.
class ServiceKeys {
public:
    explicit ServiceKeys(Keychain& keychain)
        : m_keychain(keychain)
    {
    }

    // Asks for the key of a source. Where it was asked for `early` and was there, that one stands;
    // what was missing then may be there by now.
    ServiceKey fetch(const std::string& keySource, std::optional<ServiceKey> early = std::nullopt);

private:
    Task<> load(std::string account, std::optional<ServiceKey> early, ServiceKey into);

    Keychain& m_keychain;
    TaskScope m_tasks;
};

} // namespace vesko

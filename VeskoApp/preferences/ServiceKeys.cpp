#include "VeskoApp/preferences/ServiceKeys.h"

#include "VeskoApp/preferences/Preferences.h"

#include <utility>

namespace vesko {

ServiceKey ServiceKeys::fetch(const std::string& keySource, std::optional<ServiceKey> early)
{
    ServiceKey key;
    m_tasks.spawn(load(Preferences::keyAccount(keySource), std::move(early), key));
    return key;
}

Task<> ServiceKeys::load(std::string account, std::optional<ServiceKey> early, ServiceKey into)
{
    KeyOutcome outcome;
    if (early)
        outcome = co_await *early;
    if (!outcome.key || outcome.key->empty()) {
        outcome = {};
        try {
            outcome.key = co_await m_keychain.load(std::move(account));
        } catch (const std::exception&) {
            outcome.failure = std::current_exception();
        }
    }
    into.set(std::move(outcome));
}

} // namespace vesko

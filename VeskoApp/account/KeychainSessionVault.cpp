#include "VeskoApp/account/KeychainSessionVault.h"

namespace vesko {

Task<> KeychainSessionVault::save(Secret token)
{
    co_await m_keychain.save(std::move(token), Keychain::veskoSession);
}

Task<std::optional<Secret>> KeychainSessionVault::load()
{
    co_return co_await m_keychain.load(Keychain::veskoSession);
}

Task<bool> KeychainSessionVault::has()
{
    co_return co_await m_keychain.has(Keychain::veskoSession);
}

Task<> KeychainSessionVault::remove()
{
    try {
        co_await m_keychain.remove(Keychain::veskoSession);
    } catch (const KeychainFailure&) {
        // Whoever signs out is signed out, whatever the store says.
    }
}

} // namespace vesko

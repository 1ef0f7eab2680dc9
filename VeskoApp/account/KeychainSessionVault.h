#pragma once

#include "VeskoApp/account/SessionVault.h"
#include "VeskoApp/preferences/Keychain.h"

namespace vesko {

// The token among the user's secrets.
class KeychainSessionVault final : public SessionVault {
public:
    explicit KeychainSessionVault(Keychain& keychain)
        : m_keychain(keychain)
    {
    }

    Task<> save(Secret token) override;
    Task<std::optional<Secret>> load() override;
    Task<bool> has() override;
    Task<> remove() override;

private:
    Keychain& m_keychain;
};

} // namespace vesko

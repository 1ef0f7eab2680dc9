#pragma once

#include "VeskoApp/platform/SecretStore.h"

#include <chrono>

namespace vesko {

// Secrets in the desktop's own store (GNOME Keyring, KWallet, KeePassXC), through the Secret
// Service. Items carry the attributes service = "app.vesko.openrouter" and account; an item with
// these two that another program made counts as well, and saving changes only its value.
//
// A locked item makes the store ask the user to unlock it. No session bus, no store, a store that
// stays locked and one that doesn't answer are all KeychainFailure, never "no such item".
class SecretServiceStore final : public SecretStore {
public:
    // A call ends as a failure when it has taken this long, the user's answer included.
    explicit SecretServiceStore(std::chrono::milliseconds patience = std::chrono::minutes(1))
        : m_patience(patience)
    {
    }

    std::optional<Secret> load(const std::string& account) override;
    bool has(const std::string& account) override;
    void save(std::string_view value, const std::string& account) override;
    void remove(const std::string& account) override;

private:
    std::chrono::milliseconds m_patience;
};

} // namespace vesko

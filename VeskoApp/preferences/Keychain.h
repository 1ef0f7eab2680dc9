#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SecretStore.h"

namespace vesko {

// The user's secrets, reached without making the main thread wait: the store may ask the user to
// unlock it. Failures are KeychainFailure. Main thread.
class Keychain {
public:
    static constexpr const char* personal = "personal"; // the user's own OpenRouter key
    static constexpr const char* veskoAccess = "vesko-access"; // the Vesko access key
    static constexpr const char* veskoSession = "vesko-session"; // the token of who is signed in
    static constexpr const char* speechServer = "speech-server"; // the key of the user's own server

    explicit Keychain(SecretStore& store)
        : m_store(store)
    {
    }

    Task<std::optional<Secret>> load(std::string account);
    // Asks the user nothing.
    Task<bool> has(std::string account);
    Task<> save(Secret value, std::string account);
    Task<> remove(std::string account);

private:
    SecretStore& m_store;
    Worker m_worker;
};

} // namespace vesko

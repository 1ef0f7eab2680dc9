#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SecretStore.h"

#include <expected>
#include <map>
#include <memory>
#include <vector>

namespace vesko {

// The user's secrets, reached without making the main thread wait: the store may ask the user to
// unlock it. Whoever asks what is being asked already gets that answer, so that a store that is
// long in answering asks the user once. Failures are KeychainFailure. Main thread.
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
    // One kind of question, while it is under way, by account.
    template <class Value>
    struct Questions {
        using Answer = std::expected<Value, std::exception_ptr>;
        using Waiting = std::shared_ptr<std::vector<Eventual<Answer>>>;
        std::map<std::string, Waiting> underWay;
    };

    template <class Value>
    Task<Value> ask(Questions<Value>& questions, std::string account,
        Value (SecretStore::*question)(const std::string&));
    template <class Value>
    Task<> answer(Questions<Value>& questions, std::string account,
        Value (SecretStore::*question)(const std::string&));
    // What is asked from now on is to be answered by what the store holds then.
    void forget(const std::string& account);

    SecretStore& m_store;
    Questions<std::optional<Secret>> m_loads;
    Questions<bool> m_searches;
    Worker m_worker;
    TaskScope m_tasks;
};

} // namespace vesko

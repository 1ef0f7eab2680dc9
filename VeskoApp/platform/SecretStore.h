#pragma once

#include "VeskoCore/base/Secret.h"

#include <exception>
#include <optional>
#include <string>

namespace vesko {

// The secret store could not be used.
class KeychainFailure : public std::exception {
public:
    enum Kind { unusable, absent }; // what is absent can't be unlocked

    KeychainFailure(Kind kind = unusable)
        : m_kind(kind)
    {
    }
    // A key for the catalogues.
    const char* errorDescription() const;
    const char* what() const noexcept override { return errorDescription(); }

private:
    Kind m_kind;
};

// Secrets of the service "app.vesko.openrouter" by account name. Calls block, since the store may
// ask the user to unlock it: never on the main thread. Any other thread, one call at a time. All
// throw KeychainFailure.
class SecretStore {
public:
    virtual ~SecretStore() = default;

    // Nothing if there is no such item. A value that is no UTF-8 is a failure.
    virtual std::optional<Secret> load(const std::string& account) = 0;
    // Whether there is an item whose value can be loaded. Never asks the user to unlock anything:
    // what is locked away counts as there.
    virtual bool has(const std::string& account) = 0;
    // Replaces an item that is there.
    virtual void save(std::string_view value, const std::string& account) = 0;
    // An item that isn't there is no failure.
    virtual void remove(const std::string& account) = 0;
};

} // namespace vesko

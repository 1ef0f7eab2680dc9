#pragma once

#include "VeskoApp/platform/SecretStore.h"

#include <map>
#include <mutex>

namespace vesko {

// Secrets in memory; locked, every call fails. Any thread.
class FakeSecretStore final : public SecretStore {
public:
    void lock() { setLocked(true); }
    void unlock() { setLocked(false); }
    std::map<std::string, std::string> items() const
    {
        const std::scoped_lock guard(m_mutex);
        return m_items;
    }
    void put(const std::string& account, const std::string& value)
    {
        const std::scoped_lock guard(m_mutex);
        m_items[account] = value;
    }

    int loads() const
    {
        const std::scoped_lock guard(m_mutex);
        return m_loads;
    }

    std::optional<std::string> load(const std::string& account) override
    {
        const std::scoped_lock guard(m_mutex);
        ++m_loads;
        requireUnlocked();
        const auto item = m_items.find(account);
        return item == m_items.end() ? std::nullopt : std::optional(item->second);
    }
    bool has(const std::string& account) override { return load(account).has_value(); }
    void save(const std::string& value, const std::string& account) override
    {
        const std::scoped_lock guard(m_mutex);
        requireUnlocked();
        m_items[account] = value;
    }
    void remove(const std::string& account) override
    {
        const std::scoped_lock guard(m_mutex);
        requireUnlocked();
        m_items.erase(account);
    }

private:
    void setLocked(bool locked)
    {
        const std::scoped_lock guard(m_mutex);
        m_locked = locked;
    }
    void requireUnlocked() const
    {
        if (m_locked)
            throw KeychainFailure();
    }

    mutable std::mutex m_mutex;
    bool m_locked = false;
    int m_loads = 0;
    std::map<std::string, std::string> m_items;
};

} // namespace vesko

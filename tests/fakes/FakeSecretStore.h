#pragma once

#include "VeskoApp/platform/SecretStore.h"

#include <atomic>
#include <map>
#include <mutex>

namespace vesko {

// Secrets in memory; locked, every call fails; hanging, every call waits for answer(). Any thread.
class FakeSecretStore final : public SecretStore {
public:
    void lock() { setLocked(true); }
    void unlock() { setLocked(false); }
    void hang() { m_hanging = true; }
    void answer()
    {
        m_hanging = false;
        m_hanging.notify_all();
    }
    void lockWithSave() { m_locksWithSave = true; } // the next one goes well, and nothing after it
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

    // How often a secret was asked for, or whether there is one.
    int loads() const
    {
        const std::scoped_lock guard(m_mutex);
        return m_loads + m_questions;
    }
    // How often only whether there is one, for which nothing is unlocked.
    int questions() const
    {
        const std::scoped_lock guard(m_mutex);
        return m_questions;
    }

    std::optional<Secret> load(const std::string& account) override
    {
        count(m_loads);
        m_hanging.wait(true);
        const std::scoped_lock guard(m_mutex);
        requireUnlocked();
        const auto item = m_items.find(account);
        return item == m_items.end() ? std::nullopt : std::optional<Secret>(item->second);
    }
    bool has(const std::string& account) override
    {
        count(m_questions);
        m_hanging.wait(true);
        const std::scoped_lock guard(m_mutex);
        requireUnlocked();
        return m_items.contains(account);
    }
    void save(std::string_view value, const std::string& account) override
    {
        m_hanging.wait(true);
        const std::scoped_lock guard(m_mutex);
        requireUnlocked();
        m_items[account] = value;
        m_locked = m_locksWithSave;
    }
    void remove(const std::string& account) override
    {
        m_hanging.wait(true);
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
    void count(int& calls)
    {
        const std::scoped_lock guard(m_mutex);
        ++calls;
    }
    void requireUnlocked() const
    {
        if (m_locked)
            throw KeychainFailure();
    }

    mutable std::mutex m_mutex;
    std::atomic<bool> m_hanging = false;
    bool m_locked = false;
    bool m_locksWithSave = false;
    int m_loads = 0;
    int m_questions = 0;
    std::map<std::string, std::string> m_items;
};

} // namespace vesko

#include "VeskoApp/preferences/Keychain.h"

namespace vesko {

Task<std::optional<Secret>> Keychain::load(std::string account)
{
    co_return co_await m_worker.run([this, account] { return m_store.load(account); });
}

Task<bool> Keychain::has(std::string account)
{
    co_return co_await m_worker.run([this, account] { return m_store.has(account); });
}

Task<> Keychain::save(Secret value, std::string account)
{
    co_await m_worker.run([this, value, account] { m_store.save(value, account); });
}

Task<> Keychain::remove(std::string account)
{
    co_await m_worker.run([this, account] { m_store.remove(account); });
}

} // namespace vesko

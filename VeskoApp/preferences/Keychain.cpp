#include "VeskoApp/preferences/Keychain.h"

#include <utility>

namespace vesko {

template <class Value>
Task<Value> Keychain::ask(Questions<Value>& questions, std::string account,
    Value (SecretStore::*question)(const std::string&))
{
    const Eventual<typename Questions<Value>::Answer> mine;
    auto& waiting = questions.underWay[account];
    const bool isFirst = !waiting;
    if (isFirst)
        waiting = std::make_shared<std::vector<Eventual<typename Questions<Value>::Answer>>>();
    waiting->push_back(mine);
    if (isFirst)
        m_tasks.spawn(answer(questions, std::move(account), question));
    auto given = co_await mine;
    if (!given)
        std::rethrow_exception(given.error());
    co_return std::move(*given);
}

template <class Value>
Task<> Keychain::answer(Questions<Value>& questions, std::string account,
    Value (SecretStore::*question)(const std::string&))
{
    const auto waiting = questions.underWay.at(account);
    typename Questions<Value>::Answer given;
    try {
        given = co_await m_worker.run(
            [this, account, question] { return (m_store.*question)(account); });
    } catch (...) {
        given = std::unexpected(std::current_exception());
    }
    if (const auto still = questions.underWay.find(account);
        still != questions.underWay.end() && still->second == waiting)
        questions.underWay.erase(still);
    for (const auto& one : *waiting)
        one.set(given);
}

void Keychain::forget(const std::string& account)
{
    m_loads.underWay.erase(account);
    m_searches.underWay.erase(account);
}

Task<std::optional<Secret>> Keychain::load(std::string account)
{
    return ask(m_loads, std::move(account), &SecretStore::load);
}

Task<bool> Keychain::has(std::string account)
{
    return ask(m_searches, std::move(account), &SecretStore::has);
}

Task<> Keychain::save(Secret value, std::string account)
{
    forget(account);
    co_await m_worker.run([this, value, account] { m_store.save(value, account); });
}

Task<> Keychain::remove(std::string account)
{
    forget(account);
    co_await m_worker.run([this, account] { m_store.remove(account); });
}

} // namespace vesko

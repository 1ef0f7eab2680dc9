#include "VeskoCore/base/JsonCache.h"

#include <utility>

namespace vesko {

const std::string* JsonCache::find(const std::shared_ptr<const void>& element)
{
    const auto found = m_entries.find(element.get());
    if (found == m_entries.end())
        return nullptr;
    found->second.used = true;
    return &found->second.text;
}

const std::string& JsonCache::add(std::shared_ptr<const void> element, std::string text)
{
    const void* const identity = element.get();
    Entry entry{ std::move(element), std::move(text) };
    return m_entries.insert_or_assign(identity, std::move(entry)).first->second.text;
}

void JsonCache::forgetUnused()
{
    for (auto entry = m_entries.begin(); entry != m_entries.end();)
        entry
            = std::exchange(entry->second.used, false) ? std::next(entry) : m_entries.erase(entry);
}

} // namespace vesko

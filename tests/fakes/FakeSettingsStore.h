#pragma once

#include "VeskoApp/platform/SettingsStore.h"

#include <map>

namespace vesko {

class FakeSettingsStore final : public SettingsStore {
public:
    std::map<std::string, SettingValue> values;
    int writes = 0;
    bool writable = true;

    std::optional<SettingValue> value(const std::string& key) const override
    {
        const auto stored = values.find(key);
        return stored == values.end() ? std::nullopt : std::optional(stored->second);
    }
    void set(const std::string& key, const SettingValue& value) override
    {
        ++writes;
        values.insert_or_assign(key, value);
    }
    void remove(const std::string& key) override { writes += static_cast<int>(values.erase(key)); }
    bool saved() const override { return writable || writes == 0; }
    bool empty() const override { return values.empty(); }
};

} // namespace vesko

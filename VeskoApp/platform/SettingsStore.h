#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vesko {

// A value of a setting. Kinds are kept apart: a stored boolean is no text.
using SettingValue
    = std::variant<bool, std::string, double, std::vector<double>, std::vector<std::byte>>;

// The user's settings on this machine. Main thread only. A change is on disk when set or remove
// returns, or soon after; a damaged file is set aside, never overwritten.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // Nothing if nothing is stored, or a value of no kind that is known.
    virtual std::optional<SettingValue> value(const std::string& key) const = 0;
    virtual void set(const std::string& key, const SettingValue& value) = 0;
    // Nothing is stored under the key afterwards; does nothing if that is so already.
    virtual void remove(const std::string& key) = 0;
    // Whether every change is on disk: one that could not be written counts all the same, for as
    // long as this object lives, and is tried again with the next.
    virtual bool saved() const = 0;
    // Whether anything has ever been stored.
    virtual bool empty() const = 0;

    template <class T>
    std::optional<T> get(const std::string& key) const
    {
        const auto stored = value(key);
        if (!stored || !std::holds_alternative<T>(*stored))
            return std::nullopt;
        return std::get<T>(*stored);
    }
};

} // namespace vesko

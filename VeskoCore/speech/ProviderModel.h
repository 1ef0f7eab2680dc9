#pragma once

#include <map>
#include <optional>
#include <string>

namespace vesko {

// A model that the service lists.
struct ProviderModel {
    std::string id;
    std::string name;
    // What it costs, as the service words it; nothing if it says so in another form.
    std::optional<std::map<std::string, std::string>> pricing;

    bool operator==(const ProviderModel&) const = default;
};

} // namespace vesko

#pragma once

#include <filesystem>
#include <functional>

namespace vesko {

// Shows each entry of a folder, in no order. One that isn't there has none; where it can't be read
// any further, as on a network that fails, the rest is missing. What `visit` throws goes through.
void eachEntry(const std::filesystem::path& folder,
    const std::function<void(const std::filesystem::path&)>& visit);

} // namespace vesko

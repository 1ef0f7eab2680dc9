#pragma once

#include <filesystem>
#include <string>

namespace vesko {

// A stored recording as it is to be sent; any thread. Reads no more than one byte over what one
// request may hold, which is enough for the request to be refused. Throws std::system_error, at
// once also for what is no regular file.
std::string audioBytes(const std::filesystem::path& file);

} // namespace vesko

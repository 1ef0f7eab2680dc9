#pragma once

#include <exception>
#include <string>

namespace vesko {

// The one place where a failure becomes words for the user: a key for the catalogues. Never the
// system's own text.
std::string safeMessage(const std::exception_ptr& failure);

} // namespace vesko

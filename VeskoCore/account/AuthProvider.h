#pragma once

#include "VeskoCore/base/JsonFields.h"

#include <string_view>

namespace vesko {

// Who vouches for a user.
enum class AuthProvider { apple, google, email };

template <>
inline constexpr auto jsonNames<AuthProvider>
    = std::to_array<std::string_view>({ "apple", "google", "email" });

} // namespace vesko

#pragma once

#include "VeskoCore/account/AuthProvider.h"
#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/Uuid.h"

#include <optional>
#include <string>
#include <vector>

namespace vesko {

// Who is signed in.
struct VeskoAccount {
    Uuid id;
    std::optional<std::string> email; // absent if the user hides it from us
    std::vector<AuthProvider> providers; // the ways in which the user has signed in so far
    Date createdAt;

    bool operator==(const VeskoAccount&) const = default;
};

template <>
inline constexpr std::tuple jsonFields<VeskoAccount>{
    JsonField{ "createdAt", &VeskoAccount::createdAt },
    JsonField{ "email", &VeskoAccount::email },
    JsonField{ "id", &VeskoAccount::id },
    JsonField{ "providers", &VeskoAccount::providers },
};

} // namespace vesko

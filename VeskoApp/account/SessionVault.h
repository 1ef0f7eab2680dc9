#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoCore/base/Secret.h"

#include <optional>

namespace vesko {

// Where the token of the session is kept from one run to the next. Main thread.
class SessionVault {
public:
    virtual ~SessionVault() = default;

    // Saving and loading throw when the token can't be kept, or got at.
    virtual Task<> save(Secret token) = 0;
    virtual Task<std::optional<Secret>> load() = 0;
    // Whether there is a token, without asking the user anything. Throws as well.
    virtual Task<bool> has() = 0;
    // As well as it goes.
    virtual Task<> remove() = 0;
};

} // namespace vesko

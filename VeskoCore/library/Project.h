#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/Uuid.h"

#include <string>

namespace vesko {

// A folder for notes.
struct Project {
    Uuid id;
    std::string name; // trimmed, 1 to 80 characters
    Date createdAt;

    bool operator==(const Project&) const = default;
};

} // namespace vesko

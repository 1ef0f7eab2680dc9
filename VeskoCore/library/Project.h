#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonFields.h"
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

template <>
inline constexpr std::tuple jsonFields<Project>{
    JsonField{ "createdAt", &Project::createdAt },
    JsonField{ "id", &Project::id },
    JsonField{ "name", &Project::name },
};

} // namespace vesko

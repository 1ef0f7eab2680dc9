#pragma once

#include "VeskoApp/async/Eventual.h"

#include <optional>
#include <string>

namespace vesko {

// Looks at the machine: what works here and what doesn't, each with its cause and its remedy. Main
// thread.
class Doctor {
public:
    virtual ~Doctor() = default;

    // Lines in English for a font of one width, without a word, key or path of the user's. Nothing
    // if it can't be told. Comes after seconds; the microphone is listened to for one of them.
    virtual Eventual<std::optional<std::string>> report() = 0;
};

} // namespace vesko

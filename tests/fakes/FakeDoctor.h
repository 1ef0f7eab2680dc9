#pragma once

#include "VeskoApp/platform/Doctor.h"

namespace vesko {

// Looks until a test says what it saw.
class FakeDoctor final : public Doctor {
public:
    Eventual<std::optional<std::string>> report() override
    {
        ++asked;
        return answer = {};
    }

    int asked = 0;
    Eventual<std::optional<std::string>> answer; // to the newest question
};

} // namespace vesko

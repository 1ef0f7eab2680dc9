#pragma once

#include <string>

namespace vesko {

// What a user of the hosted gateway may still use, in United States dollars.
struct PlusAllowance {
    std::string period; // the accounting period, in the service's words
    double allowanceUsd = 0; // of the period
    double usedUsd = 0;
    double reservedUsd = 0; // for requests in progress
    double remainingUsd = 0;

    bool operator==(const PlusAllowance&) const = default;
};

} // namespace vesko

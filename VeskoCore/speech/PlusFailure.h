#pragma once

#include <exception>
#include <optional>
#include <string_view>

namespace vesko {

// What the hosted gateway could not do, as a user is told. The description is a key for the
// catalogues and never holds words of the service.
class PlusFailure : public std::exception {
public:
    enum Kind {
        signInRequired,
        unavailable,
        allowanceExhausted,
        dailyLimit,
        paused,
        serviceBusy,
        outcomeUnknown,
        alreadyCompleted,
        refused,
        audioTooLarge,
        invalidResponse,
    };

    PlusFailure(Kind kind)
        : m_kind(kind)
    {
    }
    // Of an answer that is no success: by the service's own code, and without one that is known by
    // the HTTP status.
    static PlusFailure from(std::optional<std::string_view> code, int status);

    Kind kind() const { return m_kind; }
    const char* errorDescription() const;
    const char* what() const noexcept override { return errorDescription(); }

    friend bool operator==(const PlusFailure& a, const PlusFailure& b)
    {
        return a.m_kind == b.m_kind;
    }

private:
    Kind m_kind;
};

} // namespace vesko

#pragma once

namespace vesko {

enum class LoginStatus { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

// Whether the program starts when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    virtual LoginStatus status() const = 0;
    // Both throw std::system_error and then have changed nothing.
    virtual void enable() = 0;
    virtual void disable() = 0;
};

} // namespace vesko

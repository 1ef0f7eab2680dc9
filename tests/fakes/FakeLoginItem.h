#pragma once

#include "VeskoApp/platform/LoginItem.h"

#include <system_error>

namespace vesko {

class FakeLoginItem final : public LoginItem {
public:
    LoginStatus current = LoginStatus::notRegistered;
    bool fails = false;

    LoginStatus status() const override { return current; }
    void enable() override { change(LoginStatus::enabled); }
    void disable() override { change(LoginStatus::notRegistered); }

private:
    void change(LoginStatus to)
    {
        if (fails)
            throw std::system_error(std::make_error_code(std::errc::permission_denied));
        current = to;
    }
};

} // namespace vesko

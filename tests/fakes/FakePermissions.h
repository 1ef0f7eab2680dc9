#pragma once

#include "VeskoApp/platform/Permissions.h"
#include "tests/fakes/Gate.h"

namespace vesko {

// A machine that lets the program do everything; what a test changes is seen with the next look.
class FakePermissions final : public Permissions {
public:
    bool hasMicrophone = true;
    bool hasAccessibility = true;
    bool hasBus = true; // that accessibility needs
    bool microphoneOpens = true;
    Gate opening; // of the microphone
    int looks = 0;
    int requests = 0; // of whatever kind

    bool microphone() const override { return m_microphone; }
    bool accessibility() const override { return m_accessibility; }
    void look() override
    {
        ++looks;
        m_microphone = hasMicrophone;
        m_accessibility = hasAccessibility;
        if (onChanged)
            onChanged();
    }
    Task<bool> requestMicrophone() override
    {
        ++requests;
        co_await opening.pass();
        co_return microphoneOpens;
    }
    Task<bool> requestAccessibility() override
    {
        ++requests;
        hasAccessibility = hasBus;
        co_return hasBus;
    }

private:
    bool m_microphone = false;
    bool m_accessibility = false;
};

} // namespace vesko

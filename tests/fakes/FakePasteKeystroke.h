#pragma once

#include "VeskoApp/platform/PasteKeystroke.h"
#include "tests/fakes/Gate.h"

#include <functional>

namespace vesko {

// Hands that count the pastes.
class FakePasteKeystroke final : public PasteKeystroke {
public:
    bool works = true;
    std::string obstacle = "event_failed"; // why nothing is sent when it doesn't work
    Gate keys; // closed: the user holds a key
    int sent = 0;
    std::function<void()> onSent = [] { };

    Eventual<std::monostate> keysReleased() override { return keys.pass(); }
    Eventual<std::optional<std::string>> send(const FieldElement&) override
    {
        if (works) {
            ++sent;
            onSent();
        }
        return Eventual<std::optional<std::string>>::of(
            works ? std::nullopt : std::optional(obstacle));
    }
};

} // namespace vesko

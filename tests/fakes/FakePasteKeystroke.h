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
    std::optional<std::string> taken; // why the keyboard is another's
    Gate keys; // closed: the user holds a key
    int sent = 0;
    bool prepared = false; // and neither used nor released since
    std::function<void()> onSent = [] { };

    void prepare() override { prepared = true; }
    void release() override { prepared = false; }
    Eventual<std::monostate> keysReleased() override { return keys.pass(); }
    std::optional<std::string> keyboardTaken() const override { return taken; }
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

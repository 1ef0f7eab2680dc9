#pragma once

#include "VeskoApp/platform/PasteKeystroke.h"
#include "tests/fakes/Gate.h"

namespace vesko {

// Hands that count the pastes.
class FakePasteKeystroke final : public PasteKeystroke {
public:
    bool works = true;
    Gate keys; // closed: the user holds a key
    int sent = 0;

    Eventual<std::monostate> keysReleased() override { return keys.pass(); }
    Eventual<bool> send(const FieldElement&) override
    {
        sent += works ? 1 : 0;
        return Eventual<bool>::of(works);
    }
};

} // namespace vesko

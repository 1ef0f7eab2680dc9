#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoLinux/accessibility/AtspiBus.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace vesko {

// What can be asked of an element without knowing anything of it.
struct FieldProbe {
    AtspiKind kind;
    bool search = false;
    std::optional<std::int64_t> length, caret;
    std::optional<std::pair<int, int>> selection;

    bool focused() const;
    // Whether the program has told all that a field has.
    bool complete() const { return length && caret; }
};

// Asks one element what it is and holds. Main thread; every answer comes by its deadline.
class FieldReader {
public:
    explicit FieldReader(AtspiBus& bus)
        : m_bus(bus)
    {
    }

    // Nothing if the element doesn't answer or is gone.
    Task<std::optional<FieldProbe>> probe(AtspiAddress element, AtspiInquiry inquiry);
    // Fills in all but `trusted` and `frontmost`; the element is one of `process`.
    Task<> describe(FieldReading& reading, AtspiAddress element, FieldProbe probe,
        std::int32_t process, AtspiInquiry inquiry);

private:
    Task<bool> hidden(
        AtspiAddress element, FieldProbe probe, std::int32_t process, AtspiInquiry inquiry);
    Task<std::optional<AtspiAddress>> documentOf(
        AtspiAddress element, AtspiKind kind, AtspiInquiry inquiry);

    AtspiBus& m_bus;
};

} // namespace vesko

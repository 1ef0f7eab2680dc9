#pragma once

#include "VeskoApp/platform/FocusedField.h"

#include <QString>

namespace vesko {

// Where an accessible object is found: the program's unique name on the accessibility bus, and the
// object's path in it. Neither is used again for another object.
struct AtspiAddress {
    QString service;
    QString path;

    bool operator==(const AtspiAddress&) const = default;
};

class AtspiElement final : public FieldElement {
public:
    AtspiElement(AtspiAddress address, bool terminal)
        : m_address(std::move(address))
        , m_terminal(terminal)
    {
    }

    bool equals(const FieldElement& other) const override
    {
        const auto* element = dynamic_cast<const AtspiElement*>(&other);
        return element && element->m_address == m_address;
    }
    bool isTerminal() const override { return m_terminal; }

private:
    AtspiAddress m_address;
    bool m_terminal;
};

} // namespace vesko

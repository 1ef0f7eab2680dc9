#pragma once

#include "VeskoApp/platform/FocusedField.h"

#include <QString>

#include <optional>
#include <utility>

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
    // A paragraph has a `document` whose paragraphs are one field.
    AtspiElement(AtspiAddress address, std::optional<AtspiAddress> document, bool terminal)
        : m_field(document ? *std::move(document) : std::move(address))
        , m_terminal(terminal)
    {
    }

    bool equals(const FieldElement& other) const override
    {
        const auto* element = dynamic_cast<const AtspiElement*>(&other);
        return element && element->m_field == m_field;
    }
    bool isTerminal() const override { return m_terminal; }

private:
    AtspiAddress m_field;
    bool m_terminal;
};

} // namespace vesko

#pragma once

#include "VeskoApp/platform/FocusedField.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace vesko {

// Stands for the element of that number.
class FakeFieldElement final : public FieldElement {
public:
    explicit FakeFieldElement(int number)
        : m_number(number)
    {
    }
    bool equals(const FieldElement& other) const override
    {
        return m_number == static_cast<const FakeFieldElement&>(other).m_number;
    }
    bool isTerminal() const override { return false; }

private:
    int m_number;
};

// An editor in front, with a cursor in its text field, unless a test says otherwise.
class FakeFocusedField final : public FocusedField {
public:
    static constexpr std::int32_t editor = 4711; // its process

    FieldReading reading{
        .trusted = true,
        .frontmost = editor,
        .element = std::make_shared<FakeFieldElement>(1),
        .focused = true,
        .role = "AXTextArea",
        .subrole = std::nullopt,
        .selection = TextRange{ 5, 0 },
        .value = "Dear ",
    };
    std::vector<std::optional<std::int32_t>> reads; // the processes that were asked about

    // A text comes in at the cursor, which is to stand between two ASCII letters.
    void paste(const std::string& text)
    {
        if (!reading.value || !reading.selection)
            return;
        const auto at = static_cast<std::size_t>(reading.selection->location);
        reading.value->replace(std::min(at, reading.value->size()),
            static_cast<std::size_t>(reading.selection->length), text);
        reading.selection
            = TextRange{ reading.selection->location + static_cast<std::int64_t>(text.size()), 0 };
    }

    std::function<void()> onRead; // called at the moment that settles what has the focus

    // Readings stay under way until they are let go.
    void hold() { m_held = true; }
    void letGo()
    {
        m_held = false;
        for (const auto& [answer, settled] : std::exchange(m_pending, {}))
            answer.set(settled);
    }

    Eventual<FieldReading> read(std::optional<std::int32_t> process) override
    {
        reads.push_back(process);
        if (onRead)
            onRead();
        if (!m_held)
            return Eventual<FieldReading>::of(reading);
        m_pending.emplace_back(Eventual<FieldReading>(), reading);
        return m_pending.back().first;
    }

private:
    bool m_held = false;
    std::vector<std::pair<Eventual<FieldReading>, FieldReading>> m_pending;
};

} // namespace vesko

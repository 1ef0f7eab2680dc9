#pragma once

#include "VeskoApp/platform/FocusedField.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace vesko {

// What AT-SPI says about the kind of an element: its role (AtspiRole) and its states, bit n for
// AtspiStateType n.
struct AtspiKind {
    std::uint32_t role = 0;
    std::uint64_t states = 0;

    bool is(int state) const { return states >> state & 1; }
    bool password() const;
    bool terminal() const;
    // Whether this element, and none above it, has the keyboard.
    bool focusedField() const;
    // Whether it is but the frame of what it holds: with the keyboard in it, its program draws what
    // is inside by itself and tells nothing of that.
    bool frameOnly() const;
};

// Which of several elements, in the order in which they told that they got the focus, has the
// keyboard: the latest field that has it, else the latest that has it. Where none has, as while a
// shortcut is held, the latest that can have it. Absent are those that don't answer.
std::optional<std::size_t> strongestFocus(std::span<const std::optional<AtspiKind>> heard);

// Whether this, all that a line of a field shows, stands for letters that are hidden.
bool hidesLetters(const QString& line);

// The role under the name by which the application knows it: one of the four kinds of writable
// field, or nothing. A field that can only be read is none of them.
std::optional<std::string> fieldRole(const AtspiKind& kind, bool search);

// A program's text and the places in it. Programs count either characters or UTF-16 units; here
// everything is in UTF-16 units.
class FieldText {
public:
    // How much of a text is read: enough to see that it is too long to watch.
    static constexpr int limit = 32'769;

    // The program gave `text` when it was asked for `asked` units of its own from the beginning.
    FieldText(QString text, std::int64_t asked);

    std::string value() const;
    // From the program's count. What lies behind the text that was read counts one unit each.
    TextRange range(std::int64_t start, std::int64_t end) const;

private:
    std::int64_t units(std::int64_t offset) const;

    QString m_text;
    bool m_countsCharacters;
};

} // namespace vesko

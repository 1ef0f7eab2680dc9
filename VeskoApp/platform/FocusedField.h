#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoCore/base/TextRange.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vesko {

// Another program's user interface element, alive or not. Immutable; any thread.
class FieldElement {
public:
    virtual ~FieldElement() = default;
    // Whether both stand for one and the same element.
    virtual bool equals(const FieldElement& other) const = 0;
    // Whether it is a terminal, in which the usual paste shortcut means something else.
    virtual bool isTerminal() const = 0;
};

// What another program says about its focused element. Everything that could not be read is
// absent.
struct FieldReading {
    bool trusted = false; // this program may use accessibility
    std::optional<std::int32_t> frontmost; // the process that owns the active window
    // False if it can't be told just now whose window is active. Otherwise an absent `frontmost`
    // is an empty desktop.
    bool seesFrontmost = true;
    // Whether the program tells of what is in its window: many never do, and a busy one not now, or
    // by half; then the text may stand here in part only.
    bool elements = true;
    std::shared_ptr<const FieldElement> element; // null: no element has the focus
    // Whether the element has the keyboard by its program's account. While a global shortcut is
    // held down none has, and the last one that had it is told.
    bool focused = false;
    std::optional<std::string> role; // "AXTextField" and its kin
    std::optional<std::string> subrole; // "AXSecureTextField" for a password
    std::optional<TextRange> selection; // the cursor is a range of length 0
    // The whole text; of a text longer than 32,768 UTF-16 units the first 32,769, which is enough
    // to see that it is too long to watch.
    std::optional<std::string> value;
    std::optional<std::string> program = {}; // its name, as it tells it: "mousepad"
};

// Reads the focused field of other programs. Main thread only; nothing here waits, and the
// answers come on the main thread.
class FocusedField {
public:
    virtual ~FocusedField() = default;

    // The focused element of a process, or of the frontmost one if none is named, as it is at this
    // moment: what has the focus is settled before this returns, and only the reading takes its
    // time. Where no field of the frontmost process has it, as while a window is being raised, it
    // is looked for again for a quarter of a second.
    virtual Eventual<FieldReading> read(std::optional<std::int32_t> process) = 0;
};

} // namespace vesko

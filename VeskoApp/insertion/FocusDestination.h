#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoCore/base/Clock.h"

#include <string>
#include <vector>

namespace vesko {

// The field in which a dictation was started: the only one that its text may be pasted into, and
// only for two minutes. Taken once and never refreshed.
struct FocusDestination {
    std::int32_t pid = 0;
    std::shared_ptr<const FieldElement> element; // null: there may be one, but it can't be seen
    TextRange selection;
    std::string originalValue;
    Date capturedAt;

    // What a reading taken at `at` amounts to. Nothing, with a line in the log, when there is no
    // field to come back to: no permission, this program in front, no focus, no cursor, no text,
    // a password. Without an element when it could not be seen which window is active.
    static std::optional<FocusDestination> from(const FieldReading& reading, Date at);

    // Looks at the field again and pastes into it if nothing forbids that. Gives what forbids it;
    // empty if and only if the keystroke was sent. Never fails.
    Task<std::vector<std::string>> attemptPaste(
        FocusedField& fields, PasteKeystroke& keystroke, const Clock& clock) const;

    // The field's text, if the field has the focus in the active window and is one whose text may
    // be watched: no password, and of 32,768 UTF-16 units at most.
    Task<std::optional<std::string>> currentValueIfFocused(FocusedField& fields) const;
};

// What the user is told about text that was copied and not pasted, by the first reason: a key for
// the catalogues.
std::string pasteMessage(const std::vector<std::string>& reasons);

} // namespace vesko

#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoApp/platform/PasteKeystroke.h"

#include <expected>
#include <string>
#include <vector>

namespace vesko {

// What a field shows of a paste: the text, for half a second not, or nothing can be said.
enum class PasteProof : std::uint8_t { seen, notSeen, unknown };

// The field in which a dictation was started: the only one that its text may be pasted into, and
// only for two minutes. Taken once and never refreshed.
struct FocusDestination {
    std::int32_t pid = 0;
    std::shared_ptr<const FieldElement> element;
    TextRange selection;
    std::string originalValue;
    Date capturedAt;
    std::optional<FieldReading> beforePaste = {}; // how the field stood when the keystroke was sent

    // Why a reading leaves no field to come back to: no permission, no window or this program in
    // front, none that can be seen to be in front, a program that tells nothing of its fields, no
    // focus, no cursor, a password, no text. Empty where it does.
    static std::string reasonAgainst(const FieldReading& reading);
    // What a reading taken at `at` amounts to. Nothing, with a line in the log, where there is a
    // reason against it.
    static std::optional<FocusDestination> from(const FieldReading& reading, Date at);

    // Looks at the field again and pastes into it if nothing forbids that. Gives what forbids it;
    // empty if and only if the keystroke was sent. Never fails.
    Task<std::vector<std::string>> attemptPaste(
        FocusedField& fields, PasteKeystroke& keystroke, const Clock& clock);

    // After the keystroke: looks until the field shows the text, or nothing can be said because it
    // lost the focus, hides its text, or holds more than can be read.
    Task<PasteProof> lookForPaste(FocusedField& fields, EventClock& clock, std::string text) const;

    // Why a field's text can't be had.
    enum class Unread : std::uint8_t {
        left, // it hasn't the focus, or isn't to be watched
        silent, // its program, which is in front, gave no answer in time
    };
    // The field's text, if the field has the focus in the active window and is one whose text may
    // be watched: no password, and of 32,768 UTF-16 units at most.
    Task<std::expected<std::string, Unread>> currentValueIfFocused(FocusedField& fields) const;

private:
    bool tells(const FieldReading& now) const;
};

// What the user is told about text that was copied and not pasted, by the first reason: a key for
// the catalogues. Of a paste that was sent and isn't seen in the field the reason is "not_seen".
std::string pasteMessage(const std::vector<std::string>& reasons);

} // namespace vesko

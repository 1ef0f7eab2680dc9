#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/insertion/FocusDestination.h"
#include "VeskoApp/insertion/InsertionReview.h"
#include "VeskoApp/insertion/TextCopy.h"
#include "VeskoApp/preferences/Preferences.h"

#include <expected>

namespace vesko {

// The field of a capture, or why there is none to come back to: settled at the trigger, read by the
// time the text is ready.
using Destination = Eventual<std::expected<FocusDestination, std::string>>;

// Brings a dictated text to the user: onto the clipboard, and into the field where the dictation
// began if that is safe; the status line says what happened, and claims no paste before the field
// has been looked at again. Main thread.
class TextDelivery {
public:
    // What it reaches; must outlive it.
    struct Neighbours {
        EventClock& clock;
        FocusedField& focusedField;
        PasteKeystroke& pasteKeystroke;
        const Preferences& preferences;
        InsertionReview& review;
        TextCopy& clipboard;
        StatusLine& status;
    };

    explicit TextDelivery(const Neighbours& neighbours);

    // Takes what the user then corrects in a pasted text, while corrections are to be learned.
    InsertionReview::OnCorrections onCorrections;

    // Without `paste`, or without a destination, it ends on the clipboard. False if it was to be
    // pasted and could not be.
    Task<bool> deliver(std::string text, bool paste, std::optional<Destination> destination);

    // The text is on the clipboard only, and what the user is told of that.
    std::function<void(const std::string& text, const std::string& message)> onNotPasted;

private:
    void tellNotPasted(const std::string& text, const std::vector<std::string>& reasons);
    Task<> prove(FocusDestination field, std::string text, ClipboardContent before);

    Neighbours m_to;
    std::optional<TaskScope> m_proof; // of the last paste
};

} // namespace vesko

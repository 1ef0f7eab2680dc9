#pragma once

#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/library/LibrarySession.h"

#include <exception>
#include <optional>
#include <string>
#include <unordered_map>

namespace vesko {

// What has been typed into notes and is not on disk yet. An edit stays pending until it is saved,
// whatever becomes of the editor it was typed in. Main thread.
class NoteEdits {
public:
    // What an editor holds of a note and has not on disk.
    struct PendingEdit {
        std::string title;
        std::string body;
        std::string baseBody; // the body that the editing began with

        bool operator==(const PendingEdit&) const = default;
    };
    using Saved = Eventual<std::exception_ptr>; // null when it went well

    NoteEdits(LibrarySession& library, StatusLine& status);

    // Remembers what was typed into a note until it is saved.
    void setPending(const Uuid& id, PendingEdit edit);
    // The note is no more: what could not be saved of it would hold up every quit.
    void forget(const Uuid& id) { m_pending.erase(id); }
    const std::unordered_map<Uuid, PendingEdit>& pending() const { return m_pending; }
    // Saves an edit, whatever becomes of the caller; a failure goes to the error line too. While
    // another is pending by then, that one stays pending; a save that failed leaves it pending too.
    Saved save(const Uuid& id, PendingEdit edit);
    // Saves what is pending. False, with the reason in the error line, at the first failure.
    Task<bool> saveAll();

private:
    Task<> write(Uuid id, PendingEdit edit, Saved saved);

    LibrarySession& m_library;
    StatusLine& m_status;
    std::unordered_map<Uuid, PendingEdit> m_pending;
    // The last that the store was given of a note of which more is pending.
    std::unordered_map<Uuid, PendingEdit> m_sent;
    TaskScope m_tasks;
};

} // namespace vesko

#pragma once

#include "VeskoCore/library/Recording.h"

namespace vesko {

enum class NoteKind { dictation, voice, text };

// One text document, with the recordings that fed it.
struct Note {
    Uuid id;
    NoteKind kind = NoteKind::text; // what started it
    std::string title;
    SharedText body;
    std::optional<Uuid> projectID;
    Date createdAt;
    Date updatedAt;
    std::optional<Date> deletedAt; // set: the note is in the Trash
    std::vector<Recording> recordings; // in creation order

    // The note with the title and body of an editor's draft. When the editor's text is based on
    // another body than the note has now (`baseBody`, if known), and the last to change the note
    // was a transcript, the draft is joined with it: what was added at the end is added to the
    // draft, and any other body follows the draft whole, below a line that says so. The dates stay.
    Note applyingDraft(const std::string& draftTitle, const std::string& draftBody,
        const std::optional<std::string>& baseBody) const;

    // What the note is called: its title, else the first line of its body, up to 80 characters of
    // it, else a key that says there is neither.
    std::string displayTitle() const;
    // What kind of note it is in words, a key; the prompt where a title could stand.
    const char* untitledLabel() const;
    // What a list calls it: a capture without a title is shown as its kind, not as its text.
    std::string listTitle() const;
    // Title and text, or the one there is. The text is the body, else the newest that was heard.
    std::string clipboardText() const;
    // The file that an export writes: title, project, body and every raw transcript, nothing
    // escaped.
    std::string markdown(const std::optional<std::string>& project) const;

    bool operator==(const Note&) const = default;
};

template <>
inline constexpr auto jsonNames<NoteKind>
    = std::to_array<std::string_view>({ "dictation", "voice", "text" });

template <>
inline constexpr std::tuple jsonFields<Note>{
    JsonField{ "body", &Note::body },
    JsonField{ "createdAt", &Note::createdAt },
    JsonField{ "deletedAt", &Note::deletedAt },
    JsonField{ "id", &Note::id },
    JsonField{ "kind", &Note::kind },
    JsonField{ "projectID", &Note::projectID },
    JsonField{ "recordings", &Note::recordings },
    JsonField{ "title", &Note::title },
    JsonField{ "updatedAt", &Note::updatedAt },
};

} // namespace vesko

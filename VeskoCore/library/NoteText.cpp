// What a note is called, and what a copy of it puts on the clipboard.

#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"
#include "VeskoCore/library/Note.h"

#include <ranges>

namespace vesko {

namespace {

constexpr std::size_t mostTitleCharacters = 80;

// The body, or where it is blank what was last heard.
std::string textOf(const Note& note)
{
    const auto body = trimmed(note.body);
    if (!body.empty())
        return std::string(body);
    for (const auto& recording : note.recordings | std::views::reverse)
        if (const auto heard = recording.latestText())
            return std::string(trimmed(*heard));
    return {};
}

} // namespace

std::string Note::displayTitle() const
{
    const auto given = trimmed(title);
    if (!given.empty())
        return std::string(given);
    const auto line = firstLine(body);
    if (!line.empty())
        return std::string(firstCharacters(line, mostTitleCharacters));
    return kind == NoteKind::text ? L10N_KEY("Vesko", "Untitled note")
                                  : L10N_KEY("Vesko", "Voice capture");
}

const char* Note::untitledLabel() const
{
    switch (kind) {
    case NoteKind::dictation:
        return L10N_KEY("Vesko", "Dictation");
    case NoteKind::voice:
        return L10N_KEY("Vesko", "Voice note");
    case NoteKind::text:
        break;
    }
    return L10N_KEY("Vesko", "Note title");
}

std::string Note::listTitle() const
{
    return kind != NoteKind::text && trimmed(title).empty() ? untitledLabel() : displayTitle();
}

std::string Note::clipboardText() const
{
    const auto heading = trimmed(title);
    const auto text = textOf(*this);
    if (heading.empty())
        return text;
    if (text.empty())
        return std::string(heading);
    // A title that the text opens with isn't said twice.
    if (sameText(trimmed(firstLine(text)), heading))
        return text;
    return std::string(heading) + "\n\n" + text;
}

} // namespace vesko

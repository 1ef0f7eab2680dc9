#include "VeskoCore/library/Note.h"

#include "VeskoCore/base/Text.h"

#include <algorithm>

namespace vesko {

namespace {

// The draft together with what a transcript has done to the body since the editor took its base.
std::string mergedBody(const Note& note, const std::string& draft, const std::string& base)
{
    const std::string& body = note.body;
    const auto begin = firstCharacters(body, characterCount(base));
    if (sameText(begin, base))
        return draft + body.substr(begin.size());
    return draft + "\n\nRecovered concurrent version:\n" + body;
}

} // namespace

Note Note::applyingDraft(const std::string& draftTitle, const std::string& draftBody,
    const std::optional<std::string>& baseBody) const
{
    Note changed = *this;
    changed.title = draftTitle;
    changed.body = draftBody;
    const auto putIn
        = [&](const Recording& recording) { return recording.appliedBodyRevision == updatedAt; };
    if (baseBody && std::ranges::any_of(recordings, putIn) && !sameText(body, *baseBody)
        && !sameText(body, draftBody))
        changed.body = mergedBody(*this, draftBody, *baseBody);
    return changed;
}

} // namespace vesko

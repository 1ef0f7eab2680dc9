#include "VeskoCore/library/Note.h"

namespace vesko {

std::string Note::markdown(const std::optional<std::string>& project) const
{
    std::string text = "# " + displayTitle() + "\n\n";
    if (project)
        text += "Project: " + *project + "\n\n";
    text += std::string_view(body);
    text += '\n';
    for (const auto& recording : recordings)
        for (const auto& attempt : recording.attempts)
            if (attempt.rawText) {
                text += "\n## Original transcript (" + attempt.modelInWords() + ")\n\n";
                text += std::string_view(*attempt.rawText);
                text += '\n';
            }
    return text;
}

} // namespace vesko

#include "VeskoCore/library/TranscriptionAttempt.h"

#include "VeskoCore/base/Localized.h"
#include "VeskoCore/speech/SpokenLanguage.h"

namespace vesko {

const char* label(AttemptStatus status)
{
    switch (status) {
    case AttemptStatus::running:
        return L10N_KEY("Vesko", "In progress");
    case AttemptStatus::ready:
        return L10N_KEY("Vesko", "Done");
    case AttemptStatus::failed:
        return L10N_KEY("Vesko", "Failed");
    case AttemptStatus::interrupted:
        break;
    }
    return L10N_KEY("Vesko", "Interrupted");
}

std::string TranscriptionAttempt::modelInWords() const
{
    const auto slash = model.find('/');
    if (provider != onDeviceProvider || model.starts_with("apple/"))
        return model;
    const auto engine = model.substr(0, slash);
    const auto rest = slash == std::string::npos ? "" : model.substr(slash + 1);
    // Its models are languages. The name of a command's model is all that the user gave it.
    if (engine == "pocketsphinx")
        return "PocketSphinx"
            + (rest.empty() ? "" : ", " + SpokenLanguage::displayName(rest, true));
    if (engine == "command" && !rest.empty())
        return rest;
    return engine + (rest.empty() ? "" : ", " + rest);
}

} // namespace vesko

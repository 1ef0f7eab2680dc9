#include "VeskoApp/capture/CaptureSettings.h"

#include "VeskoApp/preferences/Preferences.h"

namespace vesko {

CaptureSettings CaptureSettings::from(const Preferences& preferences, const Library& library)
{
    const std::string& translateTo = preferences.translateTo.get();
    return {
        .provider = preferences.provider.get(),
        .keySource = preferences.keySourceInForce(),
        .model = preferences.sttModel.get(),
        .language = preferences.language.get(),
        .cleanup = preferences.cleanupEnabled.get(),
        .cleanupModel = preferences.cleanupModel.get(),
        .paste = preferences.pasteEnabled.get(),
        .dictionary
        = preferences.dictionaryEnabled.get() ? library.dictionary : SharedArray<DictionaryEntry>{},
        .expectTerms = preferences.expectTerms.get(),
        .translateTo = translateTo == "off" ? std::nullopt : std::optional(translateTo),
    };
}

} // namespace vesko

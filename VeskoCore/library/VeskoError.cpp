#include "VeskoCore/library/VeskoError.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

VeskoError VeskoError::http(int status)
{
    VeskoError error(httpStatus);
    error.m_status = status;
    return error;
}

const char* VeskoError::errorDescription() const
{
    switch (m_kind) {
    case invalidProject:
        return L10N_KEY("Vesko", "Enter a project name between 1 and 80 characters.");
    case duplicateProject:
        return L10N_KEY("Vesko", "A project with this name already exists.");
    case invalidDictionary:
        return L10N_KEY("Vesko",
            "Enter two different terms between 1 and 80 characters. The dictionary holds up to "
            "1,000 terms.");
    case duplicateDictionary:
        return L10N_KEY("Vesko",
            "This recognized term is already in your dictionary. Edit its existing entry.");
    case notFound:
        return L10N_KEY("Vesko", "This item is no longer available.");
    case unsafePath:
        return L10N_KEY("Vesko", "The recording path is invalid. The library was preserved.");
    case unsupportedSchema:
        return L10N_KEY(
            "Vesko", "This library was made by a newer Vesko. Update the app before opening it.");
    case corruptLibrary:
        return L10N_KEY("Vesko",
            "The library could not be read. Your files were preserved. Open the data folder to "
            "recover its backup.");
    case libraryTooLarge:
        return L10N_KEY("Vesko",
            "The library is too large. Vesko can open up to 1 GB. Your files were preserved.");
    case libraryBusy:
        return L10N_KEY(
            "Vesko", "Vesko is already using this library. Open the running app instead.");
    case emptyTranscript:
        return L10N_KEY("Vesko",
            "No speech was returned. Your audio is saved. You can retry with another model.");
    case noSpeech:
        return L10N_KEY("Vesko", "No speech was heard. The recording is saved.");
    case missingKey:
        return L10N_KEY("Vesko", "Add your OpenRouter key in Settings. Your audio stays saved.");
    case cloudConsentRequired:
        return L10N_KEY("Vesko",
            "Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your "
            "original stays saved.");
    case invalidModel:
        return L10N_KEY("Vesko", "Choose a model in Settings.");
    case audioTooLarge:
        return L10N_KEY("Vesko",
            "This audio is too large for one request. The original is saved. Use a shorter "
            "recording.");
    case invalidResponse:
        return L10N_KEY(
            "Vesko", "The provider returned an unreadable result. Your audio is saved.");
    case storage:
        return L10N_KEY("Vesko",
            "Vesko could not save this change. Check free disk space and access to the data "
            "folder.");
    case httpStatus:
        break;
    }
    switch (m_status) {
    case 401:
    case 403:
        return L10N_KEY("Vesko", "OpenRouter rejected this key. Check it in Settings.");
    case 402:
        return L10N_KEY("Vesko", "OpenRouter needs more credit. Top up your account, then retry.");
    case 429:
        return L10N_KEY("Vesko", "The provider is busy or its limit was reached. Try again later.");
    default:
        return L10N_KEY("Vesko",
            "The provider could not complete this request. Your audio is saved. Try again later.");
    }
}

} // namespace vesko
